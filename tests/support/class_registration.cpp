#include "tests/support/class_registration.h"

#include <gtest/gtest.h>

#include <cstring>

namespace support {

namespace {

WideString rootOf(RegistryView view) { return Wide(view == RegistryView::native ? "CLSID" : "WOW6432Node\\CLSID"); }

WideString pathOf(const RegisteredClass &entry) { return rootOf(entry.view) + Wide("\\") + entry.classIdText; }

void writeKey(const WideString &path, const WCHAR *valueName = nullptr, const RegistryValue *value = nullptr)
{
    HKEY key = nullptr;
    const LSTATUS created =
        RegCreateKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
    ASSERT_EQ(created, ERROR_SUCCESS) << Narrow(path);
    if (value) {
        EXPECT_EQ(RegSetValueExW(key, valueName, 0, value->type, value->bytes.data(),
                                 static_cast<DWORD>(value->bytes.size())),
                  ERROR_SUCCESS);
    }
    RegCloseKey(key);
}

bool hasKey(const WideString &path)
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return false;
    RegCloseKey(key);
    return true;
}

std::vector<WideString> subKeys(const WideString &path)
{
    std::vector<WideString> names;
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return names;
    WCHAR name[MAX_PATH];
    for (DWORD index = 0; RegEnumKeyW(key, index, name, MAX_PATH) == ERROR_SUCCESS; ++index)
        names.emplace_back(name);
    RegCloseKey(key);
    return names;
}

void removeThermoClasses(RegistryView view)
{
    for (const WideString &classIdText : subKeys(rootOf(view))) {
        const WideString path = rootOf(view) + Wide("\\") + classIdText;
        const WideString categories = path + Wide("\\Implemented Categories");
        if (!hasKey(categories)) // as most classes
            continue;
        const WideString within = categories + Wide("\\");
        if (hasKey(within + Wide(managerCategory)) || hasKey(within + Wide(packageCategory)))
            RegDeleteTreeW(HKEY_CLASSES_ROOT, path.c_str());
    }
}

RegisteredClass namedClass(const AnyText &name, const AnyText &classIdText, const char *category)
{
    RegisteredClass entry;
    entry.classIdText = classIdText.wide;
    entry.categories = {Wide(category)};
    entry.name = TextValue(name);
    return entry;
}

} // namespace

RegistryValue TextValue(AnyText text)
{
    const WideString &wide = text.wide;
    RegistryValue value = {REG_SZ, std::vector<BYTE>((wide.size() + 1) * sizeof(WCHAR))};
    std::memcpy(value.bytes.data(), wide.c_str(), value.bytes.size());
    return value;
}

RegisteredClass ManagerClass(AnyText name, AnyText classIdText)
{
    return namedClass(name, classIdText, managerCategory);
}

RegisteredClass PackageClass(AnyText name, AnyText classIdText)
{
    return namedClass(name, classIdText, packageCategory);
}

RegisteredClass In32BitView(RegisteredClass entry)
{
    entry.view = RegistryView::wow64;
    return entry;
}

ClassRegistration::ClassRegistration()
{
    removeThermoClasses(RegistryView::native);
    removeThermoClasses(RegistryView::wow64);
}

ClassRegistration::~ClassRegistration()
{
    for (const WideString &path : paths)
        RegDeleteTreeW(HKEY_CLASSES_ROOT, path.c_str());
}

void ClassRegistration::add(const RegisteredClass &entry)
{
    const WideString path = pathOf(entry);
    paths.push_back(path);
    writeKey(path);
    for (const WideString &category : entry.categories)
        writeKey(path + Wide("\\Implemented Categories\\") + category);
    if (entry.described)
        writeKey(path + Wide("\\CapeDescription"), OLESTR("Name"), entry.name ? &*entry.name : nullptr);
    if (entry.progId) {
        const RegistryValue progId = TextValue(*entry.progId);
        writeKey(path + Wide("\\ProgID"), nullptr, &progId);
    }
}

void ClassRegistration::remove(const RegisteredClass &entry)
{
    EXPECT_EQ(RegDeleteTreeW(HKEY_CLASSES_ROOT, pathOf(entry).c_str()), ERROR_SUCCESS);
}

WideString ClassIdText(REFCLSID classId)
{
    WCHAR text[40];
    StringFromGUID2(classId, text, 40);
    return text;
}

} // namespace support
