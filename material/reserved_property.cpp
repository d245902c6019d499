#include "material/reserved_property.h"

#include "cape/same_name.h"
#include "properties/property_keys.h"

std::uint64_t ReservedPropertyHashes[reservedPropertyCount];

const ConditionTexts temperatureTexts = {
    OLESTR("Invalid basis for temperature; no basis expected"),
    OLESTR("Temperature is not set"),
    OLESTR("Invalid number of values for temperature: scalar expected"),
    OLESTR("Invalid value for temperature, NaN"),
};
const ConditionTexts pressureTexts = {
    OLESTR("Invalid basis for pressure; no basis expected"),
    OLESTR("Pressure is not set"),
    OLESTR("Invalid number of values for pressure: scalar expected"),
    OLESTR("Invalid value for pressure, NaN"),
};

const LPCWSTR fractionBasisText = OLESTR("Invalid basis for fraction; expected mole or mass basis");
const LPCWSTR flowText = OLESTR("Flow is not supported by this material object");
const LPCWSTR totalFlowText = OLESTR("Total flow is not supported by this material object");
const LPCWSTR overallPhaseFractionText = OLESTR("Phase fraction is not supported for the Overall phase");

namespace {

// In the order of ReservedProperty.
constexpr LPCWSTR reservedNames[reservedPropertyCount] = {
    OLESTR("temperature"), OLESTR("pressure"), OLESTR("flow"),
    OLESTR("totalFlow"),   OLESTR("fraction"), OLESTR("phaseFraction"),
};

bool hashesBuilt = false;

} // namespace

void BuildReservedPropertyHashes()
{
    if (hashesBuilt)
        return;
    hashesBuilt = true;
    for (std::size_t i = 0; i < reservedPropertyCount; ++i)
        ReservedPropertyHashes[i] = HashName(LowerName(reservedNames[i]).text());
}

ReservedProperty ReservedPropertyOf(std::uint64_t stemHash, LPCWSTR name)
{
    for (std::size_t i = 0; i < reservedPropertyCount; ++i)
        if (ReservedPropertyHashes[i] == stemHash && SameName(name, reservedNames[i]))
            return static_cast<ReservedProperty>(i);
    return ReservedProperty::None;
}
