// BSTRs: the length in bytes stands in the four bytes before the text. The block starts eight bytes
// before it, so that the text is aligned as malloc aligns.
#include "platform/native/allocation.h"
#include "platform/native/automation.h"
#include "platform/native/ownership.h"
#include "platform/native/text.h"

#include <cstring>

namespace {

constexpr std::size_t headerSize = 8;
constexpr std::size_t maximumBytes = 0x7FFFFFF0;

char *blockOf(BSTR text) { return reinterpret_cast<char *>(text) - headerSize; }

// The text is left as it comes; both the last byte and the terminator are zero.
BSTR allocateBytes(std::size_t bytes)
{
    if (bytes > maximumBytes)
        return nullptr;
    const std::size_t units = (bytes + sizeof(OLECHAR) - 1) / sizeof(OLECHAR);
    char *block = static_cast<char *>(native::allocate(headerSize + (units + 1) * sizeof(OLECHAR)));
    if (!block)
        return nullptr;
    const auto prefix = static_cast<std::uint32_t>(bytes);
    std::memcpy(block + headerSize - sizeof prefix, &prefix, sizeof prefix);
    BSTR text = reinterpret_cast<BSTR>(block + headerSize);
    if (units > 0)
        text[units - 1] = 0;
    text[units] = 0;
    return text;
}

} // namespace

BSTR SysAllocString(const OLECHAR *text)
{
    return text ? SysAllocStringLen(text, static_cast<UINT>(lstrlenW(text))) : nullptr;
}

BSTR SysAllocStringLen(const OLECHAR *text, UINT length)
{
    BSTR result = allocateBytes(static_cast<std::size_t>(length) * sizeof(OLECHAR));
    if (result && text)
        std::memcpy(result, text, static_cast<std::size_t>(length) * sizeof(OLECHAR));
    return result;
}

void SysFreeString(BSTR text)
{
    if (text)
        std::free(blockOf(text));
}

UINT SysStringByteLen(BSTR text)
{
    if (!text)
        return 0;
    std::uint32_t bytes = 0;
    std::memcpy(&bytes, reinterpret_cast<const char *>(text) - sizeof bytes, sizeof bytes);
    return bytes;
}

UINT SysStringLen(BSTR text) { return SysStringByteLen(text) / sizeof(OLECHAR); }

bool native::copyString(BSTR source, BSTR &copy)
{
    copy = nullptr;
    if (!source)
        return true;
    const UINT bytes = SysStringByteLen(source);
    copy = allocateBytes(bytes);
    if (copy && bytes > 0)
        std::memcpy(copy, source, bytes);
    return copy != nullptr;
}
