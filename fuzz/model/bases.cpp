#include "fuzz/model/bases.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace fuzz::model {

namespace {

constexpr LPCWSTR missingWeights = u"One or more missing molecular weights in basis conversion";

WideString normalized(Numbers &fractions)
{
    double total = 0;
    for (double fraction : fractions)
        total += fraction;
    if (!(total > 0))
        return u"Zero or negative total composition in basis conversion";
    for (double &fraction : fractions)
        fraction *= 1 / total;
    return {};
}

// For each present phase its mean molar mass; the checks that both directions make.
WideString walkPhases(const Numbers &weights, const std::vector<Phase> &phases, bool perMass, Numbers &means)
{
    if (AnyMissing(weights))
        return missingWeights;
    means.assign(phases.size(), 0);
    for (std::size_t j = 0; j < phases.size(); ++j) {
        const Phase &phase = phases[j];
        if (!phase.isPresent)
            continue;
        if (IsMissing(phase.fraction))
            return u"One or more missing phase fractions in basis conversion";
        if (phase.fractionPerMass != perMass)
            return u"Phase fractions are in inconsistent bases in basis conversion";
        if (AnyMissing(phase.composition))
            return u"One or more missing compositions in basis conversion";
        Numbers fractions = phase.composition;
        if (phase.compositionPerMass)
            if (WideString reason = ConvertFractions(weights, false, phase.composition, fractions); !reason.empty())
                return reason;
        for (std::size_t i = 0; i < weights.size(); ++i)
            means[j] += fractions[i] * weights[i];
        if (perMass && !(means[j] > 0))
            return u"Zero or negative phase mass of one or more phases in basis conversion";
    }
    return {};
}

bool areHuge(double a, double b) { return std::abs(a) > 1e290 && std::abs(b) > 1e290 && (a < 0) == (b < 0); }

bool areTiny(double a, double b) { return std::abs(a) < 1e-290 && std::abs(b) < 1e-290; }

} // namespace

bool IsMissing(double value) { return std::isnan(value) || value == std::numeric_limits<double>::lowest(); }

bool AnyMissing(const Numbers &values) { return std::any_of(values.begin(), values.end(), IsMissing); }

WideString ConvertFractions(const Numbers &weights, bool toMass, const Numbers &source, Numbers &target)
{
    if (AnyMissing(weights))
        return missingWeights;
    Numbers fractions;
    for (std::size_t i = 0; i < weights.size(); ++i)
        fractions.push_back(toMass ? source[i] * weights[i] : source[i] / weights[i]);
    WideString reason = normalized(fractions);
    if (reason.empty())
        target = fractions;
    return reason;
}

WideString ConvertPhaseFraction(const Numbers &weights, const std::vector<Phase> &phases, bool toMass,
                                std::size_t phase, double &fraction)
{
    Numbers means;
    if (WideString reason = walkPhases(weights, phases, !toMass, means); !reason.empty())
        return reason;
    double total = 0;
    for (std::size_t j = 0; j < phases.size(); ++j)
        if (phases[j].isPresent)
            total += toMass ? phases[j].fraction * means[j] : phases[j].fraction / means[j];
    if (!(total > 0))
        return u"Zero or negative total total phase fraction in basis conversion";
    fraction = (toMass ? fraction * means[phase] : fraction / means[phase]) / total;
    return {};
}

WideString ConvertValues(const Numbers &weights, const Numbers &composition, bool compositionPerMass, int power,
                         double base, Numbers &values)
{
    if (AnyMissing(composition))
        return u"One or more missing composition values in basis conversion";
    Numbers fractions = composition;
    if (compositionPerMass)
        if (WideString reason = ConvertFractions(weights, false, composition, fractions); !reason.empty())
            return reason;
    if (AnyMissing(weights))
        return missingWeights;
    double mean = 0;
    for (std::size_t i = 0; i < weights.size(); ++i)
        mean += weights[i] * fractions[i];
    mean *= 0.001;
    for (double &value : values)
        value *= power == 1 ? mean : 1 / mean;
    if (base == 0)
        return {};
    if (values.size() != weights.size())
        return u"Unexpected number of property values in chain rule mass/mole conversion of mole fraction derivatives";
    for (std::size_t k = 0; k < values.size(); ++k) {
        const double part = weights[k] * base * 0.001;
        values[k] += power == 1 ? part : -part * (1 / mean) * (1 / mean);
    }
    return {};
}

bool Close(double a, double b)
{
    if (a == b || (std::isnan(a) && std::isnan(b)) || areHuge(a, b) || areTiny(a, b))
        return true;
    return std::abs(a - b) <= 1e-13 * std::max(std::abs(a), std::abs(b));
}

bool Close(const Numbers &a, const Numbers &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](double x, double y) { return Close(x, y); });
}

} // namespace fuzz::model
