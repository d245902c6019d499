// What a package gets to see when command 24 asks it for an equilibrium.
#include "tests/support/package_test.h"

#include <limits>

using namespace support;

namespace {

class FlashConstraints : public PackageTest {
protected:
    using Look = std::function<void(const EquilibriumCall &)>;

    // Calls command 24 and looks at what the package sees; the package finds no phase.
    CallResult flashAndLook(const FlashInput &input, const Look &look)
    {
        package.calcEquilibrium = [look](const EquilibriumCall &request) {
            look(request);
            return request.material.setPresentPhases({});
        };
        const CallResult result = mustReturn(5, flash(input));
        package.calcEquilibrium = nullptr;
        return result;
    }
};

// The basis of a specification is not there: a null string, not an empty one.
bool hasNullBasis(const VARIANT &specification)
{
    LONG position = 1;
    BSTR basis = nullptr;
    EXPECT_EQ(SafeArrayGetElement(specification.parray, &position, &basis), S_OK);
    const bool isNull = basis == nullptr;
    SysFreeString(basis);
    return isNull;
}

} // namespace

TEST_F(FlashConstraints, OfTemperatureAndPressureAreSentInOneSpelling)
{
    for (const char *temperature : {"Temperature", "temperature", "TEMPERATURE"})
        for (const char *pressure : {"Pressure", "pRESSURE"})
            flashAndLook({.property1 = Text(temperature), .property2 = Text(pressure)},
                         [](const EquilibriumCall &request) {
                             EXPECT_EQ(request.specification1, Names({"Temperature", "", "Overall"}));
                             EXPECT_EQ(request.specification2, Names({"Pressure", "", "Overall"}));
                         });
}

TEST_F(FlashConstraints, ButVaporFractionHaveANullBasis)
{
    // An array that held a basis before has none left.
    flashAndLook({.property1 = Text("vaporFraction"), .property2 = Text("vaporFraction")},
                 [](const EquilibriumCall &request) { EXPECT_FALSE(hasNullBasis(request.givenSpecification1)); });
    for (const char *name : {"temperature", "pressure", "entropy"})
        flashAndLook({.property1 = Text(name), .property2 = Text(name)}, [](const EquilibriumCall &request) {
            EXPECT_TRUE(hasNullBasis(request.givenSpecification1));
            EXPECT_TRUE(hasNullBasis(request.givenSpecification2));
        });
}

TEST_F(FlashConstraints, LieInTheMaterial)
{
    Conditions overall;
    const auto look = [&](const EquilibriumCall &request) {
        EXPECT_EQ(request.material.getOverallConditions(overall), S_OK);
    };
    flashAndLook({.value1 = Scalar(321.5), .value2 = Scalar(54321)}, look);
    EXPECT_EQ(overall.temperature, 321.5);
    EXPECT_EQ(overall.pressure, 54321);
    flashAndLook(
        {.property1 = Text("pressure"), .value1 = Scalar(7), .property2 = Text("temperature"), .value2 = Scalar(8)},
        look);
    EXPECT_EQ(overall.temperature, 8);
    EXPECT_EQ(overall.pressure, 7);
}

TEST_F(FlashConstraints, OfVaporFractionAreAPhaseFractionOfTheVapor)
{
    std::vector<double> fraction;
    const auto look = [&](const EquilibriumCall &request) {
        EXPECT_EQ(request.specification1, Names({"Pressure", "", "Overall"}));
        EXPECT_EQ(request.specification2, Names({"phaseFraction", "mole", "Vapor"}));
        EXPECT_EQ(request.material.getSinglePhase("phaseFraction", "Vapor", "mole", fraction), S_OK);
    };
    flashAndLook({.property1 = Text("pressure"), .property2 = Text("VaporFraction"), .value2 = Scalar(0.375)}, look);
    EXPECT_EQ(fraction, (std::vector<double>{0.375}));
}

TEST_F(FlashConstraints, OfVaporFractionAreInTheDefaultBasis)
{
    useBasis("mass");
    std::vector<double> fraction;
    flashAndLook({.property2 = Text("vaporfraction"), .value2 = Scalar(0.375)}, [&](const EquilibriumCall &request) {
        EXPECT_EQ(request.specification2, Names({"phaseFraction", "mass", "Vapor"}));
        EXPECT_EQ(request.material.getSinglePhase("phaseFraction", "Vapor", "mass", fraction), S_OK);
    });
    EXPECT_EQ(fraction, (std::vector<double>{0.375}));
}

TEST_F(FlashConstraints, OfVaporFractionGoToTheFirstPhaseThatIsAVaporWhateverItsLabel)
{
    package.phaseLabels = TextArray({"Water", "Gas", "Vapor"});
    package.statesOfAggregation = TextArray({"Liquid", "vAPOR", "Vapor"});
    flashAndLook({.property1 = Text("vaporFraction"), .value1 = Scalar(0.5)}, [](const EquilibriumCall &request) {
        EXPECT_EQ(request.specification1, Names({"phaseFraction", "mole", "Gas"}));
        std::vector<double> fraction;
        EXPECT_EQ(request.material.getSinglePhase("phaseFraction", "Gas", "mole", fraction), S_OK);
        EXPECT_EQ(fraction, (std::vector<double>{0.5}));
    });
}

TEST_F(FlashConstraints, OfOtherPropertiesAreOverallValuesUnderTheNameAsTyped)
{
    std::vector<double> enthalpy, entropy;
    flashAndLook(
        {.property1 = Text("ENTHALPY"), .value1 = Scalar(-1234.5), .property2 = Text("entropy"), .value2 = Scalar(-7)},
        [&](const EquilibriumCall &request) {
            EXPECT_EQ(request.specification1, Names({"ENTHALPY", "", "Overall"}));
            EXPECT_EQ(request.specification2, Names({"entropy", "", "Overall"}));
            EXPECT_EQ(request.material.getOverall("enthalpy", "mole", enthalpy), S_OK);
            EXPECT_EQ(request.material.getOverall("entropy", "mole", entropy), S_OK);
        });
    EXPECT_EQ(enthalpy, (std::vector<double>{-1234.5}));
    EXPECT_EQ(entropy, (std::vector<double>{-7}));
}

TEST_F(FlashConstraints, OfOtherPropertiesAreInTheDefaultBasis)
{
    std::vector<double> perMole, perMass;
    const auto look = [&](const EquilibriumCall &request) {
        EXPECT_EQ(request.material.getOverall("enthalpy", "mole", perMole), S_OK);
        EXPECT_EQ(request.material.getOverall("enthalpy", "mass", perMass), S_OK);
    };
    // Equal moles of 18 and 36 g/mol: 0.027 kg/mol
    flashAndLook({.property1 = Text("enthalpy"), .value1 = Scalar(2700)}, look);
    EXPECT_EQ(perMole, (std::vector<double>{2700}));
    ExpectNear({perMass}, {{100000}});
    // Equal masses: 0.024 kg/mol
    useBasis("mass");
    flashAndLook({.property1 = Text("enthalpy"), .value1 = Scalar(100000)}, look);
    EXPECT_EQ(perMass, (std::vector<double>{100000}));
    ExpectNear({perMole}, {{2400}});
}

TEST_F(FlashConstraints, MayBeTheSameTwice)
{
    Conditions overall;
    flashAndLook({.property2 = Text("temperature"), .value2 = Scalar(350)}, [&](const EquilibriumCall &request) {
        EXPECT_EQ(request.specification1, Names({"Temperature", "", "Overall"}));
        EXPECT_EQ(request.specification2, request.specification1);
        // No pressure was ever set.
        EXPECT_EQ(request.material.getOverallConditions(overall), CapeFailure(0x01));
        EXPECT_EQ(request.material.lastRefusal().description, Wide("Pressure is not set"));
        std::vector<double> temperature;
        EXPECT_EQ(request.material.getOverall("temperature", "", temperature), S_OK);
        EXPECT_EQ(temperature, (std::vector<double>{350}));
    });
}

TEST_F(FlashConstraints, MayBeAnything)
{
    for (double value : {-1.0, 0.0, std::numeric_limits<double>::infinity(), notANumber, undefinedNumber})
        flashAndLook({.property1 = Text("vaporFraction"), .value1 = Scalar(value)}, [](const EquilibriumCall &) {});
    EXPECT_EQ(package.calls("CalcEquilibrium"), 5);
}

TEST_F(FlashConstraints, ThatAreMissingTakeAwayWhatWasSet)
{
    for (double missing : {notANumber, undefinedNumber}) {
        flashAndLook({}, [](const EquilibriumCall &) {});
        flashAndLook({.value1 = Scalar(missing)}, [](const EquilibriumCall &request) {
            std::vector<double> temperature;
            EXPECT_TRUE(FAILED(request.material.getOverall("temperature", "", temperature)));
            EXPECT_EQ(request.material.lastRefusal().description, Wide("Temperature is not set"));
        });
    }
}

TEST_F(FlashConstraints, AreReplacedInTheNextFlash)
{
    flashAndLook({.property1 = Text("vaporFraction"), .property2 = Text("volume")}, [](const EquilibriumCall &) {});
    flashAndLook({}, [](const EquilibriumCall &request) {
        EXPECT_EQ(request.specification1, Names({"Temperature", "", "Overall"}));
        EXPECT_EQ(request.specification2, Names({"Pressure", "", "Overall"}));
    });
}

TEST_F(FlashConstraints, StayInTheMaterialAfterTheCall)
{
    flashAndLook({.property1 = Text("enthalpy"), .value1 = Scalar(5)}, [](const EquilibriumCall &) {});
    std::vector<double> enthalpy;
    flashAndLook({}, [&](const EquilibriumCall &request) {
        EXPECT_EQ(request.material.getOverall("enthalpy", "mole", enthalpy), S_OK);
    });
    EXPECT_EQ(enthalpy, (std::vector<double>{5}));
}

TEST_F(FlashConstraints, InFrontOfARefusedArgumentLieInTheMaterialAlready)
{
    useBasis("mass");
    const auto refuse = [this](FlashInput input, const char *message) {
        input.composition = Row({0.2, 0.8});
        EXPECT_EQ(refusal(5, flash(input)), message);
    };
    // Each of these is refused behind the composition; the first only in front of all constraints.
    refuse({.property1 = Scalar(1)}, "Expected string value for property 1");
    ASSERT_TRUE(package.material);
    const MaterialClient material(package.material.get());
    std::vector<WideString> present;
    std::vector<LONG> status;
    EXPECT_EQ(material.getPresentPhases(present, status), S_OK);
    EXPECT_EQ(present, Names({"Vapor", "Liquid"}));
    std::vector<double> values;
    EXPECT_EQ(material.getOverall("fraction", "mass", values), S_OK);
    EXPECT_EQ(values, (std::vector<double>{0.2, 0.8}));
    EXPECT_TRUE(FAILED(material.getOverall("temperature", "", values)));

    refuse({.value1 = Scalar(311), .property2 = Scalar(1)}, "Expected string value for property 2");
    EXPECT_EQ(material.getOverall("temperature", "", values), S_OK);
    EXPECT_EQ(values, (std::vector<double>{311}));

    refuse({.property1 = Text("enthalpy"), .value1 = Scalar(5), .value2 = Scalar(7), .solutionType = Scalar(1)},
           "Expected string value for solution type");
    EXPECT_EQ(material.getOverall("enthalpy", "mass", values), S_OK);
    EXPECT_EQ(values, (std::vector<double>{5}));
    EXPECT_EQ(material.getOverall("pressure", "", values), S_OK);
    EXPECT_EQ(values, (std::vector<double>{7}));
}

TEST_F(FlashConstraints, BehindARefusedValueLeaveTheMaterialAlone)
{
    flashAndLook({}, [](const EquilibriumCall &) {});
    EXPECT_EQ(refusal(5, flash({.value1 = Scalar(311), .value2 = Empty()})),
              "Invalid number of values for value 2: scalar expected");
    const MaterialClient material(package.material.get());
    std::vector<WideString> present;
    std::vector<LONG> status;
    EXPECT_EQ(material.getPresentPhases(present, status), S_OK);
    EXPECT_EQ(present, Names({})); // as the flash has left it
    std::vector<double> temperature;
    EXPECT_EQ(material.getOverall("temperature", "", temperature), S_OK);
    EXPECT_EQ(temperature, (std::vector<double>{300}));
}

TEST_F(FlashConstraints, TakeTheBasisOfTheLastFlash)
{
    flashAndLook({.property1 = Text("enthalpy"), .value1 = Scalar(5)}, [](const EquilibriumCall &) {});
    useBasis("mass");
    std::vector<double> enthalpy;
    flashAndLook({.property1 = Text("Enthalpy"), .value1 = Scalar(6)}, [&](const EquilibriumCall &request) {
        EXPECT_EQ(request.material.getOverall("enthalpy", "mass", enthalpy), S_OK);
    });
    EXPECT_EQ(enthalpy, (std::vector<double>{6}));
}

TEST_F(FlashConstraints, StartFromTheTemperatureOfTheCallBefore)
{
    package.calcSinglePhase = StoreSinglePhase({{"volume", "mole", {1}}});
    mustReturn(1, singlePhase({.temperatures = Column({300, 777})}));
    Conditions overall;
    const CallResult result =
        flashAndLook({.property1 = Text("vaporFraction"), .value1 = Scalar(0)}, [&](const EquilibriumCall &request) {
            EXPECT_EQ(request.material.getOverallConditions(overall), S_OK);
        });
    EXPECT_EQ(overall.temperature, 777);
    EXPECT_EQ(result[3].number(), 777);
}

TEST_F(FlashConstraints, ComeWithAllPhasesPresentAndTheCompositionAsGiven)
{
    std::vector<WideString> present;
    Conditions overall;
    const auto look = [&](const EquilibriumCall &request) {
        std::vector<LONG> status;
        EXPECT_EQ(request.material.getPresentPhases(present, status), S_OK);
        EXPECT_EQ(request.material.getOverallConditions(overall), S_OK);
    };
    for (int i = 0; i < 2; ++i) { // the flash before has left no phase
        flashAndLook({.composition = Row({3, -1})}, look);
        EXPECT_EQ(present, Names({"Vapor", "Liquid"}));
        EXPECT_EQ(overall.composition, (std::vector<double>{3, -1}));
    }
    useBasis("mass");
    flashAndLook({.composition = Row({0.5, 0.5})}, look);
    ExpectNear({overall.composition}, {{2.0 / 3, 1.0 / 3}});
}

TEST_F(FlashConstraints, ComeWithTheSolutionTypeAsTyped)
{
    for (const char *solutionType : {"Unspecified", "nORMAL", "", "anything at all"}) {
        WideString seen;
        flashAndLook({.solutionType = Text(solutionType)},
                     [&](const EquilibriumCall &request) { seen = request.solutionType; });
        EXPECT_EQ(seen, Wide(solutionType));
    }
}

TEST_F(FlashConstraints, AreNotCheckedWithThePackageBeforehand)
{
    flashAndLook({}, [](const EquilibriumCall &) {});
    EXPECT_EQ(package.calls("CheckEquilibriumSpec"), 0);
    EXPECT_EQ(package.calls("CalcEquilibrium"), 1);
}
