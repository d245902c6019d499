// The process-wide containers that the calculation commands work in, beside the gateway's shared
// lists. Each command refills what it uses, so no call reads what an earlier one left; what is
// here can't be lost when a call is left without destructors.
#pragma once

#include "cape/com/bstr.h"
#include "cape/variant_array.h"
#include "commands/constraint_slot.h"
#include "properties/property_name.h"

#include <cstdint>
#include <vector>

struct CommandContainers {
    std::vector<WideString> propertyLookupKeys;   // command 23: the store keys of the names
    std::vector<ParsedProperty> parsedProperties; // one per requested name
    std::vector<std::int32_t> resultRows;         // the shape of each result matrix
    std::vector<std::int32_t> resultColumns;
    std::vector<double *> resultData; // the data of each result matrix, MATLAB's
    Bstr phaseLabelArgument;
    Bstr solutionTypeArgument;
    VariantArray phasePairArray;      // the two labels of command 23
    VariantArray flashSpecification1; // property, basis, phase of a flash constraint
    VariantArray flashSpecification2;
    ConstraintSlot constraintSlot1; // command 25: where the values of a row go
    ConstraintSlot constraintSlot2;
    std::vector<Bstr> phaseLabels; // command 25: the labels as the package gave them
};

extern CommandContainers CommandScratch;
