#include "reference/engine/quantities/phase_calculation.h"
#include "reference/engine/quantities/phase_quantity.h"
#include "tests/reference/engine/campaign.h"
#include "tests/reference/engine/differences.h"
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
        const std::ptrdiff_t block = valueCount(quantity, Differential::none, point.model().size);
        const auto begin = values.begin() + std::max(0, compound) * block;
        list.insert(list.end(), begin, begin + block);
    }
    return list;
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
    case PhaseQuantity::jouleThomsonCoefficient:
        return 1e-6;
    default:
        return shape.extensive ? 10.0 * R * T : shape.dimension == 1 ? 30.0 : 0.0;
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
                    2e-10 * (std::fabs(values[k]) + naturalSize(quantity, phase.temperature)) / unit;
                ++made;
                sharp += tolerance < 3.0 * size + 1e-300 || analytic[k] == 0.0;
                ASSERT_NEAR(analytic[k], slopes.value[k], tolerance)
                    << shapeOf(quantity).name << " by " << static_cast<int>(differential) << ", equation "
                    << static_cast<int>(phase.model->equation) << " root " << static_cast<int>(phase.root) << " T "
                    << phase.temperature << " P " << phase.pressure << " of " << phase.model->compounds[0].data->id;
            }
    }
};

// Whether a correlation for pure compounds is continued from somewhere near: its third derivative jumps there.
bool nearJoint(const RandomPhase &phase, double T)
{
    const auto jumps = [&](const auto &function) {
        const TemperatureFunction below = function(phase.temperature - T);
        const TemperatureFunction above = function(phase.temperature + T);
        return std::fabs(above.byTTT - below.byTTT) >
               0.3 * (std::fabs(above.byTTT) + std::fabs(above.byTT) / phase.temperature);
    };
    for (int i = 0; i < phase.model->size; ++i) {
        const CompoundTerms &compound = phase.model->compounds[i];
        if (jumps([&](double at) { return compound.saturationPressure.logarithm(at); }) ||
            jumps([&](double at) { return compound.liquidVolume.volume(at); }))
            return true;
    }
    return false;
}

// Whether a transport correlation ends near: the slope of what it scales jumps there. The saturated liquid is followed
// up to 0.97 Tc.
bool nearEndOfCorrelation(const RandomPhase &phase, double T)
{
    for (int i = 0; i < phase.model->size; ++i) {
        const CompoundData &data = *phase.model->compounds[i].data;
        const TransportCorrelations &all = data.transport;
        std::vector<double> ends = {0.97 * data.criticalTemperature};
        for (const auto &one : {all.gasViscosity, all.liquidViscosity, all.gasConductivity, all.liquidConductivity})
            ends.insert(ends.end(), {one.lowest, one.highest});
        for (const double end : ends)
            if (std::fabs(end - phase.temperature) <= T)
                return true;
    }
    return false;
}

// Whether the phase goes on over these steps, rather than jumping to the other root.
bool goesOn(const RandomPhase &phase, double T, double P)
{
    if (nearEndOfCorrelation(phase, T))
        return false;
    if (phase.model->equation == EquationOfState::idealMixture && phase.root == Root::liquid && nearJoint(phase, T))
        return false;
    const auto jumps = [&](const RandomPhase &one) {
        const bool several = one.point().state().severalRoots;
        for (const double sign : {-1.0, 1.0})
            if (one.at(one.temperature + sign * T, one.pressure, one.x).state().severalRoots != several ||
                one.at(one.temperature, one.pressure + sign * P, one.x).state().severalRoots != several)
                return true;
        return false;
    };
    // Activities and excess properties compare with the pure compounds.
    RandomPhase pure = phase;
    pure.x = {1.0};
    for (int i = 0; i < phase.model->size; ++i) {
        pure.model = std::make_shared<MixtureModel>(phase.model->subset(std::array{i}));
        if (jumps(pure))
            return false;
    }
    return !jumps(phase);
}

} // namespace

class PhaseDerivatives : public testing::TestWithParam<std::tuple<EquationOfState, Root>> {};

TEST_P(PhaseDerivatives, AgreeWithDifferences)
{
    Comparison compare;
    int skipped = 0;
    constexpr int phasesOfAQuarter = 250;
    constexpr int before = firstQuarter * phasesOfAQuarter;
    constexpr int phases = quarters * phasesOfAQuarter;
    int number = 0;
    const auto [equation, root] = GetParam();
    forRandomPhases(equation, root, before + phases, 1, [&](const RandomPhase &phase) {
        if (number++ < before)
            return;
        const double T = phase.temperature;
        const double P = phase.pressure;
        const double dT = 1e-3 * T;
        const double dP = 1e-3 * P;
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
                phase.x[j]);
    });
    EXPECT_LT(skipped, phases / 4);
    EXPECT_GT(compare.sharp, compare.made * 7 / 10) << compare.sharp << " of " << compare.made;
}

INSTANTIATE_TEST_SUITE_P(OfEach, PhaseDerivatives,
                         testing::Combine(testing::ValuesIn(equations), testing::Values(Root::vapor, Root::liquid)));

// Nothing is NaN where a compound is absent, and what is finite there is the limit of small amounts.
TEST(PhasePoint, TakesFractionsOfZero)
{
    int compared = 0;
    forRandomPhases(50, 2, [&](const RandomPhase &phase) {
        if (phase.x.size() < 2)
            return;
        RandomPhase without = phase;
        without.x[1] += without.x[0];
        without.x[0] = 0.0;
        RandomPhase trace = without;
        trace.x[0] = 1e-18;
        for (const PhaseQuantity quantity : availableQuantities(phase))
            for (const Differential differential :
                 {Differential::none, Differential::byTemperature, Differential::byPressure, Differential::byMoles,
                  Differential::byFractions}) {
                const std::vector<double> none = valuesOf(without.point(), quantity, differential);
                const std::vector<double> little = valuesOf(trace.point(), quantity, differential);
                const double rounding = 1e-9 * naturalSize(quantity, phase.temperature) +
                                        (quantity == PhaseQuantity::fugacity ? 1e-12 * phase.pressure : 1e-11);
                double size = 0.0;
                for (const double value : little)
                    if (std::isfinite(value) && std::fabs(value) < 1e12)
                        size = std::max(size, std::fabs(value));
                for (std::size_t k = 0; k < none.size(); ++k) {
                    ASSERT_FALSE(std::isnan(none[k])) << shapeOf(quantity).name;
                    // Of a trace there is little fugacity, but its coefficient may be anything.
                    const bool proportional =
                        quantity == PhaseQuantity::fugacity || quantity == PhaseQuantity::activity;
                    if (!std::isfinite(none[k]) || (proportional && none[k] == 0.0))
                        continue;
                    ++compared;
                    ASSERT_NEAR(none[k], little[k], 1e-8 * size + rounding)
                        << shapeOf(quantity).name << " by " << static_cast<int>(differential);
                }
            }
    });
    EXPECT_GT(compared, 50000);
}

// 0 times the logarithm of 0 is taken as 0; the logarithm itself and what one more mole would mix are infinite.
TEST(PhasePoint, HasInfiniteLogarithmsOfNothing)
{
    const MixtureModel model = modelOf({"methane", "ethane"});
    const PhasePoint point(model, 300.0, 1e6, std::array{1.0, 0.0}, Root::vapor);
    EXPECT_EQ(valuesOf(point, PhaseQuantity::logFugacity)[1], -INFINITY);
    EXPECT_EQ(valuesOf(point, PhaseQuantity::fugacity)[1], 0.0);
    EXPECT_EQ(valuesOf(point, PhaseQuantity::entropy, Differential::byMoles)[1], INFINITY);
    EXPECT_EQ(valuesOf(point, PhaseQuantity::gibbsEnergy, Differential::byMoles)[1], -INFINITY);
    EXPECT_TRUE(std::isfinite(valueOf(point, PhaseQuantity::entropy)));
}

// Up to the critical point of a pure fluid, where volume and heat capacity answer without bound.
TEST(PhasePoint, StaysANumberAtCriticalPoints)
{
    for (const EquationOfState equation : equations)
        for (const CompoundData &compound : compoundTable())
            for (const double T : {1.0, 1.0 - 1e-12, 1.0 + 1e-9})
                for (const Root root : {Root::vapor, Root::liquid, Root::stable}) {
                    RandomPhase phase{.model = std::make_shared<MixtureModel>(modelOf({compound.id}, equation)),
                                      .temperature = T * compound.criticalTemperature,
                                      .pressure = compound.criticalPressure,
                                      .x = {1.0},
                                      .root = root};
                    const PhasePoint point = phase.point();
                    for (int k = 0; k < phaseQuantityCount; ++k)
                        for (int d = 0; d < differentialCount; ++d)
                            for (const double value :
                                 valuesOf(point, static_cast<PhaseQuantity>(k), static_cast<Differential>(d)))
                                ASSERT_FALSE(std::isnan(value)) << compound.id << " " << k << " by " << d;
                }
}

TEST(PhasePoint, StaysANumberInExtremeConditions)
{
    constexpr std::size_t together = 6;
    const std::span<const CompoundData> table = compoundTable();
    for (const EquationOfState equation : equations)
        for (std::size_t begin = 0; begin + together <= table.size(); begin += together) {
            std::vector<const CompoundData *> list;
            for (const CompoundData &compound : table.subspan(begin, together))
                list.push_back(&compound);
            const RandomPhase phase{.model = std::make_shared<MixtureModel>(MixtureModel::of(list, equation)),
                                    .temperature = 0.0,
                                    .pressure = 0.0,
                                    .x = std::vector<double>(together, 1.0 / together),
                                    .root = begin % 4 == 0 ? Root::vapor : Root::liquid};
            for (const double T : {20.0, 100.0, 300.0, 1500.0})
                for (const double P : {1e-2, 1e3, 1e6, 1e9}) {
                    const PhasePoint point = phase.at(T, P, phase.x);
                    for (int k = 0; k < phaseQuantityCount; ++k)
                        for (int d = 0; d < differentialCount; ++d)
                            for (const double value :
                                 valuesOf(point, static_cast<PhaseQuantity>(k), static_cast<Differential>(d)))
                                ASSERT_FALSE(std::isnan(value))
                                    << phaseQuantities()[k].name << " by " << d << " at " << T << " K " << P
                                    << " Pa, equation " << static_cast<int>(equation) << " of " << list[0]->id;
                }
        }
}

TEST(PhasePoint, DoesNotHaveWhatTheLiquidOfAnIdealMixtureLacks)
{
    const MixtureModel model = modelOf({"propane"}, EquationOfState::idealMixture);
    const PhasePoint liquid(model, 280.0, 1e6, std::array{1.0}, Root::liquid);
    const PhasePoint vapor(model, 280.0, 1e5, std::array{1.0}, Root::vapor);
    for (const PhaseQuantity quantity : {PhaseQuantity::heatCapacityCv, PhaseQuantity::speedOfSound}) {
        std::array values{17.0};
        EXPECT_FALSE(calculate(liquid, quantity, Differential::none, values));
        EXPECT_EQ(values[0], 17.0);
        EXPECT_TRUE(calculate(vapor, quantity, Differential::none, values));
        EXPECT_FALSE(isAvailable(model, Root::liquid, quantity));
        EXPECT_TRUE(isAvailable(model, Root::vapor, quantity));
    }
}
