#include "cape/error_state.h"

HRESULT GiveText(LPCWSTR text, BSTR *result) noexcept
{
    if (!result)
        return E_POINTER;
    *result = SysAllocString(text);
    return *result ? S_OK : E_OUTOFMEMORY;
}

HRESULT STDMETHODCALLTYPE ErrorReporting::get_name(BSTR *name) noexcept { return GiveText(errorName.c_str(), name); }

HRESULT STDMETHODCALLTYPE ErrorReporting::get_code(LONG *code) noexcept
{
    if (!code)
        return E_POINTER;
    *code = 0;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE ErrorReporting::get_description(BSTR *description) noexcept
{
    return GiveText(errorDescription.c_str(), description);
}

HRESULT STDMETHODCALLTYPE ErrorReporting::get_scope(BSTR *scope) noexcept
{
    return GiveText(errorScope.c_str(), scope);
}

HRESULT STDMETHODCALLTYPE ErrorReporting::get_interfaceName(BSTR *name) noexcept
{
    return GiveText(errorInterface.c_str(), name);
}

HRESULT STDMETHODCALLTYPE ErrorReporting::get_operation(BSTR *operation) noexcept
{
    return GiveText(OLESTR("N/A"), operation);
}

HRESULT STDMETHODCALLTYPE ErrorReporting::get_moreInfo(BSTR *info) noexcept
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
