// The basis of overall properties of command 25.
#include "tests/mex/batch_flash/two_phases.h"
#include "tests/support/package_test.h"

using namespace support;

namespace {

class PostFlashBasis : public PackageTest {
protected:
    void find(const char *basis, double vapor, double liquid)
    {
        package.calcEquilibrium = StoreEquilibrium(VaporAndLiquid(basis, vapor, liquid), 300, 1e5, basis);
    }
    void calculate(const char *basis, double vapor, double liquid)
    {
        package.calcSinglePhase = StoreEnthalpies(basis, vapor, liquid);
    }
    Rows enthalpy(Array composition)
    {
        return mustReturn(1, batch({.compositions = std::move(composition), .names = Text("enthalpy")}))[0].cellMatrix(
            0);
    }
};

} // namespace

TEST_F(PostFlashBasis, OfASinglePhaseIsConvertedToTheDefault)
{
    package.calcEquilibrium = StoreEquilibrium({{"Liquid", 1, {third, 2 * third}}}, 300, 1e5);
    calculate("mass", 0, 100000);
    ExpectNear(enthalpy(Row({third, 2 * third})), {{3000}}); // * 0.03 kg/mol
    useBasis("mass");
    calculate("mole", 0, 3000);
    ExpectNear(enthalpy(Row({0.2, 0.8})), {{100000}});
}

TEST_F(PostFlashBasis, OfMoleNeedsNoConversionOfValuesAndFractionsPerMole)
{
    find("mole", 0.5, 0.5);
    calculate("mole", 2400, 3000);
    EXPECT_EQ(enthalpy(Row({notANumber, notANumber})), (Rows{{2700}}));
}

TEST_F(PostFlashBasis, OfMassNeedsNoConversionOfValuesAndFractionsPerMass)
{
    useBasis("mass");
    find("mass", 0.25, 0.75);
    calculate("mass", 1000, 2000);
    EXPECT_EQ(enthalpy(Row({notANumber, notANumber})), (Rows{{1750}}));
}

TEST_F(PostFlashBasis, OfValuesPerMassIsBroughtToFractionsPerMole)
{
    find("mole", 0.5, 0.5);
    calculate("mass", 100000, 200000);
    // 100000 * 0.024 = 2400 and 200000 * 0.030 = 6000
    ExpectNear(enthalpy(Row({0.5, 0.5})), {{4200}});
}

TEST_F(PostFlashBasis, OfValuesPerMoleIsBroughtToFractionsPerMass)
{
    useBasis("mass");
    find("mass", 0.4, 0.6);
    calculate("mole", 2400, 6000);
    // 2400 / 0.024 = 100000 and 6000 / 0.030 = 200000
    ExpectNear(enthalpy(Row({0.5, 0.5})), {{160000}});
}

TEST_F(PostFlashBasis, OfTheSumIsBroughtFromMoleToMassWithTheOverallComposition)
{
    useBasis("mass");
    find("mole", 0.5, 0.5);
    calculate("mole", 2400, 3000);
    // The sum is 2700 J/mol. Mass fractions 1/3 and 2/3 are mole fractions 1/2 and 1/2: 0.027 kg/mol.
    ExpectNear(enthalpy(Row({third, 2 * third})), {{100000}});
}

TEST_F(PostFlashBasis, OfTheSumIsBroughtFromMassToMoleWithTheOverallComposition)
{
    find("mass", 0.4, 0.6);
    calculate("mass", 100000, 200000);
    // The sum is 160000 J/kg; mole fractions 1/2 and 1/2 are 0.027 kg/mol.
    ExpectNear(enthalpy(Row({0.5, 0.5})), {{4320}});
}

// The package stores the overall composition anew, in the other basis: mass fractions of one half each are 2/3 and 1/3
// of 18 and 36 g/mol, which are 24 g/mol.
TEST_F(PostFlashBasis, OfTheOverallCompositionIsTheStoredOne)
{
    package.calcEquilibrium = [](const EquilibriumCall &request) {
        EXPECT_EQ(request.material.setOverall("fraction", "mass", {0.5, 0.5}), S_OK);
        return request.material.setEquilibrium({{"Liquid", 1, {0.2, 0.8}}}, 300, 1e5, "mass");
    };
    calculate("mass", 0, 100);
    ExpectNear(enthalpy(Row({0.1, 0.9})), {{100 * 0.024}});
}

TEST_F(PostFlashBasis, OfValueFractionAndResultMayAllDiffer)
{
    // Values per mass, fractions per mole, result per mass.
    useBasis("mass");
    find("mole", 0.5, 0.5);
    calculate("mass", 100000, 200000);
    // 2400 / 2 + 6000 / 2 = 4200 J/mol, / 0.027 kg/mol
    ExpectNear(enthalpy(Row({third, 2 * third})), {{4200 / 0.027}});
}

TEST_F(PostFlashBasis, OfTheCompositionOfAPhaseIsItsOwn)
{
    // Fractions per mole beside compositions per mass.
    find("mass", 0, 0);
    const auto found = package.calcEquilibrium;
    package.calcEquilibrium = [found](const EquilibriumCall &request) {
        EXPECT_EQ(found(request), S_OK);
        EXPECT_EQ(request.material.setSinglePhase("phaseFraction", "Vapor", "mole", {0.5}), S_OK);
        return request.material.setSinglePhase("phaseFraction", "Liquid", "mole", {0.5});
    };
    calculate("mass", 100000, 200000);
    ExpectNear(enthalpy(Row({0.5, 0.5})), {{4200}});
}

TEST_F(PostFlashBasis, OfStoredValuesMayDifferFromPhaseToPhase)
{
    find("mole", 0.5, 0.5);
    package.calcSinglePhase = [](const SinglePhaseCall &request) {
        const bool vapor = request.phase == Wide("Vapor");
        return request.material.setSinglePhase("enthalpy", request.phase, vapor ? "mass" : "mole",
                                               {vapor ? 100000.0 : 6000.0});
    };
    ExpectNear(enthalpy(Row({0.5, 0.5})), {{4200}});
}

TEST_F(PostFlashBasis, OfFractionsMustBeTheSameForAllPhases)
{
    find("mole", 0.5, 0.5);
    const auto found = package.calcEquilibrium;
    package.calcEquilibrium = [found](const EquilibriumCall &request) {
        EXPECT_EQ(found(request), S_OK);
        return request.material.setSinglePhase("phaseFraction", "Liquid", "mass", {0.5});
    };
    calculate("mole", 1, 2);
    EXPECT_EQ(refusal(1, batch({.names = Text("enthalpy")})),
              "Inconsistent bases of phase fractions after flash; not supported");
    find("mole", 0.5, 0.5);
    EXPECT_EQ(enthalpy(Row({0.5, 0.5})), (Rows{{1.5}}));
}

TEST_F(PostFlashBasis, OfTheFirstPresentPhaseCountsAlsoWhenItsFractionIsZero)
{
    find("mole", 0, 1);
    const auto found = package.calcEquilibrium;
    package.calcEquilibrium = [found](const EquilibriumCall &request) {
        EXPECT_EQ(found(request), S_OK);
        return request.material.setSinglePhase("phaseFraction", "Vapor", "mass", {0});
    };
    calculate("mole", 1, 2);
    EXPECT_EQ(refusal(1, batch({.names = Text("enthalpy")})),
              "Inconsistent bases of phase fractions after flash; not supported");
}

TEST_F(PostFlashBasis, OfAnAbsentPhaseDoesNotCount)
{
    package.calcEquilibrium = [](const EquilibriumCall &request) {
        const HRESULT hr = request.material.setEquilibrium({{"Liquid", 1, {third, 2 * third}}}, 300, 1e5, "mole");
        EXPECT_EQ(request.material.setSinglePhase("phaseFraction", "Vapor", "mass", {0.5}), S_OK);
        EXPECT_EQ(request.material.setPresentPhases({"Liquid"}), S_OK);
        return hr;
    };
    calculate("mole", 1, 2);
    EXPECT_EQ(enthalpy(Row({0.5, 0.5})), (Rows{{2}}));
}

TEST_F(PostFlashBasis, ConversionOfAPhaseNeedsItsComposition)
{
    package.calcEquilibrium = [](const EquilibriumCall &request) {
        EXPECT_EQ(request.material.setSinglePhase("phaseFraction", "Liquid", "mole", {1}), S_OK);
        return request.material.setPresentPhases({"Liquid"});
    };
    calculate("mass", 1, 2);
    EXPECT_EQ(refusal(1, batch({.names = Text("enthalpy")})),
              "CAPE-OPEN: One or more missing composition values in basis conversion");
}

TEST_F(PostFlashBasis, ConversionOfTheSumNeedsTheOverallComposition)
{
    find("mass", 0.4, 0.6);
    calculate("mass", 1, 2);
    EXPECT_EQ(refusal(1, batch({.compositions = Row({0.5, undefinedNumber}), .names = Text("enthalpy")})),
              "CAPE-OPEN: One or more missing composition values in basis conversion");
    useBasis("mass");
    find("mole", 0.4, 0.6);
    calculate("mole", 1, 2);
    EXPECT_EQ(refusal(1, batch({.compositions = Row({0, 0}), .names = Text("enthalpy")})),
              "CAPE-OPEN: Zero or negative total composition in basis conversion");
}

TEST_F(PostFlashBasis, ConversionNeedsAllMolecularWeights)
{
    package.molecularWeights = NumberArray({18, notANumber});
    find("mole", 0.5, 0.5);
    calculate("mass", 1, 2);
    EXPECT_EQ(refusal(1, batch({.names = Text("enthalpy")})),
              "CAPE-OPEN: One or more missing molecular weights in basis conversion");
    find("mass", 0.5, 0.5);
    EXPECT_EQ(refusal(1, batch({.names = Text("enthalpy")})),
              "CAPE-OPEN: One or more missing molecular weights in basis conversion");
}

TEST_F(PostFlashBasis, ConversionThatFailsEndsTheCommandAlsoWithWarningsOff)
{
    showWarnings(false);
    find("mass", 0.4, 0.6);
    calculate("mass", 1, 2);
    EXPECT_EQ(refusal(1, batch({.compositions = Matrix({{0.5, 0.5}, {notANumber, 1}}), .names = Text("enthalpy")})),
              "CAPE-OPEN: One or more missing composition values in basis conversion");
    ExpectNear(enthalpy(Row({0.5, 0.5})), {{1.6 * 0.027}});
}
