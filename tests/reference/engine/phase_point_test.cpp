#include "tests/reference/engine/random_points.h"

#include <gtest/gtest.h>

using namespace reference;

namespace {

constexpr double R = 8.31446261815324;

std::vector<PhaseQuantity> availableQuantities(const RandomPhase &phase)
{
    std::vector<PhaseQuantity> list;
    for (int k = 0; k < phaseQuantityCount; ++k)
        if (isAvailable(*phase.model, phase.root, static_cast<PhaseQuantity>(k)))
            list.push_back(static_cast<PhaseQuantity>(k));
    return list;
}

std::vector<double> all(const PhasePoint &point, const std::vector<PhaseQuantity> &quantities,
                        Differential differential = Differential::none, int compound = -1)
{
    std::vector<double> list;
    for (const PhaseQuantity quantity : quantities) {
        const std::vector<double> values = valuesOf(point, quantity, differential);
        const int block = valueCount(quantity, Differential::none, point.model().size);
        const auto begin = values.begin() + std::max(0, compound) * block;
        list.insert(list.end(), begin, begin + block);
    }
    return list;
}

// Central differences of a list of functions with steps h, h/2 and h/4, extrapolated to zero after
// Richardson. The error is what the last extrapolation changed.
struct Slopes {
    std::vector<double> value;
    std::vector<double> error;
};
Slopes extrapolate(const std::function<std::vector<double>(double)> &functions, double h)
{
    std::vector<std::vector<double>> columns;
    for (const double step : {h, 0.5 * h, 0.25 * h}) {
        const std::vector<double> above = functions(step);
        const std::vector<double> below = functions(-step);
        std::vector<double> difference;
        for (std::size_t k = 0; k < above.size(); ++k)
            difference.push_back((above[k] - below[k]) / (2.0 * step));
        columns.push_back(difference);
    }
    Slopes slopes;
    for (std::size_t k = 0; k < columns[0].size(); ++k) {
        const double coarse = (4.0 * columns[1][k] - columns[0][k]) / 3.0;
        const double fine = (4.0 * columns[2][k] - columns[1][k]) / 3.0;
        const double best = (16.0 * fine - coarse) / 15.0;
        slopes.value.push_back(best);
        slopes.error.push_back(std::fabs(best - fine));
    }
    return slopes;
}

// What a quantity is rounded against where it is a small difference of large ones.
double naturalSize(PhaseQuantity quantity, double T)
{
    const QuantityShape &shape = shapeOf(quantity);
    switch (quantity) {
    case PhaseQuantity::entropy:
    case PhaseQuantity::entropyF:
    case PhaseQuantity::entropyNF:
    case PhaseQuantity::excessEntropy:
    case PhaseQuantity::heatCapacityCp:
    case PhaseQuantity::heatCapacityCv:
        return 10.0 * R;
    case PhaseQuantity::volume:
    case PhaseQuantity::excessVolume:
        return 1e-4;
    default:
        return shape.extensive ? 10.0 * R * T : shape.dimension == 1 ? 10.0 : 0.0;
    }
}

// Compares to 1e-7 relative, or what the differences themselves are good for. Counts the comparisons
// that were that sharp.
struct Comparison {
    int sharp = 0;
    int made = 0;

    void operator()(const RandomPhase &phase, const std::vector<PhaseQuantity> &quantities, Differential differential,
                    const std::vector<double> &analytic, const std::vector<double> &values, const Slopes &slopes,
                    double unit)
    {
        std::size_t k = 0;
        for (const PhaseQuantity quantity : quantities)
            for (int i = 0; i < valueCount(quantity, Differential::none, phase.model->size); ++i, ++k) {
                const double size = 1e-7 * std::fabs(analytic[k]);
                const double tolerance =
                    size + slopes.error[k] +
                    1e-10 * (std::fabs(values[k]) + naturalSize(quantity, phase.temperature)) / unit;
                ++made;
                sharp += tolerance < 3.0 * size + 1e-300 || analytic[k] == 0.0;
                ASSERT_NEAR(analytic[k], slopes.value[k], tolerance)
                    << shapeOf(quantity).name << " by " << static_cast<int>(differential) << ", equation "
                    << static_cast<int>(phase.model->equation) << " root " << static_cast<int>(phase.root) << " T "
                    << phase.temperature << " P " << phase.pressure << " of " << phase.model->compounds[0].data->id;
            }
    }
};

// Whether the phase goes on over these steps, rather than jumping to the other root.
bool goesOn(const RandomPhase &phase, double T, double P)
{
    const bool several = phase.point().state().severalRoots;
    for (const double sign : {-1.0, 1.0})
        if (phase.at(phase.temperature + sign * T, phase.pressure, phase.x).state().severalRoots != several ||
            phase.at(phase.temperature, phase.pressure + sign * P, phase.x).state().severalRoots != several)
            return false;
    return true;
}

} // namespace

TEST(PhasePoint, HasDerivativesThatAgreeWithDifferences)
{
    Comparison compare;
    int skipped = 0;
    int phases = 0;
    forRandomPhases(100, 1, [&](const RandomPhase &phase) {
        const double T = phase.temperature;
        const double P = phase.pressure;
        const double dT = 1e-3 * T;
        const double dP = 1e-3 * P;
        ++phases;
        if (!goesOn(phase, 2.0 * dT, 2.0 * dP)) {
            ++skipped;
            return;
        }
        const std::vector<PhaseQuantity> quantities = availableQuantities(phase);
        const PhasePoint point = phase.point();
        const std::vector<double> values = all(point, quantities);
        compare(phase, quantities, Differential::byTemperature, all(point, quantities, Differential::byTemperature),
                values, extrapolate([&](double h) { return all(phase.at(T + h, P, phase.x), quantities); }, dT), T);
        compare(phase, quantities, Differential::byPressure, all(point, quantities, Differential::byPressure), values,
                extrapolate([&](double h) { return all(phase.at(T, P + h, phase.x), quantities); }, dP), P);
        const int j = static_cast<int>(phase.x.size()) - 1;
        compare(phase, quantities, Differential::byFractions, all(point, quantities, Differential::byFractions, j),
                values, extrapolate([&](double h) { return all(phase.with(h, j), quantities); }, 2e-3 * phase.x[j]),
                1.0);
    });
    EXPECT_LT(skipped, phases / 10);
    EXPECT_GT(compare.sharp, compare.made * 7 / 10) << compare.sharp << " of " << compare.made;
}
