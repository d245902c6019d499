// The COM side of a scripted component: an object is a set of facets, one for each interface,
// which count their references apart.
#pragma once

#include "cape/com/cape_open.h"
#include "tests/support/component_script.h"
#include "tests/support/without_names.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

namespace support {

class FacetBase;

class ScriptedObject {
public:
    explicit ScriptedObject(ComponentScript &componentScript) : script(componentScript) {}
    ScriptedObject(const ScriptedObject &) = delete;
    ScriptedObject &operator=(const ScriptedObject &) = delete;
    virtual ~ScriptedObject() = default;

    HRESULT query(REFIID from, REFIID wanted, void **object);
    ULONG addReference(FacetBase &facet);
    ULONG releaseReference(FacetBase &facet);
    int references() const { return total; }
    int references(REFIID iid) const;

    // Notes the call and gives its scripted result, S_OK if there is none. A method that gets a
    // failing one returns it and does nothing.
    HRESULT enter(const char *method);

    ComponentScript &script;

private:
    friend class FacetBase;

    bool leadsToWords(REFIID from, REFIID wanted) const;

    std::vector<FacetBase *> facets; // in order of construction; the first is the identity
    int total = 0;
    bool released = false;
};

class FacetBase {
public:
    FacetBase(ScriptedObject &owner, REFIID interfaceId);
    virtual ~FacetBase() = default;
    virtual void *pointer() = 0; // the facet as its interface

    ScriptedObject &object;
    const IID &iid;
    int references = 0;
};

// IUnknown of one interface; `Base` is the interface, or has more of it.
template <class Interface, class Base = Interface> class UnknownFacet : public Base, public FacetBase {
public:
    explicit UnknownFacet(ScriptedObject &owner) : FacetBase(owner, InterfaceId<Interface>) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void **result) override
    {
        return object.query(iid, wanted, result);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return object.addReference(*this); }
    ULONG STDMETHODCALLTYPE Release() override { return object.releaseReference(*this); }

    void *pointer() override { return static_cast<Interface *>(this); }
};

// What stands in the out slot of a call that failed is nobody's business: here it is an address of nothing.
template <class Pointer> void LeaveRubbish(Pointer *slot) { *slot = reinterpret_cast<Pointer>(std::uintptr_t{0x10}); }

// A VARIANT that a component is handed to fill: [in, out] in most methods, and empty in all of them.
inline void ExpectEmpty(const VARIANT *target, const char *method) { EXPECT_EQ(target->vt, VT_EMPTY) << method; }

// The same of an interface that can be called by name.
template <class Interface> class Facet : public UnknownFacet<Interface, WithoutNames<Interface>> {
public:
    using UnknownFacet<Interface, WithoutNames<Interface>>::UnknownFacet;
};

// The interfaces that every component has.
class IdentificationFacet : public Facet<ICapeIdentification> {
public:
    using Facet::Facet;
    HRESULT STDMETHODCALLTYPE get_ComponentName(BSTR *name) override;
    HRESULT STDMETHODCALLTYPE put_ComponentName(BSTR name) override;
    HRESULT STDMETHODCALLTYPE get_ComponentDescription(BSTR *description) override;
    HRESULT STDMETHODCALLTYPE put_ComponentDescription(BSTR description) override;
};

class UtilitiesFacet : public Facet<ICapeUtilities> {
public:
    using Facet::Facet;
    HRESULT STDMETHODCALLTYPE get_parameters(IDispatch **parameters) override;
    HRESULT STDMETHODCALLTYPE put_simulationContext(IDispatch *context) override;
    HRESULT STDMETHODCALLTYPE Initialize() override;
    HRESULT STDMETHODCALLTYPE Terminate() override;
    HRESULT STDMETHODCALLTYPE Edit() override;
};

class PersistFacet : public UnknownFacet<IPersistStreamInit> {
public:
    using UnknownFacet::UnknownFacet;
    HRESULT STDMETHODCALLTYPE GetClassID(CLSID *classId) override;
    HRESULT STDMETHODCALLTYPE IsDirty() override;
    HRESULT STDMETHODCALLTYPE Load(IStream *stream) override;
    HRESULT STDMETHODCALLTYPE Save(IStream *stream, BOOL clearDirty) override;
    HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER *size) override;
    HRESULT STDMETHODCALLTYPE InitNew() override;
};

class ErrorUserFacet : public Facet<ECapeUser> {
public:
    using Facet::Facet;
    HRESULT STDMETHODCALLTYPE get_code(LONG *code) override;
    HRESULT STDMETHODCALLTYPE get_description(BSTR *description) override; // the text comes also with a failing result
    HRESULT STDMETHODCALLTYPE get_scope(BSTR *scope) override;
    HRESULT STDMETHODCALLTYPE get_interfaceName(BSTR *name) override;
    HRESULT STDMETHODCALLTYPE get_operation(BSTR *operation) override;
    HRESULT STDMETHODCALLTYPE get_moreInfo(BSTR *info) override;
};

class ErrorRootFacet : public Facet<ECapeRoot> {
public:
    using Facet::Facet;
    HRESULT STDMETHODCALLTYPE get_name(BSTR *name) override; // the text comes also with a failing result
};

// An object with the common interfaces; kinds of components add theirs.
class ScriptedComponent : public ScriptedObject {
public:
    explicit ScriptedComponent(ComponentScript &componentScript) : ScriptedObject(componentScript) {}

private:
    Facet<IDispatch> identity{*this};
    IdentificationFacet identification{*this};
    UtilitiesFacet utilities{*this};
    PersistFacet persist{*this};
    ErrorUserFacet errorUser{*this};
    ErrorRootFacet errorRoot{*this};
};

} // namespace support
