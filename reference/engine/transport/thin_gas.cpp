#include "reference/engine/transport/thin_gas.h"

#include <cmath>

namespace reference {

ThinGas::ThinGas(const PhasePoint &of, const Dual *viscosities) : point(of)
{
    const MixtureModel &model = point.model();
    const int n = model.size;
    for (int i = 0; i < n; ++i)
        divisor[i] = 0.0;
    for (int j = 0; j < n; ++j)
        for (int i = 0; i < n; ++i) {
            const double mass = model.compounds[i].molecularWeight / model.compounds[j].molecularWeight;
            const Dual ratio = 1.0 + sqrt(viscosities[i] / viscosities[j]) / std::sqrt(std::sqrt(mass));
            const Dual phi = ratio * ratio / std::sqrt(8.0 * (1.0 + mass));
            columnOf(coefficients, n, j)[i] = phi.value;
            divisor[i] += point.fractions()[j] * phi;
        }
}

Dual ThinGas::mean(const Dual *pure, const Direction &direction) const
{
    const int n = point.model().size;
    Dual sum;
    for (int i = 0; i < n; ++i) {
        const double x = point.fractions()[i];
        const auto inDirection = [&](Dual byT, double byMoles) {
            return Dual(byT.value, direction.compound < 0 ? byT.slope * direction.ofTemperature() : byMoles);
        };
        const int k = direction.compound;
        const double phi = k < 0 ? 0.0 : columnOf(coefficients, n, k)[i];
        const Dual fraction(x, direction.ofMean(i == k ? 1.0 : 0.0, x));
        sum += fraction * inDirection(pure[i], 0.0) / inDirection(divisor[i], phi - divisor[i].value);
    }
    return sum;
}

} // namespace reference
