#include "tests/mex/calculation_test.h"

#include <cmath>

namespace support {

void CalculationTest::SetUp()
{
    MexTest::SetUp();
    handle = open("Package");
}

void CalculationTest::TearDown()
{
    handle = Array();
    MexTest::TearDown();
}

std::vector<Array> CalculationTest::singlePhase(const SinglePhaseInput &input) const
{
    return {Scalar(22),      input.outputs,      handle,     input.names, input.temperatures,
            input.pressures, input.compositions, input.phase};
}

std::vector<Array> CalculationTest::twoPhase(const TwoPhaseInput &input) const
{
    return {Scalar(23),          input.outputs,       handle,       input.names, input.temperatures, input.pressures,
            input.compositions1, input.compositions2, input.phase1, input.phase2};
}

std::vector<Array> CalculationTest::flash(const FlashInput &input) const
{
    return {Scalar(24),   handle,          input.composition, input.property1,
            input.value1, input.property2, input.value2,      input.solutionType};
}

std::vector<Array> CalculationTest::batch(const BatchInput &input) const
{
    return {Scalar(25),      handle,        input.compositions, input.property1, input.values1,
            input.property2, input.values2, input.solutionType, input.outputs,   input.names};
}

void CalculationTest::makeTernary()
{
    package.compoundIds = TextArray({"A", "B", "C"});
    package.formulae = TextArray({"", "", ""});
    package.compoundNames = TextArray({"", "", ""});
    package.boilingTemperatures = NumberArray({300, 310, 320});
    package.molecularWeights = NumberArray({18, 36, 54});
    package.casNumbers = TextArray({"", "", ""});
}

void CalculationTest::useBasis(const char *word) { mustReturn(0, {Scalar(18), Text(word)}); }

void CalculationTest::showWarnings(bool shown) { mustReturn(0, {Scalar(17), Logical(shown)}); }

void CalculationTest::expectRefused(int nlhs, const std::vector<Array> &arguments, const std::string &message)
{
    const CallResult result = call(nlhs, arguments);
    EXPECT_FALSE(result.returned);
    EXPECT_EQ(result.error, message);
    EXPECT_EQ(result.warnings, std::vector<std::string>());
}

void CalculationTest::expectCheckedInOrder(int nlhs, const std::vector<Array> &good,
                                           const std::vector<WrongArgument> &inOrder)
{
    mustReturn(nlhs, good);
    for (std::size_t i = 0; i < inOrder.size(); ++i) {
        std::vector<Array> wrong = good;
        wrong[inOrder[i].position] = inOrder[i].value;
        expectRefused(nlhs, wrong, inOrder[i].message);
        for (std::size_t j = i + 1; j < inOrder.size(); ++j) {
            if (inOrder[j].position == inOrder[i].position)
                continue;
            SCOPED_TRACE("and argument " + std::to_string(inOrder[j].position) + " wrong, too");
            std::vector<Array> bothWrong = wrong;
            bothWrong[inOrder[j].position] = inOrder[j].value;
            expectRefused(nlhs, bothWrong, inOrder[i].message);
        }
    }
    mustReturn(nlhs, good);
}

std::vector<Array> WrongHandles(const Array &handle)
{
    const std::int32_t value = handle.int32();
    return {Scalar(value),
            Single(static_cast<float>(value)),
            Int32Column({value, value}),
            Int32Column({}),
            Int32(value == 32767 ? 0 : value + 1), // only one package is open
            Int32(-1),
            Int32(2147483647),
            Empty(),
            Logical(true),
            Complex(value, 0),
            Text("Package"),
            Cell({handle}),
            EmptyCell()};
}

std::vector<Array> WrongScalars()
{
    return {Complex(300, 0), Single(300), Int32(300), Logical(true), Text("3"), Cell({Scalar(300)})};
}

Array ComplexRow(std::size_t columns) { return Array(mxCreateDoubleMatrix_730(1, columns, mxCOMPLEX)); }

Array ZeroRows(std::size_t columns) { return Zeros({0, columns}); }

void ExpectNear(const Rows &actual, const Rows &expected)
{
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t r = 0; r < actual.size(); ++r) {
        ASSERT_EQ(actual[r].size(), expected[r].size());
        for (std::size_t k = 0; k < actual[r].size(); ++k)
            EXPECT_NEAR(actual[r][k], expected[r][k], 1e-12 * std::abs(expected[r][k])) << "row " << r << ", " << k;
    }
}

} // namespace support
