#include "reference/engine/quantities/phase_calculation.h"
#include "reference/engine/quantities/phase_pair.h"
#include "reference/engine/quantities/phase_quantity.h"
#include "tests/reference/engine/differences.h"
#include "tests/reference/engine/random_points.h"

#include <gtest/gtest.h>

using namespace reference;

namespace {

std::vector<double> valuesOf(const PhasePoint &first, const PhasePoint &second, PairQuantity quantity,
                             Differential differential = Differential::none)
{
    std::vector<double> values(static_cast<std::size_t>(valueCount(quantity, differential, first.model().size)));
    return calculatePair(first, second, quantity, differential, values) ? values : std::vector<double>();
}

// The same vapor and a liquid of the reversed composition.
struct Pair {
    RandomPhase first;
    RandomPhase second;

    explicit Pair(const RandomPhase &phase) : first(phase), second(phase)
    {
        first.root = Root::vapor;
        second.root = Root::liquid;
        std::ranges::reverse(second.x);
    }
    std::vector<double> at(double T, double P, PairQuantity quantity) const
    {
        return valuesOf(first.at(T, P, first.x), second.at(T, P, second.x), quantity);
    }
    // Whether neither phase jumps to another root nearby.
    bool goesOn() const
    {
        for (const RandomPhase *phase : {&first, &second})
            for (const double factor : {0.998, 1.002})
                if (phase->at(factor * phase->temperature, phase->pressure, phase->x).state().severalRoots !=
                        phase->point().state().severalRoots ||
                    phase->at(phase->temperature, factor * phase->pressure, phase->x).state().severalRoots !=
                        phase->point().state().severalRoots)
                    return false;
        return true;
    }
};

} // namespace

TEST(PhasePair, HasDerivativesThatAgreeWithDifferences)
{
    int sharp = 0;
    int made = 0;
    forRandomPhases(100, 21, [&](const RandomPhase &phase) {
        const Pair pair(phase);
        if (phase.root != Root::vapor || !pair.goesOn())
            return;
        const double T = phase.temperature;
        const double P = phase.pressure;
        const PhasePoint first = pair.first.point();
        const PhasePoint second = pair.second.point();
        const int j = static_cast<int>(phase.x.size()) - 1;
        for (const PairQuantity quantity :
             {PairQuantity::kvalue, PairQuantity::logKvalue, PairQuantity::surfaceTension}) {
            if (!isAvailable(*phase.model, quantity))
                continue;
            const std::vector<double> values = valuesOf(first, second, quantity);
            const std::size_t block = values.size();
            const auto expectSlopes = [&](const std::vector<double> &analytic, std::size_t from, const Slopes &slopes,
                                          double unit) {
                for (std::size_t k = 0; k < block; ++k) {
                    const double exact = analytic.at(from + k);
                    const double tolerance =
                        1e-7 * std::fabs(exact) + 3.0 * slopes.error[k] +
                        (quantity == PairQuantity::surfaceTension ? 1e-11 : 1e-8 * (1.0 + std::fabs(values[k]))) / unit;
                    ++made;
                    sharp += tolerance < 4e-7 * std::fabs(exact) || exact == 0.0;
                    ASSERT_NEAR(exact, slopes.value[k], tolerance)
                        << shapeOf(quantity).name << " T " << T << " P " << P << " of "
                        << phase.model->compounds[0].data->id << " " << static_cast<int>(phase.model->equation);
                }
            };
            expectSlopes(valuesOf(first, second, quantity, Differential::byTemperature), 0,
                         extrapolate([&](double h) { return pair.at(T + h, P, quantity); }, 1e-3 * T), T);
            expectSlopes(valuesOf(first, second, quantity, Differential::byPressure), 0,
                         extrapolate([&](double h) { return pair.at(T, P + h, quantity); }, 1e-3 * P), P);
            const std::vector<double> byFractions = valuesOf(first, second, quantity, Differential::byFractions);
            const std::size_t n = phase.x.size();
            expectSlopes(byFractions, block * static_cast<std::size_t>(j),
                         extrapolate([&](double h) { return valuesOf(pair.first.with(h, j), second, quantity); },
                                     2e-3 * pair.first.x[j]),
                         pair.first.x[j]);
            expectSlopes(byFractions, block * (n + static_cast<std::size_t>(j)),
                         extrapolate([&](double h) { return valuesOf(first, pair.second.with(h, j), quantity); },
                                     2e-3 * pair.second.x[j]),
                         pair.second.x[j]);
            EXPECT_EQ(valuesOf(first, second, quantity, Differential::byMoles), byFractions);
        }
    });
    EXPECT_GT(made, 5000);
    EXPECT_GT(sharp, made / 2) << sharp << " of " << made;
}

// K is the second phase's coefficient over the first one's.
TEST(PhasePair, HasTheRatiosOfItsFugacityCoefficients)
{
    const MixtureModel model = modelOf(pipelineGas);
    const PhasePoint vapor(model, 220.0, 4e6, pipelineFractions, Root::vapor);
    const PhasePoint liquid(model, 220.0, 4e6, std::array{0.45, 0.19, 0.19, 0.09, 0.05, 0.01, 0.02}, Root::liquid);
    const std::vector<double> K = valuesOf(vapor, liquid, PairQuantity::kvalue);
    const std::vector<double> inverse = valuesOf(liquid, vapor, PairQuantity::kvalue);
    const std::vector<double> logK = valuesOf(vapor, liquid, PairQuantity::logKvalue);
    for (std::size_t i = 0; i < K.size(); ++i) {
        EXPECT_NEAR(K[i], std::exp(liquid.state().lnPhi[i] - vapor.state().lnPhi[i]), 1e-12 * K[i]);
        EXPECT_NEAR(K[i] * inverse[i], 1.0, 1e-12);
        EXPECT_NEAR(std::log(K[i]), logK[i], 1e-12);
    }
    EXPECT_GT(K[0], 1.0);
    EXPECT_LT(K[4], 0.1);
}

// CRC Handbook of Chemistry and Physics, surface tension of common liquids at 25 C, mN/m. The correlation takes the
// fourth power of the density.
TEST(PhasePair, HasTheSurfaceTensionOfPublishedTables)
{
    const struct {
        std::string_view id;
        double tension;
    } rows[] = {{"n-pentane", 15.49e-3},
                {"n-hexane", 17.89e-3},
                {"benzene", 28.22e-3},
                {"toluene", 27.93e-3},
                {"cyclohexane", 24.65e-3}};
    for (const EquationOfState equation : equations)
        for (const auto &row : rows) {
            const MixtureModel model = modelOf({row.id}, equation);
            const PhasePoint vapor(model, 298.15, 1e4, std::array{1.0}, Root::vapor);
            const PhasePoint liquid(model, 298.15, 1e5, std::array{1.0}, Root::liquid);
            const double tension = valuesOf(liquid, vapor, PairQuantity::surfaceTension).at(0);
            EXPECT_NEAR(tension, row.tension, 0.12 * row.tension) << row.id << " " << static_cast<int>(equation);
            EXPECT_EQ(tension, valuesOf(vapor, liquid, PairQuantity::surfaceTension).at(0));
        }
}
