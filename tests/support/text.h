// Texts in tests are written as UTF-8 literals and become 16-bit here.
#pragma once

#include "platform/platform.h"

#include <string>
#include <string_view>
#include <vector>

namespace support {

WideString Wide(std::string_view utf8);
std::string Narrow(const WideString &text); // UTF-8

// A text in either form, for arguments.
class AnyText {
public:
    AnyText(const char *utf8) : wide(Wide(utf8)) {}
    AnyText(const std::string &utf8) : wide(Wide(utf8)) {}
    AnyText(WideString text) : wide(std::move(text)) {}
    AnyText(const WCHAR *text) : wide(text) {}

    WideString wide;
};

// What a list of names reads like, for comparing whole lists in one expectation.
std::vector<WideString> Names(std::initializer_list<AnyText> texts);

} // namespace support
