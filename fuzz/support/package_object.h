// A property package as the system sees it: all its interfaces, each method led to one function of the one who plays
// it.
#pragma once

#include "fuzz/support/facet.h"

#include <memory>

namespace fuzz {

class PackageObject : public Component {
public:
    PackageObject();
    ~PackageObject() override;

    // Every interface of a package, the error interfaces too. Without IPersistStreamInit, which few have.
    HRESULT query(REFIID iid, void **object) override;

    // --- what the player answers; the names are those of the methods ---

    virtual HRESULT getCompoundList(VARIANT *(&lists)[6]) = 0; // ids, formulae, names, boiling points, weights, CAS
    virtual HRESULT getPhaseList(VARIANT *(&lists)[3]) = 0;    // labels, states of aggregation, key compounds
    virtual HRESULT getPropertyList(const char *method, VARIANT *list);
    virtual HRESULT getCompoundValues(const char *method, const VARIANT &properties, VARIANT *values);
    virtual HRESULT calcSinglePhaseProp(const VARIANT &properties, BSTR label);
    virtual HRESULT calcTwoPhaseProp(const VARIANT &properties, const VARIANT &labels);
    virtual HRESULT calcEquilibrium(const VARIANT &specification1, const VARIANT &specification2, BSTR solutionType);
    virtual HRESULT checkSpecification(const char *method, VARIANT_BOOL *supported);
    virtual HRESULT setMaterial(IDispatch *material);
    virtual HRESULT setContext(IDispatch *context);
    virtual HRESULT getText(const char *method, BSTR *text); // of the name and the error interfaces
    virtual HRESULT call(const char *method);                // Initialize, Terminate, InitNew

private:
    struct Facets;
    std::unique_ptr<Facets> facets;
};

} // namespace fuzz
