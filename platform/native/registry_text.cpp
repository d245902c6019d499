#include "platform/native/registry_text.h"
#include "platform/native/encoding.h"
#include "platform/native/registry.h"

#include <algorithm>
#include <cstring>
#include <optional>

namespace {

using View = std::u16string_view;

bool isBlank(char16_t c) { return c == u' ' || c == u'\t' || c == u'\r'; }

View trimmed(View text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

bool sameFolded(View a, View b) { return native::compareFolded(a, b) == 0; }

bool takePrefix(View &text, View prefix)
{
    if (text.size() < prefix.size() || !sameFolded(text.substr(0, prefix.size()), prefix))
        return false;
    text.remove_prefix(prefix.size());
    return true;
}

// Takes one line off; a line of byte values goes on where it ends in a backslash.
std::u16string takeLine(View &text)
{
    std::u16string line;
    for (;;) {
        const std::size_t end = std::min(text.find(u'\n'), text.size());
        const View part = trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        line += part;
        const bool goesOn = !line.empty() && line.back() == u'\\' && line.front() != u'[' && line.front() != u';';
        if (!goesOn || text.empty())
            return line;
        line.pop_back();
    }
}

// Takes a text between quotes off, with \\ and \" undone.
std::optional<std::u16string> takeQuoted(View &text)
{
    std::u16string result;
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] == u'"') {
            text.remove_prefix(i + 1);
            return result;
        }
        if (text[i] == u'\\' && i + 1 < text.size())
            ++i;
        result += text[i];
    }
    return std::nullopt;
}

// Takes hexadecimal digits off.
std::optional<DWORD> takeHexadecimal(View &text)
{
    DWORD number = 0;
    std::size_t digits = 0;
    for (; digits < text.size() && digits < 8; ++digits) {
        const char16_t c = native::upperCase(text[digits]);
        if (c >= u'0' && c <= u'9')
            number = number * 16 + (c - u'0');
        else if (c >= u'A' && c <= u'F')
            number = number * 16 + (c - u'A' + 10);
        else
            break;
    }
    if (digits == 0)
        return std::nullopt;
    text.remove_prefix(digits);
    return number;
}

// The byte list of hex: and hex(n): values.
std::optional<std::vector<BYTE>> readBytes(View text)
{
    std::vector<BYTE> bytes;
    for (text = trimmed(text); !text.empty(); text = trimmed(text)) {
        const std::optional<DWORD> byte = takeHexadecimal(text);
        if (!byte || *byte > 0xFF)
            return std::nullopt;
        bytes.push_back(static_cast<BYTE>(*byte));
        text = trimmed(text);
        if (!text.empty() && text.front() != u',')
            return std::nullopt;
        text.remove_prefix(std::min<std::size_t>(1, text.size()));
    }
    return bytes;
}

std::optional<native::RegistryValue> readValue(View text)
{
    if (!text.empty() && text.front() == u'"') {
        const std::optional<std::u16string> string = takeQuoted(text);
        if (!string)
            return std::nullopt;
        return native::RegistryValue{REG_SZ, native::bytesOfText(*string)};
    }
    if (takePrefix(text, u"dword:")) {
        const std::optional<DWORD> number = takeHexadecimal(text);
        if (!number)
            return std::nullopt;
        std::vector<BYTE> data(sizeof *number);
        std::memcpy(data.data(), &*number, sizeof *number);
        return native::RegistryValue{REG_DWORD, std::move(data)};
    }
    DWORD type = REG_BINARY;
    if (takePrefix(text, u"hex(")) {
        const std::optional<DWORD> given = takeHexadecimal(text);
        if (!given || !takePrefix(text, u"):"))
            return std::nullopt;
        type = *given;
    } else if (!takePrefix(text, u"hex:")) {
        return std::nullopt;
    }
    std::optional<std::vector<BYTE>> data = readBytes(text);
    if (!data)
        return std::nullopt;
    return native::RegistryValue{type, std::move(*data)};
}

// The path below the classes root; nothing for a key that stands elsewhere.
std::optional<View> pathBelowClasses(View path)
{
    for (const View root : {View(u"HKEY_CLASSES_ROOT"), View(u"HKEY_LOCAL_MACHINE\\Software\\Classes")}) {
        View rest = path;
        if (takePrefix(rest, root) && !rest.empty() && rest.front() == u'\\')
            return rest.substr(1);
    }
    return std::nullopt;
}

bool isServerKey(View path) { return sameFolded(path.substr(path.rfind(u'\\') + 1), u"InprocServer32"); }

// A path that starts neither at a root nor in a drive, nor with a variable of the environment.
bool isRelative(View path)
{
    return !path.empty() && path[0] != u'\\' && path[0] != u'/' && path[0] != u'%' &&
           !(path.size() > 1 && path[1] == u':');
}

class Reader {
public:
    Reader(View libraryFolder, const std::shared_ptr<native::RegistryKey> &root) : folder(libraryFolder), classes(root)
    {
    }

    void readLine(View line)
    {
        if (line.empty() || line.front() == u';')
            return;
        if (line.front() == u'[')
            readKey(line);
        else if (key)
            readEntry(line);
    }

private:
    void readKey(View line)
    {
        key = nullptr;
        const std::size_t end = line.rfind(u']');
        if (end == View::npos)
            return;
        line = line.substr(1, end - 1);
        const bool remove = takePrefix(line, u"-");
        const std::optional<View> path = pathBelowClasses(line);
        if (!path)
            return;
        if (remove) {
            classes->remove(*path);
            return;
        }
        key = native::RegistryKey::create(classes, *path);
        isServer = isServerKey(*path);
    }

    void readEntry(View line)
    {
        std::optional<std::u16string> name;
        if (takePrefix(line, u"@"))
            name = u"";
        else if (line.front() == u'"')
            name = takeQuoted(line);
        line = trimmed(line);
        if (!name || !takePrefix(line, u"="))
            return;
        line = trimmed(line);
        if (line == u"-") {
            key->values.erase(*name);
            return;
        }
        std::optional<native::RegistryValue> value = readValue(line);
        if (!value)
            return;
        if (isServer && name->empty())
            makeAbsolute(*value);
        key->values[*name] = std::move(*value);
    }

    void makeAbsolute(native::RegistryValue &value) const
    {
        const std::u16string path = native::textOfBytes(value.data);
        if (isRelative(path))
            value.data = native::bytesOfText(std::u16string(folder) + u'\\' + path);
    }

    View folder;
    std::shared_ptr<native::RegistryKey> classes;
    std::shared_ptr<native::RegistryKey> key; // of the section being read; null where none is wanted
    bool isServer = false;
};

} // namespace

std::u16string native::decodeRegistryFile(std::string_view bytes)
{
    if (bytes.starts_with("\xFF\xFE")) {
        std::u16string text(bytes.size() / 2 - 1, u'\0');
        std::memcpy(text.data(), bytes.data() + 2, text.size() * 2);
        return text;
    }
    if (bytes.starts_with("\xEF\xBB\xBF"))
        bytes.remove_prefix(3);
    return toUtf16(bytes);
}

void native::readRegistryText(View text, View folder, const std::shared_ptr<RegistryKey> &classes)
{
    Reader reader(folder, classes);
    while (!text.empty())
        reader.readLine(takeLine(text));
}
