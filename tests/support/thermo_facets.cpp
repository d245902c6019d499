#include "tests/support/thermo_facets.h"

namespace support {

namespace {

HRESULT giveList(ScriptedObject &object, const char *method, const Variant &list, VARIANT *target)
{
    ExpectEmpty(target, method);
    const HRESULT hr = object.enter(method);
    if (SUCCEEDED(hr))
        list.giveTo(target);
    return hr;
}

using CompoundAnswer = std::function<HRESULT(const CompoundCall &, Variant &)>;

HRESULT answerCompounds(HRESULT hr, const CompoundAnswer &answer, const CompoundCall &call, Variant &values)
{
    if (FAILED(hr) || !answer)
        return hr;
    const HRESULT answered = answer(call, values);
    return FAILED(answered) ? answered : hr;
}

HRESULT replaceValues(ScriptedObject &object, const char *method, const CompoundAnswer &answer,
                      const CompoundCall &call, VARIANT *values)
{
    ExpectEmpty(values, method);
    Variant answered;
    const HRESULT hr = answerCompounds(object.enter(method), answer, call, answered);
    answered.replace(values);
    return hr;
}

} // namespace

HRESULT CompoundsFacet::GetCompoundConstant(VARIANT properties, VARIANT compoundIds, VARIANT *values)
{
    ExpectEmpty(values, "GetCompoundConstant");
    Variant answered;
    const HRESULT hr = answerCompounds(object.enter("GetCompoundConstant"), package.constants,
                                       {TextsOf(properties), 0, compoundIds.vt}, answered);
    answered.giveTo(values);
    return hr;
}

HRESULT CompoundsFacet::GetCompoundList(VARIANT *compoundIds, VARIANT *formulae, VARIANT *names,
                                        VARIANT *boilingTemperatures, VARIANT *molecularWeights, VARIANT *casNumbers)
{
    for (const VARIANT *list : {compoundIds, formulae, names, boilingTemperatures, molecularWeights, casNumbers})
        ExpectEmpty(list, "GetCompoundList");
    const HRESULT hr = object.enter("GetCompoundList");
    if (FAILED(hr))
        return hr;
    package.compoundIds.replace(compoundIds);
    package.formulae.replace(formulae);
    package.compoundNames.replace(names);
    package.boilingTemperatures.replace(boilingTemperatures);
    package.molecularWeights.replace(molecularWeights);
    package.casNumbers.replace(casNumbers);
    return hr;
}

HRESULT CompoundsFacet::GetConstPropList(VARIANT *properties)
{
    return giveList(object, "GetConstPropList", package.constantProperties, properties);
}

HRESULT CompoundsFacet::GetNumCompounds(LONG *count)
{
    const HRESULT hr = object.enter("GetNumCompounds");
    if (SUCCEEDED(hr))
        *count = static_cast<LONG>(TextsOf(package.compoundIds.value).size());
    return hr;
}

HRESULT CompoundsFacet::GetPDependentProperty(VARIANT properties, double pressure, VARIANT compoundIds, VARIANT *values)
{
    return replaceValues(object, "GetPDependentProperty", package.pressureDependent,
                         {TextsOf(properties), pressure, compoundIds.vt}, values);
}

HRESULT CompoundsFacet::GetPDependentPropList(VARIANT *properties)
{
    return giveList(object, "GetPDependentPropList", package.pressureDependentProperties, properties);
}

HRESULT CompoundsFacet::GetTDependentProperty(VARIANT properties, double temperature, VARIANT compoundIds,
                                              VARIANT *values)
{
    return replaceValues(object, "GetTDependentProperty", package.temperatureDependent,
                         {TextsOf(properties), temperature, compoundIds.vt}, values);
}

HRESULT CompoundsFacet::GetTDependentPropList(VARIANT *properties)
{
    return giveList(object, "GetTDependentPropList", package.temperatureDependentProperties, properties);
}

HRESULT PhasesFacet::GetNumPhases(LONG *count)
{
    const HRESULT hr = object.enter("GetNumPhases");
    if (SUCCEEDED(hr))
        *count = static_cast<LONG>(TextsOf(package.phaseLabels.value).size());
    return hr;
}

HRESULT PhasesFacet::GetPhaseInfo(BSTR, BSTR, VARIANT *value)
{
    VariantInit(value);
    const HRESULT hr = object.enter("GetPhaseInfo");
    return FAILED(hr) ? hr : E_NOTIMPL;
}

HRESULT PhasesFacet::GetPhaseList(VARIANT *phaseLabels, VARIANT *statesOfAggregation, VARIANT *keyCompoundIds)
{
    for (const VARIANT *list : {phaseLabels, statesOfAggregation, keyCompoundIds})
        ExpectEmpty(list, "GetPhaseList");
    const HRESULT hr = object.enter("GetPhaseList");
    if (FAILED(hr))
        return hr;
    package.phaseLabels.replace(phaseLabels);
    package.statesOfAggregation.replace(statesOfAggregation);
    package.keyCompounds.replace(keyCompoundIds);
    return hr;
}

HRESULT PropertyRoutineFacet::CalcAndGetLnPhi(BSTR, double, double, VARIANT, INT, VARIANT *, VARIANT *, VARIANT *,
                                              VARIANT *)
{
    const HRESULT hr = object.enter("CalcAndGetLnPhi");
    return FAILED(hr) ? hr : E_NOTIMPL;
}

HRESULT PropertyRoutineFacet::CalcSinglePhaseProp(VARIANT properties, BSTR phaseLabel)
{
    const HRESULT hr = object.enter("CalcSinglePhaseProp");
    if (FAILED(hr) || !package.calcSinglePhase)
        return hr;
    const HRESULT calculated =
        package.calcSinglePhase({MaterialClient(package.material.get()), TextsOf(properties), TextOf(phaseLabel)});
    return FAILED(calculated) ? calculated : hr;
}

HRESULT PropertyRoutineFacet::CalcTwoPhaseProp(VARIANT properties, VARIANT phaseLabels)
{
    const HRESULT hr = object.enter("CalcTwoPhaseProp");
    if (FAILED(hr) || !package.calcTwoPhase)
        return hr;
    const HRESULT calculated =
        package.calcTwoPhase({MaterialClient(package.material.get()), TextsOf(properties), TextsOf(phaseLabels)});
    return FAILED(calculated) ? calculated : hr;
}

HRESULT PropertyRoutineFacet::CheckSinglePhasePropSpec(BSTR, BSTR, VARIANT_BOOL *valid)
{
    *valid = VARIANT_TRUE;
    return object.enter("CheckSinglePhasePropSpec");
}

HRESULT PropertyRoutineFacet::CheckTwoPhasePropSpec(BSTR, VARIANT, VARIANT_BOOL *valid)
{
    *valid = VARIANT_TRUE;
    return object.enter("CheckTwoPhasePropSpec");
}

HRESULT PropertyRoutineFacet::GetSinglePhasePropList(VARIANT *properties)
{
    return giveList(object, "GetSinglePhasePropList", package.singlePhaseProperties, properties);
}

HRESULT PropertyRoutineFacet::GetTwoPhasePropList(VARIANT *properties)
{
    return giveList(object, "GetTwoPhasePropList", package.twoPhaseProperties, properties);
}

HRESULT EquilibriumFacet::CalcEquilibrium(VARIANT specification1, VARIANT specification2, BSTR solutionType)
{
    const HRESULT hr = object.enter("CalcEquilibrium");
    if (FAILED(hr) || !package.calcEquilibrium)
        return hr;
    const HRESULT calculated =
        package.calcEquilibrium({MaterialClient(package.material.get()), TextsOf(specification1),
                                 TextsOf(specification2), TextOf(solutionType), specification1, specification2});
    return FAILED(calculated) ? calculated : hr;
}

HRESULT EquilibriumFacet::CheckEquilibriumSpec(VARIANT specification1, VARIANT specification2, BSTR solutionType,
                                               VARIANT_BOOL *supported)
{
    *supported = VARIANT_FALSE;
    const HRESULT hr = object.enter("CheckEquilibriumSpec");
    if (FAILED(hr))
        return hr;
    const SpecificationCheck check = {TextsOf(specification1), TextsOf(specification2), TextOf(solutionType)};
    *supported = !package.supportsEquilibrium || package.supportsEquilibrium(check) ? VARIANT_TRUE : VARIANT_FALSE;
    return hr;
}

HRESULT MaterialContextFacet::SetMaterial(IDispatch *material)
{
    const HRESULT hr = object.enter("SetMaterial");
    if (FAILED(hr))
        return hr;
    if (package.keepsMaterial) {
        material->AddRef();
        package.keptMaterial.attach(material);
    }
    const HRESULT queried = package.material.queryFrom(material);
    return FAILED(queried) ? queried : hr;
}

HRESULT MaterialContextFacet::UnsetMaterial()
{
    const HRESULT hr = object.enter("UnsetMaterial");
    package.material.reset();
    return hr;
}

} // namespace support
