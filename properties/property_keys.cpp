#include "properties/property_keys.h"

#include <algorithm>
#include <string_view>
#include <utility>

WSTRMapKey::WSTRMapKey(WideString ownedText) : text(std::move(ownedText)) {}

LPCWSTR WSTRMapKey::GetKeyText() const { return text.c_str(); }

WSTRMapKeyString::WSTRMapKeyString(WideString name) : WSTRMapKey(std::move(name))
{
    std::transform(text.begin(), text.end(), text.begin(), LowerCharacter);
}

WSTRMapKeyStringNoDeriv::WSTRMapKeyStringNoDeriv(LPCWSTR lowerCasedName)
{
    const std::basic_string_view<WCHAR> name(lowerCasedName);
    text = name.substr(0, name.find(OLESTR('.')));
}

LowerName::LowerName(LPCWSTR name)
{
    if (!name)
        name = OLESTR("");
    std::size_t length = 0;
    for (; name[length] && length < inlineCapacity - 1; ++length)
        buffer[length] = LowerCharacter(name[length]);
    if (name[length]) {
        // The block takes what stands in the buffer, the rest of the name and the terminator.
        const std::size_t rest = std::basic_string_view<WCHAR>(name + length).size();
        start = new WCHAR[rest + inlineCapacity];
        std::copy(buffer, buffer + length, start);
        for (; name[length]; ++length)
            start[length] = LowerCharacter(name[length]);
    }
    start[length] = 0;
}

LowerName::~LowerName()
{
    if (start != buffer)
        delete[] start;
}

void LowerName::cutSuffix()
{
    WCHAR *end = start;
    while (*end && *end != OLESTR('.'))
        ++end;
    *end = 0;
}

std::uint64_t HashName(LPCWSTR keyText)
{
    std::uint64_t hash = 0x811C9DC5;
    for (; *keyText; ++keyText)
        hash = (hash * 0x1000193) ^ static_cast<std::uint16_t>(*keyText);
    return hash;
}

bool WSTRMapKeyEqual::operator()(const WSTRMapKey &a, const WSTRMapKey &b) const
{
    return std::basic_string_view<WCHAR>(a.GetKeyText()) == b.GetKeyText();
}
