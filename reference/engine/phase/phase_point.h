// One phase at a temperature, pressure and composition, and what its properties are made of.
#pragma once

#include "reference/engine/phase/mixture_residual.h"
#include "reference/engine/phase/phase_evaluation.h"

#include <span>

namespace reference {

// The mixture's molar properties at a phase's conditions, with their derivatives in a direction.
struct Bulk {
    Dual T; // K
    Dual P; // Pa
    Residual residual;
    Dual idealEnthalpy;        // J/mol
    Dual idealEntropy;         // J/mol/K, at P and of the mixture
    Dual idealHeatCapacity;    // of constant pressure, J/mol/K
    Dual formationEnthalpy;    // J/mol
    Dual formationEntropy;     // J/mol/K
    Dual molecularWeight;      // g/mol
    Dual pureVolumeDifference; // residuals of the phase less the mean of those of the pure compounds
    Dual pureEnthalpyDifference;
    Dual pureEntropyDifference;
};

class PhasePoint {
public:
    // The model must outlive the point. Temperature (K) and pressure (Pa) above zero; mole fractions
    // zero or more, summing to one. `root` says which phase is meant where there are two.
    PhasePoint(const MixtureModel &model, double temperature, double pressure, std::span<const double> fractions,
               Root root);

    const MixtureModel &model() const { return mixture; }
    const PhaseState &state() const { return phase; }
    double temperature() const { return isotherm.temperature; }
    double pressure() const { return phase.pressure; }
    const CompoundArray &fractions() const { return x; }
    bool isLiquid() const { return liquid; } // or stands for one

    // The differences from the pure compounds are left out unless asked for.
    Bulk bulk(const Direction &direction, bool withPure = false) const;

    // Logarithms of the fugacity coefficients: derivatives by temperature and pressure, and by moles.
    void lnPhiSlopes(PhaseSlopes &slopes) const { evaluateSlopes(mixture, isotherm, x.data(), phase, slopes); }
    void lnPhiByComposition(PairArray &derivatives) const { lnPhiByMoles(mixture, isotherm, phase, derivatives); }

    // Of a pure compound as the same phase at the same temperature and pressure.
    Dual pureLnPhi(int compound, const Direction &direction) const;

private:
    void addPure(const Direction &direction, Bulk &result) const;

    const MixtureModel &mixture;
    Isotherm isotherm;
    PhaseState phase;
    bool liquid;
    PairSums sums;
    CompoundArray x;
};

} // namespace reference
