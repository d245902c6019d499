#include "reference/engine/eos/residual.h"

#include "reference/engine/eos/gas_constant.h"

namespace reference {

namespace {

constexpr double R = gasConstant;

} // namespace

Residual cubicResidual(const CubicConstants &equation, Dual T, Dual P, const CubicParameters &parameters, double freeZ)
{
    const auto &[a, aT, aTT, b] = parameters;
    const double d1 = equation.d1;
    const double d2 = equation.d2;

    // Derivative of the free volume v - b: what it takes to keep the equation's pressure at P.
    Dual free = freeZ * R * T.value / P.value;
    const auto product = [&](const auto &volume, const auto &covolume) {
        return (volume + d1 * covolume) * (volume + d2 * covolume);
    };
    const Dual excess = R * T / free - a / product(free + b, b) - P;
    const double volume = free.value + b.value;
    const double attraction = product(volume, b.value);
    const double repulsionSlope = R * T.value / (free.value * free.value);
    const double slopeValue = // -dP/dv
        repulsionSlope - a.value * (2.0 * volume + (d1 + d2) * b.value) / (attraction * attraction);
    const double leastSlope = 1e-13 * repulsionSlope; // the slope is zero at the critical point: finite instead
    free.slope = excess.slope / std::fmax(slopeValue, leastSlope);

    // P = R T q - a / D
    const Dual v = free + b;
    const Dual q = 1.0 / free;
    const Dual D = product(v, b);
    const Dual minusInverseByV = (2.0 * v + (d1 + d2) * b) / (D * D); // -d(1/D)/dv
    const Dual repulsion = R * T * q * q;
    Dual minusPbyV = repulsion - a * minusInverseByV; // -dP/dv
    if (minusPbyV.value < leastSlope)
        minusPbyV = leastSlope;
    const Dual pressureByT = R * q - aT / D;
    const Dual attractionLog = log1p((d1 - d2) * b / (v + d2 * b)) / ((d1 - d2) * b);

    // Differences of quantities of which the ideal gas is the larger part are written out, so that
    // this part never enters.
    Residual result;
    result.volume = v;
    result.volumeByT = pressureByT / minusPbyV;
    result.volumeByP = -1.0 / minusPbyV;
    result.residualVolume = (R * T * b * q - a * v / D) / P;
    result.residualVolumeByT = (R * a * (minusInverseByV - q / D) - P * aT / D) / (P * minusPbyV);
    result.enthalpy = P * result.residualVolume + (T * aT - a) * attractionLog;
    result.entropy = R * log(P * free / (R * T)) + aT * attractionLog;
    result.heatCapacityV = T * aTT * attractionLog;
    result.heatCapacityP =
        result.heatCapacityV + (T * aT * (aT / D - 2.0 * R * q) / D + R * a * minusInverseByV) / minusPbyV;
    return result;
}

Residual idealGasResidual(Dual T, Dual P)
{
    Residual result;
    result.volume = R * T / P;
    result.volumeByT = R / P;
    result.volumeByP = -R * T / (P * P);
    return result;
}

Residual activityResidual(Dual T, Dual P, const ActivityParameters &mean)
{
    // ln phi of the mixture is saturation + volume P - ln P.
    const Dual logPhi = mean.saturation + mean.volume * P - log(P);
    const Dual logPhiT = mean.saturationT + mean.volumeT * P;
    const Dual logPhiTT = mean.saturationTT + mean.volumeTT * P;
    Residual result;
    result.volume = R * T * mean.volume;
    result.volumeByT = R * (mean.volume + T * mean.volumeT);
    result.volumeByP = 0.0;
    result.residualVolume = result.volume - R * T / P;
    result.residualVolumeByT = result.volumeByT - R / P;
    result.enthalpy = -R * T * T * logPhiT;
    result.entropy = -R * (logPhi + T * logPhiT);
    result.heatCapacityP = -R * T * (2.0 * logPhiT + T * logPhiTT);
    result.heatCapacityV = 0.0; // there is none: the volume does not depend on the pressure
    return result;
}

} // namespace reference
