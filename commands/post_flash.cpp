#include "commands/post_flash.h"

#include "cape/same_name.h"
#include "commands/command_scratch.h"
#include "commands/flash_constraint.h"
#include "gateway/call/failure_text.h"
#include "gateway/state/global_lists.h"
#include "gateway/state/settings.h"
#include "gateway/state/warning.h"
#include "properties/basis_conversion.h"
#include "properties/chain_rule.h"

namespace {

struct MarkedResult {
    LPCWSTR name;
    FlashResultKind kind;
};

constexpr MarkedResult markedResults[] = {
    {OLESTR("Temperature"), TemperatureResult},
    {OLESTR("Pressure"), PressureResult},
    {OLESTR("vaporFraction"), VaporFractionResult},
};

bool defaultIsMass() { return GlobalSettings.defaultBasis != 0; }

Verdict vaporFraction(const CMaterialObject &material, std::int32_t vaporPhase, double &value)
{
    if (vaporPhase < 0)
        return Verdict::refuse("Package does not expose vapor phase");
    value = 0;
    if (material.phasePresent[vaporPhase] == 0)
        return Verdict::done();
    const double stored = material.phaseFraction[vaporPhase];
    if ((material.phaseFractionBasis[vaporPhase] != 0) == defaultIsMass()) {
        value = stored;
        return Verdict::done();
    }
    const auto convert = defaultIsMass() ? MoleToMassPhaseFraction : MassToMolePhaseFraction;
    if (!convert(material.phaseAmounts(), vaporPhase, stored, value, ScratchText)) {
        value = QuietNaN;
        Warn(ScratchText.c_str());
    }
    return Verdict::done();
}

Verdict convertValue(const MixtureComposition &composition, KnownMolarMass &molarMass, std::int32_t power,
                     double &value)
{
    double mass = 0;
    if (power == 0 || (molarMass.of(composition, mass, ScratchText) &&
                       ChainRuleConvert(mass, composition.weights, &value, &value, 1, power, ScratchText, 1, 0)))
        return Verdict::done();
    return FailWith(OLESTR("CAPE-OPEN: "), ScratchText);
}

std::int32_t firstPresentPhase(const CMaterialObject &material)
{
    std::int32_t p = 0;
    while (p < material.phaseCount() && material.phasePresent[p] == 0)
        ++p;
    return p;
}

// The sum of the phases' values weighted by the phase fractions, formed in the basis of the
// fractions and then brought to the default basis. A phase without amount adds nothing and needs
// no value.
Verdict PostFlashAverage(FlashedMixture &mixture, std::size_t index, double &value)
{
    const CMaterialObject &material = mixture.material;
    const std::int32_t basisPower = CommandScratch.parsedProperties[index].basisPower;
    value = 0;
    const std::int32_t first = firstPresentPhase(material);
    if (first == material.phaseCount())
        return Verdict::done();
    const bool fractionsPerMass = material.phaseFractionBasis[first] != 0;
    for (std::int32_t p = first; p < material.phaseCount(); ++p) {
        const double fraction = material.phaseFraction[p];
        if (material.phasePresent[p] == 0 || !(fraction > 0))
            continue;
        if ((material.phaseFractionBasis[p] != 0) != fractionsPerMass)
            return Verdict::refuse("Inconsistent bases of phase fractions after flash; not supported");
        const PropertyValues *stored = mixture.stored(p, index);
        if (!stored || stored->count == 0)
            return Verdict::refuse("Property not set after post-flash property calculation");
        double phaseValue = stored->values[0];
        const std::int32_t power = ConversionPower(basisPower, (stored->basis & 1) != 0, fractionsPerMass);
        if (Verdict verdict = mixture.convertOfPhase(p, power, phaseValue); !verdict.isDone())
            return verdict;
        value += phaseValue * fraction;
    }
    return mixture.convertOfOverall(ConversionPower(basisPower, fractionsPerMass, defaultIsMass()), value);
}

} // namespace

FlashedMixture::FlashedMixture(const CMaterialObject &flashed, std::size_t nameCount)
    : material(flashed), molarMasses(static_cast<std::size_t>(flashed.phaseCount()))
{
    for (std::int32_t p = 0; p < material.phaseCount(); ++p)
        lookups.emplace_back(material.phaseProps[p], nameCount);
}

void FlashedMixture::startRow()
{
    for (KnownMolarMass &mass : molarMasses)
        mass.forget();
    overallMolarMass.forget();
}

const PropertyValues *FlashedMixture::stored(std::int32_t phase, std::size_t index)
{
    return lookups[static_cast<std::size_t>(phase)].at(index, NameList[index].c_str());
}

Verdict FlashedMixture::convertOfPhase(std::int32_t phase, std::int32_t power, double &value)
{
    return convertValue(material.compositionOf(phase), molarMasses[static_cast<std::size_t>(phase)], power, value);
}

Verdict FlashedMixture::convertOfOverall(std::int32_t power, double &value)
{
    return convertValue(material.compositionOfOverall(), overallMolarMass, power, value);
}

Verdict ReadFlashResult(const WideString &name, ParsedProperty &property)
{
    for (const MarkedResult &result : markedResults) {
        if (SameName(name.c_str(), result.name)) {
            property = ParsedProperty();
            property.kind = result.kind;
            return Verdict::done();
        }
    }
    if (ParseFlashProperty(name.c_str(), property))
        return Verdict::done();
    return FailWith(OLESTR("Invalid / unsupported flash property: "), name);
}

Verdict FlashResult(FlashedMixture &mixture, std::size_t index, std::int32_t vaporPhase, double &value)
{
    const CMaterialObject &material = mixture.material;
    switch (CommandScratch.parsedProperties[index].kind) {
    case TemperatureResult:
        value = material.temperature;
        return Verdict::done();
    case PressureResult:
        value = material.pressure;
        return Verdict::done();
    case VaporFractionResult:
        return vaporFraction(material, vaporPhase, value);
    case SinglePhase:
        return PostFlashAverage(mixture, index, value);
    default:
        value = QuietNaN;
        return Verdict::done();
    }
}
