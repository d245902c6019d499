// What command 22 asks of a package, and how the package's values come back. All without a
// conversion: the default basis is mole.
#include "tests/support/package_test.h"

#include <cmath>
#include <limits>

using namespace support;

namespace {

// What the package saw at one condition.
struct Seen {
    Conditions conditions;
    std::vector<WideString> properties;
    WideString phase;
};

class SinglePhaseResults : public PackageTest {
protected:
    // Notes what each calculation is asked and stores, for each of the given properties, `counts`
    // values: the temperature and, in tenths, the position of the value.
    void storeByTemperature(std::vector<std::pair<const char *, std::size_t>> properties)
    {
        package.calcSinglePhase = [this, properties](const SinglePhaseCall &request) {
            note(request);
            for (const auto &[name, count] : properties) {
                std::vector<double> values(count);
                for (std::size_t k = 0; k < count; ++k)
                    values[k] = seen.back().conditions.temperature + 0.1 * static_cast<double>(k);
                const char *basis = std::string(name) == "volume" || std::string(name) == "enthalpy" ? "mole" : "";
                EXPECT_EQ(request.material.setSinglePhase(name, request.phase, basis, values), S_OK);
            }
            return S_OK;
        };
    }
    void note(const SinglePhaseCall &request)
    {
        Seen now{{}, request.properties, request.phase};
        EXPECT_EQ(request.material.getConditions(request.phase, now.conditions), S_OK);
        seen.push_back(now);
    }
    std::size_t calculations() const { return static_cast<std::size_t>(package.calls("CalcSinglePhaseProp")); }

    std::vector<Seen> seen;
};

} // namespace

TEST_F(SinglePhaseResults, ComeForSevenCompositionsAtOneTemperatureAndPressure)
{
    std::vector<double> firstFractions;
    package.calcSinglePhase = [&](const SinglePhaseCall &request) {
        note(request);
        const double fraction = seen.back().conditions.composition[0];
        firstFractions.push_back(fraction);
        return request.material.setSinglePhase("volume", request.phase, "mole", {fraction * 2});
    };
    const Array compositions =
        Matrix({{0, 1}, {0.125, 0.875}, {0.25, 0.75}, {0.5, 0.5}, {0.75, 0.25}, {0.875, 0.125}, {1, 0}});
    EXPECT_EQ(mustReturn(1, singlePhase({.compositions = compositions}))[0].cellMatrix(0),
              (Rows{{0}, {0.25}, {0.5}, {1}, {1.5}, {1.75}, {2}}));
    EXPECT_EQ(firstFractions, (std::vector<double>{0, 0.125, 0.25, 0.5, 0.75, 0.875, 1}));
    for (const Seen &one : seen) {
        EXPECT_EQ(one.conditions.temperature, 300);
        EXPECT_EQ(one.conditions.pressure, 100000);
    }
}

TEST_F(SinglePhaseResults, PairTheRowsOfAllArguments)
{
    storeByTemperature({{"volume", 1}});
    mustReturn(1, singlePhase({.temperatures = Column({300, 310}),
                               .pressures = Column({1e5, 2e5}),
                               .compositions = Matrix({{0.25, 0.75}, {0.5, 0.5}})}));
    ASSERT_EQ(seen.size(), 2u);
    EXPECT_EQ(seen[0].conditions.pressure, 1e5);
    EXPECT_EQ(seen[0].conditions.composition, (std::vector<double>{0.25, 0.75}));
    EXPECT_EQ(seen[1].conditions.temperature, 310);
    EXPECT_EQ(seen[1].conditions.pressure, 2e5);
    EXPECT_EQ(seen[1].conditions.composition, (std::vector<double>{0.5, 0.5}));
}

TEST_F(SinglePhaseResults, UseOneTemperatureForAllPressures)
{
    storeByTemperature({{"volume", 1}});
    EXPECT_EQ(mustReturn(1, singlePhase({.pressures = Column({1, 2, 3})}))[0].cellMatrix(0),
              (Rows{{300}, {300}, {300}}));
    EXPECT_EQ(seen[0].conditions.pressure, 1);
    EXPECT_EQ(seen[2].conditions.pressure, 3);
}

TEST_F(SinglePhaseResults, OfAScalarPropertyAreAColumn)
{
    storeByTemperature({{"volume", 1}});
    EXPECT_EQ(mustReturn(1, singlePhase())[0].element(0).dimensions(), (std::vector<std::size_t>{1, 1}));
    const CallResult five = mustReturn(1, singlePhase({.temperatures = Column({300, 310, 320, 330, 340})}));
    EXPECT_EQ(five[0].dimensions(), (std::vector<std::size_t>{1, 1}));
    EXPECT_EQ(five[0].cellMatrix(0), (Rows{{300}, {310}, {320}, {330}, {340}}));
}

TEST_F(SinglePhaseResults, PerCompoundAreARowAtOneConditionAndARowPerConditionAtFive)
{
    storeByTemperature({{"fugacity", 2}});
    EXPECT_EQ(mustReturn(1, singlePhase({.names = Text("fugacity")}))[0].cellMatrix(0), (Rows{{300, 300.1}}));
    const CallResult five =
        mustReturn(1, singlePhase({.names = Text("fugacity"), .temperatures = Column({300, 310, 320, 330, 340})}));
    EXPECT_EQ(five[0].cellMatrix(0), (Rows{{300, 300.1}, {310, 310.1}, {320, 320.1}, {330, 330.1}, {340, 340.1}}));
}

TEST_F(SinglePhaseResults, HaveAColumnForEachOfThreeCompounds)
{
    makeTernary();
    storeByTemperature({{"fugacity", 3}});
    const Array composition = Row({0.5, 0.25, 0.25});
    EXPECT_EQ(mustReturn(1, singlePhase({.names = Text("fugacity"), .compositions = composition}))[0].cellMatrix(0),
              (Rows{{300, 300.1, 300.2}}));
    EXPECT_EQ(mustReturn(1, singlePhase({.names = Text("fugacity"),
                                         .temperatures = Column({300, 310}),
                                         .compositions = composition}))[0]
                  .cellMatrix(0),
              (Rows{{300, 300.1, 300.2}, {310, 310.1, 310.2}}));
}

TEST_F(SinglePhaseResults, OfAMatrixPropertyAreASquareFilledColumnAfterColumn)
{
    makeTernary();
    package.calcSinglePhase = StoreSinglePhase({{"diffusionCoefficient", "", {1, 2, 3, 4, 5, 6, 7, 8, 9}},
                                                {"fugacity.DmolFraction", "", {11, 12, 13, 14, 15, 16, 17, 18, 19}}});
    const CallResult result =
        mustReturn(1, singlePhase({.outputs = Scalar(2),
                                   .names = Texts({"diffusionCoefficient", "fugacity.DmolFraction"}),
                                   .compositions = Row({0.5, 0.25, 0.25})}));
    EXPECT_EQ(result[0].cellMatrix(0), (Rows{{1, 4, 7}, {2, 5, 8}, {3, 6, 9}}));
    EXPECT_EQ(result[0].cellMatrix(1), (Rows{{11, 14, 17}, {12, 15, 18}, {13, 16, 19}}));
}

TEST_F(SinglePhaseResults, OfAMatrixPropertyAtTwoConditionsAreRefusedBeforeThePackageIsCalled)
{
    storeByTemperature({{"volume", 1}});
    for (const char *name : {"diffusionCoefficient", "fugacity.Dmoles", "logFugacity.DmolFraction"})
        EXPECT_EQ(
            refusal(1,
                    singlePhase({.outputs = Scalar(2), .names = Texts({"volume", name}), .pressures = Column({1, 2})})),
            "Property calculations cannot be performed at multiple conditions if any property has matrix "
            "dimensions");
    EXPECT_EQ(calculations(), 0u);
}

TEST_F(SinglePhaseResults, OfSeveralNamesComeFromOneCallPerCondition)
{
    storeByTemperature({{"volume", 1}, {"fugacity", 2}, {"viscosity.Dtemperature", 1}});
    const CallResult result =
        mustReturn(1, singlePhase({.outputs = Scalar(3),
                                   .names = Texts({"viscosity.Dtemperature", "volume", "fugacity"}),
                                   .temperatures = Column({300, 310})}));
    EXPECT_EQ(result[0].dimensions(), (std::vector<std::size_t>{3, 1}));
    EXPECT_EQ(result[0].cellMatrix(0), (Rows{{300}, {310}}));
    EXPECT_EQ(result[0].cellMatrix(1), (Rows{{300}, {310}}));
    EXPECT_EQ(result[0].cellMatrix(2), (Rows{{300, 300.1}, {310, 310.1}}));
    EXPECT_EQ(calculations(), 2u);
    EXPECT_EQ(seen[0].properties, Names({"viscosity.Dtemperature", "volume", "fugacity"}));
    EXPECT_EQ(seen[1].properties, seen[0].properties);
}

TEST_F(SinglePhaseResults, TakeTwoNamesFromOneStringWithABlankBetweenThem)
{
    storeByTemperature({{"volume", 1}, {"enthalpy", 1}});
    EXPECT_EQ(mustReturn(1, singlePhase({.outputs = Scalar(2), .names = Text("  enthalpy   volume ")}))[0].count(), 2u);
    EXPECT_EQ(seen[0].properties, Names({"enthalpy", "volume"}));
    mustReturn(1, singlePhase({.outputs = Scalar(3), .names = Texts({"enthalpy volume", "volume"})}));
    EXPECT_EQ(seen[1].properties, Names({"enthalpy", "volume", "volume"}));
}

TEST_F(SinglePhaseResults, AreCutToTheRequestedOutputs)
{
    storeByTemperature({{"volume", 1}, {"enthalpy", 1}});
    const Array names = Texts({"volume", "enthalpy", "viscosity"});
    EXPECT_EQ(mustReturn(1, singlePhase({.outputs = Scalar(2), .names = names}))[0].count(), 2u);
    EXPECT_EQ(seen[0].properties, Names({"volume", "enthalpy"}));
}

TEST_F(SinglePhaseResults, AreThoseOfTheFirstNameWhenNoOutputIsRequested)
{
    storeByTemperature({{"volume", 1}});
    const CallResult result =
        mustReturn(1, singlePhase({.outputs = Scalar(0), .names = Texts({"volume", "enthalpy", "noSuchProperty"})}));
    EXPECT_EQ(result[0].cellMatrix(0), (Rows{{300}}));
    EXPECT_EQ(result[0].count(), 1u);
    EXPECT_EQ(seen[0].properties, Names({"volume"}));
}

TEST_F(SinglePhaseResults, OfNoNamesAreACellOfNoRowsAfterEmptyCalculations)
{
    storeByTemperature({});
    for (const Array &names : {Text("   "), EmptyText(), EmptyCell()}) {
        const CallResult result =
            mustReturn(1, singlePhase({.outputs = Scalar(0), .names = names, .pressures = Column({1, 2})}));
        EXPECT_EQ(result[0].classId(), mxCELL_CLASS);
        EXPECT_EQ(result[0].dimensions(), (std::vector<std::size_t>{0, 1}));
    }
    EXPECT_EQ(calculations(), 6u);
    EXPECT_EQ(seen.back().properties, std::vector<WideString>());
}

TEST_F(SinglePhaseResults, OfNamesInAnyCaseAreFoundAndThePackageGetsThemAsWritten)
{
    storeByTemperature({{"volume", 1}});
    EXPECT_EQ(mustReturn(1, singlePhase({.names = Text("VoLuMe")}))[0].cellMatrix(0), (Rows{{300}}));
    EXPECT_EQ(seen[0].properties, Names({"VoLuMe"}));
}

TEST_F(SinglePhaseResults, AreOfThePhaseInAnyCaseAndThePackageGetsTheLabelAsTyped)
{
    storeByTemperature({{"volume", 1}});
    EXPECT_EQ(mustReturn(1, singlePhase({.phase = Text("lIQUID")}))[0].cellMatrix(0), (Rows{{300}}));
    EXPECT_EQ(seen[0].phase, Wide("lIQUID"));
}

TEST_F(SinglePhaseResults, OfTwoPhasesWithOneNameAreOfTheFirst)
{
    package.phaseLabels = TextArray({"Vapor", "vapor"});
    package.calcSinglePhase = StoreSinglePhase({{"volume", "mole", {3}}});
    EXPECT_EQ(mustReturn(1, singlePhase({.phase = Text("VAPOR")}))[0].cellMatrix(0), (Rows{{3}}));
}

TEST_F(SinglePhaseResults, ComeForCompositionsThatAreNoFractions)
{
    storeByTemperature({{"volume", 1}});
    mustReturn(1, singlePhase({.compositions = Matrix({{2, 3}, {-1, 0}, {0, 0}})}));
    ASSERT_EQ(seen.size(), 3u);
    EXPECT_EQ(seen[0].conditions.composition, (std::vector<double>{2, 3}));
    EXPECT_EQ(seen[1].conditions.composition, (std::vector<double>{-1, 0}));
    EXPECT_EQ(seen[2].conditions.composition, (std::vector<double>{0, 0}));
}

TEST_F(SinglePhaseResults, MayBeNaNOrInfinite)
{
    const double infinity = std::numeric_limits<double>::infinity();
    package.calcSinglePhase =
        StoreSinglePhase({{"fugacity", "", {notANumber, undefinedNumber}}, {"logFugacity", "", {infinity, -0.0}}});
    const CallResult result = mustReturn(1, singlePhase({.outputs = Scalar(2), .names = Text("fugacity logFugacity")}));
    const std::vector<double> fugacity = result[0].element(0).numbers();
    EXPECT_TRUE(std::isnan(fugacity.at(0)));
    EXPECT_EQ(fugacity.at(1), undefinedNumber);
    const std::vector<double> logarithm = result[0].element(1).numbers();
    EXPECT_EQ(logarithm.at(0), infinity);
    EXPECT_TRUE(std::signbit(logarithm.at(1)));
}

TEST_F(SinglePhaseResults, MissingConditionsReachThePackageAsNotSet)
{
    std::vector<WideString> reasons;
    package.calcSinglePhase = [&](const SinglePhaseCall &request) {
        Conditions conditions;
        EXPECT_EQ(request.material.getConditions(request.phase, conditions), CapeFailure(0x01));
        reasons.push_back(request.material.lastRefusal().description);
        return request.material.setSinglePhase("volume", request.phase, "mole", {1});
    };
    mustReturn(1, singlePhase({.temperatures = Scalar(notANumber)}));
    mustReturn(1, singlePhase({.temperatures = Scalar(undefinedNumber)}));
    mustReturn(1, singlePhase({.pressures = Scalar(undefinedNumber)}));
    mustReturn(1, singlePhase({.compositions = Row({0.5, undefinedNumber})}));
    EXPECT_EQ(reasons, Names({"Temperature is not set", "Temperature is not set", "Pressure is not set",
                              "One or more missing values for composition"}));
}
