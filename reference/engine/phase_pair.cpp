// Properties of two phases.
#include "reference/engine/phase_point.h"

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

} // namespace

bool isAvailable(const MixtureModel &, PairQuantity quantity) { return quantity != PairQuantity::surfaceTension; }

bool calculatePair(const PhasePoint &first, const PhasePoint &second, PairQuantity quantity, Differential differential,
                   std::span<double> values)
{
    if (!isAvailable(first.model(), quantity))
        return false;
    const int n = first.model().size;
    if (differential == Differential::byMoles || differential == Differential::byFractions)
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
        const double ratio = std::exp(ratios[k % n]);
        values[k] = differential == Differential::none ? ratio : ratio * values[k];
    }
    return true;
}

} // namespace reference
