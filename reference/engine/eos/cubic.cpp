#include "reference/engine/eos/cubic.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace reference {

namespace {

double roundOff(const CompressibilityCubic &cubic, double u)
{
    return 1e-14 * (std::fabs(u * u * u) + std::fabs(cubic.c2 * u * u) + std::fabs(cubic.c1 * u) + std::fabs(cubic.c0));
}

bool isRoot(const CompressibilityCubic &cubic, double u)
{
    return u > 0.0 && std::fabs(cubic.value(u)) <= roundOff(cubic, u);
}

// A few Newton steps, each kept only if it brings the value nearer to zero.
double polish(const CompressibilityCubic &cubic, double u)
{
    double f = cubic.value(u);
    for (int step = 0; step < 8 && f != 0.0; ++step) {
        const double next = u - f / cubic.slope(u);
        if (next == u)
            break;
        const double nextValue = cubic.value(next);
        if (!(std::fabs(nextValue) < std::fabs(f)))
            break;
        u = next;
        f = nextValue;
    }
    return u;
}

// To some thirteen digits, of numbers that are neither zero nor denormal: a third of the exponent, and two of Halley's
// steps. std::cbrt takes twice as long for digits that polish finds anyway.
double cubeRoot(double x)
{
    constexpr std::uint64_t offset = 0x2a9f7893782da1ce; // two thirds of the exponent's, less what serves the mantissa
    const double size = std::fabs(x);
    double root = std::bit_cast<double>(std::bit_cast<std::uint64_t>(size) / 3 + offset);
    for (int step = 0; step < 2; ++step) {
        const double cube = root * root * root;
        root *= (cube + 2.0 * size) / (2.0 * cube + size);
    }
    return std::copysign(root, x);
}

constexpr double third = 1.0 / 3.0; // products take less time than quotients

// The cubic as w^3 + p w + q, with u = w + shift.
struct DepressedCubic {
    double shift, p, q, discriminant;

    explicit DepressedCubic(const CompressibilityCubic &cubic)
        : shift(-cubic.c2 * third), p(cubic.c1 + cubic.c2 * shift),
          q((2.0 * shift * shift - cubic.c1) * cubic.c2 * third + cubic.c0),
          discriminant(0.25 * q * q + p * p * p * (third * third * third))
    {
    }
    bool hasOne() const { return discriminant > 0.0; }
    double onlyRoot() const
    {
        const double w = cubeRoot(-0.5 * q - std::copysign(std::sqrt(discriminant), q));
        return w - p / (3.0 * w) + shift;
    }
};

// The largest and the smallest of three real roots: on a circle, 120 degrees apart.
struct RootCircle {
    double radius, cosine, shift;

    explicit RootCircle(const DepressedCubic &cubic)
        : radius(2.0 * std::sqrt(std::max(0.0, -cubic.p * third))),
          cosine(radius > 0.0 ? std::clamp(3.0 * cubic.q / (cubic.p * radius), -1.0, 1.0) : 1.0), shift(cubic.shift)
    {
    }
    // No two roots are nearly one.
    bool isClear() const { return std::fabs(cosine) < 1.0 - 1e-6; }
    double root(bool smallest) const
    {
        const double angle = std::acos(cosine) * third;
        return radius * std::cos(smallest ? angle + 2.0 * std::numbers::pi / 3.0 : angle) + shift;
    }
};

} // namespace

CompressibilityRoots solveCompressibility(const CubicConstants &equation, double A, double B)
{
    const CompressibilityCubic cubic(equation, A, B);
    const DepressedCubic depressed(cubic);
    if (depressed.hasOne()) {
        const double single = polish(cubic, depressed.onlyRoot());
        return {single, single};
    }
    const RootCircle circle(depressed);
    const double largest = polish(cubic, circle.root(false));
    const double smallest = polish(cubic, circle.root(true));

    // At a double root the closed form may see a pair that is not there.
    const bool hasLargest = isRoot(cubic, largest);
    const bool hasSmallest = isRoot(cubic, smallest);
    if (hasLargest && hasSmallest)
        return {largest, smallest};
    const double only = hasSmallest ? smallest : largest;
    return {only, only};
}

CompressibilityRoot solveCompressibility(const CubicConstants &equation, double A, double B, bool liquid)
{
    const CompressibilityCubic cubic(equation, A, B);
    const DepressedCubic depressed(cubic);
    if (depressed.hasOne())
        return {polish(cubic, depressed.onlyRoot()), false};
    const RootCircle circle(depressed);
    if (!circle.isClear()) {
        const CompressibilityRoots both = solveCompressibility(equation, A, B);
        return {liquid ? both.liquid : both.vapor, both.distinct()};
    }
    // c0 is negative: all three roots are above zero, or one is. By the rule of signs it is three where c2 < 0 < c1.
    const bool several = cubic.c2 < 0.0 && cubic.c1 > 0.0;
    return {polish(cubic, circle.root(liquid && several)), several};
}

} // namespace reference
