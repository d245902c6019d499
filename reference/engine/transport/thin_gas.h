// A mixture of gases so thin that they are ideal.
#pragma once

#include "reference/engine/phase/phase_point.h"

namespace reference {

// Viscosity: Wilke, J. Chem. Phys. 18 (1950) 517. Thermal conductivity: Wassiljewa, Phys. Z. 5 (1904) 737, with the
// coefficients of Mason, Saxena, Phys. Fluids 1 (1958) 361, which are those of Wilke.
class ThinGas {
public:
    // The viscosities of the pure gases by which the coefficients are found, with derivatives by temperature.
    ThinGas(const PhasePoint &point, const Dual *viscosities);

    // The mixture's value of a property, from those of the pure gases, in a direction.
    Dual mean(const Dual *pure, const Direction &direction) const;

private:
    const PhasePoint &point;
    PairArray coefficients;                     // phi_ij, element i, j
    std::array<Dual, maximumCompounds> divisor; // the sum over j of x_j phi_ij
};

} // namespace reference
