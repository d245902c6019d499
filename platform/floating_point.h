// The processor's floating-point control words: rounding, and which exceptions end the program in place of giving a NaN
// or an infinity. Some runtimes change them for the whole thread and leave them so.
#pragma once

#include <cstdint>

#if defined(_MSC_VER)
#include <float.h>
#include <xmmintrin.h>
#endif

class FloatingPointMode {
public:
    static FloatingPointMode current()
    {
        FloatingPointMode mode;
#if defined(_MSC_VER)
        mode.vector = _mm_getcsr();
#elif defined(__x86_64__) || defined(__i386__)
        asm volatile("stmxcsr %0\n\tfnstcw %1" : "=m"(mode.vector), "=m"(mode.scalar));
#endif
        return mode;
    }

    // What was done before raised exceptions without an effect; they must have none when they are unmasked again.
    void set() const
    {
#if defined(_MSC_VER)
        _clearfp();
        _mm_setcsr(vector & ~exceptionsRaised);
#elif defined(__x86_64__) || defined(__i386__)
        const std::uint32_t cleanVector = vector & ~exceptionsRaised;
        asm volatile("fnclex\n\tfldcw %1\n\tldmxcsr %0" : : "m"(cleanVector), "m"(scalar));
#endif
    }

    bool operator==(const FloatingPointMode &other) const
    {
        return ((vector ^ other.vector) & ~exceptionsRaised) == 0 && scalar == other.scalar;
    }

private:
    static constexpr std::uint32_t exceptionsRaised = 0x3F; // results of calculations, no settings

    std::uint32_t vector = 0; // MXCSR
    std::uint16_t scalar = 0; // of the x87 unit
};

// Puts back, at its end, the mode that it finds: around a call to code that is not ours.
class KeepFloatingPointMode {
public:
    KeepFloatingPointMode() : found(FloatingPointMode::current()) {}
    ~KeepFloatingPointMode()
    {
        if (!(FloatingPointMode::current() == found))
            found.set();
    }
    KeepFloatingPointMode(const KeepFloatingPointMode &) = delete;
    KeepFloatingPointMode &operator=(const KeepFloatingPointMode &) = delete;

private:
    FloatingPointMode found;
};

// Works in another mode until its end: in a call that comes from code that is not ours.
class InFloatingPointMode {
public:
    explicit InFloatingPointMode(const FloatingPointMode &mode)
    {
        if (!(FloatingPointMode::current() == mode))
            mode.set();
    }
    InFloatingPointMode(const InFloatingPointMode &) = delete;
    InFloatingPointMode &operator=(const InFloatingPointMode &) = delete;

private:
    KeepFloatingPointMode keep;
};
