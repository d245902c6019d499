// Classes in the registry, as the installer of a CAPE-OPEN component leaves them there.
#pragma once

#include "platform/platform.h"
#include "tests/support/text.h"

#include <optional>
#include <vector>

namespace support {

inline constexpr const char *managerCategory = "{CF51E383-0110-4ed8-ACB7-B50CFDE6908E}";
inline constexpr const char *packageCategory = "{CF51E384-0110-4ed8-ACB7-B50CFDE6908E}";

enum class RegistryView { native, wow64 }; // "CLSID" and "WOW6432Node\CLSID"

// A registry value as it lies there.
struct RegistryValue {
    DWORD type;
    std::vector<BYTE> bytes;
};

RegistryValue TextValue(AnyText text); // REG_SZ with its terminator

struct RegisteredClass {
    WideString classIdText; // braces included; any text will do for a class that nobody creates
    RegistryView view = RegistryView::native;
    std::vector<WideString> categories;
    bool described = true;             // has a CapeDescription at all
    std::optional<RegistryValue> name; // of CapeDescription
    std::optional<WideString> progId;
};

RegisteredClass ManagerClass(AnyText name, AnyText classIdText);
RegisteredClass PackageClass(AnyText name, AnyText classIdText);
RegisteredClass In32BitView(RegisteredClass entry);

// Writes classes and removes them again. What it finds of managers and packages when it is made,
// it removes for good: a test sees its own classes only.
class ClassRegistration {
public:
    ClassRegistration();
    ~ClassRegistration();
    ClassRegistration(const ClassRegistration &) = delete;
    ClassRegistration &operator=(const ClassRegistration &) = delete;

    void add(const RegisteredClass &entry);
    void remove(const RegisteredClass &entry);

private:
    std::vector<WideString> paths; // of what was added
};

WideString ClassIdText(REFCLSID classId); // with braces

} // namespace support
