#include "properties/chain_rule.h"

#include "cape/missing_value.h"

#include <algorithm>
#include <cstddef>

namespace {

constexpr double kilogramsPerGram = 0.001;

bool fail(WideString &errorText, LPCWSTR message)
{
    errorText = message;
    return false;
}

} // namespace

bool MeanMolarMass(const MixtureComposition &composition, double &molarMass, WideString &errorText)
{
    const MolecularWeights weights = composition.weights;
    if (std::any_of(composition.fractions, composition.fractions + weights.size(), IsMissing))
        return fail(errorText, OLESTR("One or more missing composition values in basis conversion"));
    const double *const moleFractions = MoleFractionsOf(composition, errorText);
    if (!moleFractions || !CheckMolecularWeights(weights, errorText))
        return false;
    molarMass = MeanMolecularWeight(weights, moleFractions) * kilogramsPerGram;
    return true;
}

bool ChainRuleConvert(const MixtureComposition &composition, const double *source, double *target, std::uint32_t count,
                      std::int32_t power, WideString &errorText, std::int32_t stride, double baseValue)
{
    double molarMass = 0;
    return MeanMolarMass(composition, molarMass, errorText) &&
           ChainRuleConvert(molarMass, composition.weights, source, target, count, power, errorText, stride, baseValue);
}

bool ChainRuleConvert(double molarMass, MolecularWeights weights, const double *source, double *target,
                      std::uint32_t count, std::int32_t power, WideString &errorText, std::int32_t stride,
                      double baseValue)
{
    const double factor = power == -1 ? 1 / molarMass : molarMass;
    const std::ptrdiff_t step = stride;
    for (std::ptrdiff_t k = 0; k < static_cast<std::ptrdiff_t>(count); ++k)
        target[k * step] = factor * source[k * step];
    if (baseValue == 0)
        return true;

    if (count != weights.size())
        return fail(errorText, OLESTR("Unexpected number of property values in chain rule mass/mole conversion of "
                                      "mole fraction derivatives"));
    for (std::size_t k = 0; k < weights.size(); ++k) {
        const double compoundPart = weights[k] * baseValue * kilogramsPerGram;
        double &value = target[static_cast<std::ptrdiff_t>(k) * step];
        value = power == 1 ? value + compoundPart : value - compoundPart * factor * factor;
    }
    return true;
}

bool ConvertCompoundValues(MolecularWeights weights, std::int32_t power, double *values, WideString &errorText,
                           std::int32_t stride)
{
    const std::ptrdiff_t step = stride;
    for (std::size_t i = 0; i < weights.size(); ++i) {
        double &value = values[static_cast<std::ptrdiff_t>(i) * step];
        if (IsMissing(value))
            continue;
        const double weight = weights[i];
        if (IsMissing(weight))
            return fail(errorText, OLESTR("missing molecular weight for one or more compounds in basis conversion"));
        if (power == 1)
            value = value * kilogramsPerGram * weight;
        else if (power == -1)
            value = value / (weight * kilogramsPerGram);
        else
            return fail(errorText, OLESTR("invalid conversion order in basis conversion"));
    }
    return true;
}
