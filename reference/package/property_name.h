// Names of properties, with the derivative that they may name, such as "enthalpy.Dpressure".
#pragma once

#include "reference/com/automation.h"
#include "reference/engine/quantities/phase_quantity.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace reference {

// What a name stands for.
template <class Quantity> struct PropertyRequest {
    Quantity quantity;
    Differential differential;
};

// By the value of Differential.
inline constexpr std::string_view derivativeSuffixes[differentialCount] = {"", ".Dtemperature", ".Dpressure", ".Dmoles",
                                                                           ".DmolFraction"};

// Parses a name without regard to case. None for an unknown quantity or derivative.
template <class Quantity>
std::optional<PropertyRequest<Quantity>> readPropertyName(std::span<const QuantityShape> quantities, BSTR name)
{
    const std::size_t length = SysStringLen(name);
    std::size_t base = 0;
    while (base < length && name[base] != '.')
        ++base;
    for (int differential = 0; differential < differentialCount; ++differential) {
        if (!sameWord(name + base, length - base, derivativeSuffixes[differential]))
            continue;
        for (std::size_t i = 0; i < quantities.size(); ++i)
            if (sameWord(name, base, quantities[i].name))
                return PropertyRequest<Quantity>{static_cast<Quantity>(i), static_cast<Differential>(differential)};
    }
    return {};
}

// The name of a quantity, followed by those of its derivatives.
inline void addNames(const QuantityShape &shape, std::vector<std::string> &names)
{
    for (const std::string_view suffix : derivativeSuffixes)
        names.push_back(std::string(shape.name).append(suffix));
}

} // namespace reference
