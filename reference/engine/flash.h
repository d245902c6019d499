// Phase equilibrium of vapour and liquid at two given conditions.
#pragma once

#include "reference/engine/mixture_model.h"

#include <array>
#include <span>

namespace reference {

// What may be given of the whole mixture. Molar values are per mole of feed, with the zero points of
// phase_properties.h; those of internal, Gibbs and Helmholtz energy follow from enthalpy and entropy.
enum class FlashVariable {
    temperature,       // K
    pressure,          // Pa
    vaporFraction,     // moles of vapour in one mole
    vaporMassFraction, // mass of vapour in one unit of mass
    enthalpy,          // J/mol
    entropy,           // J/mol/K
    volume,            // m3/mol
    internalEnergy,    // J/mol
    gibbsEnergy,       // J/mol
    helmholtzEnergy,   // J/mol
};
inline constexpr int flashVariableCount = 10;

struct FlashSpecification {
    FlashVariable variable;
    double value;
};

// Which solution is meant where a vapour fraction is given: the one where it falls with the pressure at
// constant temperature and rises with the temperature at constant pressure, or one where it does not.
// Without a vapour fraction the type has no meaning and is not looked at.
enum class SolutionType {
    unspecified, // the normal one where there is one, otherwise the retrograde one
    normal,
    retrograde,
};

// The phases that may be formed.
enum class FlashPhases {
    vaporAndLiquid,
    vaporOnly,  // the whole feed as vapour, stable or not
    liquidOnly, // the whole feed as liquid, stable or not
};

struct FlashRequest {
    FlashSpecification first;
    FlashSpecification second;
    SolutionType solution = SolutionType::unspecified;
    FlashPhases phases = FlashPhases::vaporAndLiquid;
};

enum class FlashStatus {
    solved,
    badValue,     // a value that no state can have, such as a temperature below zero
    undetermined, // the two together leave the state open
    noSolution,   // no state within the limits below was found to have these values
    notConverged, // the phases at some conditions on the way were not found
};

// Solutions are looked for within these limits only, ends included.
inline constexpr double lowestFlashTemperature = 20.0;    // K
inline constexpr double highestFlashTemperature = 1500.0; // K
inline constexpr double lowestFlashPressure = 1e-2;       // Pa
inline constexpr double highestFlashPressure = 1e8;       // Pa

// What a feed becomes. At most one vapour and one liquid: where the model has two liquids at once, one of
// them stands for the vapour, the less dense one, as far as it can: where its equation has a vapour root,
// too, it cannot, and the feed is given as one liquid. So the values that a mixture holds can jump there.
struct FlashResult {
    double temperature; // K
    double pressure;    // Pa
    bool vaporPresent;  // a phase at its dew or bubble point is present with amount zero
    bool liquidPresent;
    double vaporFraction;  // moles of vapour in one mole of feed: 0, 1 or between
    double liquidFraction; // the rest, with all its digits when it is small
    CompoundArray vapor;   // mole fractions, where present
    CompoundArray liquid;
};

// Why a flash failed: a sentence without its full stop, such as "The vapor fraction 1.5 must be from 0 to 1".
using FlashReason = std::array<char, 320>; // ends with a zero

// Solves for given temperature (K) and pressure (Pa), both above zero and not held to the limits above.
// `z` are the mole fractions of the feed, zero or more, summing to one; compounds below 1e-100 count as
// absent. Two phases are reported when they have a lower Gibbs energy than one, and then ln f_i differs by
// less than 1e-10 between them.
//
// A single phase where the equation has two roots is the one of lower Gibbs energy. Where it has
// one, it is liquid if the equation with the mixture's a and b still has a van der Waals loop at the
// temperature, and the volume is below that of the equation's critical point; otherwise vapour.
FlashStatus flashTP(const MixtureModel &model, double temperature, double pressure, std::span<const double> z,
                    FlashResult &result);

// Solves for any two conditions, given in either order; `z` as above. The values of the solution agree
// with those given to 1e-9, relative to the larger of the value itself and its natural size (R T for an
// energy, R for an entropy). `result` is valid when the flash is solved, `reason` when it is not. No call
// depends on one before, and none allocates.
//
// Several states can have the given values: at one temperature a gas and a liquid may have the same
// enthalpy, at one pressure the Gibbs and Helmholtz energy rise and fall. Then one of them is the answer,
// always the same; of two phases with a given vapour fraction, the solution type chooses.
//
// A pure compound that boils has a range of enthalpies, entropies, volumes, internal and Helmholtz
// energies at one temperature and pressure, and one Gibbs energy; so its Gibbs energy together with its
// temperature or pressure leaves the amounts open.
FlashStatus flash(const MixtureModel &model, const FlashRequest &request, std::span<const double> z,
                  FlashResult &result, FlashReason &reason);

// Whether two variables can determine a state at all; null if so, otherwise why not, as for FlashReason.
const char *refusalOf(FlashVariable first, FlashVariable second);

} // namespace reference
