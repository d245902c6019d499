// The methods of a material that no package may call.
#include "cape/com/bstr.h"
#include "fuzz/material/calls.h"
#include "fuzz/material/questions.h"

namespace fuzz {

namespace {

// A call that is to be refused: of whom, with what, and where an answer would go.
struct Attempt : Questions {
    const VARIANT &list;
    BSTR text;
    VARIANT result{};
    VARIANT_BOOL flag = VARIANT_FALSE;

    Attempt(IUnknown *material, const VARIANT &givenList, BSTR givenText)
        : Questions(material), list(givenList), text(givenText)
    {
    }
};

struct Refusal {
    LPCWSTR method;
    LPCWSTR interfaceName;
    HRESULT (*call)(Attempt &a);
};

constexpr LPCWSTR compounds = u"ICapeThermoCompounds";
constexpr LPCWSTR equilibria = u"ICapeThermoEquilibriumRoutine";
constexpr LPCWSTR phases = u"ICapeThermoPhases";
constexpr LPCWSTR properties = u"ICapeThermoPropertyRoutine";
constexpr LPCWSTR constants = u"ICapeThermoUniversalConstant";

constexpr Refusal refusals[] = {
    {u"GetCompoundConstant", compounds,
     [](Attempt &a) { return a.compounds->GetCompoundConstant(a.list, a.list, &a.result); }},
    {u"GetConstPropList", compounds, [](Attempt &a) { return a.compounds->GetConstPropList(&a.result); }},
    {u"GetPDependentProperty", compounds,
     [](Attempt &a) { return a.compounds->GetPDependentProperty(a.list, 1, a.list, &a.result); }},
    {u"GetPDependentPropList", compounds, [](Attempt &a) { return a.compounds->GetPDependentPropList(&a.result); }},
    {u"GetTDependentProperty", compounds,
     [](Attempt &a) { return a.compounds->GetTDependentProperty(a.list, 1, a.list, &a.result); }},
    {u"GetTDependentPropList", compounds, [](Attempt &a) { return a.compounds->GetTDependentPropList(&a.result); }},
    {u"CalcEquilibrium", equilibria, [](Attempt &a) { return a.equilibria->CalcEquilibrium(a.list, a.list, a.text); }},
    {u"CheckEquilibriumSpec", equilibria,
     [](Attempt &a) { return a.equilibria->CheckEquilibriumSpec(a.list, a.list, a.text, &a.flag); }},
    {u"GetPhaseInfo", phases, [](Attempt &a) { return a.phases->GetPhaseInfo(a.text, a.text, &a.result); }},
    {u"CalcAndGetLnPhi", properties,
     [](Attempt &a) {
         return a.properties->CalcAndGetLnPhi(a.text, 1, 1, a.list, 0, &a.result, &a.result, &a.result, &a.result);
     }},
    {u"CalcSinglePhaseProp", properties, [](Attempt &a) { return a.properties->CalcSinglePhaseProp(a.list, a.text); }},
    {u"CalcTwoPhaseProp", properties, [](Attempt &a) { return a.properties->CalcTwoPhaseProp(a.list, a.list); }},
    {u"CheckSinglePhasePropSpec", properties,
     [](Attempt &a) { return a.properties->CheckSinglePhasePropSpec(a.text, a.text, &a.flag); }},
    {u"CheckTwoPhasePropSpec", properties,
     [](Attempt &a) { return a.properties->CheckTwoPhasePropSpec(a.text, a.list, &a.flag); }},
    {u"GetSinglePhasePropList", properties, [](Attempt &a) { return a.properties->GetSinglePhasePropList(&a.result); }},
    {u"GetTwoPhasePropList", properties, [](Attempt &a) { return a.properties->GetTwoPhasePropList(&a.result); }},
    {u"GetUniversalConstant", constants,
     [](Attempt &a) { return a.constants->GetUniversalConstant(a.text, &a.result); }},
    {u"GetUniversalConstantList", constants,
     [](Attempt &a) { return a.constants->GetUniversalConstantList(&a.result); }},
};

} // namespace

void CallRefused(Input &input, Client &client)
{
    const Refusal &refusal = input.pick(refusals);
    const ListArgument list(FromAnyBound(input, AnyAccount(input)));
    const MaybeText text = PropertyText(input);
    const Bstr given(text ? text->c_str() : nullptr);
    Attempt attempt(client.material.get(), list.get(), given.get());
    const HRESULT hr = refusal.call(attempt);
    FUZZ_CHECK(attempt.result.vt == VT_EMPTY);
    if (!client.expected)
        return;
    Expect(client, hr,
           client.expected->refuse(u"Invalid Call",
                                   WideString(refusal.method) + u" should not be called by the Property package",
                                   refusal.interfaceName, refusal.method));
}

} // namespace fuzz
