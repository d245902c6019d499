// Components that answer what the input says, however wrong: packages, managers, the relay.
#pragma once

#include "cape/com/com_pointer.h"
#include "fuzz/material/calls.h"
#include "fuzz/mex/library.h"
#include "fuzz/support/package_object.h"

namespace fuzz {

class Session;

class AnyPackage final : public PackageObject {
public:
    explicit AnyPackage(Session &itsSession);

    HRESULT query(REFIID iid, void **object) override;
    HRESULT getCompoundList(VARIANT *(&lists)[6]) override;
    HRESULT getPhaseList(VARIANT *(&lists)[3]) override;
    HRESULT getPropertyList(const char *method, VARIANT *list) override;
    HRESULT getCompoundValues(const char *method, const VARIANT &properties, VARIANT *values) override;
    HRESULT calcSinglePhaseProp(const VARIANT &properties, BSTR label) override;
    HRESULT calcTwoPhaseProp(const VARIANT &properties, const VARIANT &labels) override;
    HRESULT calcEquilibrium(const VARIANT &specification1, const VARIANT &specification2, BSTR solutionType) override;
    HRESULT checkSpecification(const char *method, VARIANT_BOOL *supported) override;
    HRESULT setMaterial(IDispatch *material) override;
    HRESULT setContext(IDispatch *context) override;
    HRESULT getText(const char *method, BSTR *text) override;
    HRESULT call(const char *method) override;

    Client client; // without material until SetMaterial
    ComPointer<IDispatch> context;

protected:
    void lastReferenceGone() override;

private:
    Session &session;
    const model::Package contents;
};

// S_OK with a new component of this kind, or what the input says instead.
HRESULT MakeComponent(Session &session, ComponentKind kind, REFIID iid, void **object);

} // namespace fuzz
