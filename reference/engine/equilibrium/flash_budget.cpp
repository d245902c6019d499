#include "reference/engine/equilibrium/flash_budget.h"

#include <algorithm>

namespace reference {

namespace {

constexpr int mostFlashes = 12000;
constexpr int mostPairs = 1200000; // flashes times compounds times compounds
constexpr int costOfFailure = 10;  // a flash that finds no phases tries all ways to do so

} // namespace

FlashBudget::FlashBudget(int compounds) : most(std::min(mostFlashes, mostPairs / (compounds * compounds))) {}

void FlashBudget::charge(FlashStatus status)
{
    ++count;
    spent += status == FlashStatus::solved ? 1 : costOfFailure;
}

} // namespace reference
