// The tree of keys behind the registry calls. Names of keys and values keep their spelling and are
// found without regard to case.
#pragma once

#include "platform/native/case_folding.h"
#include "platform/native/types.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace native {

struct RegistryValue {
    DWORD type;
    std::vector<BYTE> data;
};

// The bytes of a text value, terminator included, and back: all that is there, and the text in front of the terminator.
std::vector<BYTE> bytesOfText(std::u16string_view text);
std::u16string unitsOfBytes(const std::vector<BYTE> &data);
std::u16string textOfBytes(const std::vector<BYTE> &data);

struct RegistryKey {
    std::map<std::u16string, std::shared_ptr<RegistryKey>, FoldedLess> keys;
    std::map<std::u16string, RegistryValue, FoldedLess> values; // the default value has no name
    bool deleted = false;

    // The name of the n-th sub-key; null behind the last.
    const std::u16string *nameAt(std::size_t index) const;

    // The key at a path with backslashes below this one; null if it isn't there.
    std::shared_ptr<RegistryKey> find(std::u16string_view path) const;

    // The same, with what is missing on the way created.
    static std::shared_ptr<RegistryKey> create(std::shared_ptr<RegistryKey> from, std::u16string_view path);

    // Removes the key at a path and all below it, also for those who have it open.
    bool remove(std::u16string_view path);

    // Removes all sub-keys and values.
    void clear();

private:
    // The names in order, made for the first that is asked for and dropped when a key comes or
    // goes: an enumeration of many keys must not walk to each from the first.
    mutable std::vector<const std::u16string *> order;
};

// The root: the class registry, read from the files beside the library when first asked for.
std::shared_ptr<RegistryKey> classesRoot();

} // namespace native
