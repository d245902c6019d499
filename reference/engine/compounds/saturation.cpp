#include "reference/engine/compounds/saturation.h"

#include <cmath>
#include <limits>

namespace reference {

namespace {

constexpr double notDefined = std::numeric_limits<double>::quiet_NaN();

// n1 q^t1 + n2 q^t2 + ... and its first three derivatives by q.
struct PowerSum {
    double value = 0.0;
    double first = 0.0;
    double second = 0.0;
    double third = 0.0;
};

PowerSum powerSum(const Correlation &correlation, double q)
{
    PowerSum sum;
    const double logarithm = std::log(q);
    for (int k = 0; k < correlation.terms; ++k) {
        const double t = correlation.exponents[k];
        const double term = correlation.factors[k] * std::exp(t * logarithm);
        sum.value += term;
        sum.first += t * term / q;
        sum.second += t * (t - 1.0) * term / (q * q);
        sum.third += t * (t - 1.0) * (t - 2.0) * term / (q * q * q);
    }
    return sum;
}

double distance(const Correlation &correlation, double kelvin) { return 1.0 - kelvin / correlation.temperature; }

bool inRange(const Correlation &correlation, double kelvin)
{
    return correlation.form != CorrelationForm::none && kelvin >= correlation.lowest &&
           kelvin <= correlation.temperature;
}

TemperatureFunction logarithmicPressure(const Correlation &correlation, double T)
{
    const double T0 = correlation.temperature;
    const PowerSum sum = powerSum(correlation, distance(correlation, T));
    const double exponent = T0 / T * sum.value;
    const double slope = -(exponent + sum.first) / T;
    const double curvature = sum.second / (T0 * T) - 2.0 * slope / T;
    return {std::log(correlation.scale) + exponent, slope, curvature,
            2.0 * (slope / T - curvature) / T - (sum.third / T0 + sum.second / T) / (T0 * T)};
}

TemperatureFunction volumeOf(const Correlation &correlation, double T)
{
    const double T0 = correlation.temperature;
    const PowerSum sum = powerSum(correlation, distance(correlation, T));
    if (correlation.form == CorrelationForm::exponential) {
        const double volume = std::exp(-sum.value) / correlation.scale;
        return {volume, volume * sum.first / T0, volume * (sum.first * sum.first - sum.second) / (T0 * T0),
                volume * ((sum.first * sum.first - 3.0 * sum.second) * sum.first + sum.third) / (T0 * T0 * T0)};
    }
    const double ratio = 1.0 + sum.value;
    const double volume = 1.0 / (correlation.scale * ratio);
    const double slope = sum.first / ratio;
    const double curvature = sum.second / ratio;
    return {volume, volume * slope / T0, volume * (2.0 * slope * slope - curvature) / (T0 * T0),
            volume * (6.0 * (slope * slope - curvature) * slope + sum.third / ratio) / (T0 * T0 * T0)};
}

// The distance from the critical point at which the power sum has no curvature: there ln p is
// straight over 1/T, because d(T^2 d(ln p)/dT)/dT is the curvature times T / T0. For correlations
// that have no such point, one near the end of their range.
double straightDistance(const Correlation &correlation)
{
    constexpr double nearest = 0.02;
    constexpr double step = 0.01;
    const double farthest = distance(correlation, correlation.lowest);
    const auto curvature = [&](double q) { return powerSum(correlation, q).second; };
    if (curvature(nearest) <= 0.0)
        return nearest;
    double rising = nearest; // the curvature is above zero here
    double straight = nearest + step;
    while (curvature(straight) > 0.0) {
        if (straight >= farthest)
            return 0.1;
        rising = straight;
        straight += step;
    }
    for (int i = 0; i < 60; ++i) {
        const double middle = 0.5 * (rising + straight);
        (curvature(middle) > 0.0 ? rising : straight) = middle;
    }
    return straight;
}

// The curvature of a continued function goes to zero as exp(-x / length), x being the distance from
// where it begins. This is what the curvature adds to the function for a curvature of one.
struct DecayingCurvature {
    double value;
    double first; // derivatives by x
    double second;
};
DecayingCurvature decayingCurvature(double x, double length)
{
    const double decay = std::exp(-x / length);
    return {length * (x - length * (1.0 - decay)), length * (1.0 - decay), decay};
}

// A volume continued from `from` on, in either direction.
TemperatureFunction continued(const TemperatureFunction &start, double from, double kelvin, double length)
{
    const double x = kelvin - from;
    const DecayingCurvature decay = decayingCurvature(std::fabs(x), length);
    return {start.value + start.byT * x + start.byTT * decay.value,
            start.byT + start.byTT * std::copysign(decay.first, x), start.byTT * decay.second,
            -start.byTT * std::copysign(decay.second, x) / length};
}

constexpr double decayLength = 0.05; // as a part of T0, or of T0/T

} // namespace

double vaporPressure(const CompoundData &compound, double kelvin)
{
    const Correlation &correlation = compound.vaporPressure;
    if (!inRange(correlation, kelvin))
        return notDefined;
    if (kelvin == correlation.temperature)
        return correlation.scale;
    return std::exp(logarithmicPressure(correlation, kelvin).value);
}

double saturatedLiquidDensity(const CompoundData &compound, double kelvin)
{
    const Correlation &correlation = compound.liquidDensity;
    if (!inRange(correlation, kelvin))
        return notDefined;
    return kelvin == correlation.temperature ? correlation.scale : 1.0 / volumeOf(correlation, kelvin).value;
}

SaturationPressure::SaturationPressure(const CompoundData &compound)
    : correlation(compound.vaporPressure), lowest(0.0), cold0(0.0), cold1(0.0), cold2(0.0), highest(0.0), hot(0.0),
      hotByInverse(0.0), hotByTwo(0.0)
{
    if (correlation.form == CorrelationForm::none)
        return;
    const double T0 = correlation.temperature;

    lowest = correlation.lowest;
    const TemperatureFunction coldEnd = logarithmicPressure(correlation, lowest);
    cold2 = lowest * (2.0 * coldEnd.byT + lowest * coldEnd.byTT);
    cold1 = lowest * (cold2 - lowest * coldEnd.byT);
    cold0 = coldEnd.value - cold1 / lowest - cold2 * std::log(lowest);

    highest = T0 * (1.0 - straightDistance(correlation));
    const TemperatureFunction hotEnd = logarithmicPressure(correlation, highest);
    const double byInverse = -highest * highest / T0; // dT/dw for w = T0/T
    hot = hotEnd.value;
    hotByInverse = hotEnd.byT * byInverse;
    hotByTwo = (hotEnd.byTT + 2.0 / highest * hotEnd.byT) * byInverse * byInverse;
}

TemperatureFunction SaturationPressure::logarithm(double kelvin) const
{
    if (correlation.form == CorrelationForm::none)
        return {notDefined, notDefined, notDefined, notDefined};
    if (kelvin < lowest)
        return {cold0 + cold1 / kelvin + cold2 * std::log(kelvin), (cold2 - cold1 / kelvin) / kelvin,
                (2.0 * cold1 / kelvin - cold2) / (kelvin * kelvin),
                2.0 * (cold2 - 3.0 * cold1 / kelvin) / (kelvin * kelvin * kelvin)};
    if (kelvin <= highest)
        return logarithmicPressure(correlation, kelvin);

    const double inverse = correlation.temperature / kelvin;
    const double x = correlation.temperature / highest - inverse;
    const DecayingCurvature decay = decayingCurvature(x, decayLength);
    const double byInverse = hotByInverse - hotByTwo * decay.first;
    const double byTwo = hotByTwo * decay.second;
    const double byThree = byTwo / decayLength;
    const double slope = -inverse / kelvin; // of the inverse
    return {hot - hotByInverse * x + hotByTwo * decay.value, byInverse * slope,
            byTwo * slope * slope - 2.0 * byInverse * slope / kelvin,
            (byThree * slope * slope - 6.0 * (byTwo * slope - byInverse / kelvin) / kelvin) * slope};
}

LiquidVolume::LiquidVolume(const CompoundData &compound)
    : correlation(compound.liquidDensity), lowest(0.0), highest(0.0), cold{}, hot{}
{
    if (correlation.form == CorrelationForm::none)
        return;
    lowest = correlation.lowest;
    highest = 0.9 * correlation.temperature;
    cold = volumeOf(correlation, lowest);
    hot = volumeOf(correlation, highest);
}

TemperatureFunction LiquidVolume::volume(double kelvin) const
{
    if (correlation.form == CorrelationForm::none)
        return {notDefined, notDefined, notDefined, notDefined};
    if (kelvin < lowest)
        return continued(cold, lowest, kelvin, decayLength * correlation.temperature);
    if (kelvin > highest)
        return continued(hot, highest, kelvin, decayLength * correlation.temperature);
    return volumeOf(correlation, kelvin);
}

} // namespace reference
