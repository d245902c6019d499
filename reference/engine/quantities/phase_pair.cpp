#include "reference/engine/quantities/phase_pair.h"

#include "reference/engine/transport/pure_transport.h"
#include "reference/engine/transport/transport_density.h"

#include <cmath>

namespace reference {

namespace {

// ln K_i = ln phi_i of the second phase less that of the first, and how it changes with the conditions
// that both share.
void logRatios(const PhasePoint &first, const PhasePoint &second, Differential differential, double *values)
{
    PhaseSlopes firstSlopes;
    PhaseSlopes secondSlopes;
    if (differential != Differential::none) {
        first.lnPhiSlopes(firstSlopes);
        second.lnPhiSlopes(secondSlopes);
    }
    for (int i = 0; i < first.model().size; ++i)
        values[i] = differential == Differential::byTemperature ? secondSlopes.lnPhiByT[i] - firstSlopes.lnPhiByT[i]
                    : differential == Differential::byPressure  ? secondSlopes.lnPhiByP[i] - firstSlopes.lnPhiByP[i]
                                                                : second.state().lnPhi[i] - first.state().lnPhi[i];
}

void logRatiosByComposition(const PhasePoint &first, const PhasePoint &second, double *values)
{
    const int block = first.model().size * first.model().size;
    PairArray byMoles;
    first.lnPhiByComposition(byMoles);
    for (int k = 0; k < block; ++k)
        values[k] = -byMoles[k];
    second.lnPhiByComposition(byMoles);
    for (int k = 0; k < block; ++k)
        values[block + k] = byMoles[k];
}

using Parachors = std::array<Dual, maximumCompounds>; // with derivatives by temperature

Parachors parachorsOf(const MixtureModel &model, double kelvin)
{
    Parachors parachors;
    for (int i = 0; i < model.size; ++i)
        parachors[i] = parachorAt(model.compounds[i], model.equation, kelvin);
    return parachors;
}

// The sum over the compounds of parachor times moles in a volume, kg^0.25 / s^0.5.
Dual parachorDensity(const PhasePoint &point, const Parachors &parachors, const Direction &direction)
{
    Dual parachor;
    for (int i = 0; i < point.model().size; ++i)
        parachor += point.fractions()[i] * parachors[i];
    parachor.slope = direction.compound < 0 ? parachor.slope * direction.ofTemperature()
                                            : parachors[direction.compound].value - parachor.value;
    return parachor * transportDensity(point, direction);
}

// sigma^(1/4) = sum P_i (x_i density_L - y_i density_V): Macleod, Trans. Faraday Soc. 19 (1923) 38; Sugden, J. Chem.
// Soc. 125 (1924) 1177; for mixtures Weinaug, Katz, Ind. Eng. Chem. 35 (1943) 239, with the
// parachor that each compound has at the temperature. Either phase may be the first.
Dual fourthPower(Dual difference)
{
    const Dual square = difference * difference;
    return square * square;
}

void surfaceTension(const PhasePoint &first, const PhasePoint &second, Differential differential, double *values)
{
    const Parachors parachors = parachorsOf(first.model(), first.temperature());
    if (!isByComposition(differential)) {
        const Direction both{differential};
        const Dual tension =
            fourthPower(parachorDensity(first, parachors, both) - parachorDensity(second, parachors, both));
        *values = differential == Differential::none ? tension.value : tension.slope;
        return;
    }
    const int n = first.model().size;
    const Dual ofFirst = parachorDensity(first, parachors, {});
    const Dual ofSecond = parachorDensity(second, parachors, {});
    for (int j = 0; j < n; ++j) {
        const Direction direction{differential, j};
        values[j] = fourthPower(parachorDensity(first, parachors, direction) - ofSecond).slope;
        values[n + j] = fourthPower(ofFirst - parachorDensity(second, parachors, direction)).slope;
    }
}

} // namespace

bool isAvailable(const MixtureModel &model, PairQuantity quantity)
{
    if (quantity == PairQuantity::surfaceTension)
        for (int i = 0; i < model.size; ++i)
            if (std::isnan(model.compounds[i].data->parachor))
                return false;
    return true;
}

bool calculatePair(const PhasePoint &first, const PhasePoint &second, PairQuantity quantity, Differential differential,
                   std::span<double> values)
{
    if (!isAvailable(first.model(), quantity))
        return false;
    if (quantity == PairQuantity::surfaceTension) {
        surfaceTension(first, second, differential, values.data());
        return true;
    }
    const int n = first.model().size;
    if (isByComposition(differential))
        logRatiosByComposition(first, second, values.data());
    else
        logRatios(first, second, differential, values.data());
    if (quantity == PairQuantity::logKvalue)
        return true;

    // dK = K d(ln K)
    CompoundArray ratios;
    logRatios(first, second, Differential::none, ratios.data());
    const int count = valueCount(quantity, differential, n);
    for (int k = 0; k < count; ++k) {
        const double ratio = std::exp(heldExponent(ratios[k % n]));
        values[k] = differential == Differential::none ? ratio : ratio * values[k];
    }
    return true;
}

} // namespace reference
