#include "platform/native/registry_tree.h"

#include <algorithm>
#include <cstring>

namespace {

// Takes the first name off a path; empty names, as of a trailing backslash, are passed over.
std::u16string_view takeName(std::u16string_view &path)
{
    path.remove_prefix(std::min(path.find_first_not_of(u'\\'), path.size()));
    const std::u16string_view name = path.substr(0, path.find(u'\\'));
    path.remove_prefix(name.size());
    return name;
}

} // namespace

std::vector<BYTE> native::bytesOfText(std::u16string_view text)
{
    std::vector<BYTE> data((text.size() + 1) * sizeof(char16_t), 0);
    std::memcpy(data.data(), text.data(), text.size() * sizeof(char16_t));
    return data;
}

std::u16string native::unitsOfBytes(const std::vector<BYTE> &data)
{
    std::u16string units(data.size() / sizeof(char16_t), u'\0');
    if (!units.empty()) // no bytes need not have an address
        std::memcpy(units.data(), data.data(), units.size() * sizeof(char16_t));
    return units;
}

std::u16string native::textOfBytes(const std::vector<BYTE> &data)
{
    std::u16string text = unitsOfBytes(data);
    if (const std::size_t end = text.find(u'\0'); end != std::u16string::npos)
        text.resize(end);
    return text;
}

namespace native {

std::shared_ptr<RegistryKey> RegistryKey::find(std::u16string_view path) const
{
    std::shared_ptr<RegistryKey> found;
    const RegistryKey *key = this;
    for (std::u16string_view name = takeName(path); !name.empty(); name = takeName(path)) {
        const auto child = key->keys.find(name);
        if (child == key->keys.end())
            return nullptr;
        found = child->second;
        key = found.get();
    }
    return found;
}

const std::u16string *RegistryKey::nameAt(std::size_t index) const
{
    if (order.empty())
        for (const auto &[name, child] : keys)
            order.push_back(&name);
    return index < order.size() ? order[index] : nullptr;
}

std::shared_ptr<RegistryKey> RegistryKey::create(std::shared_ptr<RegistryKey> from, std::u16string_view path)
{
    for (std::u16string_view name = takeName(path); !name.empty(); name = takeName(path)) {
        from->order.clear();
        std::shared_ptr<RegistryKey> &child = from->keys[std::u16string(name)];
        if (!child)
            child = std::make_shared<RegistryKey>();
        from = std::shared_ptr<RegistryKey>(child);
    }
    return from;
}

bool RegistryKey::remove(std::u16string_view path)
{
    const std::shared_ptr<RegistryKey> key = find(path);
    if (!key)
        return false;
    while (!path.empty() && path.back() == u'\\')
        path.remove_suffix(1);
    const std::size_t split = path.rfind(u'\\');
    key->clear();
    key->deleted = true;
    const auto erase = [](RegistryKey &parent, std::u16string_view name) {
        parent.order.clear();
        parent.keys.erase(parent.keys.find(name));
    };
    if (split == std::u16string_view::npos)
        erase(*this, path);
    else if (const auto parent = find(path.substr(0, split)))
        erase(*parent, path.substr(split + 1));
    return true;
}

void RegistryKey::clear()
{
    for (auto &[name, child] : keys) {
        child->clear();
        child->deleted = true;
    }
    order.clear();
    keys.clear();
    values.clear();
}

} // namespace native
