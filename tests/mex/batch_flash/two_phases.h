// What packages find and calculate in tests of the batch flash.
#pragma once

#include "tests/support/package_test.h"

#include <string_view>

namespace support {

// A vapor and a liquid of compounds of 18 and 36 g/mol, by either basis the same. Of the vapor the mole fractions are
// 2/3 and 1/3, the mass fractions 1/2 and 1/2, at 24 g/mol; of the liquid 1/3 and 2/3, 1/5 and 4/5, at 30 g/mol.
inline std::vector<MaterialClient::Phase> VaporAndLiquid(std::string_view basis, double vapor, double liquid)
{
    if (basis == "mole")
        return {{"Vapor", vapor, {2 * third, third}}, {"Liquid", liquid, {third, 2 * third}}};
    return {{"Vapor", vapor, {0.5, 0.5}}, {"Liquid", liquid, {0.2, 0.8}}};
}

// Stores an enthalpy of the phase asked for: this of the vapor, that of any other.
inline std::function<HRESULT(const SinglePhaseCall &)> StoreEnthalpies(const char *basis, double vapor, double liquid)
{
    return [=](const SinglePhaseCall &request) {
        return request.material.setSinglePhase("enthalpy", request.phase, basis,
                                               {request.phase == Wide("Vapor") ? vapor : liquid});
    };
}

} // namespace support
