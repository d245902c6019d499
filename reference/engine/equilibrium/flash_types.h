// What a flash is asked for and what it finds.
#pragma once

#include "reference/engine/numerics/compound_arrays.h"

#include <algorithm>
#include <span>

namespace reference {

// What may be given of the whole mixture. Molar values are per mole of feed, with the zero points of
// phase_properties.h; those of internal, Gibbs and Helmholtz energy follow from enthalpy and entropy.
enum class FlashVariable {
    temperature,       // K
    pressure,          // Pa
    vaporFraction,     // moles of vapor in one mole
    vaporMassFraction, // mass of vapor in one unit of mass
    enthalpy,          // J/mol
    entropy,           // J/mol/K
    volume,            // m3/mol
    internalEnergy,    // J/mol
    gibbsEnergy,       // J/mol
    helmholtzEnergy,   // J/mol
};
inline constexpr int flashVariableCount = 10;

constexpr bool isCondition(FlashVariable variable)
{
    return variable == FlashVariable::temperature || variable == FlashVariable::pressure;
}

// The one of temperature and pressure that it is not.
constexpr FlashVariable otherCondition(FlashVariable condition)
{
    return condition == FlashVariable::temperature ? FlashVariable::pressure : FlashVariable::temperature;
}

// The value of that one in anything that has both.
template <class State> constexpr double otherConditionOf(const State &state, FlashVariable condition)
{
    return condition == FlashVariable::temperature ? state.pressure : state.temperature;
}

constexpr bool isFraction(FlashVariable variable)
{
    return variable == FlashVariable::vaporFraction || variable == FlashVariable::vaporMassFraction;
}

struct FlashSpecification {
    FlashVariable variable;
    double value;
};

struct FlashConditions {
    double temperature; // K
    double pressure;    // Pa
};

// From one of them and the value of the other.
constexpr FlashConditions bothConditions(const FlashSpecification &one, double other)
{
    if (one.variable == FlashVariable::temperature)
        return {one.value, other};
    return {other, one.value};
}

// Which solution is meant where a vapor fraction is given: the one where it falls with the pressure at
// constant temperature and rises with the temperature at constant pressure, or one where it does not.
// Without a vapor fraction the type has no meaning and is not looked at.
enum class SolutionType {
    unspecified, // the normal one where there is one, otherwise the retrograde one
    normal,
    retrograde,
};

// The phases that may be formed. Where only one kind is allowed the whole feed is that, stable or not.
enum class FlashPhases {
    vaporAndTwoLiquids,
    vaporAndLiquid,
    twoLiquids,
    vaporOnly,
    liquidOnly,
};

constexpr bool allowsVapor(FlashPhases phases)
{
    return phases != FlashPhases::twoLiquids && phases != FlashPhases::liquidOnly;
}

constexpr bool allowsOneOnly(FlashPhases phases)
{
    return phases == FlashPhases::vaporOnly || phases == FlashPhases::liquidOnly;
}

constexpr bool allowsSecondLiquid(FlashPhases phases)
{
    return phases == FlashPhases::vaporAndTwoLiquids || phases == FlashPhases::twoLiquids;
}

constexpr bool allowsBoiling(FlashPhases phases) { return allowsVapor(phases) && !allowsOneOnly(phases); }

struct FlashRequest {
    FlashSpecification first;
    FlashSpecification second;
    SolutionType solution = SolutionType::unspecified;
    FlashPhases phases = FlashPhases::vaporAndTwoLiquids;
};

enum class FlashStatus {
    solved,
    badValue,     // a value that no state can have, such as a temperature below zero
    undetermined, // the two together leave the state open
    noSolution,   // no state within the limits below was found to have these values
    notConverged, // the phases at some conditions on the way were not found
    otherPhases,  // the stable state has other phases than those that may be formed, or more
};

// Solutions are looked for within these limits only, ends included.
inline constexpr double lowestFlashTemperature = 20.0;    // K
inline constexpr double highestFlashTemperature = 1500.0; // K
inline constexpr double lowestFlashPressure = 1e-2;       // Pa
inline constexpr double highestFlashPressure = 1e8;       // Pa

struct FlashLimits {
    double lowest;
    double highest;

    constexpr bool contain(double value) const { return value >= lowest && value <= highest; }
};

// Those of a temperature or pressure.
constexpr FlashLimits flashLimitsOf(FlashVariable condition)
{
    return condition == FlashVariable::temperature ? FlashLimits{lowestFlashTemperature, highestFlashTemperature}
                                                   : FlashLimits{lowestFlashPressure, highestFlashPressure};
}

// What a feed becomes: at most one vapor and two liquids. Of two liquids the second is the one richer in water, where
// the model has water and the two differ in it, otherwise the denser one. Where only one liquid is allowed but two
// would form, the less dense one stands for the vapor, as far as it can: where its equation has a vapor root, too, it
// cannot, and the answer is the best of a vapor with a liquid and of one phase. So the values that a mixture holds can
// jump there.
struct FlashResult {
    double temperature; // K
    double pressure;    // Pa
    bool vaporPresent;  // a phase at its dew or bubble point is present with amount zero
    bool liquidPresent;
    bool liquid2Present;
    double vaporFraction;   // moles in one mole of feed; the least of the amounts have all their digits
    double liquidFraction;  //
    double liquid2Fraction; //
    CompoundArray vapor;    // mole fractions, where present
    CompoundArray liquid;
    CompoundArray liquid2;

    int phaseCount() const { return vaporPresent + liquidPresent + liquid2Present; }

    // Nothing is there.
    void clear()
    {
        vaporPresent = liquidPresent = liquid2Present = false;
        vaporFraction = liquidFraction = liquid2Fraction = 0.0;
    }

    // All of a feed, whose fractions z are, becomes one phase.
    void setOnePhase(bool isVapor, std::span<const double> z)
    {
        clear();
        (isVapor ? vaporPresent : liquidPresent) = true;
        (isVapor ? vaporFraction : liquidFraction) = 1.0;
        std::ranges::copy(z, (isVapor ? vapor : liquid).begin());
    }
};

} // namespace reference
