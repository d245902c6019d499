// The material: the one object through which a property package sees the state it calculates on.
// A package reaches it through its COM interfaces; the commands of this process use its fields.
#pragma once

#include "cape/com/cape_open.h"
#include "cape/com/com_object.h"
#include "cape/com/guarded_call.h"
#include "cape/error_state.h"
#include "cape/missing_value.h"
#include "material/imaterial.h"
#include "material/recent_writes.h"
#include "packages/open_package.h"
#include "properties/basis_conversion.h"
#include "properties/property_map.h"

#include <cstdint>
#include <memory>

inline constexpr CLSID CLSID_MaterialObject = {
    0x0B9A2F4D, 0x6C55, 0x4E0B, {0x8C, 0x3A, 0x51, 0xF2, 0x9D, 0x07, 0xB6, 0xE4}};

// With nC compounds and nP phases of the package. Phase indices are those of its phaseLabels,
// compound indices those of its compoundIds; the Overall phase has no index. Basis tags are 0 mole
// and 1 mass, and mean something only beside a value that is set.
//
// A package can keep a material beyond the close of its record: each method that works on it is then refused.
class CMaterialObject : public ErrorReporting,
                        public RecordUser,
                        public DualInterface<ICapeIdentification, LIBID_CAPEOPEN110>,
                        public DualInterface<ICapeThermoCompounds, LIBID_CAPEOPEN110>,
                        public DualInterface<ICapeThermoEquilibriumRoutine, LIBID_CAPEOPEN110>,
                        public DualInterface<ICapeThermoMaterial, LIBID_CAPEOPEN110>,
                        public DualInterface<ICapeThermoPhases, LIBID_CAPEOPEN110>,
                        public DualInterface<ICapeThermoPropertyRoutine, LIBID_CAPEOPEN110>,
                        public DualInterface<ICapeThermoUniversalConstant, LIBID_CAPEOPEN110>,
                        public DualInterface<IMaterial, LIBID_Verdanth>,
                        public CComObjectRootEx<CComSingleThreadModel>,
                        public CComCoClass<CLSID_MaterialObject> {
public:
    double temperature = 0;                       // K, for all phases
    double pressure = 0;                          // Pa, for all phases
    std::unique_ptr<double[]> overallComposition; // nC fractions
    std::int32_t overallCompositionBasis = 0;
    std::unique_ptr<std::unique_ptr<double[]>[]> phaseComposition; // nP times nC fractions
    std::unique_ptr<std::int32_t[]> phaseCompositionBasis;         // nP
    std::unique_ptr<double[]> phaseFraction;                       // nP, of the total
    std::unique_ptr<double[]> conversionScratch;                   // nC times nC; holds nothing between calls
    std::unique_ptr<std::int32_t[]> phaseFractionBasis;            // nP
    std::unique_ptr<std::int32_t[]> phasePresent;                  // nP, non-zero: present
    PropertyMap overallProps;
    std::unique_ptr<PropertyMap[]> phaseProps; // nP; two-phase values lie with their first phase
    WideString twoPhaseKeyScratch;             // holds nothing between calls

    RecentWrites recentWrites; // into phaseProps, of one phase
    RecentWrites recentTwoPhaseWrites;

    // Second stage of construction: the package's compound and phase lists must be loaded, and must
    // stay as they are while the material lives.
    void InitMaterial(OpenPackage *package);

    // What ClearAllProps does; the record must be there.
    void clear();

    std::int32_t compoundCount() const { return static_cast<std::int32_t>(openPackage->compoundIds.size()); }
    std::int32_t phaseCount() const { return static_cast<std::int32_t>(openPackage->phaseLabels.size()); }

    // What the conversions take of the material; they work in conversionScratch.
    MixtureComposition compositionOf(std::int32_t phase) const
    {
        return {openPackage->molecularWeights, phaseComposition[phase].get(), phaseCompositionBasis[phase],
                conversionScratch.get()};
    }
    MixtureComposition compositionOfOverall() const
    {
        return {openPackage->molecularWeights, overallComposition.get(), overallCompositionBasis,
                conversionScratch.get()};
    }
    PhaseAmounts phaseAmounts() const;

    // Index of a phase by its label without regard to case; -1 for a null or unknown label.
    std::int32_t PhaseIndex(LPCWSTR label) const;

    // Remembers why a call is refused; gives ECapeUnknownHR, the result of every refusal.
    HRESULT SetMaterialError(LPCWSTR name, LPCWSTR description, LPCWSTR interfaceName, LPCWSTR scope);
    HRESULT SetMaterialError(LPCWSTR name, const WideString &description, LPCWSTR interfaceName, LPCWSTR scope)
    {
        return SetMaterialError(name, description.c_str(), interfaceName, scope);
    }

    // The body of a method of a package's, whatever it throws; refused without a record to work on.
    template <class Body> HRESULT withRecord(LPCWSTR interfaceName, LPCWSTR scope, Body body) noexcept
    {
        return GuardedCall([&] { return openPackage ? body() : refuseWithoutRecord(interfaceName, scope); });
    }
    HRESULT refuseWithoutRecord(LPCWSTR interfaceName, LPCWSTR scope);

    void *FindInterface(REFIID iid);

    // ICapeIdentification
    HRESULT STDMETHODCALLTYPE get_ComponentName(BSTR *name) noexcept override;
    HRESULT STDMETHODCALLTYPE put_ComponentName(BSTR name) noexcept override;
    HRESULT STDMETHODCALLTYPE get_ComponentDescription(BSTR *description) noexcept override;
    HRESULT STDMETHODCALLTYPE put_ComponentDescription(BSTR description) noexcept override;

    // ICapeThermoCompounds: the list and its length are answered, the rest is refused
    HRESULT STDMETHODCALLTYPE GetCompoundConstant(VARIANT properties, VARIANT compoundIds,
                                                  VARIANT *values) noexcept override;
    HRESULT STDMETHODCALLTYPE GetCompoundList(VARIANT *compoundIds, VARIANT *formulae, VARIANT *names,
                                              VARIANT *boilingTemperatures, VARIANT *molecularWeights,
                                              VARIANT *casNumbers) noexcept override;
    HRESULT STDMETHODCALLTYPE GetConstPropList(VARIANT *properties) noexcept override;
    HRESULT STDMETHODCALLTYPE GetNumCompounds(LONG *count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetPDependentProperty(VARIANT properties, double pressure, VARIANT compoundIds,
                                                    VARIANT *values) noexcept override;
    HRESULT STDMETHODCALLTYPE GetPDependentPropList(VARIANT *properties) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTDependentProperty(VARIANT properties, double temperature, VARIANT compoundIds,
                                                    VARIANT *values) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTDependentPropList(VARIANT *properties) noexcept override;

    // ICapeThermoEquilibriumRoutine: refused
    HRESULT STDMETHODCALLTYPE CalcEquilibrium(VARIANT specification1, VARIANT specification2,
                                              BSTR solutionType) noexcept override;
    HRESULT STDMETHODCALLTYPE CheckEquilibriumSpec(VARIANT specification1, VARIANT specification2, BSTR solutionType,
                                                   VARIANT_BOOL *supported) noexcept override;

    // ICapeThermoMaterial
    HRESULT STDMETHODCALLTYPE ClearAllProps() noexcept override;
    HRESULT STDMETHODCALLTYPE CopyFromMaterial(IDispatch **source) noexcept override;
    HRESULT STDMETHODCALLTYPE CreateMaterial(IDispatch **material) noexcept override;
    HRESULT STDMETHODCALLTYPE GetOverallProp(BSTR property, BSTR basis, VARIANT *results) noexcept override;
    HRESULT STDMETHODCALLTYPE GetOverallTPFraction(double *temperature, double *pressure,
                                                   VARIANT *composition) noexcept override;
    HRESULT STDMETHODCALLTYPE GetPresentPhases(VARIANT *phaseLabels, VARIANT *phaseStatus) noexcept override;
    HRESULT STDMETHODCALLTYPE GetSinglePhaseProp(BSTR property, BSTR phaseLabel, BSTR basis,
                                                 VARIANT *results) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTPFraction(BSTR phaseLabel, double *temperature, double *pressure,
                                            VARIANT *composition) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTwoPhaseProp(BSTR property, VARIANT phaseLabels, BSTR basis,
                                              VARIANT *results) noexcept override;
    HRESULT STDMETHODCALLTYPE SetOverallProp(BSTR property, BSTR basis, VARIANT values) noexcept override;
    HRESULT STDMETHODCALLTYPE SetPresentPhases(VARIANT phaseLabels, VARIANT phaseStatus) noexcept override;
    HRESULT STDMETHODCALLTYPE SetSinglePhaseProp(BSTR property, BSTR phaseLabel, BSTR basis,
                                                 VARIANT values) noexcept override;
    HRESULT STDMETHODCALLTYPE SetTwoPhaseProp(BSTR property, VARIANT phaseLabels, BSTR basis,
                                              VARIANT values) noexcept override;

    // ICapeThermoPhases: the list and its length are answered, the rest is refused
    HRESULT STDMETHODCALLTYPE GetNumPhases(LONG *count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetPhaseInfo(BSTR phaseLabel, BSTR attribute, VARIANT *value) noexcept override;
    HRESULT STDMETHODCALLTYPE GetPhaseList(VARIANT *phaseLabels, VARIANT *statesOfAggregation,
                                           VARIANT *keyCompoundIds) noexcept override;

    // ICapeThermoPropertyRoutine: refused
    HRESULT STDMETHODCALLTYPE CalcAndGetLnPhi(BSTR phaseLabel, double temperature, double pressure, VARIANT moleNumbers,
                                              INT flags, VARIANT *lnPhi, VARIANT *lnPhiDT, VARIANT *lnPhiDP,
                                              VARIANT *lnPhiDn) noexcept override;
    HRESULT STDMETHODCALLTYPE CalcSinglePhaseProp(VARIANT properties, BSTR phaseLabel) noexcept override;
    HRESULT STDMETHODCALLTYPE CalcTwoPhaseProp(VARIANT properties, VARIANT phaseLabels) noexcept override;
    HRESULT STDMETHODCALLTYPE CheckSinglePhasePropSpec(BSTR property, BSTR phaseLabel,
                                                       VARIANT_BOOL *valid) noexcept override;
    HRESULT STDMETHODCALLTYPE CheckTwoPhasePropSpec(BSTR property, VARIANT phaseLabels,
                                                    VARIANT_BOOL *valid) noexcept override;
    HRESULT STDMETHODCALLTYPE GetSinglePhasePropList(VARIANT *properties) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTwoPhasePropList(VARIANT *properties) noexcept override;

    // ICapeThermoUniversalConstant: refused
    HRESULT STDMETHODCALLTYPE GetUniversalConstant(BSTR id, VARIANT *value) noexcept override;
    HRESULT STDMETHODCALLTYPE GetUniversalConstantList(VARIANT *ids) noexcept override;

    // IMaterial
    HRESULT STDMETHODCALLTYPE GetMaterialObject(CMaterialObject **material) noexcept override;
};

// A new material of the record; the caller owns the one reference on it.
CMaterialObject *NewMaterial(OpenPackage &package);
