// Numbers that carry a derivative: arithmetic on them gives the derivative of the result in one
// direction, exact to rounding.
#pragma once

#include <cmath>

namespace reference {

struct Dual {
    double value = 0.0;
    double slope = 0.0;

    constexpr Dual() = default;
    constexpr Dual(double number, double derivative = 0.0) : value(number), slope(derivative) {}
};

constexpr Dual operator+(Dual a, Dual b) { return {a.value + b.value, a.slope + b.slope}; }
constexpr Dual operator-(Dual a, Dual b) { return {a.value - b.value, a.slope - b.slope}; }
constexpr Dual operator-(Dual a) { return {-a.value, -a.slope}; }
constexpr Dual operator*(Dual a, Dual b) { return {a.value * b.value, a.slope * b.value + a.value * b.slope}; }
constexpr Dual operator/(Dual a, Dual b)
{
    const double quotient = a.value / b.value;
    return {quotient, (a.slope - quotient * b.slope) / b.value};
}
constexpr Dual &operator+=(Dual &a, Dual b) { return a = a + b; }
constexpr Dual &operator-=(Dual &a, Dual b) { return a = a - b; }
constexpr Dual &operator*=(Dual &a, Dual b) { return a = a * b; }
constexpr Dual &operator/=(Dual &a, Dual b) { return a = a / b; }

// Exponents of states that no substance has are held where their exponential is still a number.
inline double heldExponent(double exponent) { return std::fmin(exponent, 650.0); }
inline Dual exp(Dual a)
{
    const double value = std::exp(heldExponent(a.value));
    return {value, value * a.slope};
}
inline Dual expm1(Dual a) { return {std::expm1(a.value), std::exp(a.value) * a.slope}; }
inline Dual log(Dual a) { return {std::log(a.value), a.slope / a.value}; }
inline Dual log1p(Dual a) { return {std::log1p(a.value), a.slope / (1.0 + a.value)}; }
inline Dual sqrt(Dual a)
{
    const double value = std::sqrt(a.value);
    return {value, 0.5 * a.slope / value};
}
inline Dual pow(Dual a, double exponent)
{
    const double value = std::pow(a.value, exponent);
    return {value, exponent * value / a.value * a.slope};
}

} // namespace reference
