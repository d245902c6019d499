// Upper case of single 16-bit units: Latin with accents, Greek, Cyrillic, Armenian.
#pragma once

#include "platform/native/types.h"

#include <string_view>

namespace native {

WCHAR upperCase(WCHAR unit);

// Negative, zero or positive, by upper-cased code units; a proper prefix comes first.
int compareFolded(std::u16string_view a, std::u16string_view b);

// For ordered containers whose keys differ by more than case.
struct FoldedLess {
    using is_transparent = void;
    bool operator()(std::u16string_view a, std::u16string_view b) const { return compareFolded(a, b) < 0; }
};

} // namespace native
