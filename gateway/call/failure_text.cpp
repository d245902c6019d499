#include "gateway/call/failure_text.h"

WideString NumberText(double number)
{
    constexpr std::size_t capacity = 512;
    WCHAR buffer[capacity];
    swprintf(buffer, capacity, OLESTR("%lg"), number);
    return buffer;
}
