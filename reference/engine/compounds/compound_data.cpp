#include "reference/engine/compounds/compound_data.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace reference {

namespace {

constexpr double notDefined = std::numeric_limits<double>::quiet_NaN();

struct InteractionParameter {
    std::string_view first; // the smaller of the two names
    std::string_view second;
    double value;
};

#include "reference/engine/compounds/compound_tables.inc"

} // namespace

std::span<const CompoundData> compoundTable() { return compounds; }

const CompoundData *findCompound(std::string_view id)
{
    const CompoundData *found = std::ranges::find(compounds, id, &CompoundData::id);
    return found == std::end(compounds) ? nullptr : found;
}

double interactionParameter(std::string_view first, std::string_view second, EquationOfState equation)
{
    if (!isCubicEquation(equation))
        return 0.0;
    const std::span<const InteractionParameter> parameters =
        equation == EquationOfState::pengRobinson ? std::span<const InteractionParameter>(pengRobinsonParameters)
                                                  : std::span<const InteractionParameter>(soaveRedlichKwongParameters);
    const std::pair<std::string_view, std::string_view> pair = std::minmax(first, second);
    const auto namesOf = [](const InteractionParameter &row) { return std::pair(row.first, row.second); };
    const auto found = std::ranges::lower_bound(parameters, pair, {}, namesOf);
    return found != parameters.end() && namesOf(*found) == pair ? found->value : 0.0;
}

} // namespace reference
