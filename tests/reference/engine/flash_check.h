// Judges the answers of flashes by nothing but the phases' own properties.
#pragma once

#include "reference/engine/flash/flash.h"
#include "reference/engine/phase/phase_properties.h"

#include <string>
#include <vector>

namespace reference {

// A flash with all that it is asked of.
struct FlashCase {
    const MixtureModel &model;
    std::vector<double> z;
    FlashRequest request;
};

// What is wrong with an answer; empty for nothing. Checked are: fractions that sum to one and balance the feed
// within 1e-12, fugacities that agree within 1e-9, both specifications within 1e-9 (of the larger of the value
// and R T or R), and a Gibbs energy that is not above that of the feed as one phase.
std::string faultOf(const FlashCase &problem, const FlashResult &result);

// The value of a variable that phases have together, worked out from the properties of each.
double valueOf(const MixtureModel &model, const std::vector<double> &z, const FlashResult &result,
               FlashVariable variable);

// The Gibbs energy over R T of phases at their temperature and pressure, but for what all ways to divide the feed have:
// the sum of n_i (ln x_i + ln phi_i).
double gibbsOf(const MixtureModel &model, const FlashResult &result);

// The Gibbs energy over R T, per mole of phase, that a mixture in `result` gains by the phases of another state at the
// same temperature and pressure: the least of these phases' distances from its tangent plane. Below zero by more than
// round-off where one of them would form, however little of it there would be.
double distanceOf(const MixtureModel &model, const FlashResult &result, const FlashResult &other);

// What differences of a variable's values are measured by.
double sizeOf(FlashVariable variable, double value, double temperature);

// A case in words.
std::string describe(const FlashCase &problem);

} // namespace reference
