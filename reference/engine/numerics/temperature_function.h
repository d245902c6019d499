// Functions of temperature with their derivatives, and arithmetic on them: a Taylor series up to the third power.
#pragma once

#include <cmath>

namespace reference {

struct TemperatureFunction {
    double value;
    double byT;   // per K
    double byTT;  // per K2
    double byTTT; // per K3
};

inline TemperatureFunction operator+(const TemperatureFunction &f, const TemperatureFunction &g)
{
    return {f.value + g.value, f.byT + g.byT, f.byTT + g.byTT, f.byTTT + g.byTTT};
}

inline TemperatureFunction operator-(const TemperatureFunction &f, const TemperatureFunction &g)
{
    return {f.value - g.value, f.byT - g.byT, f.byTT - g.byTT, f.byTTT - g.byTTT};
}

inline TemperatureFunction operator*(double factor, const TemperatureFunction &f)
{
    return {factor * f.value, factor * f.byT, factor * f.byTT, factor * f.byTTT};
}

inline TemperatureFunction operator*(const TemperatureFunction &f, const TemperatureFunction &g)
{
    return {f.value * g.value, f.byT * g.value + f.value * g.byT,
            f.byTT * g.value + 2.0 * f.byT * g.byT + f.value * g.byTT,
            f.byTTT * g.value + 3.0 * (f.byTT * g.byT + f.byT * g.byTT) + f.value * g.byTTT};
}

inline TemperatureFunction operator/(const TemperatureFunction &f, const TemperatureFunction &g)
{
    TemperatureFunction quotient;
    quotient.value = f.value / g.value;
    quotient.byT = (f.byT - quotient.value * g.byT) / g.value;
    quotient.byTT = (f.byTT - 2.0 * quotient.byT * g.byT - quotient.value * g.byTT) / g.value;
    quotient.byTTT =
        (f.byTTT - 3.0 * (quotient.byTT * g.byT + quotient.byT * g.byTT) - quotient.value * g.byTTT) / g.value;
    return quotient;
}

inline TemperatureFunction &operator+=(TemperatureFunction &f, const TemperatureFunction &g) { return f = f + g; }

inline TemperatureFunction exp(const TemperatureFunction &f)
{
    const double value = std::exp(f.value);
    return {value, value * f.byT, value * (f.byTT + f.byT * f.byT),
            value * (f.byTTT + (3.0 * f.byTT + f.byT * f.byT) * f.byT)};
}

// b / T
inline TemperatureFunction overTemperature(double b, double T)
{
    const double value = b / T;
    return {value, -value / T, 2.0 * value / (T * T), -6.0 * value / (T * T * T)};
}

} // namespace reference
