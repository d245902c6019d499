// What the tests of the calculation commands share: an open package of two compounds, A of 18 and
// B of 36 g/mol, and arguments of which a test states only what differs from a call that works.
#pragma once

#include "tests/support/mex_test.h"

#include <limits>
#include <string>
#include <vector>

namespace support {

using Rows = std::vector<std::vector<double>>;

// A CAPE-OPEN result whose standard text is "computation error".
inline constexpr HRESULT computationFailed = static_cast<HRESULT>(0x8004050Bu);
// A result that no system has a text for: "error code 0x8FFF0001".
inline constexpr HRESULT resultWithoutText = static_cast<HRESULT>(0x8FFF0001u);
// The two forms of a value that is not there.
inline constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
inline constexpr double undefinedNumber = -1.7976931348623157e308;

struct SinglePhaseInput {
    Array outputs = Scalar(1);
    Array names = Text("volume");
    Array temperatures = Scalar(300);
    Array pressures = Scalar(100000);
    Array compositions = Row({0.5, 0.5});
    Array phase = Text("Vapor");
};

struct TwoPhaseInput {
    Array outputs = Scalar(1);
    Array names = Text("surfaceTension");
    Array temperatures = Scalar(300);
    Array pressures = Scalar(100000);
    Array compositions1 = Row({0.25, 0.75});
    Array compositions2 = Row({0.75, 0.25});
    Array phase1 = Text("Vapor");
    Array phase2 = Text("Liquid");
};

struct FlashInput {
    Array composition = Row({0.5, 0.5});
    Array property1 = Text("Temperature");
    Array value1 = Scalar(300);
    Array property2 = Text("Pressure");
    Array value2 = Scalar(100000);
    Array solutionType = Text("Unspecified");
};

struct BatchInput {
    Array compositions = Row({0.5, 0.5});
    Array property1 = Text("Temperature");
    Array values1 = Scalar(300);
    Array property2 = Text("Pressure");
    Array values2 = Scalar(100000);
    Array solutionType = Text("Unspecified");
    Array outputs = Scalar(1);
    Array names = Text("Temperature");
};

// An argument that is refused, and with which words.
struct WrongArgument {
    std::size_t position;
    Array value;
    std::string message;
};

class CalculationTest : public MexTest {
protected:
    void SetUp() override;
    void TearDown() override;

    // The arguments of commands 22, 23, 24 and 25 for the open package.
    std::vector<Array> singlePhase(const SinglePhaseInput &input = {}) const;
    std::vector<Array> twoPhase(const TwoPhaseInput &input = {}) const;
    std::vector<Array> flash(const FlashInput &input = {}) const;
    std::vector<Array> batch(const BatchInput &input = {}) const;

    // Makes the package one of the compounds A, B and C, of 18, 36 and 54 g/mol; before its first use.
    void makeTernary();

    void useBasis(const char *word); // command 18
    void showWarnings(bool shown);   // command 17
    void expectRefused(int nlhs, const std::vector<Array> &arguments, const std::string &message);

    // The good call returns. Each wrong argument is refused with its words, of two wrong ones the
    // one that is first in the list. After all that the good call returns again.
    void expectCheckedInOrder(int nlhs, const std::vector<Array> &good, const std::vector<WrongArgument> &inOrder);

    PackageScript &package = world.addPackage("Package");
    Array handle;
};

// Arrays that are no handle of any package.
std::vector<Array> WrongHandles(const Array &handle);

// One-by-one arrays that are no real doubles.
std::vector<Array> WrongScalars();

Array ComplexRow(std::size_t columns); // double, with imaginary parts of zero
Array ZeroRows(std::size_t columns);   // double, 0-by-columns

// Equal but for the rounding of a conversion.
void ExpectNear(const Rows &actual, const Rows &expected);

} // namespace support
