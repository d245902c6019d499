// What an equation of state needs of a list of compounds, worked out once for the list.
#pragma once

#include "reference/engine/compound_data.h"
#include "reference/engine/equation_of_state.h"
#include "reference/engine/saturation.h"

#include <array>
#include <cstddef>
#include <span>

namespace reference {

// The most compounds that a mixture may have: everything the engine works in stands in arrays of
// this size on the stack.
inline constexpr int maximumCompounds = 64;

using CompoundArray = std::array<double, maximumCompounds>; // one value for each compound

// One value for each pair of compounds of a mixture, element i, j at i + size * j, with the mixture's
// own size as stride.
using PairArray = std::array<double, std::size_t{maximumCompounds} * maximumCompounds>;

inline double *columnOf(PairArray &matrix, int size, int j) { return matrix.data() + std::ptrdiff_t{size} * j; }
inline const double *columnOf(const PairArray &matrix, int size, int j)
{
    return matrix.data() + std::ptrdiff_t{size} * j;
}

inline constexpr double gasConstant = 8.31446261815324; // J/mol/K, CODATA 2018 (exact)

struct CompoundTerms {
    const CompoundData *data;                   // of the table, which outlives every model
    double molecularWeight;                     // g/mol
    double criticalTemperature;                 // K
    double criticalPressure;                    // Pa
    double acentricFactor;                      //
    double attractionRoot;                      // square root of a at the critical temperature, Pa^0.5 m3/mol
    double attractionSlope;                     // kappa of the alpha function
    double inverseRootCriticalT;                // 1 / sqrt(Tc), K^-0.5
    double covolume;                            // b, m3/mol
    std::array<double, 5> idealGasHeatCapacity; // of Cp/R, by power of T
    double volumeShift;                         // of a cubic equation's volumes over the true ones, m3/mol
    SaturationPressure saturationPressure;
    LiquidVolume liquidVolume;
};

// The volume of the pure compound's liquid by a cubic equation, or of what stands for it, m3/mol.
double cubicLiquidVolume(const CompoundTerms &compound, EquationOfState equation, double kelvin, double pascal);

struct MixtureModel {
    EquationOfState equation = EquationOfState::pengRobinson;
    int size = 0;
    std::array<CompoundTerms, maximumCompounds> compounds;
    PairArray pairFactor; // 1 - kij, symmetric; not used by the ideal mixture

    // The model of these compounds in this order: at least one, at most maximumCompounds.
    static MixtureModel of(std::span<const CompoundData *const> list,
                           EquationOfState equation = EquationOfState::pengRobinson);

    // The model of some of the compounds, by index.
    MixtureModel subset(std::span<const int> members) const;
};

} // namespace reference
