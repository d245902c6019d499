#include "reference/server/class_table.h"

#include "reference/package/package_manager.h"
#include "reference/package/package_table.h"
#include "reference/package/property_package.h"

namespace reference {

namespace {

constexpr bool is64Bit = sizeof(void *) == 8;

constexpr ComClass classes[] = {
    {{&managerClass, "Verdanth Reference Packages",
      "Property packages for gases, air, refinery streams, aromatics, refrigerants, alcohols, and hydrocarbons with "
      "water"},
     is64Bit ? "Verdanth.ReferencePackages64" : "Verdanth.ReferencePackages32",
     managerCategory.id,
     [](const ComponentDescription &description) -> Component * { return new PackageManager(description); }},
    {{&standAloneClass, "Verdanth Natural Gas (stand-alone)", "Dry natural gas by the Peng-Robinson equation"},
     is64Bit ? "Verdanth.NaturalGas64" : "Verdanth.NaturalGas32",
     packageCategory.id,
     [](const ComponentDescription &description) -> Component * {
         return new PropertyPackage(description, naturalGas());
     }},
};

} // namespace

std::span<const ComClass> classTable() { return classes; }

} // namespace reference
