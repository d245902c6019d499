// The conditions of the commands that calculate a mixture: temperatures, pressures and
// compositions of a phase.
#pragma once

#include "commands/condition_arguments.h"
#include "gateway/call/verdict.h"
#include "material/material_object.h"
#include "platform/matlab/matlab.h"

struct MixtureConditions {
    ConditionValues temperatures; // K
    ConditionValues pressures;    // Pa
    ConditionValues compositions; // fractions in the default basis, a column per compound
    std::int32_t count = 0;
};

// Opens a calculation, whose arguments begin with the number of outputs, the handle, the names, temperatures, pressures
// and compositions: names into NameList, a package with its material, conditions. HandleList gets `rowCounts` entries,
// of which the conditions fill the first three.
Verdict OpenMixtureCalculation(const mxArray *const *arguments, std::size_t rowCounts,
                               const ConditionMessages &compositionMessages, OpenPackage *&package,
                               MixtureConditions &conditions);

// Reads compositions that must go together with `count` conditions, or make that many of one.
Verdict ReadFurtherCompositions(const mxArray *argument, std::int32_t compounds, const ConditionMessages &messages,
                                std::size_t index, std::int32_t &count, ConditionValues &compositions);

// Writes condition c to the material: temperature, pressure and the composition of a phase.
void SetPhaseConditions(CMaterialObject &material, const MixtureConditions &conditions, std::int32_t phase,
                        std::int32_t c);

// A failed call of the package at condition c: what failed, where, and the words of the object.
Verdict CalculationFailure(LPCWSTR what, const MixtureConditions &conditions, std::int32_t c, IUnknown *failed,
                           HRESULT hr);
