// What the runtimes of some compilers do to a thread's floating-point unit.
#pragma once

#include <cstdint>

namespace support {

// From now on a NaN that is compared, a division by zero and an overflow end the process; rounding is towards zero.
inline void UnmaskFloatingPointExceptions()
{
    std::uint32_t vector = 0;
    std::uint16_t scalar = 0;
    asm volatile("stmxcsr %0\n\tfnstcw %1" : "=m"(vector), "=m"(scalar));
    vector = (vector & ~0x6BFu) | 0x6000u; // invalid, zero divide, overflow; no flag of a past exception
    scalar = static_cast<std::uint16_t>((scalar & ~0xDu) | 0xC00u);
    asm volatile("fnclex\n\tfldcw %1\n\tldmxcsr %0" : : "m"(vector), "m"(scalar));
}

} // namespace support
