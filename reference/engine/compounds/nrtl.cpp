#include "reference/engine/compounds/nrtl.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace reference {

namespace {

struct NrtlPair {
    std::string_view first; // the smaller of the two names
    std::string_view second;
    double firstEnergy;  // of the first around the second
    double secondEnergy; // of the second around the first
    double nonrandomness;
};

#include "reference/engine/compounds/nrtl_table.inc"

} // namespace

NrtlParameters nrtlParameters(std::string_view first, std::string_view second)
{
    const std::pair<std::string_view, std::string_view> pair = std::minmax(first, second);
    const auto namesOf = [](const NrtlPair &row) { return std::pair(row.first, row.second); };
    const auto *found = std::ranges::lower_bound(nrtlPairs, pair, {}, namesOf);
    if (found == std::end(nrtlPairs) || namesOf(*found) != pair)
        return {};
    return {first == found->first ? found->firstEnergy : found->secondEnergy, found->nonrandomness, true};
}

} // namespace reference
