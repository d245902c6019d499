// Vapor pressure and volume of the saturated liquid of a pure compound: as the correlations have
// them, and continued beyond their ranges for ideal mixtures, which need them at every temperature.
#pragma once

#include "reference/engine/compounds/compound_data.h"
#include "reference/engine/numerics/temperature_function.h"

namespace reference {

// Pa. NaN outside of the range of the correlation, which ends at the critical point.
double vaporPressure(const CompoundData &compound, double kelvin);

// Density of the saturated liquid, mol/m3. NaN outside of the range of the correlation.
double saturatedLiquidDensity(const CompoundData &compound, double kelvin);

// The logarithm of the vapor pressure in Pa at any temperature above zero, twice continuously
// differentiable: the third derivative jumps where the continuation begins. Up to the temperature where ln p is
// straight over 1/T, some 0.8 Tc, it is the correlation; from there on it goes on straight, by which the liquid of an
// ideal mixture keeps a heat capacity above zero. At the critical point that makes some percent. Below the range of the
// correlation the heat of vaporization changes with temperature as at its end (Kirchhoff).
class SaturationPressure {
public:
    SaturationPressure() = default; // of no compound yet, for arrays: nothing is set
    explicit SaturationPressure(const CompoundData &compound);

    TemperatureFunction logarithm(double kelvin) const;

private:
    Correlation correlation;
    double lowest;                      // K: below it, ln p = cold0 + cold1 / T + cold2 ln T
    double cold0, cold1, cold2;         //
    double highest;                     // K: above it, ln p is continued over 1/T
    double hot, hotByInverse, hotByTwo; // ln p and its derivatives by T0/T there
};

// The volume of the saturated liquid in m3/mol at any temperature, twice continuously
// differentiable. The correlation holds up to 0.9 Tc; from there on, and below its range, the
// volume soon becomes linear in temperature.
class LiquidVolume {
public:
    LiquidVolume() = default; // of no compound yet
    explicit LiquidVolume(const CompoundData &compound);

    TemperatureFunction volume(double kelvin) const;

private:
    Correlation correlation;
    double lowest, highest;        // K
    TemperatureFunction cold, hot; // at those two
};

} // namespace reference
