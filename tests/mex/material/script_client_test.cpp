// The system's own objects as a script uses them: by the names of members, through IDispatch alone. It works from the
// registered type libraries.
#include "tests/support/package_test.h"

#include "material/imaterial.h"

#include <algorithm>

using namespace support;

namespace {

constexpr HRESULT refusedToScript = CapeFailure(0x01);

// What a call by name gave.
struct Outcome {
    HRESULT result = E_UNEXPECTED;
    HRESULT exception = S_OK; // the member's own result, when it failed
    Variant value;
};

// A script's view of one interface.
class ScriptObject {
public:
    explicit ScriptObject(IDispatch *borrowed) : object(borrowed) {}

    HRESULT idOf(AnyText name, DISPID &id) const
    {
        LPOLESTR names[] = {name.wide.data()};
        return object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
    }

    Outcome call(AnyText name, const std::vector<Variant> &arguments = {}) const
    {
        return invoke(name, DISPATCH_METHOD, arguments, false);
    }
    Outcome get(AnyText name) const { return invoke(name, DISPATCH_PROPERTYGET, {}, false); }
    Outcome put(AnyText name, const Variant &value) const { return invoke(name, DISPATCH_PROPERTYPUT, {value}, true); }

private:
    Outcome invoke(const AnyText &name, WORD kind, const std::vector<Variant> &arguments, bool isPut) const
    {
        Outcome outcome;
        DISPID id = DISPID_UNKNOWN;
        outcome.result = idOf(name, id);
        if (FAILED(outcome.result))
            return outcome;
        std::vector<VARIANTARG> reversed; // borrowed
        for (const Variant &argument : arguments)
            reversed.insert(reversed.begin(), argument.value);
        DISPID putId = DISPID_PROPERTYPUT;
        DISPPARAMS parameters = {reversed.data(), isPut ? &putId : nullptr, static_cast<UINT>(reversed.size()),
                                 isPut ? 1u : 0u};
        EXCEPINFO exception = {};
        outcome.result = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                                        isPut ? nullptr : &outcome.value.value, &exception, nullptr);
        outcome.exception = exception.scode;
        SysFreeString(exception.bstrSource);
        SysFreeString(exception.bstrDescription);
        SysFreeString(exception.bstrHelpFile);
        return outcome;
    }

    IDispatch *object;
};

// A variable of the script, for a parameter that the member fills.
Variant variable(Variant &target)
{
    Variant reference;
    reference.value.vt = VT_BYREF | VT_VARIANT;
    reference.value.pvarVal = &target.value;
    return reference;
}

Variant variable(double &target)
{
    Variant reference;
    reference.value.vt = VT_BYREF | VT_R8;
    reference.value.pdblVal = &target;
    return reference;
}

WideString textOf(const Outcome &outcome)
{
    EXPECT_EQ(outcome.result, S_OK);
    EXPECT_EQ(outcome.value.value.vt, VT_BSTR);
    return outcome.value.value.vt == VT_BSTR ? TextOf(outcome.value.value.bstrVal) : WideString();
}

LONG longOf(const Outcome &outcome)
{
    EXPECT_EQ(outcome.result, S_OK);
    EXPECT_EQ(outcome.value.value.vt, VT_I4);
    return outcome.value.value.lVal;
}

void expectException(const Outcome &outcome, HRESULT result)
{
    EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
    EXPECT_EQ(outcome.exception, result);
}

template <class Interface> void expectTypeInformation(IUnknown *object)
{
    ComPointer<Interface> facet;
    ASSERT_EQ(facet.queryFrom(object), S_OK);
    UINT count = 7;
    EXPECT_EQ(facet->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1u);
    EXPECT_EQ(facet->GetTypeInfoCount(nullptr), E_POINTER);

    ComPointer<ITypeInfo> information;
    ASSERT_EQ(facet->GetTypeInfo(0, LOCALE_USER_DEFAULT, information.out()), S_OK);
    TYPEATTR *attributes = nullptr;
    ASSERT_EQ(information->GetTypeAttr(&attributes), S_OK);
    EXPECT_TRUE(attributes->guid == InterfaceId<Interface>);
    information->ReleaseTypeAttr(attributes);
    ComPointer<ITypeInfo> again;
    EXPECT_EQ(facet->GetTypeInfo(0, LOCALE_USER_DEFAULT, again.out()), S_OK);
    EXPECT_EQ(again.get(), information.get()) << "it is kept";

    ITypeInfo *none = information.get();
    EXPECT_EQ(facet->GetTypeInfo(1, LOCALE_USER_DEFAULT, &none), DISP_E_BADINDEX);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(facet->GetTypeInfo(0xFFFFFFFFu, LOCALE_USER_DEFAULT, nullptr), DISP_E_BADINDEX);
    EXPECT_EQ(facet->GetTypeInfo(0, LOCALE_USER_DEFAULT, nullptr), E_POINTER);
}

class ScriptedContext : public PackageTest {
protected:
    void SetUp() override
    {
        PackageTest::SetUp();
        ASSERT_TRUE(package.context);
    }
    IUnknown *context() { return package.context.get(); }
    template <class Interface> ComPointer<Interface> as()
    {
        ComPointer<Interface> facet;
        EXPECT_EQ(facet.queryFrom(context()), S_OK);
        return facet;
    }
};

class ScriptedMaterial : public PackageTest {
protected:
    // Has a package use the material by `script` while it calculates in its vapor phase.
    void whileCalculating(const std::function<void(ICapeThermoMaterial *)> &script)
    {
        bool ran = false;
        package.calcSinglePhase = [&](const SinglePhaseCall &call) {
            script(call.material.get());
            ran = true;
            return call.material.setSinglePhase("volume", "Vapor", "mole", {0.025});
        };
        mustReturn(1, singlePhase({}));
        EXPECT_TRUE(ran);
        package.calcSinglePhase = nullptr;
    }
};

} // namespace

TEST_F(ScriptedContext, HasTypeInformationForEachInterface)
{
    expectTypeInformation<ECapeRoot>(context());
    expectTypeInformation<ECapeUnknown>(context());
    expectTypeInformation<ECapeUser>(context());
    expectTypeInformation<ICapeDiagnostic>(context());
    expectTypeInformation<ICapeIdentification>(context());
    expectTypeInformation<ICapeSimulationContext>(context());
}

TEST_F(ScriptedContext, FindsMembersOfTheInterfaceWhateverTheirCase)
{
    const auto diagnostic = as<ICapeDiagnostic>();
    DISPID id = 0;
    EXPECT_EQ(ScriptObject(diagnostic.get()).idOf("PopUpMessage", id), S_OK);
    EXPECT_EQ(id, 1);
    EXPECT_EQ(ScriptObject(diagnostic.get()).idOf("LOGmessage", id), S_OK);
    EXPECT_EQ(id, 2);
    EXPECT_EQ(ScriptObject(diagnostic.get()).idOf("ComponentName", id), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(ScriptObject(as<ICapeIdentification>().get()).idOf("ComponentName", id), S_OK);
    EXPECT_EQ(id, 1);
}

TEST_F(ScriptedContext, FindsParametersByName)
{
    const auto diagnostic = as<ICapeDiagnostic>();
    WideString member = Wide("LogMessage");
    WideString parameter = Wide("message");
    LPOLESTR names[] = {member.data(), parameter.data()};
    DISPID ids[2] = {-5, -5};
    EXPECT_EQ(diagnostic->GetIDsOfNames(IID_NULL, names, 2, LOCALE_USER_DEFAULT, ids), S_OK);
    EXPECT_EQ(ids[0], 2);
    EXPECT_EQ(ids[1], 0);
}

TEST_F(ScriptedContext, IsReadByName)
{
    const auto identification = as<ICapeIdentification>();
    EXPECT_EQ(textOf(ScriptObject(identification.get()).get("ComponentName")), Wide("Matlab Simulation Context"));
    const auto user = as<ECapeUser>();
    EXPECT_EQ(textOf(ScriptObject(user.get()).get("operation")), Wide("N/A"));
    EXPECT_EQ(longOf(ScriptObject(user.get()).get("code")), 0);
}

TEST_F(ScriptedContext, RefusesAsItDoesToOthersAndTellsWhyByName)
{
    const auto identification = as<ICapeIdentification>();
    expectException(ScriptObject(identification.get()).put("ComponentName", TextVariant("mine")), refusedToScript);
    EXPECT_EQ(textOf(ScriptObject(as<ECapeRoot>().get()).get("name")), Wide("Access denied"));
    const auto user = as<ECapeUser>();
    EXPECT_EQ(textOf(ScriptObject(user.get()).get("description")),
              Wide("Cannot change name of the simulation context"));
    EXPECT_EQ(textOf(ScriptObject(user.get()).get("scope")), Wide("put_ComponentName"));
}

TEST_F(ScriptedContext, LogsByName)
{
    package.calcSinglePhase = [&](const SinglePhaseCall &call) {
        EXPECT_EQ(ScriptObject(as<ICapeDiagnostic>().get()).call("LogMessage", {TextVariant("by script")}).result,
                  S_OK);
        return call.material.setSinglePhase("volume", "Vapor", "mole", {0.025});
    };
    EXPECT_EQ(mustReturn(1, singlePhase({})).warnings, std::vector<std::string>{"CAPE-OPEN: by script"});
}

TEST_F(ScriptedContext, ChecksTheArgumentsOfAScript)
{
    const ScriptObject diagnostic(static_cast<IDispatch *>(as<ICapeDiagnostic>().get())); // the context outlives it
    EXPECT_EQ(diagnostic.call("LogMessage").result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(diagnostic.call("LogMessage", {NumberArray({1})}).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(ScriptObject(as<ICapeIdentification>().get()).call("ComponentName", {TextVariant("a")}).result,
              DISP_E_MEMBERNOTFOUND)
        << "it is no method";
    DISPPARAMS none = {};
    EXPECT_EQ(as<ICapeDiagnostic>()->Invoke(3, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr, nullptr,
                                            nullptr),
              DISP_E_MEMBERNOTFOUND);
}

TEST_F(ScriptedMaterial, HasTypeInformationForEachInterface)
{
    whileCalculating([](ICapeThermoMaterial *material) {
        expectTypeInformation<ECapeRoot>(material);
        expectTypeInformation<ECapeUnknown>(material);
        expectTypeInformation<ECapeUser>(material);
        expectTypeInformation<ICapeIdentification>(material);
        expectTypeInformation<ICapeThermoCompounds>(material);
        expectTypeInformation<ICapeThermoEquilibriumRoutine>(material);
        expectTypeInformation<ICapeThermoMaterial>(material);
        expectTypeInformation<ICapeThermoPhases>(material);
        expectTypeInformation<ICapeThermoPropertyRoutine>(material);
        expectTypeInformation<ICapeThermoUniversalConstant>(material);
        expectTypeInformation<IMaterial>(material);
    });
}

TEST_F(ScriptedMaterial, GivesConditionsToVariablesOfTheScript)
{
    whileCalculating([](ICapeThermoMaterial *material) {
        double temperature = 0;
        double pressure = 0;
        Variant composition;
        const Outcome outcome = ScriptObject(material).call(
            "GetTPFraction", {TextVariant("Vapor"), variable(temperature), variable(pressure), variable(composition)});
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(temperature, 300);
        EXPECT_EQ(pressure, 100000);
        EXPECT_EQ(NumbersOf(composition.value), (std::vector<double>{0.5, 0.5}));
    });
}

TEST_F(ScriptedMaterial, TakesResultsFromTheScriptAndGivesThemBack)
{
    package.calcSinglePhase = [](const SinglePhaseCall &call) {
        const ScriptObject material(call.material.get());
        const Outcome stored = material.call("setsinglephaseprop", {TextVariant("volume"), TextVariant("Vapor"),
                                                                    TextVariant("mole"), NumberArray({0.0625})});
        EXPECT_EQ(stored.result, S_OK);
        Variant values;
        EXPECT_EQ(material
                      .call("GetSinglePhaseProp",
                            {TextVariant("volume"), TextVariant("Vapor"), TextVariant("mole"), variable(values)})
                      .result,
                  S_OK);
        EXPECT_EQ(NumbersOf(values.value), std::vector<double>{0.0625});
        return S_OK;
    };
    EXPECT_EQ(mustReturn(1, singlePhase({}))[0].cellMatrix(0), (Rows{{0.0625}}));
}

TEST_F(ScriptedMaterial, AnswersWhatItHasOfCompoundsAndPhases)
{
    whileCalculating([](ICapeThermoMaterial *material) {
        ComPointer<ICapeThermoCompounds> compounds;
        ASSERT_EQ(compounds.queryFrom(material), S_OK);
        EXPECT_EQ(longOf(ScriptObject(compounds.get()).call("GetNumCompounds")), 2);
        Variant lists[6];
        std::vector<Variant> arguments;
        for (Variant &list : lists)
            arguments.push_back(variable(list));
        EXPECT_EQ(ScriptObject(compounds.get()).call("GetCompoundList", arguments).result, S_OK);
        EXPECT_EQ(TextsOf(lists[0].value), Names({"A", "B"}));
        EXPECT_EQ(NumbersOf(lists[4].value), (std::vector<double>{18, 36}));
        ComPointer<ICapeThermoPhases> phases;
        ASSERT_EQ(phases.queryFrom(material), S_OK);
        EXPECT_EQ(longOf(ScriptObject(phases.get()).call("GetNumPhases")), 2);
    });
}

TEST_F(ScriptedMaterial, RefusesWhatIsNotAMaterialsBusiness)
{
    whileCalculating([](ICapeThermoMaterial *material) {
        ComPointer<ICapeThermoUniversalConstant> constants;
        ASSERT_EQ(constants.queryFrom(material), S_OK);
        expectException(ScriptObject(constants.get()).call("GetUniversalConstant", {TextVariant("molarGasConstant")}),
                        refusedToScript);
        ComPointer<ECapeUser> user;
        ASSERT_EQ(user.queryFrom(material), S_OK);
        EXPECT_EQ(textOf(ScriptObject(user.get()).get("scope")), Wide("GetUniversalConstant"));
    });
}

TEST_F(ScriptedMaterial, MakesAnotherMaterial)
{
    whileCalculating([](ICapeThermoMaterial *material) {
        const Outcome outcome = ScriptObject(material).call("CreateMaterial");
        ASSERT_EQ(outcome.result, S_OK);
        ASSERT_EQ(outcome.value.value.vt, VT_DISPATCH);
        Variant composition;
        EXPECT_EQ(ScriptObject(outcome.value.value.pdispVal)
                      .call("SetOverallProp", {TextVariant("fraction"), TextVariant("mole"), NumberArray({0.25, 0.75})})
                      .result,
                  S_OK);
    });
}

TEST_F(ScriptedMaterial, TellsItsAddressOfThePrivateInterface)
{
    whileCalculating([](ICapeThermoMaterial *material) {
        ComPointer<IMaterial> identity;
        ASSERT_EQ(identity.queryFrom(material), S_OK);
        CMaterialObject *address = nullptr;
        EXPECT_EQ(identity->GetMaterialObject(&address), S_OK);
        const Outcome outcome = ScriptObject(identity.get()).call("GetMaterialObject");
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(outcome.value.value.vt, VT_I8);
        EXPECT_EQ(outcome.value.value.llVal, static_cast<LONGLONG>(reinterpret_cast<std::uintptr_t>(address)));
    });
}
