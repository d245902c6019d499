// What all objects of the library have in common: reference counting, identification, life cycle, the
// description of their last error.
#pragma once

#include "cape/com/cape_open.h"
#include "reference/com/automation.h"
#include "reference/com/error_interfaces.h"

#include <atomic>

namespace reference {

// Objects and locks that keep the library loaded.
extern std::atomic<LONG> libraryUses;

struct ComponentDescription {
    const CLSID *classId; // of the object itself, or of the manager that creates it
    std::string_view name;
    std::string_view description;
};

class Component : public WithoutDispatch<ICapeIdentification>,
                  public WithoutDispatch<ICapeUtilities>,
                  public ErrorInterfaces,
                  public IPersistStreamInit {
public:
    // Starts with one reference, the creator's.
    explicit Component(const ComponentDescription &description);
    Component(const Component &) = delete;
    Component &operator=(const Component &) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE get_ComponentName(BSTR *name) override;
    HRESULT STDMETHODCALLTYPE put_ComponentName(BSTR name) override;
    HRESULT STDMETHODCALLTYPE get_ComponentDescription(BSTR *description) override;
    HRESULT STDMETHODCALLTYPE put_ComponentDescription(BSTR description) override;

    // There are no parameters and nothing to edit, the calculations send nothing to the simulation
    // context, and nothing is so slow that it is left to Initialize: a component can be used as soon as
    // it exists, and after Terminate.
    HRESULT STDMETHODCALLTYPE get_parameters(IDispatch **parameters) override;
    HRESULT STDMETHODCALLTYPE put_simulationContext(IDispatch *context) override;
    HRESULT STDMETHODCALLTYPE Initialize() override;
    HRESULT STDMETHODCALLTYPE Terminate() override;
    HRESULT STDMETHODCALLTYPE Edit() override;

    // Nothing has to be stored: InitNew and Load succeed, Save writes nothing.
    HRESULT STDMETHODCALLTYPE GetClassID(CLSID *classId) override;
    HRESULT STDMETHODCALLTYPE IsDirty() override;
    HRESULT STDMETHODCALLTYPE Load(IStream *stream) override;
    HRESULT STDMETHODCALLTYPE Save(IStream *stream, BOOL clearDirty) override;
    HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER *size) override;
    HRESULT STDMETHODCALLTYPE InitNew() override;

    // The method being called, for the description of its errors.
    struct Call {
        Component &component;
        LPCWSTR interfaceName;
        LPCWSTR operation;

        // Remember an error and return its result code; what is wrong with an argument has its position, counted
        // from 1, and what comes in bad order the operation that has to be called, or to return, first.
        HRESULT refuse(const ErrorKind &kind, WideString description, int position = noArgument) const;
        HRESULT refuseBounds(const Bounds &bounds, int position, WideString description) const;
        HRESULT refuseOrder(LPCWSTR requestedOperation, WideString description) const;

        // For a call to another object that failed: the description is `what` and that object's own
        // description.
        HRESULT refuseFor(const ErrorKind &kind, LPCWSTR what, IUnknown *called, HRESULT result) const;

    private:
        HRESULT report(ErrorReport error) const;
    };

protected:
    virtual ~Component();

    const CLSID &ownClass() const { return classId; }

    // The interfaces of the class beyond those above; null for others.
    virtual void *findInterface(REFIID iid) = 0;

private:
    ULONG references = 1;
    const CLSID &classId;
    WideString componentName;
    WideString componentDescription;
};

} // namespace reference
