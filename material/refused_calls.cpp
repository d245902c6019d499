// The methods of a package's own interfaces that make no sense on a material: all are refused.
#include "material/material_object.h"

#include <iterator>

namespace {

struct RefusedCall {
    LPCWSTR method;
    LPCWSTR interfaceName;
    LPCWSTR description;
};

enum RefusedMethod : std::size_t {
    GetCompoundConstant,
    GetConstPropList,
    GetPDependentProperty,
    GetPDependentPropList,
    GetTDependentProperty,
    GetTDependentPropList,
    CalcEquilibrium,
    CheckEquilibriumSpec,
    GetPhaseInfo,
    CalcAndGetLnPhi,
    CalcSinglePhaseProp,
    CalcTwoPhaseProp,
    CheckSinglePhasePropSpec,
    CheckTwoPhasePropSpec,
    GetSinglePhasePropList,
    GetTwoPhasePropList,
    GetUniversalConstant,
    GetUniversalConstantList,
    RefusedMethodCount
};

// In the order of RefusedMethod.
constexpr RefusedCall refusedCalls[] = {
    {OLESTR("GetCompoundConstant"), OLESTR("ICapeThermoCompounds"),
     OLESTR("GetCompoundConstant should not be called by the Property package")},
    {OLESTR("GetConstPropList"), OLESTR("ICapeThermoCompounds"),
     OLESTR("GetConstPropList should not be called by the Property package")},
    {OLESTR("GetPDependentProperty"), OLESTR("ICapeThermoCompounds"),
     OLESTR("GetPDependentProperty should not be called by the Property package")},
    {OLESTR("GetPDependentPropList"), OLESTR("ICapeThermoCompounds"),
     OLESTR("GetPDependentPropList should not be called by the Property package")},
    {OLESTR("GetTDependentProperty"), OLESTR("ICapeThermoCompounds"),
     OLESTR("GetTDependentProperty should not be called by the Property package")},
    {OLESTR("GetTDependentPropList"), OLESTR("ICapeThermoCompounds"),
     OLESTR("GetTDependentPropList should not be called by the Property package")},
    {OLESTR("CalcEquilibrium"), OLESTR("ICapeThermoEquilibriumRoutine"),
     OLESTR("CalcEquilibrium should not be called by the Property package")},
    {OLESTR("CheckEquilibriumSpec"), OLESTR("ICapeThermoEquilibriumRoutine"),
     OLESTR("CheckEquilibriumSpec should not be called by the Property package")},
    {OLESTR("GetPhaseInfo"), OLESTR("ICapeThermoPhases"),
     OLESTR("GetPhaseInfo should not be called by the Property package")},
    {OLESTR("CalcAndGetLnPhi"), OLESTR("ICapeThermoPropertyRoutine"),
     OLESTR("CalcAndGetLnPhi should not be called by the Property package")},
    {OLESTR("CalcSinglePhaseProp"), OLESTR("ICapeThermoPropertyRoutine"),
     OLESTR("CalcSinglePhaseProp should not be called by the Property package")},
    {OLESTR("CalcTwoPhaseProp"), OLESTR("ICapeThermoPropertyRoutine"),
     OLESTR("CalcTwoPhaseProp should not be called by the Property package")},
    {OLESTR("CheckSinglePhasePropSpec"), OLESTR("ICapeThermoPropertyRoutine"),
     OLESTR("CheckSinglePhasePropSpec should not be called by the Property package")},
    {OLESTR("CheckTwoPhasePropSpec"), OLESTR("ICapeThermoPropertyRoutine"),
     OLESTR("CheckTwoPhasePropSpec should not be called by the Property package")},
    {OLESTR("GetSinglePhasePropList"), OLESTR("ICapeThermoPropertyRoutine"),
     OLESTR("GetSinglePhasePropList should not be called by the Property package")},
    {OLESTR("GetTwoPhasePropList"), OLESTR("ICapeThermoPropertyRoutine"),
     OLESTR("GetTwoPhasePropList should not be called by the Property package")},
    {OLESTR("GetUniversalConstant"), OLESTR("ICapeThermoUniversalConstant"),
     OLESTR("GetUniversalConstant should not be called by the Property package")},
    {OLESTR("GetUniversalConstantList"), OLESTR("ICapeThermoUniversalConstant"),
     OLESTR("GetUniversalConstantList should not be called by the Property package")},
};
static_assert(std::size(refusedCalls) == RefusedMethodCount);

HRESULT refuse(CMaterialObject &material, RefusedMethod method) noexcept
{
    const RefusedCall &call = refusedCalls[method];
    return GuardedCall([&] {
        return material.SetMaterialError(OLESTR("Invalid Call"), call.description, call.interfaceName, call.method);
    });
}

} // namespace

HRESULT STDMETHODCALLTYPE CMaterialObject::GetCompoundConstant(VARIANT, VARIANT, VARIANT *) noexcept
{
    return refuse(*this, ::GetCompoundConstant);
}

HRESULT STDMETHODCALLTYPE CMaterialObject::GetConstPropList(VARIANT *) noexcept
{
    return refuse(*this, ::GetConstPropList);
}

HRESULT STDMETHODCALLTYPE CMaterialObject::GetPDependentProperty(VARIANT, double, VARIANT, VARIANT *) noexcept
{
    return refuse(*this, ::GetPDependentProperty);
}

HRESULT STDMETHODCALLTYPE CMaterialObject::GetPDependentPropList(VARIANT *) noexcept
{
    return refuse(*this, ::GetPDependentPropList);
}

HRESULT STDMETHODCALLTYPE CMaterialObject::GetTDependentProperty(VARIANT, double, VARIANT, VARIANT *) noexcept
{
    return refuse(*this, ::GetTDependentProperty);
}

HRESULT STDMETHODCALLTYPE CMaterialObject::GetTDependentPropList(VARIANT *) noexcept
{
    return refuse(*this, ::GetTDependentPropList);
}

HRESULT STDMETHODCALLTYPE CMaterialObject::CalcEquilibrium(VARIANT, VARIANT, BSTR) noexcept
{
    return refuse(*this, ::CalcEquilibrium);
}

HRESULT STDMETHODCALLTYPE CMaterialObject::CheckEquilibriumSpec(VARIANT, VARIANT, BSTR, VARIANT_BOOL *) noexcept
{
    return refuse(*this, ::CheckEquilibriumSpec);
}

HRESULT STDMETHODCALLTYPE CMaterialObject::GetPhaseInfo(BSTR, BSTR, VARIANT *) noexcept
{
    return refuse(*this, ::GetPhaseInfo);
}

HRESULT STDMETHODCALLTYPE CMaterialObject::CalcAndGetLnPhi(BSTR, double, double, VARIANT, INT, VARIANT *, VARIANT *,
                                                           VARIANT *, VARIANT *) noexcept
{
    return refuse(*this, ::CalcAndGetLnPhi);
}

HRESULT STDMETHODCALLTYPE CMaterialObject::CalcSinglePhaseProp(VARIANT, BSTR) noexcept
{
    return refuse(*this, ::CalcSinglePhaseProp);
}

HRESULT STDMETHODCALLTYPE CMaterialObject::CalcTwoPhaseProp(VARIANT, VARIANT) noexcept
{
    return refuse(*this, ::CalcTwoPhaseProp);
}

HRESULT STDMETHODCALLTYPE CMaterialObject::CheckSinglePhasePropSpec(BSTR, BSTR, VARIANT_BOOL *) noexcept
{
    return refuse(*this, ::CheckSinglePhasePropSpec);
}

HRESULT STDMETHODCALLTYPE CMaterialObject::CheckTwoPhasePropSpec(BSTR, VARIANT, VARIANT_BOOL *) noexcept
{
    return refuse(*this, ::CheckTwoPhasePropSpec);
}

HRESULT STDMETHODCALLTYPE CMaterialObject::GetSinglePhasePropList(VARIANT *) noexcept
{
    return refuse(*this, ::GetSinglePhasePropList);
}

HRESULT STDMETHODCALLTYPE CMaterialObject::GetTwoPhasePropList(VARIANT *) noexcept
{
    return refuse(*this, ::GetTwoPhasePropList);
}

HRESULT STDMETHODCALLTYPE CMaterialObject::GetUniversalConstant(BSTR, VARIANT *) noexcept
{
    return refuse(*this, ::GetUniversalConstant);
}

HRESULT STDMETHODCALLTYPE CMaterialObject::GetUniversalConstantList(VARIANT *) noexcept
{
    return refuse(*this, ::GetUniversalConstantList);
}
