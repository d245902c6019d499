#include "reference/engine/transport/diffusion.h"

#include "reference/engine/eos/gas_constant.h"

#include <cmath>

namespace reference {

namespace {

// D = 0.00143 T^1.75 / (P sqrt(M) (va^(1/3) + vb^(1/3))^2) in cm2/s with P in bar, M = 2 / (1/Ma + 1/Mb) in
// g/mol and volumes in cm3/mol; P stands here for the density's ideal pressure.
void ofVapor(const PhasePoint &point, const Direction &direction, Dual *values)
{
    const MixtureModel &model = point.model();
    const int n = model.size;
    const Dual T(point.temperature(), direction.ofTemperature());
    const Dual density = 1.0 / point.bulk(direction).residual.volume;
    const Dual common = 0.00143e-4 * pow(T, 1.75) / (1e-5 * density * gasConstant * T);
    for (int j = 0; j < n; ++j)
        for (int i = 0; i < n; ++i) {
            const CompoundData &a = *model.compounds[i].data;
            const CompoundData &b = *model.compounds[j].data;
            const double mass = 2.0 / (1.0 / a.molecularWeight + 1.0 / b.molecularWeight);
            const double diameters = std::cbrt(1e6 * a.diffusionVolume) + std::cbrt(1e6 * b.diffusionVolume);
            values[i + n * j] = common / (std::sqrt(mass) * diameters * diameters);
        }
}

// D = 7.4e-8 sqrt(phi M) T / (eta V^0.6) in cm2/s, with eta in mPa s, M of the solvent in g/mol and V of the solute
// in cm3/mol.
void ofLiquid(const PhasePoint &point, const TransportMixture &mixture, const Direction &direction, Dual *values)
{
    const MixtureModel &model = point.model();
    const int n = model.size;
    const Dual T(point.temperature(), direction.ofTemperature());
    const Dual common = 7.4e-12 * T / (1e3 * mixture.viscosity(direction));
    const auto logFactor = [&](int solute, int solvent) {
        const CompoundData &a = *model.compounds[solute].data;
        const CompoundData &b = *model.compounds[solvent].data;
        const double volume = 0.285 * std::pow(1e6 * a.criticalVolume, 1.048);
        return 0.5 * std::log(b.solventAssociation * b.molecularWeight) - 0.6 * std::log(volume);
    };
    const auto fraction = [&](int i) {
        const double x = point.fractions()[i];
        return Dual(x, direction.ofMean(i == direction.compound ? 1.0 : 0.0, x));
    };
    // D_ij = (D of i in j)^((1 + x_j - x_i) / 2) (D of j in i)^((1 + x_i - x_j) / 2)
    for (int j = 0; j < n; ++j)
        for (int i = 0; i <= j; ++i) {
            const double iInJ = logFactor(i, j);
            const double jInI = logFactor(j, i);
            const Dual exponent = 0.5 * ((iInJ + jInI) + (fraction(j) - fraction(i)) * (iInJ - jInI));
            values[i + n * j] = values[j + n * i] = common * exp(exponent);
        }
}

} // namespace

void diffusionCoefficients(const PhasePoint &point, const TransportMixture &mixture, const Direction &direction,
                           Dual *values)
{
    point.isLiquid() ? ofLiquid(point, mixture, direction, values) : ofVapor(point, direction, values);
}

} // namespace reference
