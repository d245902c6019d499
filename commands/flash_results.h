// What a flash left in the material, brought to the default basis.
#pragma once

#include "gateway/call/verdict.h"
#include "material/material_object.h"

#include <cstdint>
#include <optional>

// Indices of the present phases, in phase order, into HandleList.
void ListPresentPhases(const CMaterialObject &material);

// Phase fractions (one row per entry of HandleList) and compositions (a row per entry, a column
// per compound) into MATLAB's memory. The package may have stored either basis, but one for all
// phases: compositions are converted one by one, and the basis of the fractions is taken to be
// that of the compositions.
Verdict ReadPhases(const CMaterialObject &material, double *fractions, double *compositions);
