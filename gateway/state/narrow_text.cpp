#include "gateway/state/narrow_text.h"

#include <limits>
#include <new>

namespace {

HRESULT resultOfError(DWORD error)
{
    constexpr DWORD win32Facility = 0x80070000u;
    return static_cast<HRESULT>(error == 0 ? 0 : (error & 0xFFFFu) | win32Facility);
}

} // namespace

NarrowText::NarrowText(LPCWSTR text)
{
    if (!text)
        return;
    constexpr int bytesPerUnit = 4;
    const std::size_t units = std::char_traits<WCHAR>::length(text) + 1;
    if (units > static_cast<std::size_t>(std::numeric_limits<int>::max() / bytesPerUnit))
        throw NarrowTextFailure{E_INVALIDARG};
    const int length = static_cast<int>(units);
    int capacity = length * bytesPerUnit;
    makeRoom(capacity);
    if (WideCharToMultiByte(CP_THREAD_ACP, 0, text, length, narrow, capacity, nullptr, nullptr) != 0)
        return;
    if (GetLastError() == ERROR_INSUFFICIENT_BUFFER) {
        capacity = WideCharToMultiByte(CP_THREAD_ACP, 0, text, length, nullptr, 0, nullptr, nullptr);
        makeRoom(capacity);
        if (WideCharToMultiByte(CP_THREAD_ACP, 0, text, length, narrow, capacity, nullptr, nullptr) != 0)
            return;
    }
    throw NarrowTextFailure{resultOfError(GetLastError())};
}

void NarrowText::makeRoom(int capacity)
{
    if (capacity < 0)
        throw NarrowTextFailure{E_INVALIDARG};
    narrow = buffer;
    if (capacity <= inlineCapacity)
        return;
    block.reset(new (std::nothrow) char[static_cast<std::size_t>(capacity)]);
    if (!block)
        throw NarrowTextFailure{E_OUTOFMEMORY};
    narrow = block.get();
}
