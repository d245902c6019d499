// The basis argument of the material's methods.
#pragma once

#include "platform/platform.h"

#include <cstdint>

// Not the coding of the stored tags, which are 0 mole and 1 mass.
enum BasisCode : std::int32_t {
    NoBasis = 0,
    MassBasis = 1,
    MoleBasis = 2,
};

// A null or empty text is no basis; "mole" and "mass" count in any case. False with the reason in
// `errorText` for any other word; `code` is then left alone.
bool ParseBasis(LPCWSTR basisText, BasisCode &code, WideString &errorText);
