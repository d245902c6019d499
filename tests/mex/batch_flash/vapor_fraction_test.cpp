// The vapor fraction as a result of command 25.
#include "tests/mex/batch_flash/two_phases.h"
#include "tests/support/package_test.h"

#include <cmath>

using namespace support;

namespace {

class BatchFlashVaporFraction : public PackageTest {
protected:
    using Flash = std::function<HRESULT(const MaterialClient &material)>;

    // Each flash of the package is one of these, in order; the last goes on.
    void find(std::vector<Flash> flashes)
    {
        package.calcEquilibrium = [this, flashes = std::move(flashes)](const EquilibriumCall &request) {
            const auto call = static_cast<std::size_t>(package.calls("CalcEquilibrium") - 1);
            return flashes[std::min(call, flashes.size() - 1)](request.material);
        };
    }
    // Command 25 for so many rows.
    CallResult report(std::size_t rows)
    {
        return mustReturn(1, batch({.compositions = Zeros({rows, 2}), .names = Text("vaporFraction")}));
    }
    // A fraction that cannot be converted at the first of two rows: NaN, a warning, and on with the second.
    void expectWarning(Flash flash, const std::string &warning)
    {
        find({std::move(flash), twoPhases("mole", 0.5, 0.5)});
        const CallResult result = report(2);
        EXPECT_TRUE(std::isnan(result[0].element(0).numbers().at(0)));
        EXPECT_EQ(result[0].element(0).numbers().at(1), 0.5);
        EXPECT_EQ(result.warnings, std::vector<std::string>{warning});
    }

    static Flash twoPhases(const char *basis, double vapor, double liquid)
    {
        return [=](const MaterialClient &material) {
            return material.setEquilibrium(VaporAndLiquid(basis, vapor, liquid), 300, 1e5, basis);
        };
    }
};

} // namespace

TEST_F(BatchFlashVaporFraction, IsTheStoredOneInTheRightBasis)
{
    find({twoPhases("mole", 0.25, 0.75)});
    EXPECT_EQ(report(1)[0].cellMatrix(0), (Rows{{0.25}}));
    useBasis("mass");
    find({twoPhases("mass", 0.25, 0.75)});
    EXPECT_EQ(report(1)[0].cellMatrix(0), (Rows{{0.25}}));
}

TEST_F(BatchFlashVaporFraction, IsZeroAndNotNaNAtARowWithoutVapor)
{
    find({[](const MaterialClient &material) {
              return material.setEquilibrium({{"Liquid", 1, {0.5, 0.5}}}, 300, 1e5);
          },
          [](const MaterialClient &material) { return material.setPresentPhases({}); }});
    const CallResult result = report(2);
    EXPECT_EQ(result[0].cellMatrix(0), (Rows{{0}, {0}}));
    EXPECT_EQ(result.warnings, std::vector<std::string>());
}

TEST_F(BatchFlashVaporFraction, ThatIsMissingIsReportedAsItStandsWithoutAWarning)
{
    find({[](const MaterialClient &) { return S_OK; }, // nobody has ever set it
          [](const MaterialClient &material) {
              EXPECT_TRUE(FAILED(material.setSinglePhase("phaseFraction", "Vapor", "mole", {undefinedNumber})));
              return S_OK;
          }});
    const CallResult result = report(2);
    EXPECT_TRUE(std::isnan(result[0].element(0).numbers().at(0)));
    EXPECT_EQ(result[0].element(0).numbers().at(1), undefinedNumber);
    EXPECT_EQ(result.warnings, std::vector<std::string>());
}

TEST_F(BatchFlashVaporFraction, IsConvertedFromMassToMole)
{
    find({twoPhases("mass", 0.4, 0.6)});
    // 0.4 / 24 and 0.6 / 30 are as 5 to 6.
    ExpectNear(report(1)[0].cellMatrix(0), {{5.0 / 11}});
}

TEST_F(BatchFlashVaporFraction, IsConvertedFromMoleToMass)
{
    useBasis("mass");
    find({twoPhases("mole", 0.5, 0.5)});
    // 0.5 * 24 and 0.5 * 30 are as 4 to 5.
    ExpectNear(report(1)[0].cellMatrix(0), {{4.0 / 9}});
}

TEST_F(BatchFlashVaporFraction, IsConvertedByItsOwnBasisNotThatOfTheCompositions)
{
    find({[](const MaterialClient &material) {
        EXPECT_EQ(material.setEquilibrium(VaporAndLiquid("mole", 0.4, 0.6), 300, 1e5, "mole"), S_OK);
        EXPECT_EQ(material.setSinglePhase("phaseFraction", "Vapor", "mass", {0.4}), S_OK);
        return material.setSinglePhase("phaseFraction", "Liquid", "mass", {0.6});
    }});
    ExpectNear(report(1)[0].cellMatrix(0), {{5.0 / 11}});
}

TEST_F(BatchFlashVaporFraction, IsOneForASingleVaporAfterAConversion)
{
    find({[](const MaterialClient &material) {
        return material.setEquilibrium({{"Vapor", 1, {0.5, 0.5}}}, 300, 1e5, "mass");
    }});
    ExpectNear(report(1)[0].cellMatrix(0), {{1}});
}

TEST_F(BatchFlashVaporFraction, IsOfTheFirstPhaseThatIsAVapor)
{
    package.phaseLabels = TextArray({"Water", "Gas", "Vapor"});
    package.statesOfAggregation = TextArray({"Liquid", "VAPOR", "Vapor"});
    find({[](const MaterialClient &material) {
        return material.setEquilibrium({{"Water", 0.5, {1, 0}}, {"Gas", 0.3, {1, 0}}, {"Vapor", 0.2, {1, 0}}}, 300,
                                       1e5);
    }});
    EXPECT_EQ(report(1)[0].cellMatrix(0), (Rows{{0.3}}));
}

TEST_F(BatchFlashVaporFraction, IsTakenForMoleWhenThePackageLeavesItAndItWasNoConstraint)
{
    useBasis("mass");
    find({[](const MaterialClient &material) {
              return material.setEquilibrium({{"Vapor", 0.5, {0.5, 0.5}}}, 300, 1e5, "mass");
          },
          [](const MaterialClient &material) { return material.setPresentPhases({"Vapor"}); }});
    // The second row has 0.5 mole of the only phase there is: all of it.
    ExpectNear(report(2)[0].cellMatrix(0), {{0.5}, {1}});
}

TEST_F(BatchFlashVaporFraction, ThatCannotBeConvertedIsNaNWithAWarning)
{
    expectWarning(
        [](const MaterialClient &material) {
            EXPECT_EQ(material.setEquilibrium(VaporAndLiquid("mass", 0.5, 0.5), 300, 1e5, "mass"), S_OK);
            return material.setSinglePhase("phaseFraction", "Liquid", "mole", {0.5});
        },
        "CAPE-OPEN: Phase fractions are in inconsistent bases in basis conversion");
}

TEST_F(BatchFlashVaporFraction, OfAPhaseWithoutCompositionIsNaNWithAWarning)
{
    expectWarning(
        [](const MaterialClient &material) {
            EXPECT_EQ(material.setSinglePhase("phaseFraction", "Vapor", "mass", {0.5}), S_OK);
            return S_OK; // all phases are present
        },
        "CAPE-OPEN: One or more missing compositions in basis conversion");
}

TEST_F(BatchFlashVaporFraction, BesideALiquidWithoutFractionIsNaNWithAWarning)
{
    expectWarning(
        [](const MaterialClient &material) {
            EXPECT_EQ(material.setSinglePhase("fraction", "Vapor", "mass", {0.5, 0.5}), S_OK);
            return material.setSinglePhase("phaseFraction", "Vapor", "mass", {0.5});
        },
        "CAPE-OPEN: One or more missing phase fractions in basis conversion");
}

TEST_F(BatchFlashVaporFraction, OfPhasesWithoutMassIsNaNWithAWarning)
{
    // Mass fractions 1 and -1 are mole fractions 2 and -1, of 2 * 18 - 36 = 0 g/mol.
    expectWarning(
        [](const MaterialClient &material) {
            return material.setEquilibrium({{"Vapor", 1, {1, -1}}}, 300, 1e5, "mass");
        },
        "CAPE-OPEN: Zero or negative phase mass of one or more phases in basis conversion");
}

TEST_F(BatchFlashVaporFraction, OfNothingAtAllIsNaNWithAWarning)
{
    expectWarning(
        [](const MaterialClient &material) {
            return material.setEquilibrium({{"Vapor", 0, {0.5, 0.5}}}, 300, 1e5, "mass");
        },
        "CAPE-OPEN: Zero or negative total total phase fraction in basis conversion");
}

TEST_F(BatchFlashVaporFraction, WithoutMolecularWeightsIsNaNWithAWarning)
{
    package.molecularWeights = NumberArray({notANumber, 36});
    expectWarning(twoPhases("mass", 0.5, 0.5), "CAPE-OPEN: One or more missing molecular weights in basis conversion");
}

TEST_F(BatchFlashVaporFraction, ThatCannotBeConvertedLeavesTheOtherResultsOfItsRow)
{
    find({[](const MaterialClient &material) {
        return material.setEquilibrium({{"Vapor", 0, {0.5, 0.5}}}, 345, 1e5, "mass");
    }});
    showWarnings(false);
    const CallResult result = mustReturn(1, batch({.outputs = Scalar(2), .names = Text("vaporFraction Temperature")}));
    EXPECT_TRUE(std::isnan(result[0].element(0).number()));
    EXPECT_EQ(result[0].element(1).number(), 345);
    EXPECT_EQ(result.warnings, std::vector<std::string>());
}

TEST_F(BatchFlashVaporFraction, OfAPackageWithoutVaporIsAnErrorAtTheFirstRowThatFlashes)
{
    package.statesOfAggregation = TextArray({"Liquid", "Liquid"});
    find({twoPhases("mole", 0.5, 0.5)});
    EXPECT_EQ(refusal(1, batch({.names = Text("vaporFraction")})), "Package does not expose vapor phase");

    package.answer("CalcEquilibrium", computationFailed);
    const CallResult failed = report(2);
    EXPECT_TRUE(std::isnan(failed[0].element(0).numbers().at(0)));
    EXPECT_TRUE(std::isnan(failed[0].element(0).numbers().at(1)));

    package.answer("CalcEquilibrium", S_OK, package.calls("CalcEquilibrium") + 2);
    const CallResult result = call(1, batch({.compositions = Zeros({3, 2}), .names = Text("vaporFraction")}));
    EXPECT_EQ(result.error, "Package does not expose vapor phase");
    EXPECT_EQ(result.warnings, (std::vector<std::string>{"CAPE-OPEN: Flash failed at 300, 100000: computation error"}));
}
