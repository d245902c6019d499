// A package record as the system keeps it, of a package that gives its lists and takes its material.
#pragma once

#include "cape/com/com_pointer.h"
#include "fuzz/model/material.h"
#include "fuzz/support/facet.h"
#include "packages/open_package.h"

#include <memory>

namespace fuzz {

// Up to four compounds and phases, whose labels may be alike or empty, and weights that may be missing.
model::Package AnyPackage(Input &input);

// The lists of a package as it gives them.
VARIANT TextList(const std::vector<WideString> &texts);
VARIANT NumberList(const std::vector<double> &numbers);

class PlainPackage final : public Component {
public:
    explicit PlainPackage(const model::Package &contents) : package(contents) {}
    HRESULT query(REFIID iid, void **object) override;

    ComPointer<IDispatch> material; // of SetMaterial

private:
    const model::Package &package;

    struct ContextFacet : Facet<ICapeThermoMaterialContext> {
        explicit ContextFacet(PlainPackage &owner) : Facet(owner), package(owner) {}
        HRESULT STDMETHODCALLTYPE SetMaterial(IDispatch *material) override;
        HRESULT STDMETHODCALLTYPE UnsetMaterial() override { return S_OK; }
        PlainPackage &package;
    };
    struct CompoundsFacet : Facet<ICapeThermoCompounds> {
        explicit CompoundsFacet(PlainPackage &owner) : Facet(owner), package(owner.package) {}
        HRESULT STDMETHODCALLTYPE GetCompoundConstant(VARIANT, VARIANT, VARIANT *) override { return E_NOTIMPL; }
        HRESULT STDMETHODCALLTYPE GetCompoundList(VARIANT *compoundIds, VARIANT *formulae, VARIANT *names,
                                                  VARIANT *boilingTemperatures, VARIANT *molecularWeights,
                                                  VARIANT *casNumbers) override;
        HRESULT STDMETHODCALLTYPE GetConstPropList(VARIANT *) override { return E_NOTIMPL; }
        HRESULT STDMETHODCALLTYPE GetNumCompounds(LONG *) override { return E_NOTIMPL; }
        HRESULT STDMETHODCALLTYPE GetPDependentProperty(VARIANT, double, VARIANT, VARIANT *) override
        {
            return E_NOTIMPL;
        }
        HRESULT STDMETHODCALLTYPE GetPDependentPropList(VARIANT *) override { return E_NOTIMPL; }
        HRESULT STDMETHODCALLTYPE GetTDependentProperty(VARIANT, double, VARIANT, VARIANT *) override
        {
            return E_NOTIMPL;
        }
        HRESULT STDMETHODCALLTYPE GetTDependentPropList(VARIANT *) override { return E_NOTIMPL; }
        const model::Package &package;
    };
    struct PhasesFacet : Facet<ICapeThermoPhases> {
        explicit PhasesFacet(PlainPackage &owner) : Facet(owner), package(owner.package) {}
        HRESULT STDMETHODCALLTYPE GetNumPhases(LONG *) override { return E_NOTIMPL; }
        HRESULT STDMETHODCALLTYPE GetPhaseInfo(BSTR, BSTR, VARIANT *) override { return E_NOTIMPL; }
        HRESULT STDMETHODCALLTYPE GetPhaseList(VARIANT *phaseLabels, VARIANT *statesOfAggregation,
                                               VARIANT *keyCompoundIds) override;
        const model::Package &package;
    };

    ContextFacet context{*this}; // the identity
    CompoundsFacet compounds{*this};
    PhasesFacet phases{*this};
};

// Opened when it is made. It is closed by its end or before; the material lives as long as somebody holds it.
class Record {
public:
    explicit Record(Input &input);
    ~Record();

    void close();

    const model::Package contents;
    PlainPackage package{contents};
    std::unique_ptr<OpenPackage> record; // null when closed
};

} // namespace fuzz
