// A pure compound's saturated liquid, as an ideal mixture needs it.
#pragma once

#include "reference/engine/compound_data.h"

namespace reference {

// A function of temperature and its first three derivatives.
struct TemperatureFunction {
    double value;
    double byT;   // per K
    double byTT;  // per K2
    double byTTT; // per K3
};

// The logarithm of the vapour pressure in Pa.
TemperatureFunction logVaporPressure(const CompoundData &compound, double kelvin);

// The volume of the saturated liquid, m3/mol.
TemperatureFunction liquidVolume(const CompoundData &compound, double kelvin);

} // namespace reference
