#include "reference/engine/phase/saturated_volume.h"

#include "reference/engine/eos/gas_constant.h"

#include <cmath>

namespace reference {

namespace {

// Below it the vapor is an ideal gas, and its pressure nothing to the liquid; the cubic equation loses the liquid at
// much lower ones.
constexpr double lowPressure = 100.0; // Pa

// dV/dT along the line of P(T), for a volume by the cubic equation.
double slopeOf(const CompoundTerms &compound, const CubicConstants &equation, double T, Dual P, double V)
{
    const double b = compound.covolume;
    const double root = std::sqrt(T) * compound.inverseRootCriticalT;
    const double s = compound.attractionRoot * (1.0 + compound.attractionSlope * (1.0 - root));
    const double sSlope = -0.5 * compound.attractionRoot * compound.attractionSlope * root / T;
    const double product = (V + equation.d1 * b) * (V + equation.d2 * b);
    const double PbyT = gasConstant / (V - b) - 2.0 * s * sSlope / product;
    const double PbyV =
        -gasConstant * T / ((V - b) * (V - b)) + s * s * (2.0 * V + equation.sum() * b) / (product * product);
    return (P.slope - PbyT) / PbyV;
}

} // namespace

SaturatedVolumes saturatedVolumes(const CompoundTerms &compound, EquationOfState equation, double T)
{
    const TemperatureFunction logarithm = compound.saturationPressure.logarithm(T);
    const double pressure = std::exp(logarithm.value);
    const Dual P(pressure, pressure * logarithm.byT);
    if (!isCubicEquation(equation)) {
        const TemperatureFunction liquid = compound.liquidVolume.volume(T);
        return {{liquid.value, liquid.byT}, gasConstant * Dual(T, 1.0) / P};
    }
    const bool thin = pressure < lowPressure;
    const Dual held = thin ? Dual(lowPressure) : P;
    const CubicVolumes volumes = cubicVolumes(compound, equation, T, held.value);
    const auto shifted = [&](double V) {
        return Dual(V - compound.volumeShift, slopeOf(compound, cubicConstants(equation), T, held, V));
    };
    return {shifted(volumes.liquid), thin ? gasConstant * Dual(T, 1.0) / P : shifted(volumes.vapor)};
}

} // namespace reference
