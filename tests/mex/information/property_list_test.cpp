// Commands 10 to 15: the properties that a package lists, as far as the vocabulary knows them.
#include "tests/support/package_test.h"

using namespace support;

namespace {

struct ListCommand {
    friend void PrintTo(const ListCommand &command, std::ostream *stream) { *stream << command.code; }

    int code;
    const char *method;
    Variant PackageScript::*list;
    const IID *iid;                    // of the interface with the method
    std::vector<const char *> offered; // by the package
    std::vector<const char *> known;   // what is left of it
};

// Names in other case than the vocabulary's, names of the other tables, derivatives that a kind
// allows and those that it does not.
const ListCommand listCommands[] = {
    {10,
     "GetConstPropList",
     &PackageScript::constantProperties,
     &InterfaceId<ICapeThermoCompounds>,
     {"MOLECULARWEIGHT", "inventedConstant", "criticalVolume", "density", "criticalVolume.Dtemperature",
      "chemicalFormula", "triplePointTemperature", "triplePointTemperature ", "criticalVolume"},
     {"MOLECULARWEIGHT", "criticalVolume", "chemicalFormula", "triplePointTemperature ", "criticalVolume"}},
    {11,
     "GetTDependentPropList",
     &PackageScript::temperatureDependentProperties,
     &InterfaceId<ICapeThermoCompounds>,
     {"viscosityOfVapor", "vaporpressure", "surfaceTension", "vaporPressure.dTEMPERATURE", "vaporPressure.Dpressure",
      "surfaceTensionSatLiquid"},
     {"viscosityOfVapor", "vaporpressure", "vaporPressure.dTEMPERATURE", "surfaceTensionSatLiquid"}},
    {12,
     "GetPDependentPropList",
     &PackageScript::pressureDependentProperties,
     &InterfaceId<ICapeThermoCompounds>,
     {"vaporPressure", "meltingTemperature.Dpressure", "BoilingPointTemperature", "meltingTemperature.DmolFraction"},
     {"meltingTemperature.Dpressure", "BoilingPointTemperature"}},
    {13,
     "GetSinglePhasePropList",
     &PackageScript::singlePhaseProperties,
     &InterfaceId<ICapeThermoPropertyRoutine>,
     {"volume", "kvalue", "Enthalpy", "enthalpy.Dtemperature", "enthalpy.Dfoo", "enthalpy.", "fugacity.Dmoles",
      "diffusionCoefficient.Dmoles", "", "density"},
     {"volume", "Enthalpy", "enthalpy.Dtemperature", "fugacity.Dmoles", "density"}},
    {14,
     "GetTwoPhasePropList",
     &PackageScript::twoPhaseProperties,
     &InterfaceId<ICapeThermoPropertyRoutine>,
     {"surfaceTension", "volume", "KVALUE", "logKvalue.DmolFraction"},
     {"surfaceTension", "KVALUE", "logKvalue.DmolFraction"}},
    {15,
     "GetSinglePhasePropList",
     &PackageScript::singlePhaseProperties,
     &InterfaceId<ICapeThermoPropertyRoutine>,
     {"volume", "kvalue", "Enthalpy", "enthalpy.Dtemperature", "density", "entropyNF", "enthalpy.Dmoles"},
     {"Temperature", "Pressure", "vaporFraction", "volume", "Enthalpy", "entropyNF"}},
};

class PropertyList : public PackageTest, public testing::WithParamInterface<ListCommand> {
protected:
    const ListCommand &command() const { return GetParam(); }
    Variant &list() { return package.*command().list; }
    CallResult listed() { return mustReturn(1, {Scalar(command().code), handle}); }
    std::string refusedList() { return refusal(1, {Scalar(command().code), handle}); }
    std::string failed() const { return std::string(command().method) + " failed: "; }
    std::string invalid() const { return std::string("Invalid result from ") + command().method + ": "; }

    // What a package that lists nothing has.
    std::vector<WideString> nothing() const
    {
        return command().code == 15 ? Names({"Temperature", "Pressure", "vaporFraction"}) : Names({});
    }
};

std::vector<WideString> wide(const std::vector<const char *> &texts)
{
    std::vector<WideString> names;
    for (const char *text : texts)
        names.push_back(Wide(text));
    return names;
}

} // namespace

TEST_P(PropertyList, KeepsTheKnownNamesInThePackagesOrderAndSpellingWithoutAWarning)
{
    list() = TextArray(wide(command().offered));
    const CallResult result = listed();
    EXPECT_EQ(result[0].texts(), wide(command().known));
    EXPECT_EQ(result.warnings, std::vector<std::string>());
}

TEST_P(PropertyList, IsAskedForAtEveryCall)
{
    listed();
    list() = TextArray(wide(command().offered), 1);
    EXPECT_EQ(listed()[0].texts(), wide(command().known));
    EXPECT_EQ(package.calls(command().method), 2);
    EXPECT_EQ(package.calls("GetCompoundList"), command().code <= 12 ? 1 : 0);
    EXPECT_EQ(package.calls("GetPhaseList"), 0);
    EXPECT_EQ(package.references(*command().iid), 1);
}

TEST_P(PropertyList, IsReadFromANegativeLowerBound)
{
    list() = TextArray(wide(command().offered), -3);
    EXPECT_EQ(listed()[0].texts(), wide(command().known));
}

TEST_P(PropertyList, MayBeEmpty)
{
    list() = Variant();
    EXPECT_EQ(listed()[0].texts(), nothing());
    list() = TextArray({});
    EXPECT_EQ(listed()[0].texts(), nothing());
}

TEST_P(PropertyList, DropsNullTexts)
{
    list() = BlankArray(VT_BSTR, 3);
    EXPECT_EQ(listed()[0].texts(), nothing());
}

TEST_P(PropertyList, ThatIsNoListOfTextsIsRefused)
{
    Variant texts = TextArray({"volume"});
    Variant reference;
    reference.value = ByReference(texts);
    for (const Variant &lie : {NumberArray({1, 2}), ArrayOfVariants({TextVariant("volume")}), LongArray({1}),
                               TextVariant("volume"), RealVariant(1), reference}) {
        list() = lie;
        EXPECT_EQ(refusedList(), invalid() + "Expected an array of type string");
    }
    list() = TwoDimensionalArray(VT_BSTR, 2, 1);
    EXPECT_EQ(refusedList(), invalid() + "unexpected dimension; 1-dimensional array expected");
    list() = TextArray(wide(command().offered));
    EXPECT_EQ(listed()[0].texts(), wide(command().known));
}

TEST_P(PropertyList, ThatThePackageRefusesIsToldInItsWords)
{
    package.answer(command().method, CapeFailure(0x08));
    package.words = Description("not in this edition, 100% sure");
    package.words.onlyFrom = command().iid;
    EXPECT_EQ(refusedList(), failed() + "not in this edition, 100% sure");
    package.words = ErrorName("ECapeImplementation");
    package.words.onlyFrom = command().iid;
    EXPECT_EQ(refusedList(), failed() + "ECapeImplementation");
    package.words = ErrorWords();
    EXPECT_EQ(refusedList(), failed() + "current implementation related error");
    package.answer(command().method, oddFailure);
    EXPECT_EQ(refusedList(), failed() + oddFailureText);
    package.answer(command().method, S_FALSE);
    list() = TextArray(wide(command().offered));
    EXPECT_EQ(listed()[0].texts(), wide(command().known));
}

TEST_P(PropertyList, NeedsWhatIsLoadedFirst)
{
    package.refuse(*command().iid, oddFailure);
    EXPECT_EQ(refusedList(),
              std::string(command().code <= 12 ? "Failed to get ICompounds interface from property package: "
                                               : "Failed to get ICapeThermoEquilibriumRoutine interface from property "
                                                 "package: ") +
                  oddFailureText);
    EXPECT_EQ(package.calls(command().method), 0);
}

INSTANTIATE_TEST_SUITE_P(OfCommand, PropertyList, testing::ValuesIn(listCommands),
                         [](const auto &info) { return std::to_string(info.param.code); });

namespace {
class FlashSpecifications : public MexTest {};
} // namespace

TEST_F(FlashSpecifications, AreTheTenPropertiesThatMixAmongAllOfThePhases)
{
    world.addPackage("Alone").singlePhaseProperties = TextArray({"activity",
                                                                 "activityCoefficient",
                                                                 "compressibility",
                                                                 "compressibilityFactor",
                                                                 "density",
                                                                 "diffusionCoefficient",
                                                                 "dissociationConstant",
                                                                 "enthalpy",
                                                                 "enthalpyF",
                                                                 "enthalpyNF",
                                                                 "entropy",
                                                                 "entropyF",
                                                                 "entropyNF",
                                                                 "excessEnthalpy",
                                                                 "excessEntropy",
                                                                 "excessGibbsEnergy",
                                                                 "excessHelmholtzEnergy",
                                                                 "excessInternalEnergy",
                                                                 "excessVolume",
                                                                 "fugacity",
                                                                 "fugacityCoefficient",
                                                                 "gibbsEnergy",
                                                                 "heatCapacityCp",
                                                                 "heatCapacityCv",
                                                                 "helmholtzEnergy",
                                                                 "internalEnergy",
                                                                 "jouleThomsonCoefficient",
                                                                 "logFugacity",
                                                                 "logFugacityCoefficient",
                                                                 "meanActivityCoefficient",
                                                                 "molecularWeight",
                                                                 "osmoticCoefficient",
                                                                 "pH",
                                                                 "pOH",
                                                                 "speedOfSound",
                                                                 "thermalConductivity",
                                                                 "viscosity",
                                                                 "volume"});
    const Array handle = open("Alone");
    EXPECT_EQ(mustReturn(1, {Scalar(13), handle})[0].count(), 38u);
    EXPECT_EQ(mustReturn(1, {Scalar(15), handle})[0].texts(),
              Names({"Temperature", "Pressure", "vaporFraction", "enthalpy", "enthalpyF", "enthalpyNF", "entropy",
                     "entropyF", "entropyNF", "gibbsEnergy", "helmholtzEnergy", "internalEnergy", "volume"}));
}
