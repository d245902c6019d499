#include "platform/native/ownership.h"
#include "platform/native/com.h"
#include "platform/native/element_type.h"

#include <cstring>

void native::freeElement(VARTYPE type, void *element)
{
    switch (type) {
    case VT_BSTR:
        SysFreeString(*static_cast<BSTR *>(element));
        break;
    case VT_UNKNOWN:
    case VT_DISPATCH: {
        IUnknown *object = *static_cast<IUnknown **>(element);
        if (object)
            object->Release();
        break;
    }
    case VT_VARIANT:
        VariantClear(static_cast<VARIANT *>(element));
        break;
    default:
        break;
    }
}

HRESULT native::copyElement(VARTYPE type, void *target, const void *source)
{
    switch (type) {
    case VT_BSTR:
        return copyString(*static_cast<const BSTR *>(source), *static_cast<BSTR *>(target)) ? S_OK : E_OUTOFMEMORY;
    case VT_UNKNOWN:
    case VT_DISPATCH: {
        IUnknown *object = *static_cast<IUnknown *const *>(source);
        if (object)
            object->AddRef();
        *static_cast<IUnknown **>(target) = object;
        return S_OK;
    }
    case VT_VARIANT:
        VariantInit(static_cast<VARIANT *>(target));
        return VariantCopy(static_cast<VARIANT *>(target), static_cast<const VARIANT *>(source));
    default:
        std::memcpy(target, source, elementSize(type));
        return S_OK;
    }
}
