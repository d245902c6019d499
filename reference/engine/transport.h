// Viscosity, thermal conductivity and diffusion coefficients of one phase.
#pragma once

#include "reference/engine/phase_point.h"

namespace reference {

// The density of a phase for correlations that were made for true densities, mol/m3: the volume of a
// cubic equation less the shift of each compound (Peneloux, Rauzy, Freze, Fluid Phase Equilibria 8
// (1982) 7, here fitted to the liquid volume at 0.7 Tc).
Dual transportDensity(const PhasePoint &point, const Direction &direction);

// The parameters that a mixture shares with a pure fluid in the correlations of Chung, Ajlan, Lee,
// Starling, Ind. Eng. Chem. Res. 27 (1988) 671, for non-polar dense fluids; fitted to one liquid state
// of each compound that has one in the table of transport.cpp.
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
    CompoundArray viscosityFactors; // of what comes to the thin gas in a dense fluid
    CompoundArray conductivityFactors;
};

// The matrix of binary diffusion coefficients of Maxwell and Stefan, m2/s, at the phase's own density
// or viscosity. Symmetric; a compound with itself: its self-diffusion.
// - Vapour: Fuller, Schettler, Giddings, Ind. Eng. Chem. 58(5) (1966) 18, with the volumes of Fuller,
//   Ensley, Giddings, J. Phys. Chem. 73 (1969) 3679. The product of density and coefficient is that of
//   the ideal gas.
// - Liquid: Wilke, Chang, AIChE J. 1 (1955) 264 for one compound in the other, with molar volumes at
//   the boiling point after Tyn, Calus (1975), Vb = 0.285 Vc^1.048 in cm3/mol; between the two by
//   Kooijman, Taylor, Ind. Eng. Chem. Res. 30 (1991) 1217. The viscosity is the mixture's.
void diffusionCoefficients(const PhasePoint &point, const ChungMixture &mixture, const Direction &direction,
                           Dual *values);

} // namespace reference
