#include "platform/native/seam.h"
#include "tests/mex/message_box_calls.h"

namespace support {

namespace {
std::vector<MessageBoxCalls::Call> *noted = nullptr;
} // namespace

MessageBoxCalls::MessageBoxCalls()
{
    noted = &calls;
    seam::messageBox = note;
}

MessageBoxCalls::~MessageBoxCalls()
{
    seam::messageBox = nullptr;
    noted = nullptr;
}

int MessageBoxCalls::note(HWND owner, LPCWSTR text, LPCWSTR title, UINT style)
{
    noted->push_back({owner != nullptr, text, title, style});
    return IDOK;
}

} // namespace support
