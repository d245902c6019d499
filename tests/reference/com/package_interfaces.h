// The interfaces by which a host uses a package.
#pragma once

#include "tests/reference/com/host.h"

struct PackageInterfaces {
    // Asks a package for all of them; each is null where the package is, or has no such interface.
    void askFor(IUnknown *package)
    {
        compounds = as<ICapeThermoCompounds>(package);
        phases = as<ICapeThermoPhases>(package);
        context = as<ICapeThermoMaterialContext>(package);
        properties = as<ICapeThermoPropertyRoutine>(package);
        equilibrium = as<ICapeThermoEquilibriumRoutine>(package);
    }

    ComPointer<ICapeThermoCompounds> compounds;
    ComPointer<ICapeThermoPhases> phases;
    ComPointer<ICapeThermoMaterialContext> context;
    ComPointer<ICapeThermoPropertyRoutine> properties;
    ComPointer<ICapeThermoEquilibriumRoutine> equilibrium;
};
