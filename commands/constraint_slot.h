// Where in the material the value of a constraint goes.
#pragma once

#include "material/material_object.h"
#include "platform/platform.h"

#include <cstdint>

struct ConstraintSlot {
    double *field = nullptr; // of the material; null for an entry of its overall properties
    WideString property;     // the name of that entry
    std::int32_t basis = 0;  // and the basis that its value has

    // The entry is looked up again each time: the package may have cleared the material since.
    void write(CMaterialObject &material, double value) const;
};
