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

    // Each command that calls an open package, and what it calls there, on a package just opened.
    struct Request {
        const char *method;
        std::vector<Array> arguments;
    };
    std::vector<Request> requests() const
    {
        return {
            {"GetCompoundList", {Scalar(7), handle}},
            {"GetPhaseList", {Scalar(8), handle}},
            {"GetConstPropList", {Scalar(10), handle}},
            {"GetTDependentPropList", {Scalar(11), handle}},
            {"GetPDependentPropList", {Scalar(12), handle}},
            {"GetSinglePhasePropList", {Scalar(13), handle}},
            {"GetTwoPhasePropList", {Scalar(14), handle}},
            {"GetSinglePhasePropList", {Scalar(15), handle}},
            {"GetCompoundConstant", {Scalar(16), handle, Text("criticalTemperature")}},
            {"GetTDependentProperty", {Scalar(20), Scalar(1), handle, Text("vaporPressure"), Scalar(300)}},
            {"GetPDependentProperty", {Scalar(21), Scalar(1), handle, Text("boilingPointTemperature"), Scalar(300)}},
            {"CalcSinglePhaseProp", singlePhase()},
            {"CalcTwoPhaseProp", twoPhase()},
            {"CalcEquilibrium", flash()},
            {"CalcEquilibrium", batch({.names = Text("vaporFraction")})}};
    }

    // Calls the library, which must call that method of the package, and must give the caller's mode back.
    CallResult callPackage(const char *method, int outputs, const std::vector<Array> &arguments)
    {
        const int calls = package.calls(method);
        CallResult result = call(outputs, arguments);
        EXPECT_GT(package.calls(method), calls);
        EXPECT_TRUE(FloatingPointMode::current() == before);
        return result;
    }
    CallResult make(const Request &request)
    {
        SCOPED_TRACE("command " + std::to_string(request.arguments[0].number()));
        return callPackage(request.method, request.arguments[0].number() == 24 ? 5 : 1, request.arguments);
    }
    void close() { EXPECT_TRUE(callPackage("Terminate", 0, {Scalar(4), handle}).returned); }
    void reopen()
    {
        close();
        handle = callPackage("Initialize", 1, {Scalar(3), Text("Alone"), Text("")})[0];
    }
    void failNext(const char *method) { package.answer(method, computationFailed, package.calls(method) + 1); }

    // What the material tells a package that asks it for a composition by mass.
    std::string wordsForMassFractions(const SinglePhaseInput &input)
    {
        std::string told;
        package.calcSinglePhase = [&](const SinglePhaseCall &asked) {
            std::vector<double> values;
            EXPECT_EQ(asked.material.getSinglePhase("fraction", "Vapor", "mass", values), CapeFailure(1));
            told = Narrow(asked.material.lastRefusal().description);
            return StoreSinglePhase({{"volume", "mole", {1}}})(asked);
        };
        mustReturn(1, singlePhase(input));
        return told;
    }

    const FloatingPointMode before = FloatingPointMode::current();
};

} // namespace

TEST_F(FloatingPoint, ModeIsTheCallersAfterEveryCommand)
{
    for (const char *basis : {"mole", "mass"}) {
        SCOPED_TRACE(basis);
        useBasis(basis);
        for (std::size_t i = 0; i < requests().size(); ++i) {
            reopen();
            make(requests()[i]);
        }
    }
}

TEST_F(FloatingPoint, ModeIsTheCallersAfterEveryFailure)
{
    for (std::size_t i = 0; i < requests().size(); ++i) {
        reopen();
        const Request request = requests()[i];
        failNext(request.method);
        const bool goesOn = request.arguments[0].number() == 25;
        EXPECT_EQ(make(request).returned, goesOn) << request.method;
        EXPECT_TRUE(make(request).returned) << request.method;
    }
}

TEST_F(FloatingPoint, ModeIsTheCallersAfterAFailureToOpen)
{
    close();
    failNext("Initialize");
    EXPECT_FALSE(callPackage("Initialize", 1, {Scalar(3), Text("Alone"), Text("")}).returned);
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
    EXPECT_EQ(wordsForMassFractions({}), "One or more missing molecular weights in basis conversion");
}

// A weight that is no weight: its product with nothing is no number, which the package's mode would not allow.
TEST_F(FloatingPoint, ModeOfThePackageDoesNotReachProductsThatAreNoNumbers)
{
    package.molecularWeights = NumberArray({18, std::numeric_limits<double>::infinity()});
    EXPECT_EQ(wordsForMassFractions({.compositions = Row({1, 0})}),
              "Zero or negative total composition in basis conversion");
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
