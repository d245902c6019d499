// The shape of a call: code, argument count, result count, handle.
#include "tests/support/mex_test.h"

#include <cmath>
#include <limits>

using namespace support;

namespace {

class Dispatch : public MexTest {};

struct Shape {
    int code;
    std::size_t arguments; // the code included
    int fewestResults;
    int mostResults;
};

// The command table as scripts know it.
constexpr Shape shapes[] = {
    {1, 1, 0, 1},  {2, 2, 0, 1},   {3, 3, 0, 1},  {4, 2, 0, 0},   {5, 1, 0, 1},  {6, 2, 0, 1},  {7, 2, 0, 1},
    {8, 2, 0, 1},  {9, 3, 0, 1},   {10, 2, 0, 1}, {11, 2, 0, 1},  {12, 2, 0, 1}, {13, 2, 0, 1}, {14, 2, 0, 1},
    {15, 2, 0, 1}, {16, 3, 0, 1},  {17, 2, 0, 0}, {18, 2, 0, 0},  {19, 2, 0, 1}, {20, 5, 0, 1}, {21, 5, 0, 1},
    {22, 8, 0, 1}, {23, 10, 0, 1}, {24, 8, 5, 5}, {25, 10, 1, 1}, {26, 1, 0, 1}, {28, 1, 0, 0},
};

std::vector<Array> argumentsOf(const Shape &shape, std::size_t count)
{
    std::vector<Array> arguments = {Scalar(shape.code)};
    while (arguments.size() < count)
        arguments.push_back(Empty());
    return arguments;
}

} // namespace

TEST_F(Dispatch, ACallWithoutArgumentsIsRefusedBeforeAnythingStarts)
{
    const CallResult result = call(0, {});
    EXPECT_FALSE(result.returned);
    EXPECT_EQ(result.error, "Too few arguments for Verdanth");
    EXPECT_FALSE(matlab.clear()) << "an exit routine was registered";
}

TEST_F(Dispatch, AFirstArgumentThatIsNoRealDoubleScalarIsRefused)
{
    const char *const message = "Expected scalar for first argument to Verdanth";
    for (const Array &first : {Text("1"), Complex(1, 0), Row({1, 2}), Int32(1), Single(1), Logical(true), Empty(),
                               EmptyCell(), Cell({Scalar(1)})}) {
        const CallResult result = call(1, {first});
        EXPECT_FALSE(result.returned);
        EXPECT_EQ(result.error, message);
    }
    EXPECT_TRUE(matlab.clear()) << "the refusal comes after the start";
}

TEST_F(Dispatch, ACodeOutsideTheTableIsRefused)
{
    for (const double code : {0.0, -1.0, 27.0, 29.0, 0.9, -0.9, 1e300, -1e300, 2147483648.0, 4294967297.0, std::nan(""),
                              std::numeric_limits<double>::infinity()})
        EXPECT_EQ(refusal(1, {Scalar(code)}), "Invalid function argument to Verdanth") << code;
}

TEST_F(Dispatch, ACodeIsTruncatedTowardZero)
{
    world.addPackage("Alone");
    EXPECT_EQ(mustReturn(1, {Scalar(2.7), Text("Alone")})[0].texts(), Names({"(stand-alone)"}));
}

TEST_F(Dispatch, EveryCommandRefusesAnotherNumberOfArguments)
{
    for (const Shape &shape : shapes) {
        EXPECT_EQ(refusal(shape.fewestResults, argumentsOf(shape, shape.arguments + 1)),
                  "Invalid number of arguments for Verdanth")
            << shape.code;
        if (shape.arguments > 1) {
            EXPECT_EQ(refusal(shape.fewestResults, argumentsOf(shape, shape.arguments - 1)),
                      "Invalid number of arguments for Verdanth")
                << shape.code;
        }
    }
}

TEST_F(Dispatch, EveryCommandRefusesAnotherNumberOfResults)
{
    for (const Shape &shape : shapes) {
        const std::vector<Array> arguments = argumentsOf(shape, shape.arguments);
        EXPECT_EQ(refusal(shape.mostResults + 1, arguments), "Invalid number of output arguments for Verdanth")
            << shape.code;
        for (int results = 0; results < shape.fewestResults; ++results)
            EXPECT_EQ(refusal(results, arguments), "Invalid number of output arguments for Verdanth") << shape.code;
    }
}

TEST_F(Dispatch, TheArgumentCountIsTestedBeforeTheResultCount)
{
    for (const Shape &shape : shapes)
        EXPECT_EQ(refusal(shape.mostResults + 1, argumentsOf(shape, shape.arguments + 1)),
                  "Invalid number of arguments for Verdanth")
            << shape.code;
}

TEST_F(Dispatch, ACommandWithAResultGivesItAlsoWhenNoneIsAskedFor)
{
    EXPECT_EQ(mustReturn(0, {Scalar(19), Text("temperature")})[0].text(), Wide("K"));
}

TEST_F(Dispatch, ArgumentsAreCheckedFromTheHandleOn)
{
    // Codes 20 to 23: the handle, then the names, then the number of outputs.
    const Array handle = (world.addPackage("Alone"), open("Alone"));
    EXPECT_EQ(refusal(1, {Scalar(20), Scalar(9), Scalar(0), Scalar(0), Scalar(300)}),
              "Invalid property package handle");
    EXPECT_EQ(refusal(1, {Scalar(20), Scalar(9), handle, Scalar(0), Scalar(300)}),
              "Expected string or cell array of strings for property names");
    EXPECT_EQ(refusal(1, {Scalar(20), Scalar(9), handle, Text("vaporPressure"), Text("x")}),
              "Too many output arguments");
}

TEST_F(Dispatch, TheNextCommandWorksAfterAFailedOne)
{
    PackageScript &package = world.addPackage("Alone");
    package.answer("GetCompoundList", E_FAIL, 1);
    const Array handle = open("Alone");
    EXPECT_FALSE(call(1, {Scalar(7), handle}).returned);
    EXPECT_EQ(mustReturn(1, {Scalar(7), handle})[0].texts(), Names({"A", "B"}));
}

TEST_F(Dispatch, APercentSignAndABackslashInAPackagesWordsSurvive)
{
    PackageScript &package = world.addPackage("Alone");
    package.answer("GetCompoundList", CapeFailure(0x02));
    package.words = Description("50%s of C:\\new\\table %d%n");
    EXPECT_EQ(refusal(1, {Scalar(7), open("Alone")}),
              "Failed to get list of compounds from property package: 50%s of C:\\new\\table %d%n");
}

TEST_F(Dispatch, ALongMessageArrivesWhole)
{
    PackageScript &package = world.addPackage("Alone");
    const std::string words(5000, 'x');
    package.answer("GetCompoundList", CapeFailure(0x02));
    package.words = Description(words);
    EXPECT_EQ(refusal(1, {Scalar(7), open("Alone")}),
              "Failed to get list of compounds from property package: " + words);
}

TEST_F(Dispatch, EveryKindOfArrayInEveryPlaceLeavesTheLibraryAlive)
{
    const Array handle = (world.addPackage("Alone"), open("Alone"));
    const std::vector<Array> oddities = {Empty(),
                                         EmptyCell(),
                                         EmptyText(),
                                         Text("x"),
                                         Scalar(1),
                                         Scalar(std::nan("")),
                                         Int32(7),
                                         Logical(true),
                                         Single(2),
                                         Complex(1, 2),
                                         Cell({Cell({Text("x")})}),
                                         Cell({Array()}),
                                         Zeros({2, 2, 2}),
                                         Texts({"a", "b"})};
    for (const Shape &shape : shapes) {
        if (shape.code == 4 || shape.code == 28)
            continue; // closing and the viewer have tests of their own
        for (std::size_t place = 1; place < shape.arguments; ++place) {
            for (const Array &oddity : oddities) {
                std::vector<Array> arguments = argumentsOf(shape, shape.arguments);
                for (std::size_t i = 1; i < arguments.size(); ++i)
                    arguments[i] = i == 1 || i == 2 ? handle : Scalar(1);
                arguments[place] = oddity;
                call(shape.mostResults, arguments);
            }
        }
    }
    useBasis("mole");
    EXPECT_EQ(mustReturn(1, {Scalar(7), handle})[0].texts(), Names({"A", "B"}));
}
