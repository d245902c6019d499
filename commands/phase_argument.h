// A phase label given by the user.
#pragma once

#include "cape/com/bstr.h"
#include "gateway/call/verdict.h"
#include "material/material_object.h"
#include "platform/matlab/matlab.h"

#include <cstdint>

struct PhaseMessages {
    const char *notString;
    const char *unknown;
};

// Keeps the label as typed, which is how the package gets it, and finds the phase without regard
// to case.
Verdict ReadPhase(const mxArray *argument, const PhaseMessages &messages, const CMaterialObject &material, Bstr &label,
                  std::int32_t &phase);
