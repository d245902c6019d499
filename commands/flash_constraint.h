// The constraints of a flash: a property and a value each. The package gets the property as an
// array of three strings and reads the value from the material.
#pragma once

#include "commands/constraint_slot.h"
#include "gateway/call/verdict.h"
#include "material/material_object.h"
#include "platform/matlab/matlab.h"
#include "properties/property_name.h"

#include <cstdint>

// Index of the package's first phase whose state of aggregation is vapor; -1 when it has none.
std::int32_t FindVaporPhase(const OpenPackage &package);

// Makes the arrays that tell the package of the constraints, when they are not made yet, with three empty strings each.
void EnsureSpecifications();

// Opens a flash, whose arguments begin with the handle: a package with its material.
Verdict OpenFlash(const mxArray *const *arguments, OpenPackage *&package);

// The two constraints of a flash.
enum class FlashConstraint { First, Second };

// Reads the property of a constraint from the arguments of a flash, writes property, basis and phase into its
// specification, makes the entry of the material that the value needs and finds the slot of the value. Refuses what
// can't be specified.
Verdict ReadConstraint(const mxArray *const *arguments, FlashConstraint constraint, OpenPackage &package,
                       std::int32_t vaporPhase, ConstraintSlot &slot);

// The solution type, which is the package's to judge, into solutionTypeArgument.
Verdict ReadSolutionType(const mxArray *argument);

// A property of which a mixture has an overall value, and no derivative: what a flash can be
// specified by and asked for. False leaves the parser's reason in ScratchText, if it has one.
bool ParseFlashProperty(LPCWSTR name, ParsedProperty &property);
