// A phase without its absent compounds, those of mole fraction zero. It has quantities that the whole phase lacks
// because a constant of an absent compound is unknown, as long as they are not properties of that compound.
#pragma once

#include "reference/engine/equilibrium/present_compounds.h"
#include "reference/engine/phase/phase_point.h"

namespace reference {

class PhaseOfPresent {
public:
    // The phase must outlive this object.
    explicit PhaseOfPresent(const PhasePoint &whole);

    // The phase, made of the present compounds; this object must outlive it.
    PhasePoint point(Root root) const;

private:
    const PhasePoint &phase;
    PresentCompounds present;
    MixtureModel model;
};

} // namespace reference
