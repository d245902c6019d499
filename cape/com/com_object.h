// The pattern of the system's own COM objects: a class lists its interfaces as bases and in a
// table, CComObject adds the counting, and DualInterface the IDispatch part of each interface.
#pragma once

#include "cape/com/type_information.h"
#include "platform/platform.h"

// The library's COM module: counts the objects that keep it in use.
struct ComModule {
    LONG lockCount = 0;
};
extern ComModule Module;

// One thread uses the objects: counts are plain integers.
struct CComSingleThreadModel {
    static ULONG Increment(ULONG &count) { return ++count; }
    static ULONG Decrement(ULONG &count) { return --count; }
};

template <class ThreadModel> class CComObjectRootEx {
protected:
    ULONG InternalAddRef() { return ThreadModel::Increment(referenceCount); }
    ULONG InternalRelease() { return ThreadModel::Decrement(referenceCount); }

    ULONG referenceCount = 0;
};

// Names the class in its type library. Objects are made with new, not through the registry.
template <const CLSID &ClassId> class CComCoClass {
public:
    static const CLSID &GetObjectCLSID() { return ClassId; }
};

// A complete object of a class that has a `void *FindInterface(REFIID)`, which gives the facet of
// an identifier or null. Starts with a count of 0 and deletes itself when it comes back there.
template <class Base> class CComObject final : public Base {
public:
    CComObject() { ++Module.lockCount; }
    CComObject(const CComObject &) = delete;
    CComObject &operator=(const CComObject &) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) noexcept override
    {
        if (!object)
            return E_POINTER;
        *object = this->FindInterface(iid);
        if (!*object)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return this->InternalAddRef(); }
    ULONG STDMETHODCALLTYPE Release() noexcept override
    {
        const ULONG left = this->InternalRelease();
        if (left == 0)
            delete this;
        return left;
    }

private:
    ~CComObject() { --Module.lockCount; }
};

// The IDispatch part of one interface, from its type information in a registered library.
template <class Interface, const GUID &Library> class DualInterface : public Interface {
public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT *count) noexcept override
    {
        if (!count)
            return E_POINTER;
        *count = 1;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo **info) noexcept override
    {
        return information().give(index, info);
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR *names, UINT count, LCID, DISPID *ids) noexcept override
    {
        return information().idsOfNames(names, count, ids);
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS *arguments, VARIANT *result,
                                     EXCEPINFO *exception, UINT *badArgument) noexcept override
    {
        return information().invoke(static_cast<Interface *>(this), id, flags, arguments, result, exception,
                                    badArgument);
    }

private:
    static TypeInformation &information()
    {
        static TypeInformation holder(Library, InterfaceId<Interface>);
        return holder;
    }
};

// One row of a class's table of interfaces.
template <class Class> struct InterfaceEntry {
    const IID *iid;
    void *(*facet)(Class *object);
};

// The row for `Interface` as it is reached through base `Facet`.
template <class Class, class Interface, class Facet = Interface> constexpr InterfaceEntry<Class> interfaceEntry()
{
    return {&InterfaceId<Interface>,
            [](Class *object) -> void * { return static_cast<Interface *>(static_cast<Facet *>(object)); }};
}

template <class Class, std::size_t Count>
void *findInterface(const InterfaceEntry<Class> (&table)[Count], REFIID iid, Class *object)
{
    for (const InterfaceEntry<Class> &entry : table)
        if (*entry.iid == iid)
            return entry.facet(object);
    return nullptr;
}
