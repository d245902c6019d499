#include "reference/engine/compounds/compound_data.h"
#include "reference/engine/compounds/ideal_gas.h"
#include "reference/engine/eos/gas_constant.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace reference;

namespace {

constexpr HeatCapacityTerms mixed = {4.0, 1.0, -0.5, 2.0, 3.0, 4.0, -1.0, 5.0, 6.0, 7.0};

template <typename Function> double slopeOf(Function function, double T)
{
    const double step = 1e-3 * T;
    return (8.0 * (function(T + step) - function(T - step)) - function(T + 2.0 * step) + function(T - 2.0 * step)) /
           (12.0 * step);
}

} // namespace

// A rigid rotor with one vibration of 4450 K: at 1000 K,
// x = 4.45, x^2 exp(x) / (exp(x) - 1)^2 = 19.8025 * 85.627 / 84.627^2 = 0.236763.
TEST(IdealGas, HasTheHeatCapacityOfAnOscillatorWorkedOutByHand)
{
    HeatCapacityTerms terms{};
    terms[0] = 3.5;
    terms[8] = 1.0;
    EXPECT_NEAR(idealGasHeatCapacity(terms, 1000.0), gasConstant * 3.736763, 1e-4);
}

TEST(IdealGas, LosesItsOscillatorsInTheColdAndHasAllOfThemInTheHeat)
{
    EXPECT_NEAR(idealGasHeatCapacity(mixed, 5.0), gasConstant * 4.0, 1e-9);
    EXPECT_NEAR(idealGasHeatCapacity(mixed, 1e6), gasConstant * 30.5, 1e-3);
}

TEST(IdealGas, HasIntegralsThatBelongToItsHeatCapacity)
{
    for (const double T : {20.0, 77.0, 298.15, 700.0, 1500.0}) {
        const double heatCapacity = idealGasHeatCapacity(mixed, T);
        const IdealGasState state = idealGasState(mixed, T);
        EXPECT_NEAR(state.heatCapacity, heatCapacity, 1e-12 * heatCapacity) << T;
        EXPECT_NEAR(state.enthalpy, idealGasEnthalpy(mixed, T), 1e-11 * heatCapacity * T) << T;
        EXPECT_NEAR(state.entropy, idealGasEntropy(mixed, T), 1e-12 * heatCapacity) << T;
        const auto of = [](auto function) { return [=](double kelvin) { return function(mixed, kelvin); }; };
        EXPECT_NEAR(slopeOf(of(idealGasEnthalpy), T), heatCapacity, 1e-8 * heatCapacity) << T;
        EXPECT_NEAR(slopeOf(of(idealGasEntropy), T) * T, heatCapacity, 1e-8 * heatCapacity) << T;
        EXPECT_NEAR(slopeOf(of(idealGasHeatCapacity), T) * T, idealGasHeatCapacitySlope(mixed, T) * T,
                    1e-7 * heatCapacity)
            << T;
    }
    EXPECT_EQ(idealGasEnthalpy(mixed, referenceTemperature), 0.0);
    EXPECT_EQ(idealGasEntropy(mixed, referenceTemperature), 0.0);
}

TEST(IdealGas, NeverHasLessThanTheHeatCapacityOfItsMotion)
{
    for (const CompoundData &compound : compoundTable())
        for (double T = 20.0; T <= 1500.0; T += 5.0)
            EXPECT_GE(idealGasHeatCapacity(compound.idealGasHeatCapacity, T), 2.49 * gasConstant)
                << compound.id << " at " << T;
}
