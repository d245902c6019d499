#include "reference/engine/compounds/saturation.h"
#include "reference/engine/eos/gas_constant.h"
#include "tests/reference/engine/mixtures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>

using namespace reference;

namespace {

// Fourth-order central differences of a function and of its slope.
void expectDerivatives(const std::function<TemperatureFunction(double)> &function, double T, double step,
                       const std::string &what)
{
    const TemperatureFunction at = function(T);
    const auto difference = [&](double TemperatureFunction::*member) {
        return (8.0 * (function(T + step).*member - function(T - step).*member) -
                (function(T + 2.0 * step).*member - function(T - 2.0 * step).*member)) /
               (12.0 * step);
    };
    EXPECT_NEAR(at.byT, difference(&TemperatureFunction::value), 1e-6 * (std::fabs(at.byT) + std::fabs(at.value) / T))
        << what << " at " << T;
    EXPECT_NEAR(at.byTT, difference(&TemperatureFunction::byT), 1e-6 * (std::fabs(at.byTT) + std::fabs(at.byT) / T))
        << what << " at " << T;
    EXPECT_NEAR(at.byTTT, difference(&TemperatureFunction::byTT), 1e-6 * (std::fabs(at.byTTT) + std::fabs(at.byTT) / T))
        << what << " at " << T;
}

// The largest step of a function and its derivatives across any of the temperatures from 20 K to
// 1000 K, each as a part of what it is large against.
double largestJump(const std::function<TemperatureFunction(double)> &function)
{
    double largest = 0.0;
    TemperatureFunction before = function(20.0);
    const double step = 0.01;
    for (int k = 1; k < 98000; ++k) {
        const double T = 20.0 + step * k;
        const TemperatureFunction now = function(T);
        const double curvature = std::fabs(now.byTT) + std::fabs(now.byT) / T;
        largest = std::max(largest, std::fabs(now.byTT - before.byTT) / curvature);
        largest = std::max(largest, std::fabs(now.byT - before.byT - now.byTT * step) / std::fabs(now.byT));
        before = now;
    }
    return largest;
}

} // namespace

// NIST Chemistry WebBook (SRD 69), saturation properties.
TEST(VaporPressure, IsThatOfPublishedTables)
{
    EXPECT_NEAR(vaporPressure(named("methane"), 150.0), 1.0400e6, 0.001e6);
    EXPECT_NEAR(vaporPressure(named("nitrogen"), 100.0), 0.77827e6, 0.0008e6);
    EXPECT_NEAR(vaporPressure(named("propane"), 300.0), 0.9978e6, 0.001e6);
    EXPECT_NEAR(vaporPressure(named("carbon dioxide"), 250.0), 1.7850e6, 0.002e6);
}

TEST(VaporPressure, EndsWithItsRange)
{
    const CompoundData &methane = named("methane");
    EXPECT_DOUBLE_EQ(vaporPressure(methane, methane.criticalTemperature), methane.criticalPressure);
    EXPECT_TRUE(std::isnan(vaporPressure(methane, methane.criticalTemperature + 0.01)));
    EXPECT_TRUE(std::isnan(vaporPressure(methane, 90.0)));
}

TEST(SaturatedLiquidDensity, EndsWithItsRange)
{
    const CompoundData &methane = named("methane");
    EXPECT_TRUE(std::isnan(saturatedLiquidDensity(methane, methane.criticalTemperature + 0.01)));
    EXPECT_TRUE(std::isnan(saturatedLiquidDensity(methane, 90.0)));
    EXPECT_FALSE(std::isnan(saturatedLiquidDensity(methane, 91.0)));
}

// Neon's is straight from 0.67 Tc on.
TEST(SaturationPressure, IsTheCorrelationUpToEightTenthsOfTheCriticalTemperature)
{
    for (const CompoundData &compound : compoundTable()) {
        if (compound.id == "neon")
            continue;
        const SaturationPressure curve(compound);
        for (const double part : {0.0, 0.5, 1.0}) {
            const double lowest = compound.vaporPressure.lowest;
            const double T = lowest + part * (0.77 * compound.criticalTemperature - lowest);
            EXPECT_NEAR(std::exp(curve.logarithm(T).value) / vaporPressure(compound, T), 1.0, 1e-3) << compound.id;
        }
    }
}

TEST(SaturationPressure, MissesTheCriticalPressureByFivePercentAtMost)
{
    for (const CompoundData &compound : compoundTable()) {
        if (compound.id == "neon")
            continue;
        const double p = std::exp(SaturationPressure(compound).logarithm(compound.criticalTemperature).value);
        EXPECT_NEAR(p / compound.criticalPressure, 1.0, 0.05) << compound.id;
    }
}

TEST(SaturationPressure, HasItsDerivatives)
{
    for (const CompoundData &compound : compoundTable()) {
        const SaturationPressure curve(compound);
        for (const double reduced : {0.2, 0.55, 0.7, 0.97, 1.0, 1.4, 3.0}) {
            const double T = reduced * compound.criticalTemperature;
            expectDerivatives([&](double kelvin) { return curve.logarithm(kelvin); }, T, 1e-3 * T,
                              std::string(compound.id));
        }
    }
}

TEST(SaturationPressure, HasNoJumpsInItsDerivatives)
{
    for (const CompoundData &compound : compoundTable()) {
        const SaturationPressure curve(compound);
        EXPECT_LT(largestJump([&](double kelvin) { return curve.logarithm(kelvin); }), 0.01) << compound.id;
    }
}

TEST(SaturationPressure, RisesWithTemperatureAndLeavesTheLiquidAHeatCapacity)
{
    for (const CompoundData &compound : compoundTable()) {
        const SaturationPressure curve(compound);
        for (double T = std::max(20.0, 0.2 * compound.criticalTemperature); T < 1000.0; T += 1.0) {
            const TemperatureFunction at = curve.logarithm(T);
            EXPECT_GT(at.byT, 0.0) << compound.id << " at " << T;
            const double gas = idealGasHeatCapacity(compound.idealGasHeatCapacity, T) / gasConstant;
            EXPECT_GT(gas - T * (2.0 * at.byT + T * at.byTT), 0.0) << compound.id << " at " << T;
        }
    }
}

TEST(LiquidVolume, IsTheCorrelationUpToNineTenthsOfTheCriticalTemperature)
{
    for (const CompoundData &compound : compoundTable()) {
        const LiquidVolume curve(compound);
        for (const double part : {0.0, 0.5, 1.0}) {
            const double lowest = compound.liquidDensity.lowest;
            const double T = lowest + part * (0.89 * compound.criticalTemperature - lowest);
            EXPECT_NEAR(curve.volume(T).value * saturatedLiquidDensity(compound, T), 1.0, 1e-12) << compound.id;
        }
    }
}

TEST(LiquidVolume, HasItsDerivatives)
{
    for (const CompoundData &compound : compoundTable()) {
        const LiquidVolume curve(compound);
        for (const double reduced : {0.2, 0.55, 0.7, 0.89, 0.97, 1.0, 1.4, 3.0}) {
            const double T = reduced * compound.criticalTemperature;
            expectDerivatives([&](double kelvin) { return curve.volume(kelvin); }, T, 1e-3 * T,
                              std::string(compound.id));
        }
    }
}

TEST(LiquidVolume, HasNoJumpsInItsDerivatives)
{
    for (const CompoundData &compound : compoundTable()) {
        const LiquidVolume curve(compound);
        EXPECT_LT(largestJump([&](double kelvin) { return curve.volume(kelvin); }), 0.02) << compound.id;
    }
}

TEST(LiquidVolume, StaysAboveZero)
{
    for (const CompoundData &compound : compoundTable()) {
        const LiquidVolume curve(compound);
        for (double T = 1.0; T < 2000.0; T += 10.0)
            EXPECT_GT(curve.volume(T).value, 0.0) << compound.id << " at " << T;
    }
}
