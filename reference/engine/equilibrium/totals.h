// What a phase or a whole mixture holds of enthalpy, entropy and volume, and all that follows from them.
#pragma once

#include "reference/engine/equilibrium/flash_types.h"
#include "reference/engine/phase/phase_properties.h"

namespace reference {

// Molar values. Where the mixture is in equilibrium the slopes are those of the mixture that stays so.
struct Totals {
    double temperature = 0.0;  // K
    double pressure = 0.0;     // Pa
    double enthalpy = 0.0;     // J/mol
    double entropy = 0.0;      // J/mol/K
    double volume = 0.0;       // m3/mol
    double heatCapacity = 0.0; // slope of the enthalpy with the temperature, J/mol/K
    double volumeByT = 0.0;    // m3/mol/K
    double volumeByP = 0.0;    // m3/mol/Pa

    static Totals of(const PhaseProperties &phase);

    // Adds so many moles of what another one holds at the same temperature and pressure.
    void add(double moles, const Totals &other);

    // The value of a variable, which must not be a fraction, and its slopes: with the temperature at
    // constant pressure, and with the pressure at constant temperature.
    double value(FlashVariable variable) const;
    double byTemperature(FlashVariable variable) const;
    double byPressure(FlashVariable variable) const;

    // The slope with the logarithm of the pressure at constant temperature (`fixed`), or the other way round.
    double byOther(FlashVariable fixed, FlashVariable variable) const;
};

// What differences of a variable's values are measured by: the given value or the natural size of the
// variable at a temperature, whichever is larger.
double scaleOf(const FlashSpecification &given, double temperature);

// What a variable misses its value by, as searches see it: so measured, and for the volume by its logarithm.
double residualOf(const Totals &totals, const FlashSpecification &wanted);

inline constexpr double aimedResidual = 1e-12;    // largest, of states that are found
inline constexpr double acceptedResidual = 3e-10; // where round-off or a steep slope lets no more

// What one unit of the variable is in that.
double unitOf(const Totals &totals, const FlashSpecification &wanted);

} // namespace reference
