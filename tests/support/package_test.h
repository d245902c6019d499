// A test with an open package, "Alone", of two compounds: A of 18 and B of 36 g/mol. It makes the arguments of the
// calculation commands, and states of them only what differs from a call that works.
#pragma once

#include "tests/support/mex_test.h"

namespace support {

inline constexpr double third = 1.0 / 3; // a mass fraction of A in equal parts by mole

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

class PackageTest : public MexTest {
protected:
    void SetUp() override;

    // The arguments of commands 22, 23, 24 and 25 for the open package.
    std::vector<Array> singlePhase(const SinglePhaseInput &input = {}) const;
    std::vector<Array> twoPhase(const TwoPhaseInput &input = {}) const;
    std::vector<Array> flash(const FlashInput &input = {}) const;
    std::vector<Array> batch(const BatchInput &input = {}) const;

    // Makes the package one of the compounds A, B and C, of 18, 36 and 54 g/mol; before its first use.
    void makeTernary();

    PackageScript &package = world.addPackage("Alone");
};

} // namespace support
