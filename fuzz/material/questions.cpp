// The questions to a material that have nothing to do with its state.
#include "fuzz/material/questions.h"
#include "cape/com/bstr.h"
#include "fuzz/material/calls.h"
#include "fuzz/material/package_lists.h"
#include "material/imaterial.h"

#include <cstring>

namespace fuzz {

namespace {

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
