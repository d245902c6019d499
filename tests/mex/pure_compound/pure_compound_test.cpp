// Commands 20 and 21, which are the same but for the words and the package's operation.
#include "tests/support/package_test.h"

#include <cmath>
#include <limits>
#include <ostream>

using namespace support;

namespace {

struct Command {
    const char *name;
    double code;
    const char *method;
    const char *unit;
    const char *property; // of the vocabulary
    const char *notColumn;
    const char *notDouble;
    const char *noRows;
    std::function<HRESULT(const CompoundCall &, Variant &)> PackageScript::*answer;
};

// Without it the test's name would hold the bytes of the structure.
void PrintTo(const Command &command, std::ostream *out) { *out << command.name; }

const Command dependentCommands[] = {
    {"Temperature", 20, "GetTDependentProperty", "K", "vaporPressure", "Expected column array for temperatures",
     "Expected double precision vector for temperatures", "Zero temperatures specified",
     &PackageScript::temperatureDependent},
    {"Pressure", 21, "GetPDependentProperty", "Pa", "boilingPointTemperature", "Expected column array for pressures",
     "Expected double precision vector for pressures", "Zero pressures specified", &PackageScript::pressureDependent}};

class PureCompoundCommand : public PackageTest, public testing::WithParamInterface<Command> {
protected:
    struct Input {
        Array outputs = Scalar(1);
        Array names = Text(GetParam().property);
        Array conditions = Scalar(300);
    };
    std::vector<Array> arguments() const { return arguments(Input()); }
    std::vector<Array> arguments(const Input &input) const
    {
        return {Scalar(GetParam().code), input.outputs, handle, input.names, input.conditions};
    }
    void answer(Variant values) { package.*GetParam().answer = AnswerValues(std::move(values)); }
    int calculations() const { return package.calls(GetParam().method); }
    std::string method() const { return GetParam().method; }
    std::string unit() const { return GetParam().unit; }
};

std::string nameOf(const testing::TestParamInfo<Command> &info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(Dependent, PureCompoundCommand, testing::ValuesIn(dependentCommands), nameOf);

} // namespace

TEST_P(PureCompoundCommand, TakesFiveArgumentsAndGivesOneResult)
{
    answer(NumberArray({1, 2}));
    std::vector<Array> tooMany = arguments();
    tooMany.push_back(Scalar(1));
    EXPECT_EQ(refusal(1, tooMany), "Invalid number of arguments for Verdanth");
    tooMany.resize(4);
    EXPECT_EQ(refusal(2, tooMany), "Invalid number of arguments for Verdanth");
    EXPECT_EQ(refusal(2, arguments()), "Invalid number of output arguments for Verdanth");
    EXPECT_EQ(mustReturn(0, arguments())[0].cellMatrix(0), (Rows{{1, 2}}));
}

TEST_P(PureCompoundCommand, ChecksItsArgumentsInOrder)
{
    answer(NumberArray({1, 2}));
    expectCheckedInOrder(1, arguments(),
                         {{2, Scalar(1), "Invalid property package handle"},
                          {3, Scalar(1), "Expected string or cell array of strings for property names"},
                          {1, Scalar(2), "Too many output arguments"},
                          {4, Row({300, 310}), GetParam().notColumn},
                          {4, Int32(300), GetParam().notDouble},
                          {4, Zeros({0, 1}), GetParam().noRows}});
}

TEST_P(PureCompoundCommand, RefusesConditionsThatAreNoColumnOfDoubles)
{
    for (const Array &wrong : {Row({1, 2}), Empty(), Zeros({2, 1, 2}), Text("300"), EmptyCell(), Zeros({1, 0})})
        EXPECT_EQ(refusal(1, arguments({.conditions = wrong})), GetParam().notColumn);
    for (const Array &wrong : WrongScalars())
        EXPECT_EQ(refusal(1, arguments({.conditions = wrong})), GetParam().notDouble);
    EXPECT_EQ(refusal(1, arguments({.conditions = SingleColumn({})})), GetParam().notDouble);
    EXPECT_EQ(refusal(1, arguments({.conditions = Zeros({0, 1})})), GetParam().noRows);
    EXPECT_EQ(calculations(), 0);
}

TEST_P(PureCompoundCommand, LoadsCompoundsBehindAllChecksAndNothingElse)
{
    answer(NumberArray({1, 2}));
    package.answer("GetCompoundList", computationFailed, 1);
    EXPECT_EQ(refusal(1, arguments({.conditions = Empty()})), GetParam().notColumn);
    EXPECT_EQ(package.calls("GetCompoundList"), 0);
    EXPECT_EQ(refusal(1, arguments()), "Failed to get list of compounds from property package: computation error");
    mustReturn(1, arguments());
    EXPECT_EQ(package.calls("GetPhaseList"), 0);
    EXPECT_EQ(package.calls("SetMaterial"), 0);
}

TEST_P(PureCompoundCommand, AsksForAllCompoundsOnceForEachCondition)
{
    std::vector<CompoundCall> seen;
    package.*GetParam().answer = [&](const CompoundCall &request, Variant &values) {
        seen.push_back(request);
        values = NumberArray({request.condition, request.condition + 1});
        return S_OK;
    };
    EXPECT_EQ(mustReturn(1, arguments({.conditions = Column({300, 310, 320.5, 330, 340})}))[0].cellMatrix(0),
              (Rows{{300, 301}, {310, 311}, {320.5, 321.5}, {330, 331}, {340, 341}}));
    ASSERT_EQ(seen.size(), 5u);
    EXPECT_EQ(seen[2].condition, 320.5);
    EXPECT_EQ(seen[2].compoundIds, VT_EMPTY);
    EXPECT_EQ(seen[2].properties, Names({GetParam().property}));
}

TEST_P(PureCompoundCommand, GivesEachOfTwoNamesAMatrixFromOneCallPerCondition)
{
    std::vector<WideString> asked;
    package.*GetParam().answer = [&](const CompoundCall &request, Variant &values) {
        asked = request.properties;
        const double t = request.condition;
        values = NumberArray({t, t + 1, t + 2, -t, -t - 1, -t - 2});
        return S_OK;
    };
    makeTernary();
    const CallResult result = mustReturn(
        1, arguments({.outputs = Scalar(2), .names = Text(" first  second "), .conditions = Column({10, 20})}));
    EXPECT_EQ(result[0].dimensions(), (std::vector<std::size_t>{2, 1}));
    EXPECT_EQ(result[0].cellMatrix(0), (Rows{{10, 11, 12}, {20, 21, 22}}));
    EXPECT_EQ(result[0].cellMatrix(1), (Rows{{-10, -11, -12}, {-20, -21, -22}}));
    EXPECT_EQ(asked, Names({"first", "second"}));
    EXPECT_EQ(calculations(), 2);
}

TEST_P(PureCompoundCommand, AsksForTheNamesOfEachCall)
{
    std::vector<std::vector<WideString>> asked;
    package.*GetParam().answer = [&](const CompoundCall &request, Variant &values) {
        asked.push_back(request.properties);
        values = NumberArray(std::vector<double>(2 * request.properties.size()));
        return S_OK;
    };
    mustReturn(1, arguments({.names = Text("first")}));
    mustReturn(1, arguments({.outputs = Scalar(2), .names = Text("second third")}));
    mustReturn(1, arguments({.names = Text("fourth")}));
    EXPECT_EQ(asked,
              (std::vector<std::vector<WideString>>{Names({"first"}), Names({"second", "third"}), Names({"fourth"})}));
}

TEST_P(PureCompoundCommand, CutsNamesToTheRequestedOutputs)
{
    answer(NumberArray({1, 2}));
    EXPECT_EQ(mustReturn(1, arguments({.outputs = Scalar(0), .names = Texts({"first", "second"})}))[0].count(), 1u);
    EXPECT_EQ(mustReturn(1, arguments({.outputs = Scalar(1), .names = Texts({"first", "second"})}))[0].count(), 1u);
    EXPECT_EQ(refusal(1, arguments({.outputs = Scalar(3), .names = Texts({"first", "second"})})),
              "Too many output arguments");
}

TEST_P(PureCompoundCommand, WithoutNamesGivesACellOfNoRows)
{
    answer(Variant());
    EXPECT_EQ(mustReturn(1, arguments({.outputs = Scalar(0), .names = Text("  ")}))[0].dimensions(),
              (std::vector<std::size_t>{0, 1}));
    EXPECT_EQ(calculations(), 1);
}

TEST_P(PureCompoundCommand, PassesPropertiesOnThatTheVocabularyDoesNotKnow)
{
    answer(NumberArray({1.5, 2.5}));
    for (const char *basis : {"mole", "mass"}) {
        useBasis(basis);
        for (const char *name : {"frobnicity", "criticalTemperature", "enthalpy", "vaporPressure.Dmoles", "x.y"})
            EXPECT_EQ(mustReturn(1, arguments({.names = Text(name)}))[0].cellMatrix(0), (Rows{{1.5, 2.5}})) << name;
    }
}

TEST_P(PureCompoundCommand, KeepsMissingValues)
{
    answer(NumberArray({notANumber, undefinedNumber}));
    for (const char *basis : {"mole", "mass"}) {
        useBasis(basis);
        const std::vector<double> values = mustReturn(1, arguments())[0].element(0).numbers();
        EXPECT_TRUE(std::isnan(values.at(0)));
        EXPECT_EQ(values.at(1), undefinedNumber);
    }
}

TEST_P(PureCompoundCommand, ReadsAnArrayWithAnyLowerBound)
{
    answer(NumberArray({7, 8}, 1));
    EXPECT_EQ(mustReturn(1, arguments())[0].cellMatrix(0), (Rows{{7, 8}}));
    answer(NumberArray({9, 10}, -3));
    EXPECT_EQ(mustReturn(1, arguments())[0].cellMatrix(0), (Rows{{9, 10}}));
}

TEST_P(PureCompoundCommand, TellsAtWhichConditionThePackageFailed)
{
    answer(NumberArray({1, 2}));
    package.answer(method(), computationFailed, 2);
    EXPECT_EQ(refusal(1, arguments({.conditions = Column({300, 12345678})})),
              method() + " failed at 1.23457e+07 " + unit() + ": computation error");
    package.words = Description("out of range");
    package.answer(method(), computationFailed);
    EXPECT_EQ(refusal(1, arguments({.conditions = Scalar(273.15)})),
              method() + " failed at 273.15 " + unit() + ": out of range");
    package.answer(method(), S_OK);
    EXPECT_EQ(mustReturn(1, arguments())[0].cellMatrix(0), (Rows{{1, 2}}));
}

TEST_P(PureCompoundCommand, ClearsWhatAFailingPackageLeavesInTheValues)
{
    const int before = ReferencesOn(package.context.get());
    package.*GetParam().answer = [&](const CompoundCall &, Variant &values) {
        values = ArrayOfVariants({InterfaceVariant(package.context.get())});
        return computationFailed;
    };
    EXPECT_EQ(refusal(1, arguments()), method() + " failed at 300 " + unit() + ": computation error");
    EXPECT_EQ(ReferencesOn(package.context.get()), before);
}

TEST_P(PureCompoundCommand, RefusesElementsThatAreNotWhatTheArraySays)
{
    answer(Mislabeled(BlankArray(VT_I8, 2), VT_R8));
    EXPECT_EQ(refusal(1, arguments()),
              "Invalid data from " + method() + " at 300 " + unit() + ": Expected an array of type double precision");
}

TEST_P(PureCompoundCommand, TellsConditionsThatAreNoOrdinaryNumbers)
{
    package.answer(method(), computationFailed);
    const double infinity = std::numeric_limits<double>::infinity();
    const std::pair<double, const char *> conditions[] = {{infinity, "inf"},   {-infinity, "-inf"},
                                                          {notANumber, "nan"}, {undefinedNumber, "-1.79769e+308"},
                                                          {-0.0, "-0"},        {1e-7, "1e-07"}};
    for (const auto &[condition, text] : conditions)
        EXPECT_EQ(refusal(1, arguments({.conditions = Scalar(condition)})),
                  method() + " failed at " + text + " " + unit() + ": computation error");
}

TEST_P(PureCompoundCommand, PassesConditionsOnAsTheyAre)
{
    std::vector<double> seen;
    package.*GetParam().answer = [&](const CompoundCall &request, Variant &values) {
        seen.push_back(request.condition);
        values = NumberArray({1, 2});
        return S_OK;
    };
    mustReturn(1, arguments({.conditions = Column({-1, 0, undefinedNumber, notANumber})}));
    ASSERT_EQ(seen.size(), 4u);
    EXPECT_EQ(seen[0], -1);
    EXPECT_EQ(seen[1], 0);
    EXPECT_EQ(seen[2], undefinedNumber);
    EXPECT_TRUE(std::isnan(seen[3]));
}

TEST_P(PureCompoundCommand, HasTheWordsOfTheCompoundsInterface)
{
    package.answer(method(), computationFailed);
    package.words = Description("out of range");
    package.words.onlyFrom = &InterfaceId<ICapeThermoCompounds>;
    EXPECT_EQ(refusal(1, arguments()), method() + " failed at 300 " + unit() + ": out of range");
    package.words.onlyFrom = &InterfaceId<ICapeThermoPropertyRoutine>;
    EXPECT_EQ(refusal(1, arguments()), method() + " failed at 300 " + unit() + ": computation error");
}

TEST_P(PureCompoundCommand, TakesAnotherSuccessThanOkForSuccess)
{
    answer(NumberArray({1, 2}));
    package.answer(method(), S_FALSE);
    EXPECT_EQ(mustReturn(1, arguments())[0].cellMatrix(0), (Rows{{1, 2}}));
}

TEST_P(PureCompoundCommand, ShowsWhatThePackageLogsAsWarnings)
{
    answer(NumberArray({1, 2}));
    package.onCall = [this](const std::string &called) {
        if (called == method()) {
            EXPECT_EQ(LogMessage(package, "extrapolating"), S_OK);
        }
    };
    const CallResult result = mustReturn(1, arguments({.conditions = Column({300, 310})}));
    EXPECT_EQ(result[0].cellMatrix(0), (Rows{{1, 2}, {1, 2}}));
    EXPECT_EQ(result.warnings, (std::vector<std::string>{"CAPE-OPEN: extrapolating", "CAPE-OPEN: extrapolating"}));
}

TEST_P(PureCompoundCommand, RefusesAnArrayOfAnotherElementType)
{
    const std::string message =
        "Invalid data from " + method() + " at 300 " + unit() + ": Expected an array of type double precision";
    for (const Variant &values :
         {TextArray({"1", "2"}), LongArray({1, 2}), ArrayOfVariants({RealVariant(1), RealVariant(2)}), RealVariant(1),
          BlankArray(VT_R4, 2)}) {
        answer(values);
        EXPECT_EQ(refusal(1, arguments()), message);
    }
}

TEST_P(PureCompoundCommand, RefusesAnArrayOfTwoDimensions)
{
    answer(TwoDimensionalArray(VT_R8, 1, 2));
    EXPECT_EQ(refusal(1, arguments()), "Invalid data from " + method() + " at 300 " + unit() +
                                           ": unexpected dimension; 1-dimensional array expected");
}

TEST_P(PureCompoundCommand, RefusesAWrongNumberOfValuesAtTheFirstConditionThatHasIt)
{
    const std::string message = "Invalid data from " + method() + " at 300 " + unit() + ": unexpected number of values";
    answer(NumberArray({1, 2, 3, 4})); // as many as conditions times compounds
    EXPECT_EQ(refusal(1, arguments({.conditions = Column({300, 310})})), message);
    EXPECT_EQ(calculations(), 1);
    for (const Variant &values : {NumberArray({1}), NumberArray({}), Variant()}) {
        answer(values);
        EXPECT_EQ(refusal(1, arguments()), message);
    }
    package.*GetParam().answer = [](const CompoundCall &request, Variant &values) {
        values = request.condition < 310 ? NumberArray({1, 2}) : NumberArray({1, 2, 3});
        return S_OK;
    };
    EXPECT_EQ(refusal(1, arguments({.conditions = Column({300, 310.5})})),
              "Invalid data from " + method() + " at 310.5 " + unit() + ": unexpected number of values");
}

namespace {

class PureCompoundBasis : public PackageTest {
protected:
    std::vector<Array> temperatureCommand(const char *names, Array temperatures = Scalar(300), double outputs = 1) const
    {
        return {Scalar(20), Scalar(outputs), handle, Text(names), std::move(temperatures)};
    }
};

} // namespace

TEST_F(PureCompoundBasis, OfMassDividesByTheMolarMassOfEachCompound)
{
    useBasis("mass");
    package.temperatureDependent = AnswerValues(NumberArray({1800, 1800}));
    // 1800 J/mol / 0.018 kg/mol and / 0.036 kg/mol
    ExpectNear(mustReturn(1, temperatureCommand("IDEALGASENTHALPY", Column({300, 310})))[0].cellMatrix(0),
               {{100000, 50000}, {100000, 50000}});
    ExpectNear(mustReturn(1, temperatureCommand("volumeOfLiquid.Dtemperature"))[0].cellMatrix(0), {{100000, 50000}});
}

TEST_F(PureCompoundBasis, OfMoleLeavesEverythingAsThePackageGaveIt)
{
    package.temperatureDependent = AnswerValues(NumberArray({1800, 1800}));
    EXPECT_EQ(mustReturn(1, temperatureCommand("idealGasEnthalpy"))[0].cellMatrix(0), (Rows{{1800, 1800}}));
}

TEST_F(PureCompoundBasis, OfMoleIsThatOfTheCallAlsoAfterOneOfMass)
{
    package.temperatureDependent = AnswerValues(NumberArray({100, 200}));
    const std::vector<Array> request = {Scalar(20), Scalar(1), handle, Text("idealGasHeatCapacity"), Scalar(300)};
    useBasis("mass");
    ExpectNear(mustReturn(1, request)[0].cellMatrix(0), {{100 / 0.018, 200 / 0.036}});
    useBasis("mole");
    EXPECT_EQ(mustReturn(1, request)[0].cellMatrix(0), (Rows{{100, 200}}));
}

TEST_F(PureCompoundBasis, OfMassLeavesWhatHasNoBasis)
{
    useBasis("mass");
    package.temperatureDependent = AnswerValues(NumberArray({1800, 1800, 3600, 3600}));
    const CallResult result = mustReturn(1, temperatureCommand("vaporPressure idealGasEnthalpy", Scalar(300), 2));
    EXPECT_EQ(result[0].cellMatrix(0), (Rows{{1800, 1800}}));
    ExpectNear(result[0].cellMatrix(1), {{200000, 100000}});
}

TEST_F(PureCompoundBasis, OfMassLeavesADerivativeThatTheVocabularyDoesNotAllow)
{
    useBasis("mass");
    package.temperatureDependent = AnswerValues(NumberArray({1800, 1800}));
    EXPECT_EQ(mustReturn(1, temperatureCommand("idealGasEnthalpy.Dpressure"))[0].cellMatrix(0), (Rows{{1800, 1800}}));
}

TEST_F(PureCompoundBasis, OfMassIsLookedUpInTheVocabularyOfTheCommand)
{
    useBasis("mass");
    package.pressureDependent = AnswerValues(NumberArray({1800, 1800}));
    EXPECT_EQ(mustReturn(1, {Scalar(21), Scalar(1), handle, Text("idealGasEnthalpy"), Scalar(1e5)})[0].cellMatrix(0),
              (Rows{{1800, 1800}}));
}

TEST_F(PureCompoundBasis, OfMassConvertsBesideMissingValues)
{
    useBasis("mass");
    package.temperatureDependent = AnswerValues(NumberArray({undefinedNumber, 1800}));
    const std::vector<double> values = mustReturn(1, temperatureCommand("idealGasEnthalpy"))[0].element(0).numbers();
    EXPECT_EQ(values.at(0), undefinedNumber);
    ExpectNear({{values.at(1)}}, {{50000}});
}

TEST_F(PureCompoundBasis, OfMassNeedsTheMolecularWeightsOfValuesThatAreThere)
{
    useBasis("mass");
    package.molecularWeights = NumberArray({18, notANumber});
    package.temperatureDependent = AnswerValues(NumberArray({1800, 1800}));
    EXPECT_EQ(refusal(1, temperatureCommand("idealGasEnthalpy")),
              "missing molecular weight for one or more compounds in basis conversion");
    EXPECT_EQ(mustReturn(1, temperatureCommand("vaporPressure"))[0].cellMatrix(0), (Rows{{1800, 1800}}));
    package.temperatureDependent = AnswerValues(NumberArray({1800, notANumber}));
    const std::vector<double> values = mustReturn(1, temperatureCommand("idealGasEnthalpy"))[0].element(0).numbers();
    ExpectNear({{values.at(0)}}, {{100000}});
    EXPECT_TRUE(std::isnan(values.at(1)));
}
