// Critical points of mixtures, by criteria of their own: what flashes next to them are judged by.
#pragma once

#include "reference/engine/phase/mixture_model.h"

#include <optional>
#include <vector>

namespace reference {

struct CriticalPoint {
    double temperature; // K
    double pressure;    // Pa
};

// The critical point of a gas by a cubic equation, the one with the largest volume of several: where the least
// eigenvalue of the second derivatives of the Helmholtz energy is zero, and the cubic form of its vector, too.
// Heidemann, Khalil, AIChE J. 26 (1980) 769; Michelsen, Heidemann, AIChE J. 27 (1981) 521.
std::optional<CriticalPoint> criticalPointOf(const MixtureModel &model, const std::vector<double> &z);

} // namespace reference
