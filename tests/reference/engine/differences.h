// Derivatives by differences.
#pragma once

#include <cmath>
#include <functional>
#include <vector>

namespace reference {

// Slopes of a list of functions at zero: central differences with steps h, h/2 and h/4, extrapolated
// after Richardson. The error is what the last extrapolation changed.
struct Slopes {
    std::vector<double> value;
    std::vector<double> error;
};
inline Slopes extrapolate(const std::function<std::vector<double>(double)> &functions, double h)
{
    std::vector<std::vector<double>> columns;
    for (const double step : {h, 0.5 * h, 0.25 * h}) {
        const std::vector<double> above = functions(step);
        const std::vector<double> below = functions(-step);
        std::vector<double> difference;
        for (std::size_t k = 0; k < above.size(); ++k)
            difference.push_back((above[k] - below[k]) / (2.0 * step));
        columns.push_back(difference);
    }
    Slopes slopes;
    for (std::size_t k = 0; k < columns[0].size(); ++k) {
        const double coarse = (4.0 * columns[1][k] - columns[0][k]) / 3.0;
        const double fine = (4.0 * columns[2][k] - columns[1][k]) / 3.0;
        const double best = (16.0 * fine - coarse) / 15.0;
        slopes.value.push_back(best);
        slopes.error.push_back(std::fabs(best - fine));
    }
    return slopes;
}

} // namespace reference
