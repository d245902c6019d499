// One phase at a temperature, pressure and composition, and everything that can be asked of it.
#pragma once

#include "reference/engine/mixture_residual.h"

#include <span>

namespace reference {

// Whether the model has a quantity, with all its derivatives, for the phase that `root` stands for.
// The liquid of an ideal mixture does not yield to pressure, and so has no heatCapacityCv and no
// speedOfSound; other quantities are missing where a compound lacks a constant that they need.
bool isAvailable(const MixtureModel &model, Root root, PhaseQuantity quantity);
bool isAvailable(const MixtureModel &model, PairQuantity quantity);

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

    // Writes the values, as many as valueCount says. False, with nothing written, for what is not
    // available. Logarithms and partial entropies of a compound of fraction zero are infinite; nothing
    // is NaN.
    bool calculate(PhaseQuantity quantity, Differential differential, std::span<double> values) const;

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

private:
    void addPure(const Direction &direction, Bulk &result) const;
    void calculateScalar(PhaseQuantity quantity, Differential differential, double *values) const;
    void calculateVector(PhaseQuantity quantity, Differential differential, double *values) const;
    void calculateTransport(PhaseQuantity quantity, Differential differential, double *values) const;
    Dual pureLnPhi(int compound, const Direction &direction) const;

    const MixtureModel &mixture;
    Isotherm isotherm;
    PhaseState phase;
    bool liquid;
    PairSums sums;
    CompoundArray x;
};

// The same for two phases of one model at the same temperature and pressure.
bool calculatePair(const PhasePoint &first, const PhasePoint &second, PairQuantity quantity, Differential differential,
                   std::span<double> values);

} // namespace reference
