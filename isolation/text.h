// Texts for the client, which are UTF-8 whatever the code page.
#pragma once

#include "platform/platform.h"

#include <string>

std::string Utf8(LPCWSTR text);               // null is empty
std::string Utf8OfCodePage(const char *text); // of the thread's code page, which the library's texts have
std::string CodePageText(LPCWSTR text);       // as the library's texts
