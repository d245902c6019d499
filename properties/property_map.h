// Values by property name: what a material stores for its Overall phase and for each phase.
#pragma once

#include "properties/property_keys.h"

#include <cstdint>
#include <unordered_map>

// One stored property; the map owns it through a pointer.
struct PropertyValues {
    std::uint32_t count = 0;
    double *values = nullptr; // `count` doubles, owned; null when count is 0
    std::int32_t basis = 0;   // low bit 1: set on a mass basis; 0: mole basis or none

    PropertyValues() = default;
    ~PropertyValues() { delete[] values; }
    PropertyValues(const PropertyValues &) = delete;
    PropertyValues &operator=(const PropertyValues &) = delete;

    // Makes room for `newCount` doubles, keeping an array of that size; the contents are undefined.
    // False when memory is out; then count is newCount and values null.
    bool resize(std::uint32_t newCount)
    {
        return (count == newCount && (values || newCount == 0)) || reallocate(newCount);
    }

private:
    bool reallocate(std::uint32_t newCount);
};

class PropertyMap {
public:
    using Entries = std::unordered_map<WSTRMapKeyString, PropertyValues *, WSTRMapKeyHash, WSTRMapKeyEqual>;

    PropertyMap() = default;
    ~PropertyMap() { clear(); }
    PropertyMap(const PropertyMap &) = delete;
    PropertyMap &operator=(const PropertyMap &) = delete;

    // The entry of a name, without regard to case. False leaves `found` alone. Allocates nothing
    // for names of up to 127 characters. `found` stays the map's.
    bool find(LPCWSTR name, PropertyValues *&found) const;

    // The entry of a name if it has its values, or null: an entry whose array could not be had
    // counts as none.
    const PropertyValues *stored(LPCWSTR name) const;

    // The place of the pointer of a name's entry, made with a null pointer when there is none.
    PropertyValues *&slot(LPCWSTR name);
    PropertyValues *&slot(const WSTRMapKey &key);

    // The entry of a name, made empty when there is none.
    PropertyValues &entry(LPCWSTR name);

    void clear();

    // Grows with every clearing: an entry that was found stays where it is until then.
    std::uint32_t generation() const { return clearings; }

    bool empty() const { return entries.empty(); }
    const Entries &all() const { return entries; }

private:
    Entries entries;
    std::uint32_t clearings = 0;
};
