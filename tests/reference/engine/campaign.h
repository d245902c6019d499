// How much of a campaign of random states runs.
#pragma once

// A campaign has four quarters, of which this program has so many: the builds of a whole run share them out.
constexpr int firstQuarter = FIRST_QUARTER;
constexpr int quarters = QUARTERS;
constexpr int endOfQuarters = firstQuarter + quarters;
