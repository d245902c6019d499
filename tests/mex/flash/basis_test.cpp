// The basis of the results of command 24, and what can be wrong with it. Mole fractions 2/3 and 1/3
// of 18 and 36 g/mol are mass fractions 1/2 and 1/2 at 24 g/mol; mole fractions 1/3 and 2/3 are mass
// fractions 1/5 and 4/5 at 30 g/mol.
#include "tests/support/package_test.h"

#include <cmath>
#include <tuple>

using namespace support;

namespace {

const double largest = 1.7976931348623157e308;

class FlashBasis : public PackageTest {
protected:
    void find(std::vector<MaterialClient::Phase> phases, const char *basis)
    {
        package.calcEquilibrium = StoreEquilibrium(phases, 340, 2e5, basis);
    }
    // The liquid alone, with what was stored of its composition before.
    void findLiquid(double fraction)
    {
        package.calcEquilibrium = [fraction](const EquilibriumCall &request) {
            EXPECT_EQ(request.material.setSinglePhase("phaseFraction", "Liquid", "mole", {fraction}), S_OK);
            return request.material.setPresentPhases({"Liquid"});
        };
    }
    // Puts a composition into the liquid, in the default basis, without a look at its values.
    void putLiquidComposition(std::vector<double> composition)
    {
        package.calcSinglePhase = StoreSinglePhase({{"viscosity", "", {1}}});
        mustReturn(
            1, singlePhase({.names = Text("viscosity"), .compositions = Row(composition), .phase = Text("Liquid")}));
    }
};

} // namespace

TEST_F(FlashBasis, OfMoleRepairsPhasesStoredPerMass)
{
    find({{"Vapor", 0.4, {0.5, 0.5}}, {"Liquid", 0.6, {0.2, 0.8}}}, "mass");
    const CallResult result = mustReturn(5, flash());
    ExpectNear(result[2].matrix(), {{2 * third, third}, {third, 2 * third}});
    // 0.4 / 24 and 0.6 / 30 are as 5 to 6.
    ExpectNear(result[1].matrix(), {{5.0 / 11}, {6.0 / 11}});
}

TEST_F(FlashBasis, OfMassRepairsPhasesStoredPerMole)
{
    useBasis("mass");
    find({{"Vapor", 0.5, {2 * third, third}}, {"Liquid", 0.5, {third, 2 * third}}}, "mole");
    const CallResult result = mustReturn(5, flash());
    ExpectNear(result[2].matrix(), {{0.5, 0.5}, {0.2, 0.8}});
    // 0.5 * 24 and 0.5 * 30 are as 4 to 5.
    ExpectNear(result[1].matrix(), {{4.0 / 9}, {5.0 / 9}});
}

TEST_F(FlashBasis, ThatIsTheStoredOneLeavesPhasesAsTheyAre)
{
    find({{"Vapor", 0.3, {2, 3}}, {"Liquid", 0.3, {0, -1}}}, "mole");
    EXPECT_EQ(mustReturn(5, flash())[1].matrix(), (Rows{{0.3}, {0.3}}));
    EXPECT_EQ(mustReturn(5, flash())[2].matrix(), (Rows{{2, 3}, {0, -1}}));
    useBasis("mass");
    find({{"Vapor", 0.3, {2, 3}}, {"Liquid", 0.3, {0, -1}}}, "mass");
    EXPECT_EQ(mustReturn(5, flash())[1].matrix(), (Rows{{0.3}, {0.3}}));
    EXPECT_EQ(mustReturn(5, flash())[2].matrix(), (Rows{{2, 3}, {0, -1}}));
}

TEST_F(FlashBasis, RepairsThreeCompounds)
{
    makeTernary();
    // 0.2/18, 0.4/36, 0.4/54 are as 3, 3 and 2.
    find({{"Liquid", 1, {0.2, 0.4, 0.4}}}, "mass");
    ExpectNear(mustReturn(5, flash({.composition = Row({1, 0, 0})}))[2].matrix(), {{0.375, 0.375, 0.25}});
}

TEST_F(FlashBasis, RepairMakesFractionsSumToOne)
{
    find({{"Vapor", 4, {0.5, 0.5}}, {"Liquid", 6, {0.2, 0.8}}}, "mass");
    ExpectNear(mustReturn(5, flash())[1].matrix(), {{5.0 / 11}, {6.0 / 11}});
}

TEST_F(FlashBasis, RepairMakesTheFractionOfTheOnlyPhaseExactlyOne)
{
    for (int i = 1; i <= 100; ++i) {
        useBasis("mole");
        find({{"Liquid", 0.01 * i, {0.2, 0.8}}}, "mass");
        EXPECT_EQ(mustReturn(5, flash())[1].number(), 1) << i;
        useBasis("mass");
        find({{"Liquid", 0.01 * i, {third, 2 * third}}}, "mole");
        EXPECT_EQ(mustReturn(5, flash())[1].number(), 1) << i;
    }
}

TEST_F(FlashBasis, OfFractionsIsTakenToBeThatOfTheCompositions)
{
    // Fractions per mole beside compositions per mass count as mass fractions.
    package.calcEquilibrium = [](const EquilibriumCall &request) {
        const HRESULT hr = request.material.setEquilibrium({{"Vapor", 0.4, {0.5, 0.5}}, {"Liquid", 0.6, {0.2, 0.8}}},
                                                           340, 2e5, "mass");
        EXPECT_EQ(request.material.setSinglePhase("phaseFraction", "Vapor", "mole", {0.4}), S_OK);
        EXPECT_EQ(request.material.setSinglePhase("phaseFraction", "Liquid", "mole", {0.6}), S_OK);
        return hr;
    };
    ExpectNear(mustReturn(5, flash())[1].matrix(), {{5.0 / 11}, {6.0 / 11}});
    // Fractions per mass beside compositions per mole count as mole fractions.
    package.calcEquilibrium = [](const EquilibriumCall &request) {
        const HRESULT hr = request.material.setEquilibrium({{"Liquid", 0.7, {0.2, 0.8}}}, 340, 2e5, "mole");
        EXPECT_EQ(request.material.setSinglePhase("phaseFraction", "Liquid", "mass", {0.7}), S_OK);
        return hr;
    };
    EXPECT_EQ(mustReturn(5, flash())[1].matrix(), (Rows{{0.7}}));
}

TEST_F(FlashBasis, MustBeTheSameForAllPhases)
{
    const std::string message = "Equilibrium phases not stored in consistent basis; unable to perform basis conversion";
    for (const char *first : {"mole", "mass"}) {
        const std::string second = first == std::string("mole") ? "mass" : "mole";
        package.calcEquilibrium = [first, second](const EquilibriumCall &request) {
            EXPECT_EQ(request.material.setSinglePhase("fraction", "Vapor", first, {0.5, 0.5}), S_OK);
            return request.material.setSinglePhase("fraction", "Liquid", second, {0.5, 0.5});
        };
        for (const char *wanted : {"mole", "mass"}) {
            useBasis(wanted);
            EXPECT_EQ(refusal(5, flash()), message);
        }
    }
}

// Phase by phase: its basis against that of the phases before it, then its conversion; the fractions come last.
TEST_F(FlashBasis, IsReadPhaseByPhaseBasisBeforeConversion)
{
    const auto findBoth = [this](const char *vaporBasis, std::vector<double> vapor, const char *liquidBasis,
                                 std::vector<double> liquid) {
        package.calcEquilibrium = [=](const EquilibriumCall &request) {
            for (const auto &[label, basis, composition] :
                 {std::tuple("Vapor", vaporBasis, vapor), std::tuple("Liquid", liquidBasis, liquid)}) {
                EXPECT_EQ(request.material.setSinglePhase("fraction", label, basis, composition), S_OK);
                EXPECT_EQ(request.material.setSinglePhase("phaseFraction", label, "mole", {0}), S_OK);
            }
            return S_OK;
        };
    };
    const std::string inconsistent =
        "Equilibrium phases not stored in consistent basis; unable to perform basis conversion";
    const std::string noTotal = "Zero or negative total composition in basis conversion";
    findBoth("mass", {0, 0}, "mole", {0.5, 0.5});
    EXPECT_EQ(refusal(5, flash()), noTotal) << "the vapor is converted before the liquid is looked at";
    findBoth("mole", {0.5, 0.5}, "mass", {0, 0});
    EXPECT_EQ(refusal(5, flash()), inconsistent) << "the liquid's basis comes before its conversion";
    findBoth("mass", {0.5, 0.5}, "mass", {0, 0});
    EXPECT_EQ(refusal(5, flash()), noTotal) << "and all phases before the fractions, whose sum is nothing";
    findBoth("mass", {0.5, 0.5}, "mass", {0.5, 0.5});
    EXPECT_EQ(refusal(5, flash()), "Zero total phase moles after flash calculation");
}

// In the order that the operations are told in, so that a script gets the same numbers everywhere.
TEST_F(FlashBasis, RepairsToTheBit)
{
    const double weights[] = {18, 36};
    const double phases[2][2] = {{0.1, 0.7}, {0.6, 0.3}};
    const double fractions[] = {0.3, 0.45};
    find(
        {{"Vapor", fractions[0], {phases[0][0], phases[0][1]}}, {"Liquid", fractions[1], {phases[1][0], phases[1][1]}}},
        "mass");
    const CallResult result = mustReturn(5, flash());
    double expected[2] = {};
    double total = 0;
    for (int p = 0; p < 2; ++p) {
        double moles[2];
        double sum = 0;
        for (int i = 0; i < 2; ++i) {
            moles[i] = phases[p][i] / weights[i];
            sum += moles[i];
        }
        double weight = 0;
        for (int i = 0; i < 2; ++i) {
            moles[i] *= 1 / sum;
            EXPECT_EQ(result[2].matrix()[static_cast<std::size_t>(p)][static_cast<std::size_t>(i)], moles[i]);
            weight += moles[i] * weights[i];
        }
        expected[p] = fractions[p] / weight;
        total += expected[p];
    }
    for (int p = 0; p < 2; ++p)
        EXPECT_EQ(result[1].numbers()[static_cast<std::size_t>(p)], expected[p] / total);
}

TEST_F(FlashBasis, OfAnAbsentPhaseDoesNotMatter)
{
    package.calcEquilibrium = [](const EquilibriumCall &request) {
        EXPECT_EQ(request.material.setSinglePhase("fraction", "Vapor", "mass", {0.5, 0.5}), S_OK);
        EXPECT_EQ(request.material.setSinglePhase("fraction", "Liquid", "mole", {0.5, 0.5}), S_OK);
        EXPECT_EQ(request.material.setSinglePhase("phaseFraction", "Liquid", "mole", {1}), S_OK);
        return request.material.setPresentPhases({"Liquid"});
    };
    EXPECT_EQ(mustReturn(5, flash())[2].matrix(), (Rows{{0.5, 0.5}}));
}

TEST_F(FlashBasis, RepairNeedsAllMolecularWeights)
{
    package.molecularWeights = NumberArray({18, notANumber});
    find({{"Liquid", 1, {0.2, 0.8}}}, "mass");
    EXPECT_EQ(refusal(5, flash()), "One or more missing molecular weights in basis conversion");
    useBasis("mass");
    mustReturn(5, flash());
    find({{"Liquid", 1, {0.2, 0.8}}}, "mole");
    EXPECT_EQ(refusal(5, flash()), "One or more missing molecular weights in basis conversion");
}

TEST_F(FlashBasis, RepairNeedsACompositionAboveZero)
{
    for (std::vector<double> composition : {std::vector<double>{0, 0}, {-1, -2}}) {
        find({{"Liquid", 1, composition}}, "mass");
        EXPECT_EQ(refusal(5, flash()), "Zero or negative total composition in basis conversion");
    }
    useBasis("mass");
    find({{"Liquid", 1, {0, 0}}}, "mole");
    EXPECT_EQ(refusal(5, flash()), "Zero or negative total composition in basis conversion");
}

TEST_F(FlashBasis, RepairOfAMissingCompositionFailsInItsSum)
{
    putLiquidComposition({notANumber, 1});
    findLiquid(1);
    useBasis("mass");
    EXPECT_EQ(refusal(5, flash()), "Zero or negative total composition in basis conversion");
}

TEST_F(FlashBasis, RepairOfFractionsNoticesAMissingCompositionThatTheSumHides)
{
    // 1 * 1 outweighs 0.1 * -1, in units of the largest number.
    package.molecularWeights = NumberArray({1, 0.1});
    putLiquidComposition({largest, undefinedNumber});
    findLiquid(1);
    useBasis("mass");
    EXPECT_EQ(refusal(5, flash()), "one or more phase compositions missing after flash");
}

TEST_F(FlashBasis, RepairNeedsAPhaseMolecularWeight)
{
    // Mass fractions 1 and -1 are mole fractions 2 and -1, of 2 * 18 - 36 = 0 g/mol.
    find({{"Liquid", 1, {1, -1}}}, "mass");
    EXPECT_EQ(refusal(5, flash()), "Phase molecular weight is zero; unable to perform basis conversion");
}

TEST_F(FlashBasis, RepairTakesAPhaseMolecularWeightBelowZero)
{
    // Mass fractions 2 and -3 are mole fractions 4 and -3, of 4 * 18 - 3 * 36 = -36 g/mol;
    // 0.5 / -36 and 0.5 / 24 are as -2 to 3.
    find({{"Vapor", 0.5, {2, -3}}, {"Liquid", 0.5, {0.5, 0.5}}}, "mass");
    const CallResult result = mustReturn(5, flash());
    ExpectNear(result[1].matrix(), {{-2}, {3}});
    ExpectNear(result[2].matrix(), {{4, -3}, {2 * third, third}});
}

TEST_F(FlashBasis, RepairNeedsFractionsThatSumToSomething)
{
    find({{"Liquid", 0, {0.2, 0.8}}}, "mass");
    EXPECT_EQ(refusal(5, flash()), "Zero total phase moles after flash calculation");
    find({{"Vapor", 1, {0.2, 0.8}}, {"Liquid", -1, {0.2, 0.8}}}, "mass");
    EXPECT_EQ(refusal(5, flash()), "Zero total phase moles after flash calculation");
    useBasis("mass");
    find({{"Liquid", 0, {0.2, 0.8}}}, "mole");
    EXPECT_EQ(refusal(5, flash()), "Zero total phase mass after flash calculation");
    find({{"Liquid", 1, {0.5, 0.5}}}, "mole");
    EXPECT_EQ(mustReturn(5, flash())[1].number(), 1);
}

TEST_F(FlashBasis, RepairOfAMissingFractionGivesNaN)
{
    find({{"Vapor", 0.5, {0.5, 0.5}}, {"Liquid", 0.5, {0.2, 0.8}}}, "mass");
    const auto found = package.calcEquilibrium;
    package.calcEquilibrium = [found](const EquilibriumCall &request) {
        const HRESULT hr = found(request);
        EXPECT_TRUE(FAILED(request.material.setSinglePhase("phaseFraction", "Liquid", "mass", {notANumber})));
        return hr;
    };
    const CallResult result = mustReturn(5, flash());
    EXPECT_TRUE(std::isnan(result[1].numbers().at(0)));
    EXPECT_TRUE(std::isnan(result[1].numbers().at(1)));
    ExpectNear(result[2].matrix(), {{2 * third, third}, {third, 2 * third}});
}
