// The compounds that the packages are made of: constants and binary interaction parameters, as
// published.
#pragma once

#include <array>
#include <span>
#include <string_view>

namespace reference {

struct CompoundData {
    std::string_view id;
    std::string_view iupacName;
    std::string_view formula; // Hill order
    std::string_view casNumber;
    double molecularWeight;                     // g/mol
    double criticalTemperature;                 // K
    double criticalPressure;                    // Pa
    double acentricFactor;                      //
    double normalBoilingPoint;                  // K at 101325 Pa; NaN for a compound that only sublimes there
    std::array<double, 5> idealGasHeatCapacity; // c0..c4 of Cp/R = c0 + c1 T + c2 T^2 + c3 T^3 + c4 T^4, T in K
};

std::span<const CompoundData> compoundTable();

// The compound of an id of the table, spelled exactly so; null for any other.
const CompoundData *findCompound(std::string_view id);

// The interaction parameter kij of the Peng-Robinson mixing rule; 0 for pairs without one.
double interactionParameter(std::string_view first, std::string_view second);

} // namespace reference
