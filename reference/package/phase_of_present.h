// A phase without the compounds of which there is nothing in it. What needs a constant that such a
// compound lacks can be had all the same, as long as nothing is asked of the compound itself.
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
