// The COM side of the scripted package: the thermodynamic interfaces.
#pragma once

#include "tests/support/scripted_object.h"
#include "tests/support/scripted_package.h"

namespace support {

// A facet that reads a package's script.
template <class Interface> class PackageFacet : public Facet<Interface> {
public:
    PackageFacet(ScriptedObject &owner, PackageScript &packageScript) : Facet<Interface>(owner), package(packageScript)
    {
    }

protected:
    PackageScript &package;
};

class CompoundsFacet : public PackageFacet<ICapeThermoCompounds> {
public:
    using PackageFacet::PackageFacet;
    HRESULT STDMETHODCALLTYPE GetCompoundConstant(VARIANT properties, VARIANT compoundIds, VARIANT *values) override;
    HRESULT STDMETHODCALLTYPE GetCompoundList(VARIANT *compoundIds, VARIANT *formulae, VARIANT *names,
                                              VARIANT *boilingTemperatures, VARIANT *molecularWeights,
                                              VARIANT *casNumbers) override;
    HRESULT STDMETHODCALLTYPE GetConstPropList(VARIANT *properties) override;
    HRESULT STDMETHODCALLTYPE GetNumCompounds(LONG *count) override;
    HRESULT STDMETHODCALLTYPE GetPDependentProperty(VARIANT properties, double pressure, VARIANT compoundIds,
                                                    VARIANT *values) override;
    HRESULT STDMETHODCALLTYPE GetPDependentPropList(VARIANT *properties) override;
    HRESULT STDMETHODCALLTYPE GetTDependentProperty(VARIANT properties, double temperature, VARIANT compoundIds,
                                                    VARIANT *values) override;
    HRESULT STDMETHODCALLTYPE GetTDependentPropList(VARIANT *properties) override;
};

class PhasesFacet : public PackageFacet<ICapeThermoPhases> {
public:
    using PackageFacet::PackageFacet;
    HRESULT STDMETHODCALLTYPE GetNumPhases(LONG *count) override;
    HRESULT STDMETHODCALLTYPE GetPhaseInfo(BSTR phaseLabel, BSTR attribute, VARIANT *value) override;
    HRESULT STDMETHODCALLTYPE GetPhaseList(VARIANT *phaseLabels, VARIANT *statesOfAggregation,
                                           VARIANT *keyCompoundIds) override;
};

class PropertyRoutineFacet : public PackageFacet<ICapeThermoPropertyRoutine> {
public:
    using PackageFacet::PackageFacet;
    HRESULT STDMETHODCALLTYPE CalcAndGetLnPhi(BSTR phaseLabel, double temperature, double pressure, VARIANT moleNumbers,
                                              INT flags, VARIANT *lnPhi, VARIANT *lnPhiDT, VARIANT *lnPhiDP,
                                              VARIANT *lnPhiDn) override;
    HRESULT STDMETHODCALLTYPE CalcSinglePhaseProp(VARIANT properties, BSTR phaseLabel) override;
    HRESULT STDMETHODCALLTYPE CalcTwoPhaseProp(VARIANT properties, VARIANT phaseLabels) override;
    HRESULT STDMETHODCALLTYPE CheckSinglePhasePropSpec(BSTR property, BSTR phaseLabel, VARIANT_BOOL *valid) override;
    HRESULT STDMETHODCALLTYPE CheckTwoPhasePropSpec(BSTR property, VARIANT phaseLabels, VARIANT_BOOL *valid) override;
    HRESULT STDMETHODCALLTYPE GetSinglePhasePropList(VARIANT *properties) override;
    HRESULT STDMETHODCALLTYPE GetTwoPhasePropList(VARIANT *properties) override;
};

class EquilibriumFacet : public PackageFacet<ICapeThermoEquilibriumRoutine> {
public:
    using PackageFacet::PackageFacet;
    HRESULT STDMETHODCALLTYPE CalcEquilibrium(VARIANT specification1, VARIANT specification2,
                                              BSTR solutionType) override;
    HRESULT STDMETHODCALLTYPE CheckEquilibriumSpec(VARIANT specification1, VARIANT specification2, BSTR solutionType,
                                                   VARIANT_BOOL *supported) override;
};

class MaterialContextFacet : public PackageFacet<ICapeThermoMaterialContext> {
public:
    using PackageFacet::PackageFacet;
    HRESULT STDMETHODCALLTYPE SetMaterial(IDispatch *material) override;
    HRESULT STDMETHODCALLTYPE UnsetMaterial() override;
};

} // namespace support
