#include "isolation/text.h"

#include "platform/windows/code_page.h"

std::string Utf8(LPCWSTR text) { return Narrow(CP_UTF8, text); }

std::string CodePageText(LPCWSTR text) { return Narrow(CP_THREAD_ACP, text); }

// By its manifest the program has UTF-8 for its code page where Windows knows of that.
std::string Utf8OfCodePage(const char *text)
{
    if (GetACP() == CP_UTF8)
        return text;
    return Utf8(Widen(CP_THREAD_ACP, text).c_str());
}
