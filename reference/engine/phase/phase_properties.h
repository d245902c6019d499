// The properties of one phase at a temperature, pressure and composition.
//
// Enthalpy and entropy leave out the formation from the elements: their zero is each pure compound
// as an ideal gas at 298.15 K, and for the entropy at 101325 Pa.
#pragma once

#include "reference/engine/compounds/ideal_gas.h"
#include "reference/engine/phase/isotherm.h"
#include "reference/engine/phase/phase_state.h"

namespace reference {

struct PhaseProperties {
    PhaseState state;
    double temperature;      // K
    double molecularWeight;  // g/mol
    double volume;           // m3/mol
    double volumeByT;        // m3/mol/K
    double volumeByP;        // m3/mol/Pa
    double enthalpy;         // J/mol
    double entropy;          // J/mol/K
    double heatCapacity;     // of constant pressure, J/mol/K: the slope of the enthalpy with temperature
    CompoundArray fractions; // mole fractions, summing to one
    PhaseSlopes slopes;      // filled by addDerivatives
};

// Fills all but the slopes of the fugacity coefficients. `fractions` as for evaluatePhase.
void evaluateProperties(const MixtureModel &model, const Isotherm &isotherm, double pressure, const double *fractions,
                        Root root, PhaseProperties &properties);

void addDerivatives(const MixtureModel &model, const Isotherm &isotherm, PhaseProperties &properties);

} // namespace reference
