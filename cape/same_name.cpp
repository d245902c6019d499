#include "cape/same_name.h"

namespace {

constexpr bool isPlainOrEnd(WCHAR c) { return c == 0 || (c >= 0x20 && c < 0x7F); }

constexpr WCHAR upperPlainCharacter(WCHAR c)
{
    return c >= OLESTR('a') && c <= OLESTR('z') ? static_cast<WCHAR>(c - OLESTR('a') + OLESTR('A')) : c;
}

} // namespace

bool SameName(LPCWSTR a, LPCWSTR b)
{
    if (!a)
        return !b || *b == 0;
    if (!b)
        return *a == 0;
    // Packages are asked for phases and properties in a loop, and lstrcmpiW is slow. Plain letters
    // differ by case alone whatever the user's language says of its i; two plain characters that
    // differ settle the matter, since only characters beyond them can count as nothing or as two.
    LPCWSTR p = a;
    LPCWSTR q = b;
    for (; upperPlainCharacter(*p) == upperPlainCharacter(*q); ++p, ++q)
        if (*p == 0)
            return true;
    if (isPlainOrEnd(*p) && isPlainOrEnd(*q))
        return false;
    return lstrcmpiW(a, b) == 0;
}
