// UTF-8 and UTF-16. Units that are not valid text become the replacement character U+FFFD.
#pragma once

#include <string>
#include <string_view>

namespace native {

// `replaced`, if given, tells whether there was something invalid.
std::string toUtf8(std::u16string_view text, bool *replaced = nullptr);
std::u16string toUtf16(std::string_view text);

} // namespace native
