#include "properties/property_map.h"

#include <memory>
#include <new>

bool PropertyValues::reallocate(std::uint32_t newCount)
{
    delete[] values;
    values = nullptr;
    count = newCount;
    if (newCount == 0)
        return true;
    values = new (std::nothrow) double[newCount];
    return values != nullptr;
}

bool PropertyMap::find(LPCWSTR name, PropertyValues *&found) const
{
    const LowerName lowerName(name);
    const auto place = entries.find(WSTRMapKeyPtr(lowerName.text()));
    if (place == entries.end())
        return false;
    found = place->second;
    return true;
}

const PropertyValues *PropertyMap::stored(LPCWSTR name) const
{
    PropertyValues *found = nullptr;
    if (!find(name, found) || !found)
        return nullptr;
    return found->values || found->count == 0 ? found : nullptr;
}

PropertyValues *&PropertyMap::slot(LPCWSTR name)
{
    return entries.try_emplace(WSTRMapKeyString(name ? name : OLESTR("")), nullptr).first->second;
}

PropertyValues *&PropertyMap::slot(const WSTRMapKey &key) { return slot(key.GetKeyText()); }

PropertyValues &PropertyMap::entry(LPCWSTR name)
{
    if (PropertyValues *found = nullptr; find(name, found) && found)
        return *found;                              // the usual case, without a key of its own
    auto made = std::make_unique<PropertyValues>(); // before the entry: none may be without
    PropertyValues *&values = slot(name);
    if (!values)
        values = made.release();
    return *values;
}

void PropertyMap::clear()
{
    ++clearings;
    for (auto &[key, values] : entries)
        delete values;
    entries.clear();
}
