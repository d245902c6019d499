// The boxes are dialogs that wait in the thread that shows them; another thread presses OK.
#include "tests/support/message_boxes.h"

#include <atomic>
#include <chrono>
#include <mutex>
#include <thread>

namespace support {

namespace {

constexpr int textControl = 0xFFFF;

WideString textOf(HWND window)
{
    WideString text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

} // namespace

struct MessageBoxes::Watch {
    Watch() : thread([this] { run(); }) {}
    ~Watch()
    {
        stop = true;
        thread.join();
    }

    void run()
    {
        while (!stop) {
            press();
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
    }

    void press()
    {
        for (HWND box = nullptr; (box = FindWindowExW(nullptr, box, L"#32770", nullptr));) {
            DWORD process = 0;
            GetWindowThreadProcessId(box, &process);
            HWND text = GetDlgItem(box, textControl);
            if (process != GetCurrentProcessId() || !text || !IsWindowVisible(box))
                continue;
            {
                std::lock_guard lock(mutex);
                shown.push_back({textOf(text), textOf(box)});
            }
            SendMessageW(box, WM_COMMAND, IDOK, 0);
            while (IsWindow(box) && !stop)
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            return;
        }
    }

    mutable std::mutex mutex;
    std::vector<ShownMessage> shown;
    std::atomic<bool> stop = false;
    std::thread thread;
};

MessageBoxes::MessageBoxes() : watch(std::make_unique<Watch>()) {}

MessageBoxes::~MessageBoxes() = default;

std::vector<ShownMessage> MessageBoxes::shown() const
{
    std::lock_guard lock(watch->mutex);
    return watch->shown;
}

} // namespace support
