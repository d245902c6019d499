#include "tests/reference/errors/error_case.h"

#include <cmath>

namespace {

using Host = ErrorHost &;

constexpr const char *manager = "ICapeThermoPropertyPackageManager";
constexpr const char *utilities = "ICapeUtilities";
constexpr const char *context = "ICapeThermoMaterialContext";
constexpr const char *compounds = "ICapeThermoCompounds";
constexpr const char *phases = "ICapeThermoPhases";
constexpr const char *constants = "ICapeThermoUniversalConstant";
constexpr const char *properties = "ICapeThermoPropertyRoutine";
constexpr const char *equilibrium = "ICapeThermoEquilibriumRoutine";

constexpr const char *invalid = "ECapeInvalidArgument";
constexpr const char *bounds = "ECapeOutOfBounds";
constexpr const char *none = "ECapeNoImpl";
constexpr const char *limited = "ECapeLimitedImpl";
constexpr const char *notReady = "ECapeFailedInitialisation";
constexpr const char *unsolved = "ECapeSolvingError";
constexpr const char *order = "ECapeBadInvOrder";
constexpr const char *unavailable = "ECapeThrmPropertyNotAvailable";
constexpr const char *unknown = "ECapeUnknown";

const std::vector<std::string> pair = {"Vapor", "Liquid"};
const std::vector<std::string> givenPressure = {"pressure", "", "Overall"};
const std::vector<std::string> givenFraction = {"phaseFraction", "mole", "Vapor"};

std::vector<std::string> overall(const char *property) { return {property, "", "Overall"}; }

// The material says no to a method, and the call is made.
auto refused(const char *method, HRESULT (*call)(Host))
{
    return [=](Host host) {
        host.material.refused = method;
        return call(host);
    };
}

// The material has a value, and the call is made.
template <class Value> auto having(Value TestMaterial::*member, Value value, HRESULT (*call)(Host))
{
    return [=](Host host) {
        host.material.*member = value;
        return call(host);
    };
}

auto without(HRESULT (*call)(Host))
{
    return [=](Host host) {
        EXPECT_EQ(host.context->UnsetMaterial(), S_OK);
        return call(host);
    };
}

// A flash at a pressure and another value of the material.
auto flashAt(std::vector<std::string> other, double value)
{
    return [=](Host host) {
        const std::string phase = other[2];
        host.material.given["Overall/pressure/"] = 1e5;
        host.material.given[phase + "/" + other[0] + "/" + "mole"] = value;
        return host.flash(givenPressure, other);
    };
}

HRESULT volume(Host host) { return host.ofPhase({"volume"}); }
HRESULT ratio(Host host) { return host.ofPhases({"kvalue"}, pair); }
HRESULT flash(Host host) { return host.flash(); }
HRESULT coefficients(Host host) { return host.lnPhi("Vapor", 250.0, 1e5, {0.25, 0.625, 0.125}); }

// With water and a propanol, a pair that the package has no parameters for.
auto withoutParameters(HRESULT (*calculate)(Host host))
{
    return [=](Host host) {
        host.open("Water and light alcohols", {"ethanol", "water", "1-propanol"});
        return calculate(host);
    };
}

const std::vector<double> negative = {0.5, -0.25, 0.75};
const std::vector<double> tooFew = {0.5, 0.5};

} // namespace

std::vector<ErrorCase> errorCases()
{
    return {
        {"UnknownPackage", manager, "GetPropertyPackage", invalid, 1,
         [](Host host) {
             ComPointer<IDispatch> package;
             host.failed = host.manager.get();
             return host.manager->GetPropertyPackage(Bstr("Sea water").get(), package.out());
         }},

        {"ParametersOfManager", utilities, "get_parameters", none, 0,
         [](Host host) {
             ComPointer<IDispatch> parameters;
             return host.utilitiesOf(host.manager.get())->get_parameters(parameters.out());
         }},
        {"ParametersOfPackage", utilities, "get_parameters", none, 0,
         [](Host host) {
             ComPointer<IDispatch> parameters;
             return host.utilitiesOf(host.compounds.get())->get_parameters(parameters.out());
         }},
        {"EditorOfManager", utilities, "Edit", none, 0,
         [](Host host) { return host.utilitiesOf(host.manager.get())->Edit(); }},
        {"EditorOfPackage", utilities, "Edit", none, 0,
         [](Host host) { return host.utilitiesOf(host.compounds.get())->Edit(); }},
        {"TerminateMeanwhile",
         utilities,
         "Terminate",
         order,
         0,
         [](Host host) { return host.meanwhile([&] { return host.utilitiesOf(host.compounds.get())->Terminate(); }); },
         {},
         "CalcEquilibrium"},

        {"NoMaterial", context, "SetMaterial", invalid, 1,
         [](Host host) { return host.context->SetMaterial(nullptr); }},
        {"OtherObject", context, "SetMaterial", invalid, 1,
         [](Host host) { return host.context->SetMaterial(host.phases.get()); }},
        {"MaterialOfNothing", context, "SetMaterial", notReady, 0, [](Host host) { return host.setMaterialOf({}); }},
        {"MaterialOfUnknown", context, "SetMaterial", notReady, 0,
         [](Host host) {
             return host.setMaterialOf({"methane", "water"});
         }},
        {"MaterialOfTwins", context, "SetMaterial", notReady, 0,
         [](Host host) {
             return host.setMaterialOf({"methane", "methane"});
         }},
        {"SilentMaterial", context, "SetMaterial", notReady, 0,
         refused("GetCompoundList", [](Host host) { return host.setMaterialOf({"methane"}); })},
        {"SetMeanwhile",
         context,
         "SetMaterial",
         order,
         0,
         [](Host host) { return host.meanwhile([&] { return host.setMaterialOf({"methane"}); }); },
         {},
         "CalcEquilibrium"},
        {"UnsetMeanwhile",
         context,
         "UnsetMaterial",
         order,
         0,
         [](Host host) { return host.meanwhile([&] { return host.context->UnsetMaterial(); }); },
         {},
         "CalcEquilibrium"},

        {"NoConstant", compounds, "GetCompoundConstant", invalid, 1,
         [](Host host) { return host.constant({}, {"methane"}); }},
        {"UnknownConstant", compounds, "GetCompoundConstant", limited, 0,
         [](Host host) { return host.constant({"color"}, {"methane"}); }},
        {"UnknownCompound", compounds, "GetCompoundConstant", invalid, 2,
         [](Host host) { return host.constant({"molecularWeight"}, {"water"}); }},
        {"NoCompound", compounds, "GetCompoundConstant", invalid, 2,
         [](Host host) { return host.constant({"molecularWeight"}, {}); }},
        {"UnknownOfTemperature", compounds, "GetTDependentProperty", limited, 0,
         [](Host host) { return host.byTemperature("heatOfSublimation", 150.0); }},
        {"CompoundOfTemperature", compounds, "GetTDependentProperty", invalid, 3,
         [](Host host) { return host.byTemperature("vaporPressure", 150.0, "water"); }},
        {"NoTemperature", compounds, "GetTDependentProperty", invalid, 2,
         [](Host host) { return host.byTemperature("vaporPressure", NAN); }},
        {"NegativeTemperature", compounds, "GetTDependentProperty", bounds, 2,
         [](Host host) { return host.byTemperature("vaporPressure", -5.0); },
         ExpectedBounds{DBL_MIN, DBL_MAX, -5.0, "temperature"}},
        {"AboveCritical", compounds, "GetTDependentProperty", bounds, 2,
         [](Host host) { return host.byTemperature("vaporPressure", 200.0); },
         ExpectedBounds{90.6941, 190.564, 200.0, "temperature"}}, // the triple and the critical point of methane
        {"HardlyBoiling", compounds, "GetTDependentProperty", unavailable, 0, // its vapor pressure is below 0.01 Pa
         [](Host host) { return host.byTemperature("heatOfVaporization", 125.0, "isopentane"); }},
        {"UnknownOfPressure", compounds, "GetPDependentProperty", limited, 0,
         [](Host host) { return host.byPressure("meltingPressure", 1e5); }},
        {"CompoundOfPressure", compounds, "GetPDependentProperty", invalid, 3,
         [](Host host) { return host.byPressure("boilingPointTemperature", 1e5, "water"); }},
        {"NoPressure", compounds, "GetPDependentProperty", invalid, 2,
         [](Host host) { return host.byPressure("boilingPointTemperature", NAN); }},
        {"EndlessPressure", compounds, "GetPDependentProperty", bounds, 2,
         [](Host host) { return host.byPressure("boilingPointTemperature", HUGE_VAL); },
         ExpectedBounds{DBL_MIN, DBL_MAX, HUGE_VAL, "pressure"}},

        {"InformationOnUnknownPhase", phases, "GetPhaseInfo", invalid, 1,
         [](Host host) { return host.phaseInfo("Solid", "StateOfAggregation"); }},
        {"UnknownInformation", phases, "GetPhaseInfo", invalid, 2,
         [](Host host) { return host.phaseInfo("Vapor", "Color"); }},

        {"UnknownUniversalConstant", constants, "GetUniversalConstant", invalid, 1,
         [](Host host) {
             Argument value;
             return as<ICapeThermoUniversalConstant>(host.compounds.get())
                 ->GetUniversalConstant(Bstr("planckConstant").get(), value.out());
         }},

        {"LnPhiWithoutMaterial", properties, "CalcAndGetLnPhi", order, 0, without(coefficients), {}, "SetMaterial"},
        {"LnPhiOfUnknownPhase", properties, "CalcAndGetLnPhi", invalid, 1,
         [](Host host) {
             return host.lnPhi("Solid", 250.0, 1e5, {0.25, 0.625, 0.125});
         }},
        {"LnPhiAtNoTemperature", properties, "CalcAndGetLnPhi", invalid, 2,
         [](Host host) {
             return host.lnPhi("Vapor", NAN, 1e5, {0.25, 0.625, 0.125});
         }},
        {"LnPhiInTheCold", properties, "CalcAndGetLnPhi", bounds, 2,
         [](Host host) {
             return host.lnPhi("Vapor", 4.0, 1e5, {0.25, 0.625, 0.125});
         },
         ExpectedBounds{20.0, 1500.0, 4.0, "temperature"}},
        {"LnPhiAtNoPressure", properties, "CalcAndGetLnPhi", invalid, 3,
         [](Host host) {
             return host.lnPhi("Vapor", 250.0, NAN, {0.25, 0.625, 0.125});
         }},
        {"LnPhiInTheVoid", properties, "CalcAndGetLnPhi", bounds, 3,
         [](Host host) {
             return host.lnPhi("Vapor", 250.0, 0.0, {0.25, 0.625, 0.125});
         },
         ExpectedBounds{0.01, 1e8, 0.0, "pressure"}},
        {"LnPhiOfTooFew", properties, "CalcAndGetLnPhi", invalid, 4,
         [](Host host) { return host.lnPhi("Vapor", 250.0, 1e5, tooFew); }},
        {"LnPhiOfNegative", properties, "CalcAndGetLnPhi", invalid, 4,
         [](Host host) { return host.lnPhi("Vapor", 250.0, 1e5, negative); }},

        {"LnPhiWithoutParameters", properties, "CalcAndGetLnPhi", limited, 0, withoutParameters(coefficients)},

        {"PhaseWithoutMaterial", properties, "CalcSinglePhaseProp", order, 0, without(volume), {}, "SetMaterial"},
        {"NothingOfPhase", properties, "CalcSinglePhaseProp", invalid, 1, [](Host host) { return host.ofPhase({}); }},
        {"UnknownOfPhase", properties, "CalcSinglePhaseProp", limited, 0,
         [](Host host) { return host.ofPhase({"pH"}); }},
        {"UnknownPhase", properties, "CalcSinglePhaseProp", invalid, 2,
         [](Host host) { return host.ofPhase({"volume"}, "Solid"); }},
        {"SilentPhase", properties, "CalcSinglePhaseProp", notReady, 0, refused("GetTPFraction", volume)},
        {"PhaseWithoutTemperature", properties, "CalcSinglePhaseProp", notReady, 0,
         having(&TestMaterial::temperature, double(NAN), volume)},
        {"PhaseWithoutPressure", properties, "CalcSinglePhaseProp", notReady, 0,
         having(&TestMaterial::pressure, double(NAN), volume)},
        {"PhaseOfTooFew", properties, "CalcSinglePhaseProp", notReady, 0,
         having(&TestMaterial::composition, tooFew, volume)},
        {"PhaseOfNegative", properties, "CalcSinglePhaseProp", notReady, 0,
         having(&TestMaterial::composition, negative, volume)},
        {"PhaseInTheHeat", properties, "CalcSinglePhaseProp", bounds, 2,
         having(&TestMaterial::temperature, 2000.0, volume), ExpectedBounds{20.0, 1500.0, 2000.0, "temperature"}},
        {"PhaseWithoutValue", properties, "CalcSinglePhaseProp", unavailable, 0,
         [](Host host) { // a liquid that does not yield to pressure has no speed of sound
             host.open("Water and light alcohols", {"ethanol", "water"});
             return host.ofPhase({"enthalpy", "speedOfSound"}, "Liquid");
         }},
        {"PhaseWithoutParameters", properties, "CalcSinglePhaseProp", limited, 0, withoutParameters(volume)},
        {"PhaseNotTaken", properties, "CalcSinglePhaseProp", unknown, 0, refused("SetSinglePhaseProp", volume)},

        {"PairWithoutMaterial", properties, "CalcTwoPhaseProp", order, 0, without(ratio), {}, "SetMaterial"},
        {"NothingOfPair", properties, "CalcTwoPhaseProp", invalid, 1,
         [](Host host) { return host.ofPhases({}, pair); }},
        {"UnknownOfPair", properties, "CalcTwoPhaseProp", limited, 0,
         [](Host host) { return host.ofPhases({"volume"}, pair); }},
        {"HalfAPair", properties, "CalcTwoPhaseProp", invalid, 2,
         [](Host host) { return host.ofPhases({"kvalue"}, {"Vapor"}); }},
        {"PairWithUnknownPhase", properties, "CalcTwoPhaseProp", invalid, 2,
         [](Host host) {
             return host.ofPhases({"kvalue"}, {"Vapor", "Solid"});
         }},
        {"TwiceTheSamePhase", properties, "CalcTwoPhaseProp", invalid, 2,
         [](Host host) {
             return host.ofPhases({"kvalue"}, {"Vapor", "vapor"});
         }},
        {"SilentPair", properties, "CalcTwoPhaseProp", notReady, 0, refused("GetTPFraction", ratio)},
        {"PairInTheHeat", properties, "CalcTwoPhaseProp", bounds, 2, having(&TestMaterial::temperature, 2000.0, ratio),
         ExpectedBounds{20.0, 1500.0, 2000.0, "temperature"}},
        {"PairApart", properties, "CalcTwoPhaseProp", notReady, 0,
         [](Host host) {
             host.material.ownTemperatures["Liquid"] = 251.0;
             return ratio(host);
         }},
        {"PairWithoutParameters", properties, "CalcTwoPhaseProp", limited, 0, withoutParameters(ratio)},
        {"PairNotTaken", properties, "CalcTwoPhaseProp", unknown, 0, refused("SetTwoPhaseProp", ratio)},

        {"FlashWithoutMaterial", equilibrium, "CalcEquilibrium", order, 0, without(flash), {}, "SetMaterial"},
        {"FirstIsNoSpecification", equilibrium, "CalcEquilibrium", invalid, 1,
         [](Host host) { return host.flash({"temperature"}); }},
        {"SecondIsNoSpecification", equilibrium, "CalcEquilibrium", invalid, 2,
         [](Host host) { return host.flash(givenPressure, {"temperature"}); }},
        {"FractionOfUnknownPhase", equilibrium, "CalcEquilibrium", invalid, 2,
         [](Host host) { return host.flash(givenPressure, overall("phaseFraction")); }},
        {"FractionByVolume", equilibrium, "CalcEquilibrium", invalid, 1,
         [](Host host) {
             return host.flash({"phaseFraction", "volume", "Vapor"});
         }},
        {"FractionOfSecondLiquid", equilibrium, "CalcEquilibrium", limited, 0,
         [](Host host) {
             return host.flash(givenPressure, {"phaseFraction", "mole", "Liquid2"});
         }},
        {"TwiceTheSame", equilibrium, "CalcEquilibrium", invalid, 2,
         [](Host host) { return host.flash(givenPressure, givenPressure); }},
        {"OtherFlash", equilibrium, "CalcEquilibrium", limited, 0,
         [](Host host) { return host.flash(givenPressure, overall("viscosity")); }},
        {"FlashOfAPhase", equilibrium, "CalcEquilibrium", limited, 0,
         [](Host host) {
             return host.flash(givenPressure, {"temperature", "", "Vapor"});
         }},
        {"BothFractions", equilibrium, "CalcEquilibrium", limited, 0,
         [](Host host) {
             return host.flash({"phaseFraction", "mass", "Vapor"}, givenFraction);
         }},
        {"OtherSolution", equilibrium, "CalcEquilibrium", invalid, 3,
         [](Host host) { return host.flash(overall("temperature"), givenPressure, "Any"); }},
        {"FractionOfOnlyPhase", equilibrium, "CalcEquilibrium", invalid, 2,
         having(&TestMaterial::presentPhases, {"Vapor"},
                [](Host host) { return host.flash(givenPressure, givenFraction); })},
        {"SilentPhases", equilibrium, "CalcEquilibrium", notReady, 0, refused("GetPresentPhases", flash)},
        {"NoPhases", equilibrium, "CalcEquilibrium", notReady, 0, having(&TestMaterial::presentPhases, {}, flash)},
        {"PhasesOfOthers", equilibrium, "CalcEquilibrium", notReady, 0,
         having(&TestMaterial::presentPhases, {"Vapor", "Ice"}, flash)},
        {"SilentFeed", equilibrium, "CalcEquilibrium", notReady, 0, refused("GetOverallTPFraction", flash)},
        {"SilentComposition", equilibrium, "CalcEquilibrium", notReady, 0,
         refused("GetOverallProp", [](Host host) { return host.flash(givenPressure, overall("enthalpy")); })},
        {"ValueNotSet", equilibrium, "CalcEquilibrium", notReady, 0,
         [](Host host) { return host.flash(givenPressure, overall("enthalpy")); }},
        {"ValueUndefined", equilibrium, "CalcEquilibrium", notReady, 0, flashAt(overall("enthalpy"), NAN)},
        {"FeedWithoutTemperature", equilibrium, "CalcEquilibrium", notReady, 0,
         having(&TestMaterial::temperature, double(NAN), flash)},
        {"FeedOfTooFew", equilibrium, "CalcEquilibrium", notReady, 0,
         having(&TestMaterial::composition, tooFew, flash)},
        {"FlashInTheVoid", equilibrium, "CalcEquilibrium", bounds, 2, having(&TestMaterial::pressure, -1.0, flash),
         ExpectedBounds{0.01, 1e8, -1.0, "pressure"}},
        {"FlashInTheHeat", equilibrium, "CalcEquilibrium", bounds, 1, having(&TestMaterial::temperature, 2000.0, flash),
         ExpectedBounds{20.0, 1500.0, 2000.0, "temperature"}},
        {"MoreThanAll", equilibrium, "CalcEquilibrium", bounds, 2, flashAt(givenFraction, 1.5),
         ExpectedBounds{0.0, 1.0, 1.5, "phaseFraction"}},
        {"MoreThanAllLiquid", equilibrium, "CalcEquilibrium", bounds, 2,
         flashAt({"phaseFraction", "mole", "Liquid"}, 1.5), ExpectedBounds{0.0, 1.0, 1.5, "phaseFraction"}},
        {"NegativeVolume", equilibrium, "CalcEquilibrium", bounds, 2, flashAt(overall("volume"), -1.0),
         ExpectedBounds{DBL_MIN, DBL_MAX, -1.0, "volume"}},
        {"EndlessEnthalpy", equilibrium, "CalcEquilibrium", bounds, 2, flashAt(overall("enthalpy"), HUGE_VAL),
         ExpectedBounds{-DBL_MAX, DBL_MAX, HUGE_VAL, "enthalpy"}},
        {"NoSuchState", equilibrium, "CalcEquilibrium", unsolved, 0, flashAt(overall("enthalpy"), 1e9)},
        {"FractionOfOneOfTwoLiquids", equilibrium, "CalcEquilibrium", unsolved, 0,
         [](Host host) {
             host.open("Wet gas and hydrocarbons", {"methane", "n-hexane", "water"});
             host.material.presentPhases = {"Vapor", "Liquid", "Liquid2"};
             host.material.given["Overall/temperature/"] = 300.0;
             host.material.given["Liquid/phaseFraction/mole"] = 0.3;
             return host.flash({"temperature", "", "Overall"}, {"phaseFraction", "mole", "Liquid"});
         }},
        {"FourPhases", equilibrium, "CalcEquilibrium", unsolved, 0,
         [](Host host) {
             host.open("All compounds (Peng-Robinson)",
                       {"methanol", "methane", "n-hexane", "water", "ethanol", "acetone"});
             host.material.presentPhases = {"Vapor", "Liquid", "Liquid2"};
             host.material.composition = {0.1178709784227758,  0.14624779314239983, 0.11289359348813231,
                                          0.34054827682191441, 0.2054100942262852,  0.077029263898492323};
             host.material.temperature = 432.58870917105526;
             host.material.pressure = 4342791.9728567665;
             return host.flash();
         }},
        {"FormationUnknown", equilibrium, "CalcEquilibrium", unavailable, 0,
         [](Host host) {
             host.open("All compounds (Peng-Robinson)", {"propane", "R-1234yf"});
             return flashAt(overall("enthalpyF"), 0.0)(host);
         }},
        {"FlashWithoutParameters", equilibrium, "CalcEquilibrium", limited, 0, withoutParameters(flash)},
        {"EquilibriumNotTaken", equilibrium, "CalcEquilibrium", unknown, 0, refused("SetPresentPhases", flash)},
    };
}
