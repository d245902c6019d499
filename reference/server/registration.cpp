#include "reference/server/registration.h"

#include "reference/package/package_table.h"

namespace reference {

namespace {

struct NamedText {
    std::string_view name;
    std::string_view text;
};

// The values of CapeDescription that are the same for all classes.
constexpr NamedText commonDescription[] = {
    {"CapeVersion", "1.1"},
    {"ComponentVersion", VERDANTH_REFERENCE_VERSION},
    {"VendorURL", "https://verdanth.example"},
    {"About", "Reference property packages of Verdanth"},
};

WideString identifierText(const CLSID &id)
{
    OLECHAR text[39];
    StringFromGUID2(id, text, 39);
    return text;
}

WideString classKey(const ComClass &entry) { return wide("CLSID\\") + identifierText(*entry.description.classId); }

bool describeClass(const ComClass &entry, const WideString &libraryPath, const RegistryWriter &write)
{
    const WideString key = classKey(entry);
    const WideString none;
    const WideString name = wide(entry.description.name);
    const WideString capeKey = key + wide("\\CapeDescription");
    const WideString categories = key + wide("\\Implemented Categories\\");
    const bool described = write(key, none, name) && write(key + wide("\\InprocServer32"), none, libraryPath) &&
                           write(key + wide("\\InprocServer32"), wide("ThreadingModel"), wide("Apartment")) &&
                           write(key + wide("\\ProgID"), none, wide(entry.programId)) &&
                           write(categories + wide(objectCategory.id), none, none) &&
                           write(categories + wide(entry.category), none, none) && write(capeKey, wide("Name"), name) &&
                           write(capeKey, wide("Description"), wide(entry.description.description));
    if (!described)
        return false;
    for (const NamedText &value : commonDescription)
        if (!write(capeKey, wide(value.name), wide(value.text)))
            return false;
    if (entry.category == managerCategory.id)
        for (const PackageDefinition &package : packageTable()) {
            const WideString packageKey =
                key + wide("\\PropertyPackages\\") + wide(package.name) + wide("\\CapeDescription");
            if (!write(packageKey, wide("Name"), wide(package.name)) ||
                !write(packageKey, wide("Description"), wide(package.description)))
                return false;
        }
    const WideString program = wide(entry.programId);
    return write(program, none, name) &&
           write(program + wide("\\CLSID"), none, identifierText(*entry.description.classId));
}

} // namespace

bool describeRegistration(const WideString &libraryPath, const RegistryWriter &write)
{
    for (const ComponentCategory &category : componentCategories)
        if (!write(wide("Component Categories\\") + wide(category.id), wide("409"), wide(category.description)))
            return false;
    for (const ComClass &entry : classTable())
        if (!describeClass(entry, libraryPath, write))
            return false;
    return true;
}

std::vector<WideString> registeredKeys()
{
    std::vector<WideString> keys;
    for (const ComClass &entry : classTable()) {
        keys.push_back(classKey(entry));
        keys.push_back(wide(entry.programId));
    }
    return keys;
}

} // namespace reference
