// Random flash problems of all kinds, and the verdict on each answer.
#pragma once

#include "tests/reference/engine/flash_check.h"

#include <cstdint>
#include <functional>

namespace reference {

struct SweepCount {
    int problems = 0;
    int solved = 0;
    int refused = 0; // with a reason that has been found true
    int missed = 0;  // refused though there is a solution
    int wrong = 0;   // answers that are none, and refusals for no reason

    void add(const SweepCount &other);
};

struct Sweep {
    // By the two variables, the lower one first.
    SweepCount counts[flashVariableCount][flashVariableCount];
    std::vector<std::string> faults; // what was missed or wrong, in words

    SweepCount total() const;
};

// Problems over 80 K to 700 K and 1 kPa to 30 MPa, with one to twelve compounds of the table. Most take their values
// from a state of equilibrium, so that a refusal would be wrong; some take values that no state may have.
Sweep sweepFlashes(std::uint64_t seed, int count);

} // namespace reference
