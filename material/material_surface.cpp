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

constexpr LPCWSTR compoundsInterface = OLESTR("ICapeThermoCompounds");
constexpr LPCWSTR phasesInterface = OLESTR("ICapeThermoPhases");
constexpr LPCWSTR componentName = OLESTR("Matlab Material Object");

struct ListCopy {
    const VariantArray &list;
    VARIANT *target;
};

// Copies of lists that stay with the system, in the place of what the caller had there: all, or none without memory.
template <std::size_t Count> HRESULT giveCopies(const ListCopy (&copies)[Count])
{
    for (const ListCopy &copy : copies)
        VariantClear(copy.target);
    for (const ListCopy &copy : copies) {
        if (VariantCopy(copy.target, const_cast<VARIANT *>(&copy.list.value)) != E_OUTOFMEMORY)
            continue;
        for (const ListCopy &made : copies)
            VariantClear(made.target);
        return E_OUTOFMEMORY;
    }
    return S_OK;
}

} // namespace

void *CMaterialObject::FindInterface(REFIID iid) { return findInterface(interfaces, iid, this); }

HRESULT STDMETHODCALLTYPE CMaterialObject::get_ComponentName(BSTR *name) noexcept
{
    return GiveText(componentName, name);
}

HRESULT STDMETHODCALLTYPE CMaterialObject::put_ComponentName(BSTR) noexcept
{
    return GuardedCall([this] {
        return SetMaterialError(OLESTR("Access denied"), OLESTR("Cannot change name of the material object"),
                                OLESTR("ICapeIdentification"), OLESTR("put_ComponentName"));
    });
}

HRESULT STDMETHODCALLTYPE CMaterialObject::get_ComponentDescription(BSTR *description) noexcept
{
    return GiveText(componentName, description);
}

HRESULT STDMETHODCALLTYPE CMaterialObject::put_ComponentDescription(BSTR) noexcept
{
    return GuardedCall([this] {
        return SetMaterialError(OLESTR("Access denied"), OLESTR("Cannot change description of the material object"),
                                OLESTR("ICapeIdentification"), OLESTR("put_ComponentDescription"));
    });
}

HRESULT STDMETHODCALLTYPE CMaterialObject::GetCompoundList(VARIANT *compoundIds, VARIANT *formulae, VARIANT *names,
                                                           VARIANT *boilingTemperatures, VARIANT *molecularWeights,
                                                           VARIANT *casNumbers) noexcept
{
    if (!compoundIds || !formulae || !names || !boilingTemperatures || !molecularWeights || !casNumbers)
        return E_POINTER;
    return withRecord(compoundsInterface, OLESTR("GetCompoundList"), [&] {
        return giveCopies({{openPackage->compoundIdList, compoundIds},
                           {openPackage->compoundFormulaList, formulae},
                           {openPackage->compoundNameList, names},
                           {openPackage->compoundBoilingPointList, boilingTemperatures},
                           {openPackage->compoundMolecularWeightList, molecularWeights},
                           {openPackage->compoundCasNumberList, casNumbers}});
    });
}

HRESULT STDMETHODCALLTYPE CMaterialObject::GetNumCompounds(LONG *count) noexcept
{
    if (!count)
        return E_POINTER;
    return withRecord(compoundsInterface, OLESTR("GetNumCompounds"), [&] {
        *count = openPackage->compoundIdList.count;
        return S_OK;
    });
}

HRESULT STDMETHODCALLTYPE CMaterialObject::GetNumPhases(LONG *count) noexcept
{
    if (!count)
        return E_POINTER;
    return withRecord(phasesInterface, OLESTR("GetNumPhases"), [&] {
        *count = phaseCount();
        return S_OK;
    });
}

HRESULT STDMETHODCALLTYPE CMaterialObject::GetPhaseList(VARIANT *phaseLabels, VARIANT *statesOfAggregation,
                                                        VARIANT *keyCompoundIds) noexcept
{
    if (!phaseLabels || !statesOfAggregation || !keyCompoundIds)
        return E_POINTER;
    return withRecord(phasesInterface, OLESTR("GetPhaseList"), [&] {
        return giveCopies({{openPackage->phaseLabelList, phaseLabels},
                           {openPackage->phaseStateOfAggregationList, statesOfAggregation},
                           {openPackage->phaseKeyCompoundList, keyCompoundIds}});
    });
}

// The raw address, for callers of the same process.
HRESULT STDMETHODCALLTYPE CMaterialObject::GetMaterialObject(CMaterialObject **material) noexcept
{
    if (!material)
        return E_POINTER;
    *material = this;
    return S_OK;
}
