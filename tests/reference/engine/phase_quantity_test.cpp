#include "reference/engine/quantities/phase_quantity.h"

#include <gtest/gtest.h>

using namespace reference;

TEST(PhaseQuantity, IsFoundByItsPlaceInTheTable)
{
    EXPECT_EQ(shapeOf(PhaseQuantity::fugacity).name, "fugacity");
    EXPECT_EQ(shapeOf(PhaseQuantity::activityCoefficient).name, "activityCoefficient");
    EXPECT_EQ(shapeOf(PhaseQuantity::density).name, "density");
    EXPECT_EQ(shapeOf(PhaseQuantity::entropyF).name, "entropyF");
    EXPECT_EQ(shapeOf(PhaseQuantity::heatCapacityCv).name, "heatCapacityCv");
    EXPECT_EQ(shapeOf(PhaseQuantity::molecularWeight).name, "molecularWeight");
    EXPECT_EQ(shapeOf(PhaseQuantity::excessVolume).name, "excessVolume");
    EXPECT_EQ(shapeOf(PhaseQuantity::diffusionCoefficient).name, "diffusionCoefficient");
    EXPECT_EQ(shapeOf(PairQuantity::logKvalue).name, "logKvalue");
    EXPECT_EQ(shapeOf(PairQuantity::surfaceTension).name, "surfaceTension");
}

TEST(PhaseQuantity, CountsItsValues)
{
    EXPECT_EQ(valueCount(PhaseQuantity::volume, Differential::none, 5), 1);
    EXPECT_EQ(valueCount(PhaseQuantity::volume, Differential::byPressure, 5), 1);
    EXPECT_EQ(valueCount(PhaseQuantity::volume, Differential::byMoles, 5), 5);
    EXPECT_EQ(valueCount(PhaseQuantity::fugacity, Differential::byTemperature, 5), 5);
    EXPECT_EQ(valueCount(PhaseQuantity::fugacity, Differential::byFractions, 5), 25);
    EXPECT_EQ(valueCount(PhaseQuantity::diffusionCoefficient, Differential::none, 5), 25);
    EXPECT_EQ(valueCount(PhaseQuantity::diffusionCoefficient, Differential::byMoles, 5), 125);
    EXPECT_EQ(valueCount(PairQuantity::surfaceTension, Differential::none, 5), 1);
    EXPECT_EQ(valueCount(PairQuantity::surfaceTension, Differential::byFractions, 5), 10);
    EXPECT_EQ(valueCount(PairQuantity::kvalue, Differential::byPressure, 5), 5);
    EXPECT_EQ(valueCount(PairQuantity::kvalue, Differential::byFractions, 5), 50);
}
