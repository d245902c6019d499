// The compounds of a mixture that there is anything of.
#pragma once

#include "reference/engine/phase/mixture_model.h"

#include <array>
#include <span>

namespace reference {

inline constexpr double negligibleFraction = 1e-100; // is zero to flashes

struct PresentCompounds {
    int size;                                  // of the mixture
    int count;                                 // of those present
    CompoundArray amounts;                     // of those present, in its order
    std::array<int, maximumCompounds> indices; // of those present, in the mixture

    // Those whose mole fraction is above `absent`.
    explicit PresentCompounds(std::span<const double> z, double absent = 0.0);

    bool isAll() const { return count == size; }
    std::span<const int> members() const { return {indices.data(), static_cast<std::size_t>(count)}; }

    // Turns fractions of the present compounds into those of all, in place.
    void spread(CompoundArray &fractions) const;
};

} // namespace reference
