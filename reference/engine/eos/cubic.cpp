#include "reference/engine/eos/cubic.h"

#include <algorithm>
#include <cmath>
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
        const double nextValue = cubic.value(next);
        if (!(std::fabs(nextValue) < std::fabs(f)))
            break;
        u = next;
        f = nextValue;
    }
    return u;
}

} // namespace

CompressibilityRoots solveCompressibility(const CubicConstants &equation, double A, double B)
{
    const CompressibilityCubic cubic(equation, A, B);

    // u = w - c2/3 turns the cubic into w^3 + p w + q.
    const double shift = -cubic.c2 / 3.0;
    const double p = cubic.c1 - cubic.c2 * cubic.c2 / 3.0;
    const double q = (2.0 * cubic.c2 * cubic.c2 / 27.0 - cubic.c1 / 3.0) * cubic.c2 + cubic.c0;
    const double discriminant = q * q / 4.0 + p * p * p / 27.0;

    if (discriminant > 0.0) {
        const double u = std::cbrt(-q / 2.0 - std::copysign(std::sqrt(discriminant), q));
        const double single = polish(cubic, u - p / (3.0 * u) + shift);
        return {single, single};
    }

    const double radius = 2.0 * std::sqrt(std::max(0.0, -p / 3.0));
    const double cosine = radius > 0.0 ? std::clamp(3.0 * q / (p * radius), -1.0, 1.0) : 1.0;
    const double angle = std::acos(cosine) / 3.0;
    const double largest = polish(cubic, radius * std::cos(angle) + shift);
    const double smallest = polish(cubic, radius * std::cos(angle + 2.0 * std::numbers::pi / 3.0) + shift);

    // At a double root the closed form may see a pair that is not there.
    const bool hasLargest = isRoot(cubic, largest);
    const bool hasSmallest = isRoot(cubic, smallest);
    if (hasLargest && hasSmallest)
        return {largest, smallest};
    const double only = hasSmallest ? smallest : largest;
    return {only, only};
}

} // namespace reference
