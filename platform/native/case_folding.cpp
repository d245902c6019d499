#include "platform/native/case_folding.h"

#include <algorithm>
#include <iterator>

namespace {

// Small letters first..last, every step-th of them, have their capital at a distance. Ordered.
// Source: the simple upper-case mappings of the Unicode Character Database.
struct Range {
    WCHAR first;
    WCHAR last;
    std::int16_t distance;
    std::int16_t step;
};

constexpr Range ranges[] = {
    {0x0061, 0x007A, -32, 1}, // a to z
    {0x00E0, 0x00F6, -32, 1}, // a grave to o diaeresis
    {0x00F8, 0x00FE, -32, 1}, // o stroke to thorn
    {0x00FF, 0x00FF, 121, 1}, // y diaeresis
    {0x0101, 0x012F, -1, 2},  // Latin extended A
    {0x0133, 0x0137, -1, 2},  {0x013A, 0x0148, -1, 2},  {0x014B, 0x0177, -1, 2},
    {0x017A, 0x017E, -1, 2},  {0x01CE, 0x01DC, -1, 2}, // Latin extended B
    {0x01DF, 0x01EF, -1, 2},  {0x01F9, 0x021F, -1, 2},  {0x0223, 0x0233, -1, 2},
    {0x0247, 0x024F, -1, 2},  {0x03AC, 0x03AC, -38, 1}, // Greek: alpha with tonos
    {0x03AD, 0x03AF, -37, 1},                           // epsilon to iota with tonos
    {0x03B1, 0x03C1, -32, 1},                           // alpha to rho
    {0x03C2, 0x03C2, -31, 1},                           // final sigma
    {0x03C3, 0x03CB, -32, 1},                           // sigma to upsilon with dialytika
    {0x03CC, 0x03CC, -64, 1},                           // omicron with tonos
    {0x03CD, 0x03CE, -63, 1},                           // upsilon and omega with tonos
    {0x03D9, 0x03EF, -1, 2},                            // archaic letters, Coptic
    {0x0430, 0x044F, -32, 1},                           // Cyrillic: a to ya
    {0x0450, 0x045F, -80, 1},                           // ie with grave to dzhe
    {0x0461, 0x0481, -1, 2},  {0x048B, 0x04BF, -1, 2},  {0x04C2, 0x04CE, -1, 2},
    {0x04CF, 0x04CF, -15, 1}, {0x04D1, 0x052F, -1, 2},  {0x0561, 0x0586, -48, 1}, // Armenian
    {0x1E01, 0x1E95, -1, 2},                                                      // Latin extended additional
    {0x1EA1, 0x1EFF, -1, 2},  {0x2170, 0x217F, -16, 1},                           // Roman numerals
    {0x24D0, 0x24E9, -26, 1},                                                     // letters in circles
    {0xFF41, 0xFF5A, -32, 1},                                                     // full-width a to z
};

} // namespace

WCHAR native::upperCase(WCHAR unit)
{
    const Range *range = std::lower_bound(std::begin(ranges), std::end(ranges), unit,
                                          [](const Range &r, WCHAR u) { return r.last < u; });
    if (range == std::end(ranges) || unit < range->first || (unit - range->first) % range->step != 0)
        return unit;
    return static_cast<WCHAR>(unit + range->distance);
}

int native::compareFolded(std::u16string_view a, std::u16string_view b)
{
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < common; ++i) {
        if (a[i] == b[i]) // which most are
            continue;
        const int difference = upperCase(a[i]) - upperCase(b[i]);
        if (difference != 0)
            return difference;
    }
    return a.size() < b.size() ? -1 : a.size() > b.size() ? 1 : 0;
}
