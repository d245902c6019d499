#include "reference/engine/equilibrium/present_compounds.h"

#include <algorithm>

namespace reference {

PresentCompounds::PresentCompounds(std::span<const double> z, double absent)
    : size(static_cast<int>(z.size())), count(0)
{
    for (int i = 0; i < size; ++i) {
        if (z[i] <= absent)
            continue;
        indices[count] = i;
        amounts[count++] = z[i];
    }
}

void PresentCompounds::spread(CompoundArray &fractions) const
{
    if (isAll())
        return;
    const CompoundArray few = fractions;
    std::fill_n(fractions.begin(), size, 0.0);
    for (int i = 0; i < count; ++i)
        fractions[indices[i]] = few[i];
}

} // namespace reference
