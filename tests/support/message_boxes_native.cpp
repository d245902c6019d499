#include "platform/native/seam.h"
#include "tests/support/message_boxes.h"

namespace support {

struct MessageBoxes::Watch {
    std::vector<ShownMessage> shown;
};

namespace {

std::vector<ShownMessage> *listener = nullptr;

int listen(HWND, LPCWSTR text, LPCWSTR caption, UINT)
{
    listener->push_back({text ? text : OLESTR(""), caption ? caption : OLESTR("")});
    return IDOK;
}

} // namespace

MessageBoxes::MessageBoxes() : watch(std::make_unique<Watch>())
{
    listener = &watch->shown;
    seam::messageBox = listen;
}

MessageBoxes::~MessageBoxes()
{
    seam::messageBox = nullptr;
    listener = nullptr;
}

std::vector<ShownMessage> MessageBoxes::shown() const { return watch->shown; }

} // namespace support
