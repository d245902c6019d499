#include "tests/support/package_test.h"

namespace support {

void PackageTest::SetUp()
{
    MexTest::SetUp();
    handle = open("Alone");
}

std::vector<Array> PackageTest::singlePhase(const SinglePhaseInput &input) const
{
    return {Scalar(22),      input.outputs,      handle,     input.names, input.temperatures,
            input.pressures, input.compositions, input.phase};
}

std::vector<Array> PackageTest::twoPhase(const TwoPhaseInput &input) const
{
    return {Scalar(23),          input.outputs,       handle,       input.names, input.temperatures, input.pressures,
            input.compositions1, input.compositions2, input.phase1, input.phase2};
}

std::vector<Array> PackageTest::flash(const FlashInput &input) const
{
    return {Scalar(24),   handle,          input.composition, input.property1,
            input.value1, input.property2, input.value2,      input.solutionType};
}

std::vector<Array> PackageTest::batch(const BatchInput &input) const
{
    return {Scalar(25),      handle,        input.compositions, input.property1, input.values1,
            input.property2, input.values2, input.solutionType, input.outputs,   input.names};
}

void PackageTest::makeTernary()
{
    package.compoundIds = TextArray({"A", "B", "C"});
    package.formulae = TextArray({"", "", ""});
    package.compoundNames = TextArray({"", "", ""});
    package.boilingTemperatures = NumberArray({300, 310, 320});
    package.molecularWeights = NumberArray({18, 36, 54});
    package.casNumbers = TextArray({"", "", ""});
}

} // namespace support
