#include "reference/engine/phase/local_compositions.h"

namespace reference {

namespace {

// One column of the sums: S_j, and C_j / S_j.
template <class Value> struct Surroundings {
    Value sum;
    Value meanTau;
};

double asValue(const TemperatureFunction &function, double) { return function.value; }
const TemperatureFunction &asValue(const TemperatureFunction &function, const TemperatureFunction &)
{
    return function;
}

template <class Value> void findSurroundings(int n, const double *x, const FewPairs<TemperatureFunction> &G,
                                             const FewPairs<TemperatureFunction> &tauG,
                                             std::array<Surroundings<Value>, maximumNrtlCompounds> &around)
{
    for (int j = 0; j < n; ++j) {
        Value sum{};
        Value weighted{};
        for (int k = 0; k < n; ++k) {
            sum += x[k] * asValue(G[k + n * j], sum);
            weighted += x[k] * asValue(tauG[k + n * j], sum);
        }
        around[j] = {sum, weighted / sum};
    }
}

template <class Value, class Values> void findLogActivities(int n, const double *x,
                                                            const FewPairs<TemperatureFunction> &tau,
                                                            const FewPairs<TemperatureFunction> &G,
                                                            const FewPairs<TemperatureFunction> &tauG, Values &values)
{
    std::array<Surroundings<Value>, maximumNrtlCompounds> around;
    findSurroundings(n, x, G, tauG, around);
    for (int i = 0; i < n; ++i) {
        Value sum = around[i].meanTau;
        for (int j = 0; j < n; ++j) {
            const int pair = i + n * j;
            sum += x[j] * (asValue(G[pair], sum) / around[j].sum * (asValue(tau[pair], sum) - around[j].meanTau));
        }
        values[i] = sum;
    }
}

} // namespace

void LocalCompositions::prepare(int size, const NrtlTerms &terms, double kelvin)
{
    n = size;
    for (int pair = 0; pair < n * n; ++pair) {
        tau[pair] = overTemperature(terms.energy[pair], kelvin);
        G[pair] = exp(-terms.nonrandomness[pair] * tau[pair]);
        tauG[pair] = tau[pair] * G[pair];
    }
}

void LocalCompositions::logActivityCoefficients(const double *x, CompoundArray &values) const
{
    findLogActivities<double>(n, x, tau, G, tauG, values);
}

void LocalCompositions::logActivityCoefficients(const double *x,
                                                std::array<TemperatureFunction, maximumNrtlCompounds> &values) const
{
    findLogActivities<TemperatureFunction>(n, x, tau, G, tauG, values);
}

void LocalCompositions::byMoles(const double *x, PairArray &derivatives) const
{
    std::array<Surroundings<double>, maximumNrtlCompounds> around;
    findSurroundings(n, x, G, tauG, around);
    // How much of compound i is around k, and by how much its tau there is over the mean.
    FewPairs<double> share;
    FewPairs<double> excess;
    for (int k = 0; k < n; ++k)
        for (int i = 0; i < n; ++i) {
            share[i + n * k] = G[i + n * k].value / around[k].sum;
            excess[i + n * k] = tau[i + n * k].value - around[k].meanTau;
        }
    for (int j = 0; j < n; ++j) {
        double *column = columnOf(derivatives, n, j);
        for (int i = 0; i < n; ++i) {
            column[i] = share[i + n * j] * excess[i + n * j] + share[j + n * i] * excess[j + n * i];
            for (int k = 0; k < n; ++k)
                column[i] -= x[k] * share[i + n * k] * share[j + n * k] * (excess[i + n * k] + excess[j + n * k]);
        }
    }
}

} // namespace reference
