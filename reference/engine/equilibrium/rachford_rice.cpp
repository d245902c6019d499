#include "reference/engine/equilibrium/rachford_rice.h"

#include "reference/engine/numerics/compound_arrays.h"

#include <cmath>
#include <limits>

namespace reference {

namespace {

struct Residual {
    double value = 0.0;
    double slope = 0.0; // along the unknown, always falling
    double size = 0.0;  // of the terms, to judge round-off by
};

// What a compound's terms are made of: what it has in the phase that is the lesser, over the other one, for an unknown
// that is the fraction of that phase.
struct Terms {
    CompoundArray excess; // K - 1 for the vapor, 1 - K for the liquid
    CompoundArray start;  // 1 or K

    Terms(int n, const double *K, bool vaporIsLesser)
    {
        for (int i = 0; i < n; ++i) {
            excess[i] = vaporIsLesser ? K[i] - 1.0 : 1.0 - K[i];
            start[i] = vaporIsLesser ? 1.0 : K[i];
        }
    }
};

Residual residualAt(int n, const double *z, const Terms &terms, double fraction)
{
    CompoundArray ratio; // by itself: divisions are made two at a time
    for (int i = 0; i < n; ++i)
        ratio[i] = terms.excess[i] / (terms.start[i] + fraction * terms.excess[i]);
    Residual sum;
    for (int i = 0; i < n; ++i) {
        const double term = z[i] * ratio[i];
        sum.value += term;
        sum.slope -= term * ratio[i];
        sum.size += std::fabs(term);
    }
    return sum;
}

} // namespace

bool solveRachfordRice(int n, const double *z, const double *K, PhaseAmounts &amounts)
{
    double vaporSum = 0.0;
    double liquidSum = 0.0;
    double half = 0.0;
    for (int i = 0; i < n; ++i) {
        vaporSum += z[i] * K[i];
        liquidSum += z[i] / K[i];
        half += z[i] * (K[i] - 1.0) / (K[i] + 1.0);
    }
    if (!(vaporSum > 1.0) || !(liquidSum > 1.0))
        return false;

    // The unknown is the amount of the lesser phase, so that it keeps its digits near zero.
    const bool vaporIsLesser = half <= 0.0;
    const Terms terms(n, K, vaporIsLesser);
    double low = 0.0;
    double high = 0.5;
    double fraction = vaporIsLesser ? (vaporSum - 1.0) / (vaporSum - 1.0 - 2.0 * half)
                                    : (liquidSum - 1.0) / (liquidSum - 1.0 + 2.0 * half);
    fraction *= 0.5;
    double before = 1.0; // change
    for (int step = 0; step < 100; ++step) {
        const Residual residual = residualAt(n, z, terms, fraction);
        if (std::fabs(residual.value) <= 1e-15 * residual.size)
            break;
        (residual.value > 0.0 ? low : high) = fraction;
        double next = fraction - residual.value / residual.slope;
        if (!(next > low && next < high))
            next = 0.5 * (low + high);
        const double change = std::fabs(next - fraction);
        fraction = next;
        // A change that is a thousandth of the one before is followed by one of less than a millionth of itself.
        const double small = change < 1e-3 * before ? 1e-10 : std::numeric_limits<double>::epsilon();
        before = change;
        if (change <= small * fraction)
            break;
    }
    if (!(fraction > 0.0))
        return false;
    amounts = vaporIsLesser ? PhaseAmounts{fraction, 1.0 - fraction} : PhaseAmounts{1.0 - fraction, fraction};
    return true;
}

} // namespace reference
