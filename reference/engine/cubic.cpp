#include "reference/engine/cubic.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace reference {

namespace {

struct Cubic {
    double c2, c1, c0;

    double value(double z) const { return ((z + c2) * z + c1) * z + c0; }
    double slope(double z) const { return (3.0 * z + 2.0 * c2) * z + c1; }
    double roundOff(double z) const
    {
        return 1e-14 * (std::fabs(z * z * z) + std::fabs(c2 * z * z) + std::fabs(c1 * z) + std::fabs(c0));
    }

    // A few Newton steps, each kept only if it brings the value nearer to zero.
    double polish(double z) const
    {
        double f = value(z);
        for (int step = 0; step < 8 && f != 0.0; ++step) {
            const double next = z - f / slope(z);
            const double nextValue = value(next);
            if (!(std::fabs(nextValue) < std::fabs(f)))
                break;
            z = next;
            f = nextValue;
        }
        return z;
    }
    bool isRoot(double z) const { return std::fabs(value(z)) <= roundOff(z); }
};

} // namespace

CompressibilityRoots solveCompressibility(const CubicConstants &equation, double A, double B)
{
    const double sum = equation.sum();
    const double product = equation.product();
    const Cubic cubic{(sum - 1.0) * B - 1.0, A + ((product - sum) * B - sum) * B, -(A + product * (1.0 + B) * B) * B};

    // z = w - c2/3 turns the cubic into w^3 + p w + q.
    const double shift = -cubic.c2 / 3.0;
    const double p = cubic.c1 - cubic.c2 * cubic.c2 / 3.0;
    const double q = (2.0 * cubic.c2 * cubic.c2 / 27.0 - cubic.c1 / 3.0) * cubic.c2 + cubic.c0;
    const double discriminant = q * q / 4.0 + p * p * p / 27.0;

    if (discriminant > 0.0) {
        const double u = std::cbrt(-q / 2.0 - std::copysign(std::sqrt(discriminant), q));
        const double single = cubic.polish(u - p / (3.0 * u) + shift);
        return {single, single};
    }

    const double radius = 2.0 * std::sqrt(std::max(0.0, -p / 3.0));
    const double cosine = radius > 0.0 ? std::clamp(3.0 * q / (p * radius), -1.0, 1.0) : 1.0;
    const double angle = std::acos(cosine) / 3.0;
    const double largest = cubic.polish(radius * std::cos(angle) + shift);
    const double smallest = cubic.polish(radius * std::cos(angle + 2.0 * std::numbers::pi / 3.0) + shift);

    // At a double root the closed form may see a pair that is not there.
    const bool hasLargest = cubic.isRoot(largest) && largest > B;
    const bool hasSmallest = cubic.isRoot(smallest) && smallest > B;
    if (hasLargest && hasSmallest)
        return {largest, smallest};
    const double only = hasSmallest ? smallest : largest;
    return {only, only};
}

} // namespace reference
