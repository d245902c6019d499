// Arguments that a call fills, each of them seldom null.
#pragma once

#include "cape/com/variant.h"
#include "fuzz/automation.h"
#include "fuzz/reference_package/choices.h"

#include <cstddef>

namespace fuzz {

enum class HeldBefore { nothing, anything };

template <std::size_t count> class OutArguments {
public:
    explicit OutArguments(FuzzedDataProvider &input, HeldBefore before = HeldBefore::nothing)
    {
        for (std::size_t i = 0; i < count; ++i) {
            if (before == HeldBefore::anything && input.ConsumeBool())
                *values[i].out() = OddValue(input); // which the package clears
            targets[i] = Seldom(input) ? nullptr : values[i].out();
        }
    }

    VARIANT *operator[](std::size_t i) const { return targets[i]; }

private:
    Variant values[count];
    VARIANT *targets[count];
};

} // namespace fuzz
