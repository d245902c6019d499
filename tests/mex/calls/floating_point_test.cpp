// A package unmasks floating-point exceptions, as the runtimes of some compilers do, and leaves them so.
#include "platform/floating_point.h"
#include "tests/support/floating_point.h"
#include "tests/support/package_test.h"

#include <cmath>

using namespace support;

namespace {

class FloatingPoint : public PackageTest {
protected:
    FloatingPoint()
    {
        package.molecularWeights = NumberArray({18, notANumber});
        package.phaseLabels = TextArray({"Vapor", "Liquid"});
        package.calcSinglePhase = StoreSinglePhase({{"volume", "mole", {notANumber}}});
        package.calcTwoPhase = StoreTwoPhase({{"surfaceTension", "", {notANumber}}});
        package.calcEquilibrium = StoreEquilibrium({{"Vapor", 1, {1, 0}}}, 340, 2e5);
        package.constants = AnswerValues(ArrayOfVariants({RealVariant(notANumber), RealVariant(1)}));
        package.temperatureDependent = AnswerValues(NumberArray({notANumber, 1}));
        package.pressureDependent = AnswerValues(NumberArray({notANumber, 1}));
        package.words = Description("not now");
        package.onCall = [](const std::string &) { UnmaskFloatingPointExceptions(); };
    }
    void TearDown() override
    {
        package.onCall = nullptr;
        PackageTest::TearDown();
    }

    // Every command that calls the package.
    std::vector<std::vector<Array>> requests() const
    {
        return {{Scalar(3), Text("Alone"), Text("")},
                {Scalar(7), handle},
                {Scalar(8), handle},
                {Scalar(10), handle},
                {Scalar(11), handle},
                {Scalar(12), handle},
                {Scalar(13), handle},
                {Scalar(14), handle},
                {Scalar(15), handle},
                {Scalar(16), handle, Text("criticalTemperature")},
                {Scalar(20), Scalar(1), handle, Text("vaporPressure"), Scalar(300)},
                {Scalar(21), Scalar(1), handle, Text("boilingPointTemperature"), Scalar(300)},
                singlePhase(),
                twoPhase(),
                flash(),
                batch({.names = Text("vaporFraction")})};
    }
    static int outputsOf(const std::vector<Array> &request) { return request[0].number() == 24 ? 5 : 1; }

    const FloatingPointMode before = FloatingPointMode::current();
};

} // namespace

TEST_F(FloatingPoint, ModeIsTheCallersAfterEveryCommand)
{
    for (const char *basis : {"mole", "mass"}) {
        useBasis(basis);
        for (const std::vector<Array> &request : requests()) {
            call(outputsOf(request), request);
            EXPECT_TRUE(FloatingPointMode::current() == before) << "command " << request[0].number() << ", " << basis;
        }
    }
    mustReturn(0, {Scalar(4), handle});
    EXPECT_TRUE(FloatingPointMode::current() == before) << "closing";
}

TEST_F(FloatingPoint, ModeIsTheCallersAfterEveryFailure)
{
    for (const char *method : {"GetCompoundList", "GetPhaseList", "GetConstPropList", "GetSinglePhasePropList",
                               "GetCompoundConstant", "GetTDependentProperty", "GetPDependentProperty",
                               "CalcSinglePhaseProp", "CalcTwoPhaseProp", "CalcEquilibrium"})
        package.answer(method, computationFailed, 1);
    for (int time = 0; time < 2; ++time) {
        for (const std::vector<Array> &request : requests()) {
            call(outputsOf(request), request);
            EXPECT_TRUE(FloatingPointMode::current() == before) << "command " << request[0].number();
        }
    }
}

TEST_F(FloatingPoint, ModeIsTheCallersWhenTheLibraryIsCleared)
{
    mustReturn(1, {Scalar(7), handle});
    EXPECT_TRUE(matlab.clear());
    EXPECT_TRUE(FloatingPointMode::current() == before);
}

// The package's mode holds for the package alone: what is compared behind its calls may be a NaN.
TEST_F(FloatingPoint, ModeOfThePackageLetsNoComparisonOfOursEndTheProcess)
{
    EXPECT_EQ(mustReturn(1, {Scalar(7), handle})[0].texts(), Names({"A", "B"})) << "a molecular weight is a NaN";
    EXPECT_TRUE(std::isnan(mustReturn(1, singlePhase())[0].element(0).numbers()[0]));
    EXPECT_EQ(refusal(1, {Scalar(notANumber)}), "Invalid function argument to Verdanth");
    EXPECT_TRUE(std::isnan(mustReturn(1, singlePhase({.outputs = Scalar(notANumber)}))[0].element(0).numbers()[0]));
    useBasis("mass");
    EXPECT_EQ(refusal(1, singlePhase()), "One or more missing molecular weights in basis conversion");
}

// A phase without a fraction, an average over it, and a weight that is not there.
TEST_F(FloatingPoint, ModeOfThePackageLeavesBatchesAsTheyAre)
{
    package.calcEquilibrium = [](const EquilibriumCall &asked) {
        return asked.material.setSinglePhase("fraction", "Vapor", "mole", {1, 0});
    };
    const CallResult result = mustReturn(1, batch({.outputs = Scalar(2), .names = Text("vaporFraction volume")}));
    EXPECT_TRUE(std::isnan(result[0].element(0).numbers()[0]));
    EXPECT_EQ(result[0].element(1).numbers(), std::vector<double>{0});
}

TEST_F(FloatingPoint, ModeOfThePackageDoesNotReachWhatTheMaterialConverts)
{
    std::string told;
    package.calcSinglePhase = [&](const SinglePhaseCall &asked) {
        std::vector<double> values;
        EXPECT_EQ(asked.material.getSinglePhase("fraction", "Vapor", "mass", values), CapeFailure(1));
        told = Narrow(asked.material.lastRefusal().description);
        return StoreSinglePhase({{"volume", "mole", {1}}})(asked);
    };
    mustReturn(1, singlePhase());
    EXPECT_EQ(told, "One or more missing molecular weights in basis conversion");
}

// A weight that is no weight: its product with nothing is no number, which the package's mode would not allow.
TEST_F(FloatingPoint, ModeOfThePackageDoesNotReachProductsThatAreNoNumbers)
{
    package.molecularWeights = NumberArray({18, std::numeric_limits<double>::infinity()});
    std::string told;
    package.calcSinglePhase = [&](const SinglePhaseCall &asked) {
        std::vector<double> values;
        EXPECT_EQ(asked.material.getSinglePhase("fraction", "Vapor", "mass", values), CapeFailure(1));
        told = Narrow(asked.material.lastRefusal().description);
        return StoreSinglePhase({{"volume", "mole", {1}}})(asked);
    };
    mustReturn(1, singlePhase({.compositions = Row({1, 0})}));
    EXPECT_EQ(told, "Zero or negative total composition in basis conversion");
}

TEST_F(FloatingPoint, ModeOfThePackageDoesNotReachTheCommandsThatItCalls)
{
    const std::vector<Array> noCommand = {Scalar(notANumber)};
    std::string refused;
    bool packageKeptItsMode = false;
    package.calcSinglePhase = [&](const SinglePhaseCall &asked) {
        const FloatingPointMode packages = FloatingPointMode::current();
        refused = call(1, noCommand).error;
        packageKeptItsMode = FloatingPointMode::current() == packages && !(packages == before);
        return StoreSinglePhase({{"volume", "mole", {1}}})(asked);
    };
    mustReturn(1, singlePhase());
    EXPECT_EQ(refused, "Invalid function argument to Verdanth");
    EXPECT_TRUE(packageKeptItsMode);
}

// MATLAB shows the message in its own mode, and the package goes on in its.
TEST_F(FloatingPoint, ModeOfThePackageDoesNotReachMatlabsWarnings)
{
    static FloatingPointMode atWarning;
    const FloatingPointMode here = FloatingPointMode::current();
    bool packageKeptItsMode = false;
    package.calcSinglePhase = [&](const SinglePhaseCall &asked) {
        const FloatingPointMode packages = FloatingPointMode::current();
        EXPECT_EQ(LogMessage(package, "heard"), S_OK);
        packageKeptItsMode = FloatingPointMode::current() == packages && !(packages == here);
        return StoreSinglePhase({{"volume", "mole", {1}}})(asked);
    };
    mexStandInOnWarning([] { atWarning = FloatingPointMode::current(); });
    EXPECT_EQ(mustReturn(1, singlePhase()).warnings, std::vector<std::string>{"CAPE-OPEN: heard"});
    mexStandInOnWarning(nullptr);
    EXPECT_TRUE(atWarning == here);
    EXPECT_TRUE(packageKeptItsMode);
}
