// A property package that does next to nothing, so that what is measured around it is the host: it
// reads temperature, pressure and composition and stores the values it is asked for, with a new
// array and a new basis text for each, as packages do.
#pragma once

#include "cape/com/cape_open.h"
#include "cape/com/com_pointer.h"
#include "tests/support/without_names.h"

#include <vector>

class BenchPackage final : public WithoutNames<ICapeThermoCompounds>,
                           public WithoutNames<ICapeThermoPhases>,
                           public WithoutNames<ICapeThermoPropertyRoutine>,
                           public WithoutNames<ICapeThermoEquilibriumRoutine>,
                           public WithoutNames<ICapeThermoMaterialContext> {
public:
    explicit BenchPackage(int compounds) : compoundCount(compounds) {}

    static inline const WCHAR *storedBasis = OLESTR("mole"); // of values that have a basis

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override;

    // ICapeThermoCompounds
    HRESULT STDMETHODCALLTYPE GetCompoundConstant(VARIANT, VARIANT, VARIANT *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetCompoundList(VARIANT *ids, VARIANT *formulae, VARIANT *names, VARIANT *boiling,
                                              VARIANT *weights, VARIANT *casNumbers) override;
    HRESULT STDMETHODCALLTYPE GetConstPropList(VARIANT *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetNumCompounds(LONG *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetPDependentProperty(VARIANT, double, VARIANT, VARIANT *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetPDependentPropList(VARIANT *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTDependentProperty(VARIANT, double, VARIANT, VARIANT *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTDependentPropList(VARIANT *) override { return E_NOTIMPL; }

    // ICapeThermoPhases
    HRESULT STDMETHODCALLTYPE GetNumPhases(LONG *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetPhaseInfo(BSTR, BSTR, VARIANT *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetPhaseList(VARIANT *labels, VARIANT *states, VARIANT *keyCompounds) override;

    // ICapeThermoPropertyRoutine
    HRESULT STDMETHODCALLTYPE CalcAndGetLnPhi(BSTR, double, double, VARIANT, INT, VARIANT *, VARIANT *, VARIANT *,
                                              VARIANT *) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE CalcSinglePhaseProp(VARIANT properties, BSTR phaseLabel) override;
    HRESULT STDMETHODCALLTYPE CalcTwoPhaseProp(VARIANT properties, VARIANT phaseLabels) override;
    HRESULT STDMETHODCALLTYPE CheckSinglePhasePropSpec(BSTR, BSTR, VARIANT_BOOL *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CheckTwoPhasePropSpec(BSTR, VARIANT, VARIANT_BOOL *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetSinglePhasePropList(VARIANT *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTwoPhasePropList(VARIANT *) override { return E_NOTIMPL; }

    // ICapeThermoEquilibriumRoutine: everything is one vapor of the overall composition
    HRESULT STDMETHODCALLTYPE CalcEquilibrium(VARIANT specification1, VARIANT specification2,
                                              BSTR solutionType) override;
    HRESULT STDMETHODCALLTYPE CheckEquilibriumSpec(VARIANT, VARIANT, BSTR, VARIANT_BOOL *) override
    {
        return E_NOTIMPL;
    }

    // ICapeThermoMaterialContext
    HRESULT STDMETHODCALLTYPE SetMaterial(IDispatch *newMaterial) override;
    HRESULT STDMETHODCALLTYPE UnsetMaterial() override;

private:
    ~BenchPackage() = default;

    ULONG references = 0;
    int compoundCount;
    ComPointer<ICapeThermoMaterial> material;
};

// Makes the class of the package known under "Bench", with as many compounds as given here at the
// time it is created.
void RegisterBenchPackage(int compounds);
