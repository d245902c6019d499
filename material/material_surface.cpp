// What a material is to a package apart from its values: its interfaces, its name, and the
// questions about compounds and phases.
#include "material/material_object.h"

namespace {

using Entry = InterfaceEntry<CMaterialObject>;

// IUnknown and IDispatch are the ICapeThermoMaterial part: the object's identity.
constexpr Entry interfaces[] = {
    interfaceEntry<CMaterialObject, IUnknown, ICapeThermoMaterial>(),
    interfaceEntry<CMaterialObject, IDispatch, ICapeThermoMaterial>(),
    interfaceEntry<CMaterialObject, ECapeRoot>(),
    interfaceEntry<CMaterialObject, ECapeUnknown>(),
    interfaceEntry<CMaterialObject, ECapeUser>(),
    interfaceEntry<CMaterialObject, ICapeIdentification>(),
    interfaceEntry<CMaterialObject, ICapeThermoCompounds>(),
    interfaceEntry<CMaterialObject, ICapeThermoEquilibriumRoutine>(),
    interfaceEntry<CMaterialObject, ICapeThermoMaterial>(),
    interfaceEntry<CMaterialObject, ICapeThermoPhases>(),
    interfaceEntry<CMaterialObject, ICapeThermoPropertyRoutine>(),
    interfaceEntry<CMaterialObject, ICapeThermoUniversalConstant>(),
    interfaceEntry<CMaterialObject, IMaterial>(),
};

constexpr LPCWSTR componentName = OLESTR("Matlab Material Object");

// A copy of a list that stays with the system, in the place of what the caller had there.
void giveCopy(VariantArray &list, VARIANT *target)
{
    VariantClear(target);
    VariantCopy(target, &list.value);
}

} // namespace

void *CMaterialObject::FindInterface(REFIID iid) { return findInterface(interfaces, iid, this); }

HRESULT STDMETHODCALLTYPE CMaterialObject::get_ComponentName(BSTR *name) { return GiveText(componentName, name); }

HRESULT STDMETHODCALLTYPE CMaterialObject::put_ComponentName(BSTR)
{
    return SetMaterialError(OLESTR("Access denied"), OLESTR("Cannot change name of the material object"),
                            OLESTR("ICapeIdentification"), OLESTR("put_ComponentName"));
}

HRESULT STDMETHODCALLTYPE CMaterialObject::get_ComponentDescription(BSTR *description)
{
    return GiveText(componentName, description);
}

HRESULT STDMETHODCALLTYPE CMaterialObject::put_ComponentDescription(BSTR)
{
    return SetMaterialError(OLESTR("Access denied"), OLESTR("Cannot change description of the material object"),
                            OLESTR("ICapeIdentification"), OLESTR("put_ComponentDescription"));
}

HRESULT STDMETHODCALLTYPE CMaterialObject::GetCompoundList(VARIANT *compoundIds, VARIANT *formulae, VARIANT *names,
                                                           VARIANT *boilingTemperatures, VARIANT *molecularWeights,
                                                           VARIANT *casNumbers)
{
    if (!compoundIds || !formulae || !names || !boilingTemperatures || !molecularWeights || !casNumbers)
        return E_POINTER;
    giveCopy(openPackage->compoundIdList, compoundIds);
    giveCopy(openPackage->compoundFormulaList, formulae);
    giveCopy(openPackage->compoundNameList, names);
    giveCopy(openPackage->compoundBoilingPointList, boilingTemperatures);
    giveCopy(openPackage->compoundMolecularWeightList, molecularWeights);
    giveCopy(openPackage->compoundCasNumberList, casNumbers);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE CMaterialObject::GetNumCompounds(LONG *count)
{
    if (!count)
        return E_POINTER;
    *count = openPackage->compoundIdList.count;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE CMaterialObject::GetNumPhases(LONG *count)
{
    if (!count)
        return E_POINTER;
    *count = phaseCount();
    return S_OK;
}

HRESULT STDMETHODCALLTYPE CMaterialObject::GetPhaseList(VARIANT *phaseLabels, VARIANT *statesOfAggregation,
                                                        VARIANT *keyCompoundIds)
{
    if (!phaseLabels || !statesOfAggregation || !keyCompoundIds)
        return E_POINTER;
    giveCopy(openPackage->phaseLabelList, phaseLabels);
    giveCopy(openPackage->phaseStateOfAggregationList, statesOfAggregation);
    giveCopy(openPackage->phaseKeyCompoundList, keyCompoundIds);
    return S_OK;
}

// The raw address, for callers of the same process.
HRESULT STDMETHODCALLTYPE CMaterialObject::GetMaterialObject(CMaterialObject **material)
{
    *material = this;
    return S_OK;
}
