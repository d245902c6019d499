// The least value of a smooth function, slowly and without second derivatives.
#pragma once

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

namespace reference {

using Numbers = std::vector<double>;

inline double dot(const Numbers &a, const Numbers &b) { return std::inner_product(a.begin(), a.end(), b.begin(), 0.0); }

// The method of Broyden, Fletcher, Goldfarb and Shanno. `function(x, gradient)` gives value and gradient; `x` is the
// start and then the place of the least value that was reached, which is returned. Variables should be scaled so that a
// step of minus the gradient is of a good length.
template <class Function> double minimize(Function &&function, Numbers &x, int mostSteps)
{
    const std::size_t n = x.size();
    Numbers gradient(n);
    double value = function(x, gradient);
    Numbers inverse(n * n);
    const auto reset = [&] {
        std::ranges::fill(inverse, 0.0);
        for (std::size_t i = 0; i < n; ++i)
            inverse[i * n + i] = 1.0;
    };
    reset();
    bool fresh = true;
    for (int step = 0; step < mostSteps && dot(gradient, gradient) > 1e-26; ++step) {
        Numbers direction(n);
        for (std::size_t i = 0; i < n; ++i)
            for (std::size_t j = 0; j < n; ++j)
                direction[i] -= inverse[i * n + j] * gradient[j];
        double slope = dot(direction, gradient);
        if (!(slope < 0.0)) {
            reset();
            fresh = true;
            for (std::size_t i = 0; i < n; ++i)
                direction[i] = -gradient[i];
            slope = dot(direction, gradient);
        }
        double length = std::min(1.0, 4.0 / std::sqrt(dot(direction, direction)));
        Numbers next(n);
        Numbers nextGradient(n);
        double nextValue = value;
        bool fell = false;
        for (int halving = 0; halving < 40 && !fell; ++halving, length *= 0.4) {
            for (std::size_t i = 0; i < n; ++i)
                next[i] = x[i] + length * direction[i];
            nextValue = function(next, nextGradient);
            // Where the value has no digits left, the gradient decides.
            const bool flat = nextValue <= value + 1e-15 * (1.0 + std::fabs(value));
            fell = nextValue < value + 1e-4 * length * slope ||
                   (flat && dot(nextGradient, nextGradient) < 0.25 * dot(gradient, gradient));
        }
        if (!fell) {
            if (fresh)
                break;
            reset();
            fresh = true;
            continue;
        }
        Numbers moved(n);
        Numbers turned(n);
        for (std::size_t i = 0; i < n; ++i) {
            moved[i] = next[i] - x[i];
            turned[i] = nextGradient[i] - gradient[i];
        }
        const double curvature = dot(moved, turned);
        if (curvature > 1e-14 * dot(turned, turned)) {
            Numbers image(n);
            for (std::size_t i = 0; i < n; ++i)
                for (std::size_t j = 0; j < n; ++j)
                    image[i] += inverse[i * n + j] * turned[j];
            const double factor = (1.0 + dot(turned, image) / curvature) / curvature;
            for (std::size_t i = 0; i < n; ++i)
                for (std::size_t j = 0; j < n; ++j)
                    inverse[i * n + j] +=
                        factor * moved[i] * moved[j] - (image[i] * moved[j] + moved[i] * image[j]) / curvature;
            fresh = false;
        }
        x = next;
        gradient = nextGradient;
        value = nextValue;
    }
    return value;
}

} // namespace reference
