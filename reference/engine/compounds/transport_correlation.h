// Transport properties and surface tension of a pure compound, as published correlations of temperature.
#pragma once

#include "reference/engine/numerics/dual.h"

#include <array>

namespace reference {

// Of the coefficients C1, C2, ...:
//   polynomial          C1 + C2 T + C3 T^2 + ...
//   exponential         exp(C1 + C2/T + C3 ln T + C4 T^C5)
//   sutherland          C1 T^C2 / (1 + C3/T + C4/T^2)
//   shiftedExponential  C1 + exp(C2/T + C3 + C4 T + C5 T^2)
//   powers              C1 q^C2 + C3 q^C4 + C5 q^C6, q = 1 - T/C7
enum class TransportForm { none, polynomial, exponential, sutherland, shiftedExponential, powers };

struct TransportCorrelation {
    TransportForm form;
    std::array<double, 7> coefficients;
    double lowest, highest; // K: its range

    bool isKnown() const { return form != TransportForm::none; }
    Dual at(Dual kelvin) const; // also beyond the range, where it may say anything
};

// Of the thin gas and of the liquid in equilibrium with its vapor, in units of the SI.
struct TransportCorrelations {
    TransportCorrelation gasViscosity;
    TransportCorrelation liquidViscosity;
    TransportCorrelation gasConductivity;
    TransportCorrelation liquidConductivity;
    TransportCorrelation surfaceTension;
};

} // namespace reference
