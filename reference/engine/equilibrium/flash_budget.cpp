#include "reference/engine/equilibrium/flash_budget.h"

#include <algorithm>

namespace reference {

namespace {

constexpr int mostFlashes = 15000;
constexpr int mostPairs[] = {600000, 1000000}; // flashes times compounds times compounds, by Search

// A flash that finds no phases has tried all ways to do so; one that finds phases that may not be is quicker.
int costOf(FlashStatus status)
{
    return status == FlashStatus::solved ? 1 : status == FlashStatus::otherPhases ? 3 : 12;
}

} // namespace

FlashBudget::FlashBudget(int compounds, Search search)
    : most(std::min(mostFlashes, mostPairs[static_cast<int>(search)] / (compounds * compounds)))
{
}

void FlashBudget::charge(FlashStatus status)
{
    ++count;
    spent += costOf(status);
}

} // namespace reference
