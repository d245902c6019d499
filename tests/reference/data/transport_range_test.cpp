// Saturated pure compounds have what the published correlations say, in all of their ranges.
#include "reference/package/compound_constants.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace reference;

namespace {

struct Row {
    std::string_view property; // as the packages name it
    TransportCorrelation TransportCorrelations::*correlation;
    double accuracy;
    double accuracyOfHalf;
};
// The vapor pressures of the cubic equations are not those of the correlations, by which near the critical point
// densities differ.
constexpr Row rows[] = {{"viscosityOfVapor", &TransportCorrelations::gasViscosity, 1e-3, 1e-4},
                        {"thermalConductivityOfVapor", &TransportCorrelations::gasConductivity, 1e-3, 1e-4},
                        {"viscosityOfLiquid", &TransportCorrelations::liquidViscosity, 0.1, 0.01},
                        {"thermalConductivityOfLiquid", &TransportCorrelations::liquidConductivity, 0.1, 0.01},
                        {"surfaceTensionSatLiquid", &TransportCorrelations::surfaceTension, 0.1, 0.03}};

double ours(const PureCompound &compound, std::string_view name, double kelvin)
{
    const auto all = temperatureDependentProperties().rows;
    return std::ranges::find(all, name, &ConditionedProperty::name)->value(compound, kelvin);
}

bool isOfLiquid(const Row &row) { return row.property.find("Liquid") != std::string_view::npos; }

} // namespace

TEST(TransportRange, IsThatOfThePublishedCorrelations)
{
    for (const Row &row : rows) {
        std::vector<double> deviations;
        for (const CompoundData &compound : compoundTable())
            for (const EquationOfState equation : {EquationOfState::pengRobinson, EquationOfState::soaveRedlichKwong}) {
                const TransportCorrelation &correlation = compound.transport.*row.correlation;
                ASSERT_TRUE(correlation.isKnown()) << compound.id << " " << row.property;
                // Below, no vapor pressure is above the least pressure of a flash.
                const double lowest =
                    std::max({correlation.lowest, isOfLiquid(row) ? 0.5 * compound.criticalTemperature : 20.0, 20.0});
                const double highest =
                    std::min(correlation.highest, isOfLiquid(row) ? 0.95 * compound.criticalTemperature : 1500.0);
                for (double part = 0.0; part <= 1.0 && lowest < highest; part += 0.125) {
                    const double T = lowest + part * (highest - lowest);
                    const double expected = correlation.at(T).value;
                    const double deviation = ours({compound, equation}, row.property, T) / expected - 1.0;
                    deviations.push_back(std::fabs(deviation));
                    EXPECT_NEAR(deviation, 0.0, row.accuracy)
                        << row.property << " of " << compound.id << " at " << T << " K, "
                        << T / compound.criticalTemperature << " Tc, equation " << static_cast<int>(equation);
                }
            }
        ASSERT_GT(deviations.size(), 1000u) << row.property;
        std::ranges::nth_element(deviations, deviations.begin() + deviations.size() / 2);
        EXPECT_LE(deviations[deviations.size() / 2], row.accuracyOfHalf) << row.property;
    }
}
