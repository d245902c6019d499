#include "cape/error_state.h"

HRESULT GiveText(LPCWSTR text, BSTR *result)
{
    if (!result)
        return E_POINTER;
    *result = SysAllocString(text);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE ErrorReporting::get_name(BSTR *name) { return GiveText(errorName.c_str(), name); }

HRESULT STDMETHODCALLTYPE ErrorReporting::get_code(LONG *code)
{
    if (!code)
        return E_POINTER;
    *code = 0;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE ErrorReporting::get_description(BSTR *description)
{
    return GiveText(errorDescription.c_str(), description);
}

HRESULT STDMETHODCALLTYPE ErrorReporting::get_scope(BSTR *scope) { return GiveText(errorScope.c_str(), scope); }

HRESULT STDMETHODCALLTYPE ErrorReporting::get_interfaceName(BSTR *name)
{
    return GiveText(errorInterface.c_str(), name);
}

HRESULT STDMETHODCALLTYPE ErrorReporting::get_operation(BSTR *operation) { return GiveText(OLESTR("N/A"), operation); }

HRESULT STDMETHODCALLTYPE ErrorReporting::get_moreInfo(BSTR *info)
{
    return GiveText(OLESTR("https://verdanth.example/errors"), info);
}

void ErrorReporting::setError(LPCWSTR name, LPCWSTR description, LPCWSTR interfaceName, LPCWSTR scope)
{
    errorName = name;
    errorDescription = description;
    errorInterface = interfaceName;
    errorScope = scope;
}
