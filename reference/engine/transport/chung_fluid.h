// Viscosity and thermal conductivity by the correlations of Chung, Ajlan, Lee, Starling, Ind. Eng. Chem.
// Res. 27 (1988) 671, for non-polar dense fluids.
#pragma once

#include "reference/engine/compounds/compound_data.h"
#include "reference/engine/numerics/dual.h"

namespace reference {

// Of a compound in the units of the correlations; zero for what is not known.
double chungVolume(const CompoundData &compound);      // at the critical point, cm3/mol
double chungDipole(const CompoundData &compound);      // debye
double chungAssociation(const CompoundData &compound); // kappa

// A property of the thin gas, and what a dense fluid has over it.
struct TransportParts {
    Dual gas;
    Dual excess;
};

// A pure fluid, or the one that a mixture behaves as.
struct ChungFluid {
    Dual T;
    Dual criticalVolume;      // cm3/mol
    Dual criticalTemperature; // K
    Dual mass;                // g/mol
    Dual acentricFactor;
    Dual reducedDipole4; // fourth power
    Dual association;
    Dual reducedDensity; // y = density Vc / 6

    // Densities in mol/m3.
    static ChungFluid ofCompound(const CompoundData &compound, Dual kelvin, Dual density);
    void setDensity(Dual density);

    TransportParts viscosity() const;                          // Pa s
    TransportParts conductivity(Dual idealHeatCapacity) const; // W/m/K; of a heat capacity in J/mol/K
};

} // namespace reference
