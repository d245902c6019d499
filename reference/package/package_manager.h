// The CAPE-OPEN 1.1 property package manager: lists the packages and creates them.
#pragma once

#include "reference/com/component.h"

namespace reference {

class PackageManager final : public Component, public WithoutDispatch<ICapeThermoPropertyPackageManager> {
public:
    explicit PackageManager(const ComponentDescription &description) : Component(description) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override
    {
        return Component::QueryInterface(iid, object);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return Component::AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return Component::Release(); }

    HRESULT STDMETHODCALLTYPE GetPropertyPackageList(VARIANT *names) override;

    // Creates a new package at each call, which does not depend on the manager. Names are case-insensitive.
    HRESULT STDMETHODCALLTYPE GetPropertyPackage(BSTR name, IDispatch **package) override;

private:
    ~PackageManager() override = default;
    void *findInterface(REFIID iid) override;
};

} // namespace reference
