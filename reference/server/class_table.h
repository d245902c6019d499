// The COM classes of the library, and what is registered of them.
#pragma once

#include "reference/com/component.h"

#include <span>
#include <string_view>

namespace reference {

// {F0FB3725-917D-4D88-B616-196260C727EA}
inline constexpr CLSID managerClass = {0xF0FB3725, 0x917D, 0x4D88, {0xB6, 0x16, 0x19, 0x62, 0x60, 0xC7, 0x27, 0xEA}};

// {8337DA1D-2C46-4715-9C96-CFCE8AE51506}
inline constexpr CLSID standAloneClass = {0x8337DA1D, 0x2C46, 0x4715, {0x9C, 0x96, 0xCF, 0xCE, 0x8A, 0xE5, 0x15, 0x06}};

struct ComClass {
    ComponentDescription description; // Name and Description are registered
    std::string_view programId; // of this width's library alone: both have classes of their own, but share these keys
    std::string_view category;  // in braces
    Component *(*create)(const ComponentDescription &description); // with one reference
};
std::span<const ComClass> classTable();

// A category of components, which any installer registers if it is missing.
struct ComponentCategory {
    std::string_view id; // in braces
    std::string_view description;
};
inline constexpr ComponentCategory managerCategory = {"{CF51E383-0110-4ED8-ACB7-B50CFDE6908E}",
                                                      "CAPE-OPEN 1.1 Property Package Manager"};
inline constexpr ComponentCategory packageCategory = {"{CF51E384-0110-4ED8-ACB7-B50CFDE6908E}",
                                                      "CAPE-OPEN 1.1 Property Package"};
inline constexpr ComponentCategory objectCategory = {"{678C09A1-7D66-11D2-A67D-00105A42887F}", "CAPE-OPEN Object"};
inline constexpr ComponentCategory componentCategories[] = {objectCategory, managerCategory, packageCategory};

} // namespace reference
