// Viscosity and thermal conductivity of one phase.
#pragma once

#include "reference/engine/phase/phase_point.h"

namespace reference {

// The parameters that a mixture shares with a pure fluid in the correlations of Chung, Ajlan, Lee,
// Starling, Ind. Eng. Chem. Res. 27 (1988) 671, for non-polar dense fluids; fitted to one liquid state
// of each compound that has one in the tables.
class ChungMixture {
public:
    explicit ChungMixture(const PhasePoint &point);

    // At the point's conditions, with derivatives in a direction.
    Dual viscosity(const Direction &direction) const;           // Pa s
    Dual thermalConductivity(const Direction &direction) const; // W/m/K

private:
    enum Pair { volume, energy, mass, acentric, dipole, association, pairKinds };
    struct Parameters;
    Parameters parameters(const Direction &direction) const;
    void fitToLiquid(int compound);
    Dual mean(const CompoundArray &values, const Direction &direction) const;

    const PhasePoint &point;
    CompoundArray rows[pairKinds]; // for each compound the sum over the others, weighted by their fractions
    double totals[pairKinds];
    CompoundArray viscosityFactors; // of what a dense fluid has over the dilute gas
    CompoundArray conductivityFactors;
};

} // namespace reference
