// A property package manager is a short-lived tool here: created, initialized, asked once,
// terminated and released.
#pragma once

#include "cape/com/cape_open.h"
#include "cape/com/com_pointer.h"
#include "packages/discovery.h"

// Finds the source of that name in the scanned registry. Null with the message in LastError.
const PackageSource *RequirePackageSource(const WideString &name);

// The class id of a source; false with the message in LastError.
bool ClassIdOf(const PackageSource &source, CLSID &classId);

// A manager that was created and initialized. It is terminated and released at the end, however that comes.
class Manager {
public:
    Manager() = default;
    Manager(const Manager &) = delete;
    Manager &operator=(const Manager &) = delete;
    ~Manager();

    // The manager of a source. False with the message in LastError; one that can't be initialized is released without
    // being terminated.
    bool open(const PackageSource &source);

    ICapeThermoPropertyPackageManager *get() const { return manager.get(); }

private:
    ComPointer<ICapeThermoPropertyPackageManager> manager;
};
