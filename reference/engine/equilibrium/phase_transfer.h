// What changes when moles pass from one of two phases to the other.
#pragma once

#include "reference/engine/equilibrium/rachford_rice.h"
#include "reference/engine/phase/isotherm.h"
#include "reference/engine/phase/mixture_model.h"
#include "reference/engine/phase/phase_state.h"

namespace reference {

// With g_i the difference of the logarithms of the fugacities, in vapor less in liquid, and v_j the moles of vapor,
// both per mole of feed: `matrix` is vapor * liquid * scale_i * scale_j * dg_i/dv_j, in its lower triangle, of ones on
// the diagonal where both phases are ideal. Scaled as in Michelsen, Mollerup, Thermodynamic Models, 2nd ed. (2007),
// chapter
// 10. The element i, j is at i + n * j.
struct PhaseTransfer {
    CompoundArray scale; // sqrt(x_i y_i / z_i)
    PairArray matrix;

    // Of a feed z that is split into vapor y and liquid x.
    PhaseTransfer(const MixtureModel &model, const Isotherm &isotherm, const PhaseAmounts &amounts, const double *z,
                  const PhaseState &vapor, const CompoundArray &y, const PhaseState &liquid, const CompoundArray &x);
};

} // namespace reference
