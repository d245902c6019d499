// The error interfaces of the system's own COM objects. An object that refuses a call remembers
// why, and the caller asks the same object for the reason: one state per object, the latest
// refusal only, never cleared by a later success.
#pragma once

#include "cape/com/cape_open.h"
#include "cape/com/com_object.h"
#include "platform/platform.h"

class ErrorReporting : public DualInterface<ECapeRoot, LIBID_CAPEOPEN110>,
                       public DualInterface<ECapeUnknown, LIBID_CAPEOPEN110>,
                       public DualInterface<ECapeUser, LIBID_CAPEOPEN110> {
public:
    HRESULT STDMETHODCALLTYPE get_name(BSTR *name) noexcept override;
    HRESULT STDMETHODCALLTYPE get_code(LONG *code) noexcept override; // always 0
    HRESULT STDMETHODCALLTYPE get_description(BSTR *description) noexcept override;
    HRESULT STDMETHODCALLTYPE get_scope(BSTR *scope) noexcept override;
    HRESULT STDMETHODCALLTYPE get_interfaceName(BSTR *name) noexcept override;
    // Always "N/A": the method stands in the scope.
    HRESULT STDMETHODCALLTYPE get_operation(BSTR *operation) noexcept override;
    HRESULT STDMETHODCALLTYPE get_moreInfo(BSTR *info) noexcept override; // always one address

protected:
    void setError(LPCWSTR name, LPCWSTR description, LPCWSTR interfaceName, LPCWSTR scope);

    WideString errorName;        // a short kind of error, such as "Access denied"
    WideString errorDescription; // the sentence that says what went wrong
    WideString errorInterface;   // the interface that was called
    WideString errorScope;       // the method that was called
};

// A new BSTR of the text into an out-parameter: E_POINTER for a null one, E_OUTOFMEMORY leaves null.
HRESULT GiveText(LPCWSTR text, BSTR *result) noexcept;
