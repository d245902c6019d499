#include "reference/package/phase_of_known.h"

#include "reference/engine/quantities/phase_calculation.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace reference {

PhaseOfKnown::PhaseOfKnown(const PhasePoint &whole, PhaseQuantity ofPhase)
    : phase(whole), quantity(ofPhase), model(keep())
{
}

MixtureModel PhaseOfKnown::keep()
{
    for (int i = 0; i < phase.model().size; ++i) {
        const double fraction = phase.fractions()[i];
        if (fraction == 0.0 && missingConstant(*phase.model().compounds[i].data, quantity))
            continue;
        indices[count] = i;
        amounts[count++] = fraction;
    }
    return phase.model().subset({indices.data(), static_cast<std::size_t>(count)});
}

PhasePoint PhaseOfKnown::point(Root root) const
{
    return {model, phase.temperature(), phase.pressure(), {amounts.data(), static_cast<std::size_t>(count)}, root};
}

bool PhaseOfKnown::calculate(Root root, Differential differential, std::span<double> values) const
{
    std::vector<double> known(static_cast<std::size_t>(valueCount(quantity, differential, count)));
    if (!reference::calculate(point(root), quantity, differential, known))
        return false;
    std::ranges::fill(values, std::numeric_limits<double>::quiet_NaN());
    for (std::size_t k = 0; k < known.size(); ++k) {
        // The place has a digit for each of its compounds, the first running fastest.
        std::size_t rest = k;
        std::size_t place = 0;
        for (std::size_t few = 1, all = 1; few < known.size(); few *= static_cast<std::size_t>(count)) {
            place += all * static_cast<std::size_t>(indices[rest % static_cast<std::size_t>(count)]);
            rest /= static_cast<std::size_t>(count);
            all *= static_cast<std::size_t>(phase.model().size);
        }
        values[place] = known[k];
    }
    return true;
}

} // namespace reference
