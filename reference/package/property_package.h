// A CAPE-OPEN 1.1 property package that calculates with the engine.
#pragma once

#include "cape/com/com_pointer.h"
#include "reference/com/component.h"
#include "reference/engine/flash/flash.h"
#include "reference/engine/phase/phase_point.h"
#include "reference/package/package_table.h"

#include <utility>
#include <vector>

namespace reference {

struct AllowedPhases;
struct ConditionedProperties;
struct FlashInput;

class PropertyPackage final : public Component,
                              public WithoutDispatch<ICapeThermoMaterialContext>,
                              public WithoutDispatch<ICapeThermoCompounds>,
                              public WithoutDispatch<ICapeThermoPhases>,
                              public WithoutDispatch<ICapeThermoPropertyRoutine>,
                              public WithoutDispatch<ICapeThermoEquilibriumRoutine>,
                              public WithoutDispatch<ICapeThermoUniversalConstant> {
public:
    PropertyPackage(const ComponentDescription &description, const PackageDefinition &definition);

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return Component::AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return Component::Release(); }

    HRESULT STDMETHODCALLTYPE Terminate() override; // releases the material

    // The material's compounds are matched with the package's by id or, where the id is unknown, by CAS
    // number: any subset of them in any order, each once. A second material replaces the first; one that
    // is refused leaves the first in place. Both refuse while a calculation with the material is going on,
    // in a call from the material or beneath it.
    HRESULT STDMETHODCALLTYPE SetMaterial(IDispatch *material) override;
    HRESULT STDMETHODCALLTYPE UnsetMaterial() override;

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

    HRESULT STDMETHODCALLTYPE GetNumPhases(LONG *count) override;
    HRESULT STDMETHODCALLTYPE GetPhaseInfo(BSTR phaseLabel, BSTR attribute, VARIANT *value) override;
    HRESULT STDMETHODCALLTYPE GetPhaseList(VARIANT *phaseLabels, VARIANT *statesOfAggregation,
                                           VARIANT *keyCompoundIds) override;

    // Enthalpy and entropy are those of engine/phase/phase_properties.h: without formation.
    HRESULT STDMETHODCALLTYPE CalcAndGetLnPhi(BSTR phaseLabel, double temperature, double pressure, VARIANT moleNumbers,
                                              INT flags, VARIANT *lnPhi, VARIANT *lnPhiDT, VARIANT *lnPhiDP,
                                              VARIANT *lnPhiDn) override;
    HRESULT STDMETHODCALLTYPE CalcSinglePhaseProp(VARIANT properties, BSTR phaseLabel) override;
    HRESULT STDMETHODCALLTYPE CalcTwoPhaseProp(VARIANT properties, VARIANT phaseLabels) override;
    HRESULT STDMETHODCALLTYPE CheckSinglePhasePropSpec(BSTR property, BSTR phaseLabel, VARIANT_BOOL *valid) override;
    HRESULT STDMETHODCALLTYPE CheckTwoPhasePropSpec(BSTR property, VARIANT phaseLabels, VARIANT_BOOL *valid) override;
    HRESULT STDMETHODCALLTYPE GetSinglePhasePropList(VARIANT *properties) override;
    HRESULT STDMETHODCALLTYPE GetTwoPhasePropList(VARIANT *properties) override;

    HRESULT STDMETHODCALLTYPE CalcEquilibrium(VARIANT specification1, VARIANT specification2,
                                              BSTR solutionType) override;
    HRESULT STDMETHODCALLTYPE CheckEquilibriumSpec(VARIANT specification1, VARIANT specification2, BSTR solutionType,
                                                   VARIANT_BOOL *supported) override;

    HRESULT STDMETHODCALLTYPE GetUniversalConstant(BSTR id, VARIANT *value) override;
    HRESULT STDMETHODCALLTYPE GetUniversalConstantList(VARIANT *ids) override;

private:
    ~PropertyPackage() override = default;
    void *findInterface(REFIID iid) override;

    // The package's compound with this text in a column of the data, compared without regard to case; null if none.
    const CompoundData *findCompound(BSTR text, std::string_view CompoundData::*column) const;

    // The compounds of a material, in its order.
    HRESULT readMaterialCompounds(const Call &call, ICapeThermoCompounds &list,
                                  std::vector<const CompoundData *> &chosen) const;

    // The compounds that an argument, which is at this position, names: all of the package for an empty one.
    HRESULT readCompounds(const Call &call, const VARIANT &argument, int position,
                          std::vector<const CompoundData *> &chosen) const;

    // Gives properties of pure compounds that depend on a condition. Values that are unknown are NaN; it
    // refuses when none is known.
    HRESULT giveConditioned(const Call &call, const ConditionedProperties &table, double condition,
                            const VARIANT &properties, const VARIANT &compoundIds, VARIANT *values) const;

    // Refuses when no material is set.
    HRESULT needMaterial(const Call &call) const;

    // A calculation that calls the material, for as long as this lives.
    class Calculation {
    public:
        Calculation(PropertyPackage &owner, const Call &call)
            : package(owner), outer(std::exchange(owner.calculating, call.operation))
        {
        }
        Calculation(const Calculation &) = delete;
        Calculation &operator=(const Calculation &) = delete;
        ~Calculation() { package.calculating = outer; }

    private:
        PropertyPackage &package;
        const LPCWSTR outer;
    };

    // Refuses while there is one.
    HRESULT needNoCalculation(const Call &call) const;
    HRESULT releaseMaterial(const Call &call);

    // Refuses a value that is none: an argument of the call is not valid then, and what is to be read of the material
    // is missing. The position is that of the argument, or of the one that tells what to read, if any.
    struct ValueSource {
        int position;
        bool isMaterial;

        HRESULT refuse(const Call &call, WideString description) const;
    };

    // Refuses a temperature or pressure outside the range of the models.
    HRESULT checkCondition(const Call &call, FlashVariable condition, double value, ValueSource source) const;

    // Amounts of the material's compounds, scaled to sum to one. Refuses those of compounds that the model does not
    // know together.
    HRESULT readComposition(const Call &call, const VARIANT &amounts, ValueSource source,
                            CompoundArray &fractions) const;

    // A phase of the material; the position is that of the argument that tells which.
    struct PhaseConditions {
        double temperature;
        double pressure;
        CompoundArray fractions;

        PhasePoint point(const MixtureModel &model, Root root) const;
    };
    HRESULT readPhase(const Call &call, BSTR phaseLabel, int position, PhaseConditions &conditions) const;

    bool offers(auto... asked) const;

    // Turns a failed write of a property to the material into a refusal.
    HRESULT refuseWrite(const Call &call, HRESULT written) const;

    // The phases that the material lets a flash use.
    HRESULT readAllowedPhases(const Call &call, AllowedPhases &allowed) const;

    // The feed and the values of both inputs.
    HRESULT readFlashConditions(const Call &call, const FlashInput (&inputs)[2], FlashRequest &request,
                                CompoundArray &feed) const;
    HRESULT readFlashValue(const Call &call, const FlashInput &input, FlashSpecification &target) const;

    // Turns a flash that found no equilibrium into a refusal.
    HRESULT refuseFlash(const Call &call, FlashStatus status, const FlashInput (&inputs)[2],
                        const FlashRequest &request, const FlashReason &reason) const;

    // Subtracts the formation of the feed from a value that includes it.
    HRESULT leaveOutFormation(const Call &call, const FlashInput &input, const CompoundArray &feed,
                              double &value) const;

    // The overall temperature and pressure are written where they were not given.
    struct GivenConditions {
        bool temperature;
        bool pressure;
    };
    HRESULT writeEquilibrium(const Call &call, const FlashResult &result, const AllowedPhases &allowed,
                             const GivenConditions &given) const;

    const EquationOfState equation;
    std::vector<const CompoundData *> compounds;
    ComPointer<ICapeThermoMaterial> material;
    LPCWSTR calculating = nullptr;                 // the method of the innermost calculation, if there is one
    MixtureModel model;                            // of the material's compounds, in the material's order
    std::vector<std::pair<int, int>> unknownPairs; // of those compounds, which the model has no parameters for

    // Identifiers for calls to the material, allocated once.
    struct {
        Bstr mole{"mole"};
        Bstr mass{"mass"};
        Bstr temperature{"temperature"};
        Bstr pressure{"pressure"};
        Bstr fraction{"fraction"};
        Bstr phaseFraction{"phaseFraction"};
    } words;
};

} // namespace reference
