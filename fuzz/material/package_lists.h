// A package's compounds and phases, and the lists in which it tells them.
#pragma once

#include "fuzz/model/material.h"
#include "fuzz/support/package_object.h"

#include <array>

namespace fuzz {

// Up to four compounds and phases, whose labels may be alike or empty, and weights that may be missing.
model::Package AnyContents(Input &input);

// In the order of GetCompoundList and GetPhaseList; each list is another, lest one pass for its neighbor.
std::array<ListAccount, 6> CompoundLists(const model::Package &package);
std::array<ListAccount, 3> PhaseLists(const model::Package &package);

// A package that gives its lists.
class ListingPackage : public PackageObject {
public:
    explicit ListingPackage(Input &input) : contents(AnyContents(input)) {}

    HRESULT getCompoundList(VARIANT *(&lists)[6]) override;
    HRESULT getPhaseList(VARIANT *(&lists)[3]) override;

    model::Package contents;
};

} // namespace fuzz
