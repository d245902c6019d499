// The CAPE-OPEN 1.1 thermodynamic interfaces. Slots stand in the order of the CAPE-OPEN 1.1 type
// library. A BSTR, VARIANT or interface that comes out belongs to the caller; in-arguments stay the
// caller's. VARIANTs that come out are [in, out] in the standard: initialize them before the call.
#pragma once

#include "platform/platform.h"

struct ICapeThermoMaterial : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE ClearAllProps() = 0;
    virtual HRESULT STDMETHODCALLTYPE CopyFromMaterial(IDispatch **source) = 0;
    virtual HRESULT STDMETHODCALLTYPE CreateMaterial(IDispatch **material) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetOverallProp(BSTR property, BSTR basis, VARIANT *results) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetOverallTPFraction(double *temperature, double *pressure,
                                                           VARIANT *composition) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetPresentPhases(VARIANT *phaseLabels, VARIANT *phaseStatus) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetSinglePhaseProp(BSTR property, BSTR phaseLabel, BSTR basis,
                                                         VARIANT *results) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTPFraction(BSTR phaseLabel, double *temperature, double *pressure,
                                                    VARIANT *composition) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTwoPhaseProp(BSTR property, VARIANT phaseLabels, BSTR basis,
                                                      VARIANT *results) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetOverallProp(BSTR property, BSTR basis, VARIANT values) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetPresentPhases(VARIANT phaseLabels, VARIANT phaseStatus) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetSinglePhaseProp(BSTR property, BSTR phaseLabel, BSTR basis,
                                                         VARIANT values) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetTwoPhaseProp(BSTR property, VARIANT phaseLabels, BSTR basis,
                                                      VARIANT values) = 0;
};
DECLARE_INTERFACE_ID(ICapeThermoMaterial,
                     {0x678C0A9B, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});

struct ICapeThermoMaterialContext : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE SetMaterial(IDispatch *material) = 0;
    virtual HRESULT STDMETHODCALLTYPE UnsetMaterial() = 0;
};
DECLARE_INTERFACE_ID(ICapeThermoMaterialContext,
                     {0x678C0A9C, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});

struct ICapeThermoCompounds : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE GetCompoundConstant(VARIANT properties, VARIANT compoundIds, VARIANT *values) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCompoundList(VARIANT *compoundIds, VARIANT *formulae, VARIANT *names,
                                                      VARIANT *boilingTemperatures, VARIANT *molecularWeights,
                                                      VARIANT *casNumbers) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetConstPropList(VARIANT *properties) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetNumCompounds(LONG *count) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetPDependentProperty(VARIANT properties, double pressure, VARIANT compoundIds,
                                                            VARIANT *values) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetPDependentPropList(VARIANT *properties) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTDependentProperty(VARIANT properties, double temperature, VARIANT compoundIds,
                                                            VARIANT *values) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTDependentPropList(VARIANT *properties) = 0;
};
DECLARE_INTERFACE_ID(ICapeThermoCompounds,
                     {0x678C0A9D, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});

struct ICapeThermoPhases : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE GetNumPhases(LONG *count) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetPhaseInfo(BSTR phaseLabel, BSTR attribute, VARIANT *value) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetPhaseList(VARIANT *phaseLabels, VARIANT *statesOfAggregation,
                                                   VARIANT *keyCompoundIds) = 0;
};
DECLARE_INTERFACE_ID(ICapeThermoPhases, {0x678C0A9E, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});

struct ICapeThermoPropertyRoutine : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE CalcAndGetLnPhi(BSTR phaseLabel, double temperature, double pressure,
                                                      VARIANT moleNumbers, INT flags, VARIANT *lnPhi, VARIANT *lnPhiDT,
                                                      VARIANT *lnPhiDP, VARIANT *lnPhiDn) = 0;
    virtual HRESULT STDMETHODCALLTYPE CalcSinglePhaseProp(VARIANT properties, BSTR phaseLabel) = 0;
    virtual HRESULT STDMETHODCALLTYPE CalcTwoPhaseProp(VARIANT properties, VARIANT phaseLabels) = 0;
    virtual HRESULT STDMETHODCALLTYPE CheckSinglePhasePropSpec(BSTR property, BSTR phaseLabel, VARIANT_BOOL *valid) = 0;
    virtual HRESULT STDMETHODCALLTYPE CheckTwoPhasePropSpec(BSTR property, VARIANT phaseLabels,
                                                            VARIANT_BOOL *valid) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetSinglePhasePropList(VARIANT *properties) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTwoPhasePropList(VARIANT *properties) = 0;
};
DECLARE_INTERFACE_ID(ICapeThermoPropertyRoutine,
                     {0x678C0A9F, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});

struct ICapeThermoEquilibriumRoutine : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE CalcEquilibrium(VARIANT specification1, VARIANT specification2,
                                                      BSTR solutionType) = 0;
    virtual HRESULT STDMETHODCALLTYPE CheckEquilibriumSpec(VARIANT specification1, VARIANT specification2,
                                                           BSTR solutionType, VARIANT_BOOL *supported) = 0;
};
DECLARE_INTERFACE_ID(ICapeThermoEquilibriumRoutine,
                     {0x678C0AA0, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});

struct ICapeThermoUniversalConstant : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE GetUniversalConstant(BSTR id, VARIANT *value) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetUniversalConstantList(VARIANT *ids) = 0;
};
DECLARE_INTERFACE_ID(ICapeThermoUniversalConstant,
                     {0x678C0AA1, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});

struct ICapeThermoPropertyPackageManager : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE GetPropertyPackageList(VARIANT *names) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetPropertyPackage(BSTR name, IDispatch **package) = 0;
};
DECLARE_INTERFACE_ID(ICapeThermoPropertyPackageManager,
                     {0x678C0AA2, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});
