#include "cape/com/type_information.h"

#include "cape/com/com_pointer.h"

template <> struct InterfaceIdOf<ITypeLib> {
    static constexpr GUID value = {0x00020402, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
};

TypeInformation::~TypeInformation()
{
    if (info)
        info->Release();
}

HRESULT TypeInformation::load()
{
    if (info)
        return S_OK;
    constexpr WORD major = 1;
    constexpr WORD minor = 1;
    ComPointer<ITypeLib> library;
    const HRESULT hr = LoadRegTypeLib(libraryId, major, minor, 0, library.out());
    if (FAILED(hr))
        return hr;
    return library->GetTypeInfoOfGuid(iid, &info);
}

HRESULT TypeInformation::give(UINT index, ITypeInfo **result)
{
    if (result)
        *result = nullptr;
    if (index != 0)
        return DISP_E_BADINDEX;
    if (!result)
        return E_POINTER;
    const HRESULT hr = load();
    if (FAILED(hr))
        return hr;
    info->AddRef();
    *result = info;
    return S_OK;
}

HRESULT TypeInformation::idsOfNames(LPOLESTR *names, UINT count, DISPID *ids)
{
    const HRESULT hr = load();
    return FAILED(hr) ? hr : info->GetIDsOfNames(names, count, ids);
}

HRESULT TypeInformation::invoke(void *instance, DISPID id, WORD flags, DISPPARAMS *arguments, VARIANT *result,
                                EXCEPINFO *exception, UINT *badArgument)
{
    const HRESULT hr = load();
    return FAILED(hr) ? hr : info->Invoke(instance, id, flags, arguments, result, exception, badArgument);
}
