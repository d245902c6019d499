#include "reference/engine/compounds/ideal_gas.h"

#include "reference/engine/eos/gas_constant.h"

#include <cmath>
#include <tuple>

namespace reference {

namespace {

constexpr int oscillators = 9;

// Of the oscillators, in units of 50 K. From the third on each is the sum of the two before it, and its
// Boltzmann factor the product of theirs: two exponentials are enough.
constexpr double unitTemperature = 50.0;
constexpr double temperatures[oscillators] = {3, 5, 8, 13, 21, 34, 55, 89, 144};

struct Oscillators {
    double x[oscillators];      // theta / T
    double factor[oscillators]; // exp(-x)

    explicit Oscillators(double kelvin)
    {
        for (int i = 0; i < oscillators; ++i)
            x[i] = unitTemperature * temperatures[i] / kelvin;
        factor[0] = std::exp(-x[0]);
        factor[1] = std::exp(-x[1]);
        for (int i = 2; i < oscillators; ++i)
            factor[i] = factor[i - 1] * factor[i - 2];
    }
    double rest(int i) const { return 1.0 - factor[i]; }
    double heatCapacity(int i) const { return x[i] * x[i] * factor[i] / (rest(i) * rest(i)); }
    double energy(int i) const { return x[i] * factor[i] / rest(i); } // over R T
};

using Basis = std::array<double, std::tuple_size_v<HeatCapacityTerms>>;

// The integrals of each term of Cp / R over T and over ln T, without their constants.
Basis enthalpies(double T)
{
    const Oscillators all(T);
    Basis result;
    result[0] = T;
    for (int i = 0; i < oscillators; ++i)
        result[i + 1] = T * all.energy(i);
    return result;
}
Basis entropies(double T)
{
    const Oscillators all(T);
    Basis result;
    result[0] = std::log(T);
    for (int i = 0; i < oscillators; ++i)
        result[i + 1] = all.energy(i) - std::log(all.rest(i));
    return result;
}

struct Integrals {
    Basis enthalpy, entropy;
};
const Integrals &atReference()
{
    static const Integrals values = {enthalpies(referenceTemperature), entropies(referenceTemperature)};
    return values;
}

double sumOver(const HeatCapacityTerms &terms, const Basis &at, const Basis &from)
{
    double sum = 0.0;
    for (std::size_t i = 0; i < terms.size(); ++i)
        sum += terms[i] * (at[i] - from[i]);
    return gasConstant * sum;
}

} // namespace

double idealGasHeatCapacity(const HeatCapacityTerms &terms, double T)
{
    const Oscillators all(T);
    double sum = terms[0];
    for (int i = 0; i < oscillators; ++i)
        sum += terms[i + 1] * all.heatCapacity(i);
    return gasConstant * sum;
}

double idealGasHeatCapacitySlope(const HeatCapacityTerms &terms, double T)
{
    const Oscillators all(T);
    double sum = 0.0;
    for (int i = 0; i < oscillators; ++i)
        sum += terms[i + 1] * all.heatCapacity(i) * (all.x[i] * (1.0 + all.factor[i]) / all.rest(i) - 2.0);
    return gasConstant * sum / T;
}

double idealGasEnthalpy(const HeatCapacityTerms &terms, double T)
{
    return sumOver(terms, enthalpies(T), atReference().enthalpy);
}

double idealGasEntropy(const HeatCapacityTerms &terms, double T)
{
    return sumOver(terms, entropies(T), atReference().entropy);
}

IdealGasState idealGasState(const HeatCapacityTerms &terms, double T)
{
    const Oscillators all(T);
    const Integrals &from = atReference();
    double heatCapacity = terms[0];
    double enthalpy = terms[0] * (T - from.enthalpy[0]);
    double entropy = terms[0] * (std::log(T) - from.entropy[0]);
    for (int i = 0; i < oscillators; ++i) {
        const double rest = all.rest(i);
        const double ratio = all.x[i] / rest;
        const double energy = ratio * all.factor[i];
        const double factor = terms[i + 1];
        heatCapacity += factor * ratio * energy;
        enthalpy += factor * (T * energy - from.enthalpy[i + 1]);
        entropy += factor * (energy - std::log(rest) - from.entropy[i + 1]);
    }
    return {gasConstant * heatCapacity, gasConstant * enthalpy, gasConstant * entropy};
}

} // namespace reference
