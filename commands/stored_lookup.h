// The entries of a list of names in one store. Each is looked up once, and again only after the
// store was cleared.
#pragma once

#include "properties/property_map.h"

#include <cstdint>
#include <vector>

class StoredLookup {
public:
    StoredLookup(const PropertyMap &lookedUpIn, std::size_t nameCount)
        : store(lookedUpIn), entries(nameCount, nullptr), generation(lookedUpIn.generation())
    {
    }

    // The entry of name `index` if it has its values, or null.
    const PropertyValues *at(std::size_t index, LPCWSTR name)
    {
        if (store.generation() != generation) {
            entries.assign(entries.size(), nullptr);
            generation = store.generation();
        }
        PropertyValues *&entry = entries[index];
        if (!entry && !store.find(name, entry))
            return nullptr;
        return entry && (entry->values || entry->count == 0) ? entry : nullptr;
    }

private:
    const PropertyMap &store;
    std::vector<PropertyValues *> entries;
    std::uint32_t generation;
};
