// Type information of one interface, loaded from its registered type library at first use and
// then kept.
#pragma once

#include "platform/platform.h"

class TypeInformation {
public:
    TypeInformation(const GUID &library, const GUID &interfaceId) : libraryId(library), iid(interfaceId) {}
    ~TypeInformation();
    TypeInformation(const TypeInformation &) = delete;
    TypeInformation &operator=(const TypeInformation &) = delete;

    // What the methods of IDispatch do; each gives the loading's failure when there is no library.
    HRESULT give(UINT index, ITypeInfo **result); // DISP_E_BADINDEX for any index but 0, E_POINTER for a null result
    HRESULT idsOfNames(LPOLESTR *names, UINT count, DISPID *ids);
    HRESULT invoke(void *instance, DISPID id, WORD flags, DISPPARAMS *arguments, VARIANT *result, EXCEPINFO *exception,
                   UINT *badArgument);

private:
    HRESULT load();

    const GUID &libraryId;
    const GUID &iid;
    ITypeInfo *info = nullptr;
};
