// The methods of a material that have nothing to do with its state.
#include "cape/com/bstr.h"
#include "fuzz/input.h"
#include "fuzz/material/calls.h"
#include "fuzz/material/package_lists.h"
#include "material/imaterial.h"

#include <cstring>

namespace fuzz {

namespace {

struct Questions {
    ComPointer<ICapeThermoCompounds> compounds;
    ComPointer<ICapeThermoPhases> phases;
    ComPointer<ICapeThermoPropertyRoutine> properties;
    ComPointer<ICapeThermoEquilibriumRoutine> equilibria;
    ComPointer<ICapeThermoUniversalConstant> constants;
    ComPointer<ICapeIdentification> identification;

    explicit Questions(IUnknown *material)
    {
        FUZZ_CHECK(compounds.queryFrom(material) == S_OK && phases.queryFrom(material) == S_OK);
        FUZZ_CHECK(properties.queryFrom(material) == S_OK && equilibria.queryFrom(material) == S_OK);
        FUZZ_CHECK(constants.queryFrom(material) == S_OK && identification.queryFrom(material) == S_OK);
    }
};

struct Refusal {
    LPCWSTR method;
    LPCWSTR interfaceName;
};

constexpr Refusal refusals[] = {
    {u"GetCompoundConstant", u"ICapeThermoCompounds"},
    {u"GetConstPropList", u"ICapeThermoCompounds"},
    {u"GetPDependentProperty", u"ICapeThermoCompounds"},
    {u"GetPDependentPropList", u"ICapeThermoCompounds"},
    {u"GetTDependentProperty", u"ICapeThermoCompounds"},
    {u"GetTDependentPropList", u"ICapeThermoCompounds"},
    {u"CalcEquilibrium", u"ICapeThermoEquilibriumRoutine"},
    {u"CheckEquilibriumSpec", u"ICapeThermoEquilibriumRoutine"},
    {u"GetPhaseInfo", u"ICapeThermoPhases"},
    {u"CalcAndGetLnPhi", u"ICapeThermoPropertyRoutine"},
    {u"CalcSinglePhaseProp", u"ICapeThermoPropertyRoutine"},
    {u"CalcTwoPhaseProp", u"ICapeThermoPropertyRoutine"},
    {u"CheckSinglePhasePropSpec", u"ICapeThermoPropertyRoutine"},
    {u"CheckTwoPhasePropSpec", u"ICapeThermoPropertyRoutine"},
    {u"GetSinglePhasePropList", u"ICapeThermoPropertyRoutine"},
    {u"GetTwoPhasePropList", u"ICapeThermoPropertyRoutine"},
    {u"GetUniversalConstant", u"ICapeThermoUniversalConstant"},
    {u"GetUniversalConstantList", u"ICapeThermoUniversalConstant"},
};

HRESULT callRefused(Questions &ask, std::size_t index, const VARIANT &list, BSTR text, VARIANT *result)
{
    VARIANT_BOOL flag = VARIANT_FALSE;
    switch (index) {
    case 0:
        return ask.compounds->GetCompoundConstant(list, list, result);
    case 1:
        return ask.compounds->GetConstPropList(result);
    case 2:
        return ask.compounds->GetPDependentProperty(list, 1, list, result);
    case 3:
        return ask.compounds->GetPDependentPropList(result);
    case 4:
        return ask.compounds->GetTDependentProperty(list, 1, list, result);
    case 5:
        return ask.compounds->GetTDependentPropList(result);
    case 6:
        return ask.equilibria->CalcEquilibrium(list, list, text);
    case 7:
        return ask.equilibria->CheckEquilibriumSpec(list, list, text, &flag);
    case 8:
        return ask.phases->GetPhaseInfo(text, text, result);
    case 9:
        return ask.properties->CalcAndGetLnPhi(text, 1, 1, list, 0, result, result, result, result);
    case 10:
        return ask.properties->CalcSinglePhaseProp(list, text);
    case 11:
        return ask.properties->CalcTwoPhaseProp(list, list);
    case 12:
        return ask.properties->CheckSinglePhasePropSpec(text, text, &flag);
    case 13:
        return ask.properties->CheckTwoPhasePropSpec(text, list, &flag);
    case 14:
        return ask.properties->GetSinglePhasePropList(result);
    case 15:
        return ask.properties->GetTwoPhasePropList(result);
    case 16:
        return ask.constants->GetUniversalConstant(text, result);
    default:
        return ask.constants->GetUniversalConstantList(result);
    }
}

void expectList(const VARIANT &list, const ListAccount &expected)
{
    const bool isTexts = expected.elementType == VT_BSTR;
    const std::size_t count = isTexts ? expected.texts.size() : expected.numbers.size();
    ExpectArray(list, expected.elementType, count);
    if (isTexts)
        FUZZ_CHECK(TextList(TextsOf(list)).texts == expected.texts);
    else // NaNs too
        FUZZ_CHECK(std::memcmp(list.parray->pvData, expected.numbers.data(), count * sizeof(double)) == 0);
}

template <std::size_t Count> void expectLists(const VARIANT *lists, const std::array<ListAccount, Count> &expected)
{
    for (std::size_t i = 0; i < Count; ++i)
        expectList(lists[i], expected[i]);
}

void askForLists(Input &input, Client &client, Questions &ask)
{
    const model::Package &package = *client.package;
    VARIANT lists[6] = {};
    VARIANT *out[6];
    for (std::size_t i = 0; i < 6; ++i)
        out[i] = &lists[i];
    const bool ofPhases = input.chance(128);
    const bool withNull = input.chance(64);
    if (withNull)
        out[input.below(ofPhases ? 3 : 6)] = nullptr;
    const HRESULT hr = ofPhases ? ask.phases->GetPhaseList(out[0], out[1], out[2])
                                : ask.compounds->GetCompoundList(out[0], out[1], out[2], out[3], out[4], out[5]);
    model::Answer answer{withNull ? E_POINTER : S_OK};
    const bool isRefused =
        !withNull && client.expected->isClosed(ofPhases ? u"ICapeThermoPhases" : u"ICapeThermoCompounds",
                                               ofPhases ? u"GetPhaseList" : u"GetCompoundList", answer);
    Expect(client, hr, answer);
    if (withNull || isRefused) {
        for (const VARIANT &list : lists)
            FUZZ_CHECK(list.vt == VT_EMPTY);
        return;
    }
    if (ofPhases)
        expectLists(lists, PhaseLists(package));
    else
        expectLists(lists, CompoundLists(package));
    for (VARIANT &list : lists)
        VariantClear(&list);
}

void askForCounts(Client &client, Questions &ask)
{
    LONG count = -1;
    model::Answer answer;
    bool isRefused = client.expected->isClosed(u"ICapeThermoCompounds", u"GetNumCompounds", answer);
    Expect(client, ask.compounds->GetNumCompounds(&count), answer);
    FUZZ_CHECK(isRefused || count == static_cast<LONG>(client.package->compounds.size()));
    isRefused = client.expected->isClosed(u"ICapeThermoPhases", u"GetNumPhases", answer);
    Expect(client, ask.phases->GetNumPhases(&count), answer);
    FUZZ_CHECK(isRefused || count == static_cast<LONG>(client.package->labels.size()));
    Expect(client, ask.compounds->GetNumCompounds(nullptr), {E_POINTER});
    Expect(client, ask.phases->GetNumPhases(nullptr), {E_POINTER});
}

void askForName(Input &input, Client &client, Questions &ask)
{
    Bstr text;
    const bool ofDescription = input.chance(128);
    FUZZ_CHECK((ofDescription ? ask.identification->get_ComponentDescription(text.out())
                              : ask.identification->get_ComponentName(text.out())) == S_OK);
    FUZZ_CHECK(TextOf(text.get()) == u"Matlab Material Object");
    if (ofDescription)
        Expect(client, ask.identification->put_ComponentDescription(text.get()),
               client.expected->refuse(u"Access denied", u"Cannot change description of the material object",
                                       u"ICapeIdentification", u"put_ComponentDescription"));
    else
        Expect(client, ask.identification->put_ComponentName(nullptr),
               client.expected->refuse(u"Access denied", u"Cannot change name of the material object",
                                       u"ICapeIdentification", u"put_ComponentName"));
    Expect(client, ask.identification->get_ComponentName(nullptr), {E_POINTER});
}

void askForFixedWords(Client &client)
{
    ComPointer<ECapeUser> user;
    FUZZ_CHECK(user.queryFrom(client.material.get()) == S_OK);
    LONG code = 1;
    FUZZ_CHECK(user->get_code(&code) == S_OK && code == 0);
    Bstr text;
    FUZZ_CHECK(user->get_operation(text.out()) == S_OK && TextOf(text.get()) == u"N/A");
    FUZZ_CHECK(user->get_moreInfo(text.out()) == S_OK && !TextOf(text.get()).empty());
    Expect(client, user->get_code(nullptr), {E_POINTER});
    Expect(client, user->get_description(nullptr), {E_POINTER});
    Expect(client, user->get_scope(nullptr), {E_POINTER});
}

void askByName(Client &client)
{
    IDispatch &dispatch = *client.material.get();
    UINT count = 0;
    FUZZ_CHECK(dispatch.GetTypeInfoCount(&count) == S_OK && count == 1);
    FUZZ_CHECK(dispatch.GetTypeInfoCount(nullptr) == E_POINTER);
    ITypeInfo *info = nullptr;
    FUZZ_CHECK(dispatch.GetTypeInfo(1, 0, &info) == DISP_E_BADINDEX && !info);
    FUZZ_CHECK(FAILED(dispatch.GetTypeInfo(0, 0, &info)) && !info); // no type library is registered
}

// Every interface leads to every other, and IUnknown is one and the same.
void askForInterfaces(Input &input, Client &client)
{
    static constexpr const IID *ids[] = {
        &InterfaceId<IUnknown>,
        &InterfaceId<IDispatch>,
        &InterfaceId<ECapeRoot>,
        &InterfaceId<ECapeUnknown>,
        &InterfaceId<ECapeUser>,
        &InterfaceId<ICapeIdentification>,
        &InterfaceId<ICapeThermoCompounds>,
        &InterfaceId<ICapeThermoEquilibriumRoutine>,
        &InterfaceId<ICapeThermoMaterial>,
        &InterfaceId<ICapeThermoPhases>,
        &InterfaceId<ICapeThermoPropertyRoutine>,
        &InterfaceId<ICapeThermoUniversalConstant>,
        &InterfaceId<IMaterial>,
    };
    ComPointer<IUnknown> from;
    FUZZ_CHECK(client.material->QueryInterface(*input.pick(ids), from.outVoid()) == S_OK);
    ComPointer<IUnknown> to;
    FUZZ_CHECK(from->QueryInterface(*input.pick(ids), to.outVoid()) == S_OK);
    ComPointer<IUnknown> identity;
    FUZZ_CHECK(to->QueryInterface(InterfaceId<IUnknown>, identity.outVoid()) == S_OK);
    FUZZ_CHECK(identity.get() == static_cast<IUnknown *>(client.material.get()));
    void *none = &none;
    FUZZ_CHECK(to->QueryInterface(InterfaceId<ICapeUtilities>, &none) == E_NOINTERFACE && !none);
}

} // namespace

void CallRefused(Input &input, Client &client)
{
    Questions ask(client.material.get());
    const std::size_t index = input.below(std::size(refusals));
    const ListArgument list(AnyAccount(input), LowerBound(input));
    const MaybeText text = PropertyText(input);
    VARIANT result{};
    const HRESULT hr = callRefused(ask, index, list.get(), Bstr(text ? text->c_str() : nullptr).get(), &result);
    FUZZ_CHECK(result.vt == VT_EMPTY);
    if (!client.expected)
        return;
    const Refusal &refusal = refusals[index];
    Expect(client, hr,
           client.expected->refuse(u"Invalid Call",
                                   WideString(refusal.method) + u" should not be called by the Property package",
                                   refusal.interfaceName, refusal.method));
}

void AskForWords(IUnknown *object)
{
    ComPointer<ECapeRoot> root;
    ComPointer<ECapeUser> user;
    ComPointer<ICapeIdentification> identification;
    FUZZ_CHECK(root.queryFrom(object) == S_OK && user.queryFrom(object) == S_OK);
    FUZZ_CHECK(identification.queryFrom(object) == S_OK);
    Bstr text;
    FUZZ_CHECK(root->get_name(text.out()) == S_OK && text.get());
    FUZZ_CHECK(user->get_description(text.out()) == S_OK && text.get());
    FUZZ_CHECK(user->get_scope(text.out()) == S_OK && text.get());
    FUZZ_CHECK(user->get_interfaceName(text.out()) == S_OK && text.get());
    FUZZ_CHECK(user->get_operation(text.out()) == S_OK && TextOf(text.get()) == u"N/A");
    FUZZ_CHECK(user->get_moreInfo(text.out()) == S_OK && text.get());
    FUZZ_CHECK(identification->get_ComponentName(text.out()) == S_OK && text.get());
    FUZZ_CHECK(identification->get_ComponentDescription(text.out()) == S_OK && text.get());
    FUZZ_CHECK(FAILED(identification->put_ComponentDescription(text.get())));
    UINT count = 0;
    FUZZ_CHECK(root->GetTypeInfoCount(&count) == S_OK && count == 1);
}

void AskMaterial(Input &input, Client &client)
{
    Questions ask(client.material.get());
    if (!client.expected) {
        VARIANT lists[9] = {};
        ask.compounds->GetCompoundList(&lists[0], &lists[1], &lists[2], &lists[3], &lists[4], &lists[5]);
        ask.phases->GetPhaseList(&lists[6], &lists[7], &lists[8]);
        for (VARIANT &list : lists)
            VariantClear(&list);
        return AskForWords(client.material.get());
    }
    switch (input.below(6)) {
    case 0:
        return askForLists(input, client, ask);
    case 1:
        return askForCounts(client, ask);
    case 2:
        return askForName(input, client, ask);
    case 3:
        return askForFixedWords(client);
    case 4:
        return askByName(client);
    default:
        return askForInterfaces(input, client);
    }
}

} // namespace fuzz
