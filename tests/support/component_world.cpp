#include "tests/support/component_world.h"

#include "tests/support/standing_factory.h"

#include <gtest/gtest.h>

namespace support {

// Lives in the world.
class ComponentWorld::Factory final : public StandingFactory {
public:
    explicit Factory(ComponentScript &component) : script(component) {}

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown *outer, REFIID iid, void **object) override
    {
        *object = nullptr;
        return outer ? CLASS_E_NOAGGREGATION : script.create(iid, object);
    }

private:
    ComponentScript &script;
};

ComponentWorld::ComponentWorld()
{
    const HRESULT hr = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    EXPECT_TRUE(SUCCEEDED(hr)) << hr;
    registration = std::make_unique<ClassRegistration>();
}

ComponentWorld::~ComponentWorld()
{
    for (DWORD cookie : cookies)
        CoRevokeClassObject(cookie);
    registration.reset();
    scripts.clear(); // what they still hold goes before COM does
    CoUninitialize();
}

template <class Script> Script &ComponentWorld::add()
{
    auto script = std::make_unique<Script>();
    Script &reference = *script;
    reference.log = &log;
    reference.failingMethod = &failingMethod;
    reference.failingQuery = &failingQuery;
    scripts.push_back(std::move(script));
    return reference;
}

PackageScript &ComponentWorld::addUnregisteredPackage()
{
    PackageScript &script = add<PackageScript>();
    MakeBinaryPackage(script);
    return script;
}

ManagerScript &ComponentWorld::addUnregisteredManager() { return add<ManagerScript>(); }

PackageScript &ComponentWorld::addPackage(AnyText name)
{
    PackageScript &script = addUnregisteredPackage();
    const CLSID classId = newClassId();
    serve(classId, script);
    registration->add(PackageClass(name, ClassIdText(classId)));
    return script;
}

ManagerScript &ComponentWorld::addManager(AnyText name)
{
    ManagerScript &script = addUnregisteredManager();
    const CLSID classId = newClassId();
    serve(classId, script);
    registration->add(ManagerClass(name, ClassIdText(classId)));
    return script;
}

PackageScript &ComponentWorld::addPackageOf(ManagerScript &manager, AnyText name)
{
    PackageScript &script = addUnregisteredPackage();
    manager.offer(name, script);
    std::vector<WideString> names = TextsOf(manager.packageNames.value);
    names.push_back(name.wide);
    manager.packageNames = TextArray(names);
    return script;
}

RelayScript &ComponentWorld::addRelay()
{
    RelayScript &script = add<RelayScript>();
    serve(relayClass, script, CLSCTX_LOCAL_SERVER);
    return script;
}

void ComponentWorld::serve(REFCLSID classId, ComponentScript &component, DWORD context)
{
    factories.push_back(std::make_unique<Factory>(component));
    DWORD cookie = 0;
    const HRESULT hr = CoRegisterClassObject(classId, factories.back().get(), context, REGCLS_MULTIPLEUSE, &cookie);
    EXPECT_EQ(hr, S_OK);
    if (SUCCEEDED(hr))
        cookies.push_back(cookie);
}

CLSID ComponentWorld::newClassId() { return classIdOf(++classesMade); }

CLSID ComponentWorld::classIdOf(std::uint32_t n)
{
    CLSID classId = {0x7E570000, 0x3B1C, 0x4D0A, {0x9E, 0x55, 0x21, 0x6B, 0x0C, 0x5F, 0xA8, 0x10}};
    classId.Data1 += n;
    return classId;
}

void ComponentWorld::expectAllReleased() const
{
    for (const auto &script : scripts) {
        EXPECT_EQ(script->references(), 0) << script->label << " is still held";
        EXPECT_EQ(script->misuses, std::vector<std::string>()) << script->label;
    }
}

} // namespace support
