// The parameters that a mixture shares with a pure fluid in the correlations of Chung et al.
#pragma once

#include "reference/engine/phase/phase_point.h"
#include "reference/engine/transport/chung_fluid.h"

namespace reference {

class ChungMixture {
public:
    explicit ChungMixture(const PhasePoint &point);

    // At the point's conditions, with derivatives in a direction.
    ChungFluid fluid(const Direction &direction) const;

private:
    enum Pair { volume, energy, mass, acentric, dipole, association, pairKinds };

    const PhasePoint &point;
    CompoundArray rows[pairKinds]; // for each compound the sum over the others, weighted by their fractions
    double totals[pairKinds];
};

} // namespace reference
