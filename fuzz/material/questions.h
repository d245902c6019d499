// The interfaces of a material that have nothing to do with its state.
#pragma once

#include "cape/com/cape_open.h"
#include "cape/com/com_pointer.h"
#include "fuzz/input.h"

namespace fuzz {

struct Questions {
    ComPointer<ICapeThermoCompounds> compounds;
    ComPointer<ICapeThermoPhases> phases;
    ComPointer<ICapeThermoPropertyRoutine> properties;
    ComPointer<ICapeThermoEquilibriumRoutine> equilibria;
    ComPointer<ICapeThermoUniversalConstant> constants;
    ComPointer<ICapeIdentification> identification;

    explicit Questions(IUnknown *material)
    {
        FUZZ_CHECK(compounds.queryFrom(material) == S_OK && phases.queryFrom(material) == S_OK);
        FUZZ_CHECK(properties.queryFrom(material) == S_OK && equilibria.queryFrom(material) == S_OK);
        FUZZ_CHECK(constants.queryFrom(material) == S_OK && identification.queryFrom(material) == S_OK);
    }
};

} // namespace fuzz
