#include "commands/flash_results.h"

#include "gateway/call/failure_text.h"
#include "gateway/state/global_lists.h"
#include "gateway/state/settings.h"
#include "properties/basis_conversion.h"

namespace {

// The composition of a phase in the default basis: the stored one, or a converted one in the
// material's conversionScratch. Null with the message in ScratchText.
const double *compositionInDefaultBasis(const CMaterialObject &material, std::int32_t phase)
{
    const double *stored = material.phaseComposition[phase].get();
    const bool storedPerMass = material.phaseCompositionBasis[phase] != 0;
    const bool wantedPerMass = GlobalSettings.defaultBasis != 0;
    if (storedPerMass == wantedPerMass)
        return stored;
    double *converted = material.conversionScratch.get();
    const auto convert = wantedPerMass ? MoleToMassFractions : MassToMoleFractions;
    return convert(material.openPackage->molecularWeights, stored, converted, ScratchText) ? converted : nullptr;
}

Verdict molecularWeightOfPhase(const CMaterialObject &material, std::int32_t phase, double &weight)
{
    const double *moleFractions = MoleFractionsOf(material.compositionOf(phase), ScratchText);
    if (!moleFractions)
        return FailWith(OLESTR("Basis conversion error: "), ScratchText);
    weight = 0;
    for (std::int32_t j = 0; j < material.compoundCount(); ++j) {
        const double compoundWeight = material.openPackage->molecularWeights[j];
        if (IsMissing(compoundWeight))
            return Verdict::refuse("one or more unknown molecular weights; unable to perform basis conversion");
        if (IsMissing(moleFractions[j]))
            return Verdict::refuse("one or more phase compositions missing after flash");
        weight += moleFractions[j] * compoundWeight;
    }
    return Verdict::done();
}

// Mass fractions of phases to mole fractions, or the other way round.
Verdict convertFractions(const CMaterialObject &material, bool toMole, double *fractions)
{
    double total = 0;
    for (std::size_t r = 0; r < HandleList.size(); ++r) {
        double weight = 0;
        if (Verdict verdict = molecularWeightOfPhase(material, HandleList[r], weight); !verdict.isDone())
            return verdict;
        if (toMole && weight == 0)
            return Verdict::refuse("Phase molecular weight is zero; unable to perform basis conversion");
        fractions[r] = toMole ? fractions[r] / weight : weight * fractions[r];
        total += fractions[r];
    }
    if (total == 0)
        return Verdict::refuse(toMole ? "Zero total phase moles after flash calculation"
                                      : "Zero total phase mass after flash calculation");
    for (std::size_t r = 0; r < HandleList.size(); ++r)
        fractions[r] /= total; // so that the fraction of the only phase is exactly 1
    return Verdict::done();
}

} // namespace

void ListPresentPhases(const CMaterialObject &material)
{
    HandleList.clear();
    for (std::int32_t p = 0; p < material.phaseCount(); ++p)
        if (material.phasePresent[p] != 0)
            HandleList.push_back(p);
}

Verdict ReadPhases(const CMaterialObject &material, double *fractions, double *compositions)
{
    std::optional<bool> storedPerMass;
    const std::size_t rows = HandleList.size();
    for (std::size_t r = 0; r < rows; ++r) {
        const std::int32_t phase = HandleList[r];
        fractions[r] = material.phaseFraction[phase];
        const bool perMass = material.phaseCompositionBasis[phase] != 0;
        if (storedPerMass.value_or(perMass) != perMass)
            return Verdict::refuse("Equilibrium phases not stored in consistent basis; "
                                   "unable to perform basis conversion");
        storedPerMass = perMass;
        const double *composition = compositionInDefaultBasis(material, phase);
        if (!composition)
            return FailWith(ScratchText);
        for (std::int32_t j = 0; j < material.compoundCount(); ++j)
            compositions[r + static_cast<std::size_t>(j) * rows] = composition[j];
    }
    const bool wantedPerMass = GlobalSettings.defaultBasis != 0;
    if (!storedPerMass || *storedPerMass == wantedPerMass)
        return Verdict::done();
    return convertFractions(material, !wantedPerMass, fractions);
}
