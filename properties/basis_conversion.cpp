#include "properties/basis_conversion.h"

#include "cape/missing_value.h"
#include "material/material_object.h"

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
template <class Scale> bool convertFractions(const OpenPackage &package, const double *source, double *target,
                                             Scale scaled, WideString &errorText)
{
    const std::size_t compounds = package.compoundIds.size();
    double total = 0;
    for (std::size_t i = 0; i < compounds; ++i) {
        const double weight = package.molecularWeights[i];
        if (IsMissing(weight))
            return fail(errorText, missingWeights);
        target[i] = scaled(source[i], weight);
        total += target[i];
    }
    if (!(total > 0)) // a NaN among the fractions ends here too
        return fail(errorText, OLESTR("Zero or negative total composition in basis conversion"));
    const double factor = 1 / total;
    for (std::size_t i = 0; i < compounds; ++i)
        target[i] *= factor;
    return true;
}

// The mean molecular weight of a present phase. False when its composition is not usable.
bool phaseMolecularWeight(const CMaterialObject &material, std::size_t phase, double &weight, WideString &errorText)
{
    const OpenPackage &package = *material.openPackage;
    const double *composition = material.phaseComposition[phase].get();
    if (std::any_of(composition, composition + package.compoundIds.size(), IsMissing))
        return fail(errorText, OLESTR("One or more missing compositions in basis conversion"));
    if (material.phaseCompositionBasis[phase] != 0) {
        double *const moleFractions = material.conversionScratch.get();
        if (!MassToMoleFractions(material, composition, moleFractions, errorText))
            return false;
        composition = moleFractions;
    }
    weight = MeanMolecularWeight(package, composition);
    return true;
}

struct PhaseSum {
    double total = 0;         // over the present phases, on the other basis and not normalised
    double weightOfPhase = 0; // mean molecular weight of the phase asked about
};

// `massBasis` tells the basis in which all phase fractions must stand.
bool sumPresentPhases(const CMaterialObject &material, std::int32_t phase, bool massBasis, PhaseSum &sum,
                      WideString &errorText)
{
    if (!CheckMolecularWeights(*material.openPackage, errorText))
        return false;
    for (std::size_t j = 0; j < material.openPackage->phaseLabels.size(); ++j) {
        if (!material.phasePresent[j])
            continue;
        const double fraction = material.phaseFraction[j];
        if (IsMissing(fraction))
            return fail(errorText, OLESTR("One or more missing phase fractions in basis conversion"));
        if ((material.phaseFractionBasis[j] != 0) != massBasis)
            return fail(errorText, OLESTR("Phase fractions are in inconsistent bases in basis conversion"));
        double weight = 0;
        if (!phaseMolecularWeight(material, j, weight, errorText))
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

bool CheckMolecularWeights(const OpenPackage &package, WideString &errorText)
{
    const auto &weights = package.molecularWeights;
    return std::none_of(weights.begin(), weights.end(), IsMissing) || fail(errorText, missingWeights);
}

double MeanMolecularWeight(const OpenPackage &package, const double *moleFractions)
{
    double sum = 0;
    for (std::size_t i = 0; i < package.compoundIds.size(); ++i)
        sum += moleFractions[i] * package.molecularWeights[i];
    return sum;
}

bool MassToMoleFractions(const CMaterialObject &material, const double *source, double *target, WideString &errorText)
{
    const auto divide = [](double fraction, double weight) { return fraction / weight; };
    return convertFractions(*material.openPackage, source, target, divide, errorText);
}

bool MoleToMassFractions(const CMaterialObject &material, const double *source, double *target, WideString &errorText)
{
    const auto multiply = [](double fraction, double weight) { return fraction * weight; };
    return convertFractions(*material.openPackage, source, target, multiply, errorText);
}

bool MassToMolePhaseFraction(const CMaterialObject &material, std::int32_t phase, double value, double &result,
                             WideString &errorText)
{
    PhaseSum sum;
    if (!sumPresentPhases(material, phase, true, sum, errorText))
        return false;
    result = value / sum.weightOfPhase / sum.total;
    return true;
}

bool MoleToMassPhaseFraction(const CMaterialObject &material, std::int32_t phase, double value, double &result,
                             WideString &errorText)
{
    PhaseSum sum;
    if (!sumPresentPhases(material, phase, false, sum, errorText))
        return false;
    result = value * sum.weightOfPhase / sum.total;
    return true;
}
