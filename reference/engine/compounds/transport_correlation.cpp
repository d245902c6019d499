#include "reference/engine/compounds/transport_correlation.h"

namespace reference {

Dual TransportCorrelation::at(Dual T) const
{
    const auto &c = coefficients;
    switch (form) {
    case TransportForm::polynomial: {
        Dual sum;
        for (std::size_t i = c.size(); i-- > 0;)
            sum = sum * T + c[i];
        return sum;
    }
    case TransportForm::exponential:
        return exp(c[0] + c[1] / T + c[2] * log(T) + c[3] * pow(T, c[4]));
    case TransportForm::sutherland:
        return c[0] * pow(T, c[1]) / (1.0 + (c[2] + c[3] / T) / T);
    case TransportForm::shiftedExponential:
        return c[0] + exp(c[1] / T + c[2] + (c[3] + c[4] * T) * T);
    case TransportForm::powers: {
        const Dual q = 1.0 - T / c[6];
        return c[0] * pow(q, c[1]) + c[2] * pow(q, c[3]) + c[4] * pow(q, c[5]);
    }
    case TransportForm::none:
        break;
    }
    return {};
}

} // namespace reference
