#include "platform/native/identifier_text.h"
#include "platform/native/com.h"
#include "platform/native/encoding.h"
#include "platform/native/registry.h"
#include "platform/native/registry_tree.h"
#include "platform/native/text.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

constexpr std::size_t identifierLength = 38; // with braces

// A task-memory copy; the result is null if there is no memory.
HRESULT copyText(std::u16string_view text, LPOLESTR *copy)
{
    *copy = static_cast<LPOLESTR>(CoTaskMemAlloc((text.size() + 1) * sizeof(OLECHAR)));
    if (!*copy)
        return E_OUTOFMEMORY;
    std::copy(text.begin(), text.end(), *copy);
    (*copy)[text.size()] = 0;
    return S_OK;
}

int hexadecimalDigit(OLECHAR c)
{
    if (c >= u'0' && c <= u'9')
        return c - u'0';
    if (c >= u'A' && c <= u'F')
        return c - u'A' + 10;
    if (c >= u'a' && c <= u'f')
        return c - u'a' + 10;
    return -1;
}

// Where each of the sixteen bytes stands in the text, in the order of the number's digits.
bool parseIdentifier(std::u16string_view text, GUID &id)
{
    constexpr std::u16string_view pattern = u"{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}";
    if (text.size() != pattern.size())
        return false;
    std::uint8_t bytes[16] = {};
    std::size_t digits = 0;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] != u'x') {
            if (text[i] != pattern[i])
                return false;
            continue;
        }
        const int digit = hexadecimalDigit(text[i]);
        if (digit < 0)
            return false;
        bytes[digits / 2] = static_cast<std::uint8_t>(bytes[digits / 2] * 16 + digit);
        ++digits;
    }
    id.Data1 = std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 | bytes[3];
    id.Data2 = static_cast<std::uint16_t>(bytes[4] << 8 | bytes[5]);
    id.Data3 = static_cast<std::uint16_t>(bytes[6] << 8 | bytes[7]);
    std::memcpy(id.Data4, bytes + 8, sizeof id.Data4);
    return true;
}

} // namespace

std::u16string native::identifierText(const GUID &id)
{
    char text[identifierLength + 1];
    std::snprintf(text, sizeof text, "{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}", id.Data1, id.Data2, id.Data3,
                  id.Data4[0], id.Data4[1], id.Data4[2], id.Data4[3], id.Data4[4], id.Data4[5], id.Data4[6],
                  id.Data4[7]);
    return toUtf16(text);
}

std::u16string native::classesText(std::u16string_view path)
{
    const std::shared_ptr<RegistryKey> key = classesRoot()->find(path);
    if (!key)
        return {};
    const auto value = key->values.find(std::u16string_view());
    if (value == key->values.end())
        return {};
    std::u16string text = textOfBytes(value->second.data);
    if (value->second.type == REG_SZ)
        return text;
    if (value->second.type != REG_EXPAND_SZ)
        return {};
    const std::string narrow = toUtf8(text);
    std::string expanded(ExpandEnvironmentStringsA(narrow.c_str(), nullptr, 0), '\0');
    ExpandEnvironmentStringsA(narrow.c_str(), expanded.data(), static_cast<DWORD>(expanded.size()));
    return toUtf16(expanded.c_str());
}

HRESULT CLSIDFromString(LPCOLESTR text, CLSID *classId)
{
    if (!classId)
        return E_INVALIDARG;
    *classId = {};
    if (!text)
        return S_OK;
    CLSID parsed;
    const bool isName = *text != u'{';
    if (!parseIdentifier(isName ? native::classesText(std::u16string(text) + u"\\CLSID") : std::u16string(text),
                         parsed))
        return CO_E_CLASSSTRING;
    *classId = parsed;
    return S_OK;
}

HRESULT StringFromCLSID(REFCLSID classId, LPOLESTR *text)
{
    return text ? copyText(native::identifierText(classId), text) : E_INVALIDARG;
}

int StringFromGUID2(REFGUID id, LPOLESTR text, int capacity)
{
    constexpr int size = identifierLength + 1;
    if (capacity < size)
        return 0;
    const std::u16string converted = native::identifierText(id);
    std::copy_n(converted.c_str(), size, text);
    return size;
}

HRESULT ProgIDFromCLSID(REFCLSID classId, LPOLESTR *text)
{
    if (!text)
        return E_INVALIDARG;
    *text = nullptr;
    const std::u16string name = native::classesText(u"CLSID\\" + native::identifierText(classId) + u"\\ProgID");
    return name.empty() ? REGDB_E_CLASSNOTREG : copyText(name, text);
}
