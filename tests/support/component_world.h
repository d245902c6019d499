// All that a test's components live in: COM, class factories, registrations. It owns the scripts,
// so that they outlive whatever the library still holds.
#pragma once

#include "tests/support/class_registration.h"
#include "tests/support/scripted_manager.h"

#include <memory>
#include <vector>

namespace support {

class ComponentWorld {
public:
    ComponentWorld(); // initializes COM, empties the registry of managers and packages
    ~ComponentWorld();
    ComponentWorld(const ComponentWorld &) = delete;
    ComponentWorld &operator=(const ComponentWorld &) = delete;

    // A class for a component, with a class id of its own: created through CoCreateInstance.
    // The second form registers it as a manager or stand-alone package under a name, too. Every
    // package is a binary one (MakeBinaryPackage) until the test says otherwise.
    PackageScript &addPackage(AnyText name);
    ManagerScript &addManager(AnyText name);

    // A package that only a manager or the relay gives out, and entered with the manager.
    PackageScript &addPackageOf(ManagerScript &manager, AnyText name);

    // Components without class and registration, and the relay's class.
    PackageScript &addUnregisteredPackage();
    ManagerScript &addUnregisteredManager();
    RelayScript &addRelay();

    // A class factory for a component; the class is not registered with it.
    void serve(REFCLSID classId, ComponentScript &component, DWORD context = CLSCTX_INPROC_SERVER);
    CLSID newClassId();
    static CLSID classIdOf(std::uint32_t n); // that the n-th newClassId of a world gives, the first being 1

    ClassRegistration &registry() { return *registration; }

    // Fails the running test unless every component has been released exactly.
    void expectAllReleased() const;

    CallLog log;
    FailingCall failingMethod; // "created" counts among them
    FailingCall failingQuery;

private:
    template <class Script> Script &add();

    class Factory;
    std::vector<std::unique_ptr<ComponentScript>> scripts;
    std::vector<std::unique_ptr<Factory>> factories;
    std::vector<DWORD> cookies;
    std::unique_ptr<ClassRegistration> registration;
    std::uint32_t classesMade = 0;
};

} // namespace support
