// What an equation of state needs of a list of compounds, worked out once for the list.
#pragma once

#include "reference/engine/compounds/compound_data.h"
#include "reference/engine/compounds/saturation.h"
#include "reference/engine/eos/equation_of_state.h"
#include "reference/engine/numerics/compound_arrays.h"
#include "reference/engine/phase/local_compositions.h"

#include <array>
#include <span>

namespace reference {

struct CompoundTerms {
    const CompoundData *data;               // of the table, which outlives every model
    double molecularWeight;                 // g/mol
    double criticalTemperature;             // K
    double criticalPressure;                // Pa
    double acentricFactor;                  //
    double attractionRoot;                  // square root of a at the critical temperature, Pa^0.5 m3/mol
    double attractionSlope;                 // kappa of the alpha function
    double inverseRootCriticalT;            // 1 / sqrt(Tc), K^-0.5
    double covolume;                        // b, m3/mol
    HeatCapacityTerms idealGasHeatCapacity; //
    double volumeShift;                     // of a cubic equation's volumes over the true ones, m3/mol
    SaturationPressure saturationPressure;
    LiquidVolume liquidVolume;
};

// The volumes of the pure compound's liquid and vapor by a cubic equation, m3/mol: one and the same
// where it has but one.
struct CubicVolumes {
    double liquid;
    double vapor;
};
CubicVolumes cubicVolumes(const CompoundTerms &compound, EquationOfState equation, double kelvin, double pascal);

// A pair of compounds whose kij is not zero.
struct InteractingPair {
    int first, second;
    double parameter; // kij
};

struct MixtureModel {
    EquationOfState equation = EquationOfState::pengRobinson;
    int size = 0;
    std::array<CompoundTerms, maximumCompounds> compounds;
    PairArray pairFactor; // 1 - kij, symmetric; cubic equations only

    // The pairs with a kij other than zero, where they are so few that sums over pairs are made faster from a sum over
    // all compounds less these: in mixtures of many hydrocarbons.
    static constexpr int mostInteracting = maximumCompounds * maximumCompounds / 8;
    bool interactsLittle = false;
    int interactingCount = 0;
    std::array<InteractingPair, mostInteracting> interacting;

    NrtlTerms nrtl; // NRTL only

    // The mean of the compounds' weights, g/mol.
    double molecularWeight(const double *moleFractions) const;

    // Of the mixture as an ideal gas.
    HeatCapacityTerms heatCapacityTerms(const double *moleFractions) const;

    bool isIdeal() const { return equation == EquationOfState::idealMixture; }
    bool isCubic() const { return isCubicEquation(equation); }

    // The model of these compounds in this order: at least one, at most maximumCompounds.
    static MixtureModel of(std::span<const CompoundData *const> list,
                           EquationOfState equation = EquationOfState::pengRobinson);

    // The model of some of the compounds, by index.
    MixtureModel subset(std::span<const int> members) const;

private:
    void listInteracting();
};

} // namespace reference
