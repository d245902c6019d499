#include "reference/engine/compounds/saturation.h"
#include "reference/engine/phase/phase_properties.h"
#include "tests/reference/engine/mixtures.h"

#include <gtest/gtest.h>

#include <set>

using namespace reference;

// The values themselves are compared with others by reference/data/check.py.

TEST(CompoundTable, HoldsDifferentCompounds)
{
    std::set<std::string_view> ids;
    std::set<std::string_view> names;
    std::set<std::string_view> casNumbers;
    std::set<std::string_view> smiles;
    for (const CompoundData &compound : compoundTable()) {
        ids.insert(compound.id);
        names.insert(compound.iupacName);
        casNumbers.insert(compound.casNumber);
        smiles.insert(compound.smiles);
    }
    const std::size_t count = compoundTable().size();
    EXPECT_GE(count, 40u);
    EXPECT_LE(count, static_cast<std::size_t>(maximumCompounds));
    EXPECT_EQ(ids.size(), count);
    EXPECT_EQ(names.size(), count);
    EXPECT_EQ(casNumbers.size(), count);
    EXPECT_EQ(smiles.size(), count);
}

TEST(CompoundTable, SaysWhatCompoundsAreCalled)
{
    const CompoundData &toluene = named("toluene");
    EXPECT_EQ(toluene.iupacName, "methylbenzene");
    EXPECT_EQ(toluene.formula, "C7H8");
    EXPECT_EQ(toluene.casNumber, "108-88-3");
    EXPECT_EQ(toluene.smiles, "Cc1ccccc1");
    EXPECT_EQ(named("neopentane").iupacName, "2,2-dimethylpropane");
    EXPECT_EQ(named("cis-2-butene").smiles, "C/C=C\\C");
}

// The critical volume is the molar mass over the critical density of 322 kg/m3, the dipole moment 1.85 debye.
TEST(CompoundTable, GivesItsValuesInUnitsOfTheSI)
{
    const CompoundData &water = named("water");
    EXPECT_EQ(water.molecularWeight, 18.01528);
    EXPECT_EQ(water.criticalTemperature, 647.096);
    EXPECT_EQ(water.criticalPressure, 22.064e6);
    EXPECT_NEAR(water.criticalVolume, 0.01801528 / 322.0, 1e-4 * water.criticalVolume);
    EXPECT_NEAR(water.criticalCompressibility, 0.2294, 1e-4);
    EXPECT_EQ(water.acentricFactor, 0.3443);
    EXPECT_EQ(water.normalBoilingPoint, 373.1243);
    EXPECT_EQ(water.normalFreezingPoint, 273.15);
    EXPECT_EQ(water.triplePointTemperature, 273.16);
    EXPECT_EQ(water.triplePointPressure, 611.655);
    EXPECT_DOUBLE_EQ(water.formationEnthalpy, -241814.0);
    EXPECT_DOUBLE_EQ(water.formationGibbsEnergy, -228590.0);
    EXPECT_EQ(water.standardEntropy, 188.72);
    EXPECT_NEAR(water.dipoleMoment, 6.171e-30, 1e-33);
    EXPECT_EQ(water.associationFactor, 0.076);
    EXPECT_DOUBLE_EQ(water.diffusionVolume, 13.1e-6);
    EXPECT_NEAR(idealGasHeatCapacity(water.idealGasHeatCapacity, 298.15), 33.59, 0.1);
}

// sigma = (P rho)^4 with the density in mol/m3: water at 20 degrees has 72.75 mN/m (CRC Handbook).
TEST(CompoundTable, GivesParachorsThatMakeSurfaceTensionsInNewtonPerMeter)
{
    const CompoundData &water = named("water");
    const double root = water.parachor * saturatedLiquidDensity(water, 293.15);
    EXPECT_NEAR(root * root * root * root, 0.07275, 0.0007);
}

TEST(CompoundTable, LeavesOpenWhatIsNotKnownOrDoesNotExist)
{
    EXPECT_TRUE(std::isnan(named("carbon dioxide").normalBoilingPoint)); // it sublimes
    EXPECT_TRUE(std::isnan(named("R-1234yf").standardEntropy));
    EXPECT_TRUE(std::isnan(named("R-1234ze(E)").formationEnthalpy));
}

TEST(FindCompound, KnowsNoOtherNames)
{
    EXPECT_EQ(findCompound("unobtainium"), nullptr);
    EXPECT_EQ(findCompound("Water"), nullptr);
}

TEST(InteractionParameter, IsTheSameInBothDirections)
{
    for (const EquationOfState equation : {EquationOfState::pengRobinson, EquationOfState::soaveRedlichKwong})
        for (const CompoundData &first : compoundTable())
            for (const CompoundData &second : compoundTable())
                EXPECT_EQ(interactionParameter(first.id, second.id, equation),
                          interactionParameter(second.id, first.id, equation));
}

TEST(InteractionParameter, IsThePublishedOne)
{
    EXPECT_EQ(interactionParameter("nitrogen", "methane"), 0.025);
    EXPECT_EQ(interactionParameter("n-hexane", "hydrogen sulfide"), 0.055);
    EXPECT_EQ(interactionParameter("carbon dioxide", "hydrogen sulfide"), 0.135);
    EXPECT_EQ(interactionParameter("methane", "n-butane"), 0.0185);
    EXPECT_EQ(interactionParameter("n-hexane", "water"), 0.48);
    EXPECT_EQ(interactionParameter("hydrogen", "ethylene"), 0.0074);
    EXPECT_EQ(interactionParameter("o-xylene", "p-xylene"), 0.0);
    EXPECT_EQ(interactionParameter("methane", "methane"), 0.0);
}

TEST(InteractionParameter, IsThatOfTheEquation)
{
    EXPECT_EQ(interactionParameter("carbon dioxide", "methane", EquationOfState::pengRobinson), 0.105);
    EXPECT_EQ(interactionParameter("carbon dioxide", "methane", EquationOfState::soaveRedlichKwong), 0.093);
}

TEST(InteractionParameter, IsZeroForIdealMixtures)
{
    EXPECT_EQ(interactionParameter("carbon dioxide", "methane", EquationOfState::idealMixture), 0.0);
}
