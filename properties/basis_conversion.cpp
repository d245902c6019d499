#include "properties/basis_conversion.h"

#include "cape/missing_value.h"

#include <algorithm>
#include <cstddef>

namespace {

constexpr LPCWSTR missingWeights = OLESTR("One or more missing molecular weights in basis conversion");

bool fail(WideString &errorText, LPCWSTR message)
{
    errorText = message;
    return false;
}

// What both conversions of fractions share: each fraction scaled by `scaled(fraction, MW)`, then
// all divided by their total.
template <class Scale> bool convertFractions(MolecularWeights weights, const double *source, double *target,
                                             Scale scaled, WideString &errorText)
{
    double total = 0;
    for (std::size_t i = 0; i < weights.size(); ++i) {
        const double weight = weights[i];
        if (IsMissing(weight))
            return fail(errorText, missingWeights);
        target[i] = scaled(source[i], weight);
        total += target[i];
    }
    if (!(total > 0)) // a NaN among the fractions ends here too
        return fail(errorText, OLESTR("Zero or negative total composition in basis conversion"));
    const double factor = 1 / total;
    for (std::size_t i = 0; i < weights.size(); ++i)
        target[i] *= factor;
    return true;
}

// The mean molecular weight of a present phase. False when its composition is not usable.
bool phaseMolecularWeight(const PhaseAmounts &phases, std::size_t phase, double &weight, WideString &errorText)
{
    const double *fractions = phases.compositions[phase].get();
    if (std::any_of(fractions, fractions + phases.weights.size(), IsMissing))
        return fail(errorText, OLESTR("One or more missing compositions in basis conversion"));
    fractions = MoleFractionsOf({phases.weights, fractions, phases.compositionBases[phase], phases.scratch}, errorText);
    if (!fractions)
        return false;
    weight = MeanMolecularWeight(phases.weights, fractions);
    return true;
}

struct PhaseSum {
    double total = 0;         // over the present phases, on the other basis and not normalized
    double weightOfPhase = 0; // mean molecular weight of the phase asked about
};

// `massBasis` tells the basis in which all phase fractions must stand.
bool sumPresentPhases(const PhaseAmounts &phases, std::int32_t phase, bool massBasis, PhaseSum &sum,
                      WideString &errorText)
{
    if (!CheckMolecularWeights(phases.weights, errorText))
        return false;
    for (std::size_t j = 0; j < phases.present.size(); ++j) {
        if (!phases.present[j])
            continue;
        const double fraction = phases.fractions[j];
        if (IsMissing(fraction))
            return fail(errorText, OLESTR("One or more missing phase fractions in basis conversion"));
        if ((phases.fractionBases[j] != 0) != massBasis)
            return fail(errorText, OLESTR("Phase fractions are in inconsistent bases in basis conversion"));
        double weight = 0;
        if (!phaseMolecularWeight(phases, j, weight, errorText))
            return false;
        if (massBasis && !(weight > 0))
            return fail(errorText, OLESTR("Zero or negative phase mass of one or more phases in basis conversion"));
        sum.total += massBasis ? fraction / weight : fraction * weight;
        if (j == static_cast<std::size_t>(phase))
            sum.weightOfPhase = weight;
    }
    return sum.total > 0 || fail(errorText, OLESTR("Zero or negative total total phase fraction in basis conversion"));
}

} // namespace

bool CheckMolecularWeights(MolecularWeights weights, WideString &errorText)
{
    return std::none_of(weights.begin(), weights.end(), IsMissing) || fail(errorText, missingWeights);
}

double MeanMolecularWeight(MolecularWeights weights, const double *moleFractions)
{
    double sum = 0;
    for (std::size_t i = 0; i < weights.size(); ++i)
        sum += moleFractions[i] * weights[i];
    return sum;
}

bool MassToMoleFractions(MolecularWeights weights, const double *source, double *target, WideString &errorText)
{
    const auto divide = [](double fraction, double weight) { return fraction / weight; };
    return convertFractions(weights, source, target, divide, errorText);
}

bool MoleToMassFractions(MolecularWeights weights, const double *source, double *target, WideString &errorText)
{
    const auto multiply = [](double fraction, double weight) { return fraction * weight; };
    return convertFractions(weights, source, target, multiply, errorText);
}

bool MassToMolePhaseFraction(const PhaseAmounts &phases, std::int32_t phase, double value, double &result,
                             WideString &errorText)
{
    PhaseSum sum;
    if (!sumPresentPhases(phases, phase, true, sum, errorText))
        return false;
    result = value / sum.weightOfPhase / sum.total;
    return true;
}

bool MoleToMassPhaseFraction(const PhaseAmounts &phases, std::int32_t phase, double value, double &result,
                             WideString &errorText)
{
    PhaseSum sum;
    if (!sumPresentPhases(phases, phase, false, sum, errorText))
        return false;
    result = value * sum.weightOfPhase / sum.total;
    return true;
}
