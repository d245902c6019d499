// What has to hold of a package's refusals and of the equilibria that it writes.
#pragma once

#include "fuzz/reference_package/material.h"

namespace fuzz {

// What a package refuses with an error of CAPE-OPEN it has words for.
void CheckFailure(IUnknown &object, HRESULT result);

// The phases that were written, if any, hold all of the feed.
void CheckEquilibrium(const Material &material);

} // namespace fuzz
