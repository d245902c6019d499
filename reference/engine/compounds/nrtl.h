// The parameters of the NRTL equation for pairs of compounds; local_compositions.h has the equation.
#pragma once

#include <string_view>

namespace reference {

struct NrtlParameters {
    double energy = 0.0;        // tau T of the first compound around the second, K
    double nonrandomness = 0.0; // alpha
    bool known = false;         // if not, both are zero: as if the two mixed ideally
};

NrtlParameters nrtlParameters(std::string_view first, std::string_view second);

} // namespace reference
