// The specifications of a flash, as read from the arguments of a call and from the material.
#pragma once

#include "reference/com/component.h"
#include "reference/engine/flash/flash.h"

#include <string_view>

namespace reference {

// A property that a flash can be specified by.
struct FlashProperty {
    std::string_view name;
    FlashVariable variable;
    bool molar;     // read per mole; the others have no basis, except phaseFraction
    bool formation; // includes the formation from the elements, which the flash leaves out
};

// One of the two specifications.
struct FlashInput {
    const FlashProperty *property = nullptr;
    FlashVariable variable = FlashVariable::temperature;
    bool isPhaseFraction = false;
    bool ofLiquid = false; // a phase fraction that is the only liquid's; `variable` is the vapor's
};

// What is wrong with a specification; nothing if `kind` is null.
struct FlashVerdict {
    const ErrorKind *kind = nullptr;
    WideString description;
    int position = noArgument;

    bool isGood() const { return kind == nullptr; }
};

// Reads both arrays of property, basis, phase and optionally a compound, which no property here needs, and checks that
// together they can determine a state.
FlashVerdict readFlashInputs(const VARIANT &first, const VARIANT &second, FlashInput (&inputs)[2]);

// The argument after those. An empty text is "Unspecified".
FlashVerdict readSolutionType(BSTR text, SolutionType &type);

} // namespace reference
