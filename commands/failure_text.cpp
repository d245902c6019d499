#include "commands/failure_text.h"

void AppendNumber(WideString &text, double number)
{
    constexpr std::size_t capacity = 512;
    WCHAR buffer[capacity];
    swprintf(buffer, capacity, OLESTR("%lg"), number);
    text += buffer;
}
