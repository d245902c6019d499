// States of a given vapor fraction with any number of liquids, by Newton's method from near them.
#pragma once

#include "reference/engine/equilibrium/equilibrium.h"

namespace reference {

// Finds a state of a vapor fraction that is not 0 or 1 where another variable, which is no fraction, has its value,
// from a temperature and pressure. Every step is a flash. False when the way there has obstacles. `type` is that of the
// solution where the other variable is temperature or pressure.
bool findFractionNear(const Feed &feed, const FlashSpecification &fraction, const FlashSpecification &other,
                      const FlashConditions &start, FlashResult &result, SolutionType &type);

} // namespace reference
