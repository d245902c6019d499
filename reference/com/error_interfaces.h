// The error interfaces of a component: what they tell is its last error.
//
// The standard lets a client ask a failed object for the interface that names the error, as a program catches an
// exception of some class; COM wants an object to answer QueryInterface the same way all its life, and proxies count on
// that: one that has an interface of an object keeps giving it without asking again, so that through the relay the
// interfaces of earlier errors would stay. So a component has, all the time, the interfaces of all the errors that it
// can raise and of what they derive from in the standard, and those of no others. Which error it was the result code
// says, and ECapeRoot's name; the members of the other interfaces are undefined then: position 0, bounds that are no
// numbers, empty texts.
//
// E_POINTER and E_OUTOFMEMORY are COM's own results and are not described.
#pragma once

#include "cape/com/cape_open_errors.h"
#include "reference/com/errors.h"
#include "reference/com/without_dispatch.h"

namespace reference {

class ErrorInterfaces : public WithoutDispatch<ECapeRoot>,
                        public WithoutDispatch<ECapeUser>,
                        public WithoutDispatch<ECapeUnknown>,
                        public WithoutDispatch<ECapeData>,
                        public WithoutDispatch<ECapeBadArgument>,
                        public WithoutDispatch<ECapeInvalidArgument>,
                        public WithoutDispatch<ECapeOutOfBounds>,
                        public WithoutDispatch<ECapeBoundaries>,
                        public WithoutDispatch<ECapeImplementation>,
                        public WithoutDispatch<ECapeNoImpl>,
                        public WithoutDispatch<ECapeLimitedImpl>,
                        public WithoutDispatch<ECapeComputation>,
                        public WithoutDispatch<ECapeFailedInitialisation>,
                        public WithoutDispatch<ECapeSolvingError>,
                        public WithoutDispatch<ECapeBadInvOrder>,
                        public WithoutDispatch<ECapeThrmPropertyNotAvailable> {
public:
    HRESULT STDMETHODCALLTYPE get_name(BSTR *name) override;

    HRESULT STDMETHODCALLTYPE get_code(LONG *code) override;
    HRESULT STDMETHODCALLTYPE get_description(BSTR *description) override;
    HRESULT STDMETHODCALLTYPE get_scope(BSTR *scope) override;
    HRESULT STDMETHODCALLTYPE get_interfaceName(BSTR *name) override;
    HRESULT STDMETHODCALLTYPE get_operation(BSTR *operation) override;
    HRESULT STDMETHODCALLTYPE get_moreInfo(BSTR *information) override;

    HRESULT STDMETHODCALLTYPE get_position(SHORT *position) override;

    HRESULT STDMETHODCALLTYPE get_LowerBound(double *bound) override;
    HRESULT STDMETHODCALLTYPE get_UpperBound(double *bound) override;
    HRESULT STDMETHODCALLTYPE get_value(double *value) override;
    HRESULT STDMETHODCALLTYPE get_Type(BSTR *type) override;

    HRESULT STDMETHODCALLTYPE get_requestedOperation(BSTR *operation) override;

protected:
    ~ErrorInterfaces() = default;

    // One of the interfaces; null for others.
    void *findErrorInterface(REFIID iid);

    ErrorReport lastError;
};

} // namespace reference
