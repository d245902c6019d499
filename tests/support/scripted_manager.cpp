#include "tests/support/scripted_manager.h"

#include "tests/support/failures.h"
#include "tests/support/scripted_object.h"

namespace support {

namespace {

constexpr HRESULT invalidArgument = CapeFailure(0x06); // ECapeInvalidArgumentHR

template <class Script>
Script *offered(const std::vector<std::pair<WideString, Script *>> &offers, const WideString &name)
{
    for (const auto &[offeredName, script] : offers)
        if (offeredName == name)
            return script;
    return nullptr;
}

} // namespace

class ManagerFacet : public Facet<ICapeThermoPropertyPackageManager> {
public:
    ManagerFacet(ScriptedObject &owner, ManagerScript &managerScript) : Facet(owner), manager(managerScript) {}

    HRESULT STDMETHODCALLTYPE GetPropertyPackageList(VARIANT *names) override
    {
        ExpectEmpty(names, "GetPropertyPackageList");
        const HRESULT hr = object.enter("GetPropertyPackageList");
        if (SUCCEEDED(hr))
            manager.packageNames.giveTo(names);
        return hr;
    }
    HRESULT STDMETHODCALLTYPE GetPropertyPackage(BSTR name, IDispatch **package) override
    {
        LeaveRubbish(package);
        const HRESULT hr = object.enter("GetPropertyPackage");
        if (FAILED(hr))
            return hr;
        *package = nullptr;
        manager.requestedNames.push_back(TextOf(name));
        PackageScript *script = offered(manager.offers, manager.requestedNames.back());
        return script ? script->create(InterfaceId<IDispatch>, reinterpret_cast<void **>(package)) : invalidArgument;
    }

private:
    ManagerScript &manager;
};

class RelayFacet : public Facet<IVerdanth6432Relay> {
public:
    RelayFacet(ScriptedObject &owner, RelayScript &relayScript) : Facet(owner), relay(relayScript) {}

    // As of any component, and the one by which it is asked whether it lives.
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT *) override { return object.enter("GetTypeInfoCount"); }

    HRESULT STDMETHODCALLTYPE CreateObject32(BSTR classIdText, IUnknown **created) override
    {
        LeaveRubbish(created);
        const HRESULT hr = object.enter("CreateObject32");
        if (FAILED(hr))
            return hr;
        *created = nullptr;
        relay.requestedClasses.push_back(TextOf(classIdText));
        ComponentScript *script = offered(relay.offers, relay.requestedClasses.back());
        return script ? script->create(InterfaceId<IUnknown>, reinterpret_cast<void **>(created)) : REGDB_E_CLASSNOTREG;
    }

private:
    RelayScript &relay;
};

namespace {

class ManagerObject : public ScriptedComponent {
public:
    explicit ManagerObject(ManagerScript &script) : ScriptedComponent(script), facet(*this, script) {}

private:
    ManagerFacet facet;
};

class RelayObject : public ScriptedObject {
public:
    explicit RelayObject(RelayScript &script) : ScriptedObject(script), facet(*this, script) {}

private:
    RelayFacet facet;
};

} // namespace

ManagerScript::ManagerScript() { label = "manager"; }

ManagerScript::~ManagerScript() = default;

void ManagerScript::offer(AnyText name, PackageScript &package) { offers.emplace_back(name.wide, &package); }

std::unique_ptr<ScriptedObject> ManagerScript::makeObject() { return std::make_unique<ManagerObject>(*this); }

RelayScript::RelayScript() { label = "relay"; }

RelayScript::~RelayScript() = default;

void RelayScript::offer(AnyText classIdText, ComponentScript &component)
{
    offers.emplace_back(classIdText.wide, &component);
}

std::unique_ptr<ScriptedObject> RelayScript::makeObject() { return std::make_unique<RelayObject>(*this); }

} // namespace support
