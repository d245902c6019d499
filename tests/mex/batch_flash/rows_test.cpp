// Command 25 row by row: what the package sees, and which value stands in which row, with rows that
// fail among them.
#include "tests/support/package_test.h"

#include <cmath>
#include <limits>

using namespace support;

namespace {

// Ten temperatures: 300, 310, ...
Array tenTemperatures() { return Column({300, 310, 320, 330, 340, 350, 360, 370, 380, 390}); }

class BatchFlashRows : public PackageTest {
protected:
    struct Seen {
        std::vector<WideString> specification1, specification2;
        WideString solutionType;
        std::vector<WideString> present;
        Conditions overall;
    };

    // Notes what the package sees, and finds a liquid at the given temperature and pressure.
    void findLiquid()
    {
        package.calcEquilibrium = [this](const EquilibriumCall &request) {
            Seen now{request.specification1, request.specification2, request.solutionType, {}, {}};
            std::vector<LONG> status;
            EXPECT_EQ(request.material.getPresentPhases(now.present, status), S_OK);
            EXPECT_EQ(request.material.getOverallConditions(now.overall), S_OK);
            seen.push_back(now);
            return request.material.setEquilibrium({{"Liquid", 1, now.overall.composition}}, now.overall.temperature,
                                                   now.overall.pressure);
        };
    }
    // The results of one name.
    std::vector<double> column(const BatchInput &input) { return mustReturn(1, batch(input))[0].element(0).numbers(); }

    std::vector<Seen> seen;
};

} // namespace

TEST_F(BatchFlashRows, AreAColumnForEachName)
{
    findLiquid();
    const CallResult result = mustReturn(1, batch({.values1 = Column({300, 310, 320, 330, 340}),
                                                   .outputs = Scalar(3),
                                                   .names = Texts({"Pressure", "Temperature vaporFraction"})}));
    EXPECT_EQ(result[0].dimensions(), (std::vector<std::size_t>{3, 1}));
    EXPECT_EQ(result[0].cellMatrix(0), (Rows{{1e5}, {1e5}, {1e5}, {1e5}, {1e5}}));
    EXPECT_EQ(result[0].cellMatrix(1), (Rows{{300}, {310}, {320}, {330}, {340}}));
    EXPECT_EQ(result[0].cellMatrix(2), (Rows{{0}, {0}, {0}, {0}, {0}}));
}

TEST_F(BatchFlashRows, OfTenCompositionsHaveTheSameConstraintsOfOneRow)
{
    findLiquid();
    const Array compositions = Matrix({{0, 1},
                                       {0.1, 0.9},
                                       {0.2, 0.8},
                                       {0.3, 0.7},
                                       {0.4, 0.6},
                                       {0.5, 0.5},
                                       {0.6, 0.4},
                                       {0.7, 0.3},
                                       {0.8, 0.2},
                                       {0.9, 0.1}});
    EXPECT_EQ(column({.compositions = compositions}), std::vector<double>(10, 300));
    ASSERT_EQ(seen.size(), 10u);
    EXPECT_EQ(seen[0].overall.composition, (std::vector<double>{0, 1}));
    EXPECT_EQ(seen[3].overall.composition, (std::vector<double>{0.3, 0.7}));
    EXPECT_EQ(seen[9].overall.composition, (std::vector<double>{0.9, 0.1}));
}

TEST_F(BatchFlashRows, PairTheRowsOfAllArguments)
{
    findLiquid();
    mustReturn(1, batch({.compositions = Matrix({{0.25, 0.75}, {0.5, 0.5}}),
                         .property1 = Text("pressure"),
                         .values1 = Column({1e5, 2e5}),
                         .property2 = Text("temperature"),
                         .values2 = Column({300, 310}),
                         .solutionType = Text("nOrmal")}));
    ASSERT_EQ(seen.size(), 2u);
    for (const Seen &row : seen) {
        EXPECT_EQ(row.specification1, Names({"Pressure", "", "Overall"}));
        EXPECT_EQ(row.specification2, Names({"Temperature", "", "Overall"}));
        EXPECT_EQ(row.solutionType, Wide("nOrmal"));
        EXPECT_EQ(row.present, Names({"Vapor", "Liquid"})); // the row before has left the liquid alone
    }
    EXPECT_EQ(seen[0].overall.temperature, 300);
    EXPECT_EQ(seen[0].overall.pressure, 1e5);
    EXPECT_EQ(seen[1].overall.temperature, 310);
    EXPECT_EQ(seen[1].overall.pressure, 2e5);
    EXPECT_EQ(seen[1].overall.composition, (std::vector<double>{0.5, 0.5}));
}

TEST_F(BatchFlashRows, AreFlashedOnceEach)
{
    findLiquid();
    mustReturn(1, batch({.values1 = tenTemperatures(), .outputs = Scalar(2), .names = Text("Temperature Pressure")}));
    EXPECT_EQ(package.calls("CalcEquilibrium"), 10);
    EXPECT_EQ(package.calls("CalcSinglePhaseProp"), 0);
    EXPECT_EQ(package.calls("CheckEquilibriumSpec"), 0);
}

// What a package writes over its conditions must not reach the next row.
TEST_F(BatchFlashRows, WriteArgumentsOfOneRowAgainEachTime)
{
    findLiquid();
    const auto find = package.calcEquilibrium;
    package.calcEquilibrium = [find](const EquilibriumCall &request) {
        const HRESULT hr = find(request);
        EXPECT_EQ(request.material.setOverall("temperature", "", {999}), S_OK);
        EXPECT_EQ(request.material.setOverall("pressure", "", {9e9}), S_OK);
        EXPECT_EQ(request.material.setOverall("fraction", "mass", {0.9, 0.1}), S_OK);
        return hr;
    };
    column({.values1 = Column({300, 310, 320})});
    column({.compositions = Matrix({{0.25, 0.75}, {0.5, 0.5}, {0.75, 0.25}})});
    ASSERT_EQ(seen.size(), 6u);
    for (std::size_t row = 0; row < 3; ++row) {
        EXPECT_EQ(seen[row].overall.temperature, 300 + 10.0 * static_cast<double>(row));
        EXPECT_EQ(seen[row].overall.pressure, 1e5);
        EXPECT_EQ(seen[row].overall.composition, (std::vector<double>{0.5, 0.5})) << "per mole as it is given";
        EXPECT_EQ(seen[3 + row].overall.temperature, 300);
        EXPECT_EQ(seen[3 + row].overall.pressure, 1e5);
        const double first = 0.25 * static_cast<double>(row + 1);
        EXPECT_EQ(seen[3 + row].overall.composition, (std::vector<double>{first, 1 - first}));
    }
}

TEST_F(BatchFlashRows, WithoutNamesThatFailAreToldAllTheSame)
{
    package.answer("CalcEquilibrium", computationFailed, 2);
    EXPECT_EQ(
        mustReturn(1, batch({.values1 = Column({300, 310, 320}), .outputs = Scalar(0), .names = Text("")})).warnings,
        std::vector<std::string>{"CAPE-OPEN: Flash failed at 310, 100000: computation error"});
}

TEST_F(BatchFlashRows, WithoutNamesAreFlashedForNothing)
{
    findLiquid();
    const CallResult result =
        mustReturn(1, batch({.values1 = Column({300, 310}), .outputs = Scalar(0), .names = Text(" ")}));
    EXPECT_EQ(result[0].dimensions(), (std::vector<std::size_t>{0, 1}));
    EXPECT_EQ(package.calls("CalcEquilibrium"), 2);
    EXPECT_EQ(package.calls("CalcSinglePhaseProp"), 0);
}

TEST_F(BatchFlashRows, ReportTheFirstNameWhenNoOutputIsRequested)
{
    findLiquid();
    const CallResult result =
        mustReturn(1, batch({.outputs = Scalar(0), .names = Text("Pressure Temperature enthalpy")}));
    EXPECT_EQ(result[0].count(), 1u);
    EXPECT_EQ(result[0].cellMatrix(0), (Rows{{1e5}}));
}

TEST_F(BatchFlashRows, ReportAResultAsOftenAsItIsNamedInAnyCase)
{
    findLiquid();
    const CallResult result =
        mustReturn(1, batch({.outputs = Scalar(3), .names = Text("TEMPERATURE pressure temperature")}));
    EXPECT_EQ(result[0].cellMatrix(0), (Rows{{300}}));
    EXPECT_EQ(result[0].cellMatrix(1), (Rows{{1e5}}));
    EXPECT_EQ(result[0].cellMatrix(2), (Rows{{300}}));
}

TEST_F(BatchFlashRows, AreNaNInAllColumnsWhereTheFlashFailsAtRowFourOfTen)
{
    findLiquid();
    package.answer("CalcEquilibrium", computationFailed, 4);
    package.words = Description("no convergence");
    const CallResult result = mustReturn(
        1, batch({.values1 = tenTemperatures(), .outputs = Scalar(2), .names = Text("Temperature vaporFraction")}));
    const std::vector<double> temperatures = result[0].element(0).numbers();
    const std::vector<double> fractions = result[0].element(1).numbers();
    for (std::size_t c = 0; c < 10; ++c) {
        if (c == 3) {
            EXPECT_TRUE(std::isnan(temperatures.at(c)));
            EXPECT_TRUE(std::isnan(fractions.at(c)));
            continue;
        }
        EXPECT_EQ(temperatures.at(c), 300 + 10 * static_cast<double>(c));
        EXPECT_EQ(fractions.at(c), 0);
    }
    EXPECT_EQ(result.warnings, (std::vector<std::string>{"CAPE-OPEN: Flash failed at 330, 100000: no convergence"}));
}

TEST_F(BatchFlashRows, AreNaNWithoutAWordWithWarningsOff)
{
    findLiquid();
    showWarnings(false);
    package.answer("CalcEquilibrium", computationFailed, 4);
    const CallResult result = mustReturn(1, batch({.values1 = tenTemperatures()}));
    EXPECT_TRUE(std::isnan(result[0].element(0).numbers().at(3)));
    EXPECT_EQ(result[0].element(0).numbers().at(4), 340);
    EXPECT_EQ(result.warnings, std::vector<std::string>());
}

TEST_F(BatchFlashRows, ThatFailAllGiveAWarningEach)
{
    package.answer("CalcEquilibrium", oddFailure);
    const CallResult result = mustReturn(1, batch({.property1 = Text("enthalpy"),
                                                   .values1 = Column({-0.125, 12345678}),
                                                   .property2 = Text("vaporFraction"),
                                                   .values2 = Column({0.5, 0.25}),
                                                   .names = Text("volume")}));
    EXPECT_TRUE(std::isnan(result[0].element(0).numbers().at(0)));
    EXPECT_TRUE(std::isnan(result[0].element(0).numbers().at(1)));
    EXPECT_EQ(result.warnings,
              (std::vector<std::string>{"CAPE-OPEN: Flash failed at -0.125, 0.5: error code 0x8123ABCD",
                                        "CAPE-OPEN: Flash failed at 1.23457e+07, 0.25: error code 0x8123ABCD"}));
    EXPECT_EQ(package.calls("CalcSinglePhaseProp"), 0);
}

TEST_F(BatchFlashRows, ThatFailTakeTheirWarningFromTheOnlyRowOfAConstraint)
{
    findLiquid();
    package.answer("CalcEquilibrium", computationFailed, 2);
    EXPECT_EQ(mustReturn(1, batch({.compositions = Zeros({3, 2})})).warnings,
              (std::vector<std::string>{"CAPE-OPEN: Flash failed at 300, 100000: computation error"}));
}

TEST_F(BatchFlashRows, ThatFailHaveTheWordsOfTheEquilibriumRoutine)
{
    package.answer("CalcEquilibrium", computationFailed);
    package.words = Description("100% \\n wrong");
    package.words.onlyFrom = &InterfaceId<ICapeThermoEquilibriumRoutine>;
    EXPECT_EQ(mustReturn(1, batch()).warnings,
              (std::vector<std::string>{"CAPE-OPEN: Flash failed at 300, 100000: 100% \\n wrong"}));
}

TEST_F(BatchFlashRows, PassMissingConditionsOn)
{
    const CallResult result = mustReturn(1, batch({.values1 = Scalar(undefinedNumber),
                                                   .values2 = Scalar(notANumber),
                                                   .outputs = Scalar(2),
                                                   .names = Text("Temperature Pressure")}));
    EXPECT_EQ(result[0].element(0).number(), undefinedNumber);
    EXPECT_TRUE(std::isnan(result[0].element(1).number()));
    EXPECT_EQ(result.warnings, std::vector<std::string>());
}

TEST_F(BatchFlashRows, StandBesideWhatThePackageLogs)
{
    findLiquid();
    package.answer("CalcEquilibrium", computationFailed, 2);
    package.onCall = [this](const std::string &method) {
        if (method == "CalcEquilibrium") {
            EXPECT_EQ(LogMessage(package, "working"), S_OK);
        }
    };
    EXPECT_EQ(mustReturn(1, batch({.values1 = Column({300, 310})})).warnings,
              (std::vector<std::string>{"CAPE-OPEN: working", "CAPE-OPEN: working",
                                        "CAPE-OPEN: Flash failed at 310, 100000: computation error"}));
}

TEST_F(BatchFlashRows, WriteEachValueOfAPropertyConstraint)
{
    std::vector<double> values;
    package.calcEquilibrium = [&](const EquilibriumCall &request) {
        EXPECT_EQ(request.specification1, Names({"Enthalpy", "", "Overall"}));
        std::vector<double> value;
        EXPECT_EQ(request.material.getOverall("enthalpy", "mole", value), S_OK);
        values.insert(values.end(), value.begin(), value.end());
        return request.material.setPresentPhases({});
    };
    mustReturn(1, batch({.property1 = Text("Enthalpy"), .values1 = Column({-1, 2, 3})}));
    EXPECT_EQ(values, (std::vector<double>{-1, 2, 3}));
}

TEST_F(BatchFlashRows, WriteAPropertyConstraintInTheDefaultBasis)
{
    useBasis("mass");
    std::vector<double> perMass;
    package.calcEquilibrium = [&](const EquilibriumCall &request) {
        EXPECT_EQ(request.material.getOverall("volume", "mass", perMass), S_OK);
        return request.material.setPresentPhases({});
    };
    mustReturn(1, batch({.property2 = Text("volume"), .values2 = Scalar(0.001)}));
    EXPECT_EQ(perMass, (std::vector<double>{0.001}));
}

TEST_F(BatchFlashRows, WriteAConstraintAgainThatThePackageHasCleared)
{
    std::vector<double> values;
    package.calcEquilibrium = [&](const EquilibriumCall &request) {
        std::vector<double> value;
        EXPECT_EQ(request.material.getOverall("enthalpy", "mole", value), S_OK);
        values.insert(values.end(), value.begin(), value.end());
        EXPECT_EQ(request.material.getSinglePhase("phaseFraction", "Vapor", "mole", value), S_OK);
        values.insert(values.end(), value.begin(), value.end());
        return request.material.get()->ClearAllProps();
    };
    const std::vector<double> temperatures = column({.property1 = Text("enthalpy"),
                                                     .values1 = Column({1, 2}),
                                                     .property2 = Text("vaporFraction"),
                                                     .values2 = Column({0.25, 0.75})});
    EXPECT_EQ(values, (std::vector<double>{1, 0.25, 2, 0.75}));
    EXPECT_TRUE(std::isnan(temperatures.at(0)));
}

TEST_F(BatchFlashRows, GiveTheVaporFractionConstraintItsPhaseAndBasis)
{
    for (const char *basis : {"mole", "mass"}) {
        useBasis(basis);
        std::vector<double> values;
        package.calcEquilibrium = [&](const EquilibriumCall &request) {
            EXPECT_EQ(request.specification2, Names({"phaseFraction", basis, "Vapor"}));
            std::vector<double> value;
            EXPECT_EQ(request.material.getSinglePhase("phaseFraction", "Vapor", basis, value), S_OK);
            values.insert(values.end(), value.begin(), value.end());
            return S_OK;
        };
        const CallResult result = mustReturn(1, batch({.property2 = Text("vaporfraction"),
                                                       .values2 = Column({0.25, 0.5}),
                                                       .names = Text("VaporFraction")}));
        EXPECT_EQ(values, (std::vector<double>{0.25, 0.5}));
        // The package has left the fraction as it was given, in the default basis.
        EXPECT_EQ(result[0].cellMatrix(0), (Rows{{0.25}, {0.5}}));
    }
}

TEST_F(BatchFlashRows, GiveTheVaporFractionItsBasisInEitherConstraint)
{
    useBasis("mass");
    std::vector<double> fraction;
    package.calcEquilibrium = [&](const EquilibriumCall &request) {
        EXPECT_EQ(request.material.getSinglePhase("phaseFraction", "Vapor", "mass", fraction), S_OK);
        return S_OK;
    };
    EXPECT_EQ(column({.property1 = Text("vaporFraction"), .values1 = Scalar(0.25), .names = Text("vaporFraction")}),
              (std::vector<double>{0.25}));
    EXPECT_EQ(fraction, (std::vector<double>{0.25}));
    // A fraction that is no constraint of this batch is said to be per mole.
    package.calcEquilibrium = [&](const EquilibriumCall &request) {
        EXPECT_EQ(request.material.getSinglePhase("phaseFraction", "Vapor", "mole", fraction), S_OK);
        return computationFailed;
    };
    mustReturn(1, batch());
    EXPECT_EQ(fraction, (std::vector<double>{0.25}));
}

TEST_F(BatchFlashRows, HaveMadeTheEntryOfAConstraintInFrontOfARefusedArgument)
{
    useBasis("mass");
    EXPECT_EQ(refusal(1, batch({.property1 = Text("enthalpy"), .solutionType = Scalar(1)})),
              "Expected string value for solution type");
    ASSERT_TRUE(package.material);
    const MaterialClient material(package.material.get());
    std::vector<double> values;
    EXPECT_EQ(material.getOverall("enthalpy", "mass", values), S_OK);
    EXPECT_EQ(values.size(), 1u);
    // Values come only with a row.
    EXPECT_TRUE(std::isnan(values.at(0)));
    EXPECT_TRUE(FAILED(material.getOverall("pressure", "", values)));
    EXPECT_TRUE(FAILED(material.getOverall("fraction", "mass", values)));
}

TEST_F(BatchFlashRows, OfAnotherSuccessThanOkHaveSucceeded)
{
    findLiquid();
    package.answer("CalcEquilibrium", S_FALSE);
    const CallResult result = mustReturn(1, batch({.values1 = Column({300, 310})}));
    EXPECT_EQ(result[0].cellMatrix(0), (Rows{{300}, {310}}));
    EXPECT_EQ(result.warnings, std::vector<std::string>());
}

TEST_F(BatchFlashRows, ThatFailAtNoOrdinaryNumbersTellThem)
{
    package.answer("CalcEquilibrium", computationFailed);
    EXPECT_EQ(mustReturn(1, batch({.values1 = Column({notANumber, undefinedNumber, 1}),
                                   .values2 = Column({std::numeric_limits<double>::infinity(), -0.0, 1e-7})}))
                  .warnings,
              (std::vector<std::string>{"CAPE-OPEN: Flash failed at nan, inf: computation error",
                                        "CAPE-OPEN: Flash failed at -1.79769e+308, -0: computation error",
                                        "CAPE-OPEN: Flash failed at 1, 1e-07: computation error"}));
}

TEST_F(BatchFlashRows, StartFromTheStateThatTheRowBeforeLeft)
{
    std::vector<double> before;
    package.calcEquilibrium = [&](const EquilibriumCall &request) {
        std::vector<double> temperature;
        if (SUCCEEDED(request.material.getOverall("temperature", "", temperature)))
            before.push_back(temperature.at(0));
        return request.material.setOverall("temperature", "", {400.0 + package.calls("CalcEquilibrium")});
    };
    EXPECT_EQ(column({.property1 = Text("enthalpy"), .values1 = Column({1, 2, 3})}),
              (std::vector<double>{401, 402, 403}));
    EXPECT_EQ(before, (std::vector<double>{401, 402})); // nobody had set one before the first row
}

TEST_F(BatchFlashRows, AreReportedAfterAFailureThatChangedTheMaterial)
{
    package.calcEquilibrium = [&](const EquilibriumCall &request) {
        EXPECT_EQ(request.material.setPresentPhases({}), S_OK);
        return package.calls("CalcEquilibrium") == 1 ? computationFailed
                                                     : request.material.setOverall("temperature", "", {1});
    };
    const std::vector<double> temperatures = column({.values1 = Column({300, 310})});
    EXPECT_TRUE(std::isnan(temperatures.at(0)));
    EXPECT_EQ(temperatures.at(1), 1);
}

TEST_F(BatchFlashRows, LeaveTheNextCommandWorkingAfterAnError)
{
    findLiquid();
    EXPECT_EQ(refusal(1, batch({.names = Text("enthalpy")})), "Property not set after post-flash property calculation");
    EXPECT_EQ(column({.values1 = Column({300, 310})}), (std::vector<double>{300, 310}));
    EXPECT_EQ(mustReturn(5, flash())[0].texts(), Names({"Liquid"}));
}
