// What the latest writes of values of phases came to. Over a table of conditions a package
// writes the same few values with the same words each time; the words need to be judged once.
#pragma once

#include "material/parse_basis.h"
#include "material/reserved_property.h"
#include "properties/property_map.h"

#include <cstdint>
#include <vector>

class RecentWrites {
public:
    // As the package wrote them; a null basis counts as empty.
    struct WriteText {
        LPCWSTR property;
        LPCWSTR phaseLabel;
        LPCWSTR basisOrSecondLabel;
    };
    struct WriteMeaning {
        BasisCode basis;
        std::int32_t phase;
        ReservedProperty reserved;
        PropertyValues *values; // of a property that is not reserved: its entry in the map,
        std::uint32_t count;    // and how many values it takes
    };
    struct Write : WriteMeaning {
        WideString property;
        WideString phaseLabel;
        WideString basisOrSecondLabel;
    };

    // The write with exactly these texts, or null.
    const Write *find(LPCWSTR property, LPCWSTR phaseLabel, LPCWSTR basisOrSecondLabel);

    // For want of memory nothing is remembered: the write itself was made.
    void remember(const WriteText &text, const WriteMeaning &meaning) noexcept;

    // To be called before an entry of a map goes.
    void forget() { writes.clear(); }

private:
    static constexpr std::size_t most = 64;

    std::vector<Write> writes;
    std::size_t expected = 0; // writes come in the same order again and again
};
