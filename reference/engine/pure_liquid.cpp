#include "reference/engine/pure_liquid.h"

#include <cmath>

namespace reference {

// Wilson (1968): ln(p / Pc) = 5.373 (1 + omega) (1 - Tc / T).
TemperatureFunction logVaporPressure(const CompoundData &compound, double T)
{
    const double factor = 5.373 * (1.0 + compound.acentricFactor);
    const double slope = factor * compound.criticalTemperature / (T * T);
    return {std::log(compound.criticalPressure) + factor * (1.0 - compound.criticalTemperature / T), slope,
            -2.0 * slope / T, 6.0 * slope / (T * T)};
}

// Three tenths of the critical volume that Z = 0.29 - 0.08 omega gives, growing with temperature.
TemperatureFunction liquidVolume(const CompoundData &compound, double T)
{
    const double critical = (0.29 - 0.08 * compound.acentricFactor) * 8.31446261815324 * compound.criticalTemperature /
                            compound.criticalPressure;
    const double reduced = T / compound.criticalTemperature;
    return {critical * (0.3 + 0.15 * reduced * reduced), 0.3 * critical * reduced / compound.criticalTemperature,
            0.3 * critical / (compound.criticalTemperature * compound.criticalTemperature), 0.0};
}

} // namespace reference
