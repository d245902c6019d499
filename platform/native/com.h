// COM: the interfaces every object stands on, class creation, identifiers as text.
// Classes are created from factories registered in the process, or from shared objects that the
// registry names under InprocServer32 and that export DllGetClassObject.
#pragma once

#include "platform/native/automation.h"
#include "platform/native/types.h"

struct IUnknown {
    virtual HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) = 0;
    virtual ULONG STDMETHODCALLTYPE AddRef() = 0;
    virtual ULONG STDMETHODCALLTYPE Release() = 0;
};
using LPUNKNOWN = IUnknown *;

struct IClassFactory : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown *outer, REFIID iid, void **object) = 0;
    virtual HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) = 0;
};

struct DISPPARAMS {
    VARIANTARG *rgvarg;
    DISPID *rgdispidNamedArgs;
    UINT cArgs;
    UINT cNamedArgs;
};

struct EXCEPINFO {
    WORD wCode;
    WORD wReserved;
    BSTR bstrSource;
    BSTR bstrDescription;
    BSTR bstrHelpFile;
    DWORD dwHelpContext;
    void *pvReserved;
    HRESULT (*pfnDeferredFillIn)(EXCEPINFO *);
    SCODE scode;
};

constexpr WORD DISPATCH_METHOD = 1;
constexpr WORD DISPATCH_PROPERTYGET = 2;
constexpr WORD DISPATCH_PROPERTYPUT = 4;

struct ITypeInfo;

struct IDispatch : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT *count) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo **info) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR *names, UINT count, LCID locale,
                                                    DISPID *ids) = 0;
    virtual HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS *arguments,
                                             VARIANT *result, EXCEPINFO *exception, UINT *badArgument) = 0;
};
using LPDISPATCH = IDispatch *;

// Type information exists on Windows only; these two carry the operations that our objects call.
struct ITypeInfo : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetIDsOfNames(LPOLESTR *names, UINT count, DISPID *ids) = 0;
    virtual HRESULT STDMETHODCALLTYPE Invoke(void *instance, DISPID id, WORD flags, DISPPARAMS *arguments,
                                             VARIANT *result, EXCEPINFO *exception, UINT *badArgument) = 0;
};

struct ITypeLib : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfoOfGuid(REFGUID id, ITypeInfo **info) = 0;
};

// No type library can be registered here: answers TYPE_E_LIBNOTREGISTERED and a null library.
HRESULT LoadRegTypeLib(REFGUID library, WORD major, WORD minor, LCID locale, ITypeLib **result);

struct IStream;

struct IPersist : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetClassID(CLSID *classId) = 0;
};

struct IPersistStreamInit : IPersist {
    virtual HRESULT STDMETHODCALLTYPE IsDirty() = 0;
    virtual HRESULT STDMETHODCALLTYPE Load(IStream *stream) = 0;
    virtual HRESULT STDMETHODCALLTYPE Save(IStream *stream, BOOL clearDirty) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER *size) = 0;
    virtual HRESULT STDMETHODCALLTYPE InitNew() = 0;
};

enum : DWORD {
    CLSCTX_INPROC_SERVER = 1,
    CLSCTX_INPROC_HANDLER = 2,
    CLSCTX_LOCAL_SERVER = 4,
    CLSCTX_REMOTE_SERVER = 16,
};
enum : DWORD { COINIT_MULTITHREADED = 0, COINIT_APARTMENTTHREADED = 2 };
enum : DWORD { REGCLS_SINGLEUSE = 0, REGCLS_MULTIPLEUSE = 1 };

// S_OK on the thread's first call, S_FALSE on further ones; each is undone by CoUninitialize.
HRESULT CoInitializeEx(LPVOID reserved, DWORD mode);
void CoUninitialize();

// Creates an object of a class: CO_E_NOTINITIALIZED before CoInitializeEx, REGDB_E_CLASSNOTREG for
// a class with neither factory nor registration for one of the contexts asked for.
HRESULT CoCreateInstance(REFCLSID classId, IUnknown *outer, DWORD context, REFIID iid, void **object);
HRESULT CoRegisterClassObject(REFCLSID classId, IUnknown *factory, DWORD context, DWORD flags, DWORD *cookie);
HRESULT CoRevokeClassObject(DWORD cookie);

HRESULT CLSIDFromString(LPCOLESTR text, CLSID *classId);
HRESULT StringFromCLSID(REFCLSID classId, LPOLESTR *text); // CoTaskMemFree the text
int StringFromGUID2(REFGUID id, LPOLESTR text, int capacity);
HRESULT ProgIDFromCLSID(REFCLSID classId, LPOLESTR *text); // CoTaskMemFree the text

void *CoTaskMemAlloc(std::size_t size);
void CoTaskMemFree(void *block);
