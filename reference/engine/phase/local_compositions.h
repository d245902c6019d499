// Activity coefficients by the NRTL equation: Renon, Prausnitz, AIChE J. 14 (1968) 135.
//
// ln gamma_i = C_i / S_i + sum_j x_j G_ij / S_j (tau_ij - C_j / S_j), with S_j = sum_k x_k G_kj,
// C_j = sum_k x_k tau_kj G_kj, G_ij = exp(-alpha_ij tau_ij) and tau_ij = energy_ij / T.
#pragma once

#include "reference/engine/numerics/compound_arrays.h"
#include "reference/engine/numerics/temperature_function.h"

namespace reference {

// One value for each pair of a few compounds, element i, j at i + size * j.
inline constexpr int maximumNrtlCompounds = 16;
template <class Element> using FewPairs = std::array<Element, std::size_t{maximumNrtlCompounds} * maximumNrtlCompounds>;

struct NrtlTerms {
    FewPairs<double> energy;        // K
    FewPairs<double> nonrandomness; // alpha, symmetric
};

// What of the equation depends on temperature alone, and what follows from it for a composition.
class LocalCompositions {
public:
    void prepare(int size, const NrtlTerms &terms, double kelvin);

    // ln gamma_i.
    void logActivityCoefficients(const double *moleFractions, CompoundArray &values) const;

    // The same with its derivatives by temperature, at constant composition.
    void logActivityCoefficients(const double *moleFractions,
                                 std::array<TemperatureFunction, maximumNrtlCompounds> &values) const;

    // n d(ln gamma_i)/d(n_j) at constant temperature, symmetric, element i + size * j.
    void byMoles(const double *moleFractions, PairArray &derivatives) const;

private:
    int n;
    FewPairs<TemperatureFunction> tau;
    FewPairs<TemperatureFunction> G;
    FewPairs<TemperatureFunction> tauG;
};

} // namespace reference
