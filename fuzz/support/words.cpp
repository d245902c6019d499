#include "fuzz/support/words.h"

#include <algorithm>
#include <limits>

namespace fuzz {

namespace {

constexpr LPCWSTR properties[] = {
    u"enthalpy",
    u"volume",
    u"temperature",
    u"pressure",
    u"fraction",
    u"phaseFraction",
    u"density",
    u"fugacityCoefficient",
    u"diffusionCoefficient",
    u"viscosity",
    u"entropy",
    u"kvalue",
    u"surfaceTension",
    u"logKvalue",
    u"flow",
    u"totalFlow",
    u"activity",
    u"activityCoefficient",
    u"logFugacity",
    u"logFugacityCoefficient",
    u"compressibility",
    u"compressibilityFactor",
    u"dissociationConstant",
    u"meanActivityCoefficient",
    u"osmoticCoefficient",
    u"pH",
    u"pOH",
    u"enthalpyF",
    u"enthalpyNF",
    u"gibbsEnergy",
    u"helmholtzEnergy",
    u"internalEnergy",
    u"entropyF",
    u"entropyNF",
    u"excessEnthalpy",
    u"excessVolume",
    u"excessEntropy",
    u"heatCapacityCp",
    u"fugacity",
    u"jouleThomsonCoefficient",
    u"molecularWeight",
    u"speedOfSound",
    u"thermalConductivity",
    u"vaporPressure",
    u"boilingPointTemperature",
    u"criticalDensity",
    u"vaporFraction",
    u"triplePointTemperature ",
    u"liquid:kvalue",
    u"",
};

constexpr LPCWSTR suffixes[] = {
    u"",   u".Dtemperature",  u".Dpressure", u".DmolFraction", u".Dmoles", u".dmolfraction", u".",
    u".D", u".Dmoles.Dmoles",
};

constexpr LPCWSTR bases[] = {u"mole", u"mass", u"", u"Mass", u"MOLE", u"molar", u"mass ", u"mol", u"\u00ADmole"};

constexpr LPCWSTR labels[] = {u"Overall", u"Vapor", u"Liquid", u"liquid2", u"", u"NULL", u"Vapor:"};

constexpr WCHAR oddCharacters[] = {u'.',      u':',      u' ',      u'x',          u'D',
                                   u'\u00AD', u'\u00C9', u'\u0130', WCHAR{0xD800}, WCHAR{0xFFFF}};

constexpr double plainNumbers[] = {0.5, 0.25, 1, 300, 1e5, 18, 0.1, 2, 1.5, 36, 1e-3, 4711.25, 0.75, 3};

constexpr double oddNumbers[] = {
    0.0,
    -1.0,
    std::numeric_limits<double>::quiet_NaN(),
    std::numeric_limits<double>::lowest(), // CAPE-OPEN's UNDEFINED
    std::numeric_limits<double>::infinity(),
    -std::numeric_limits<double>::infinity(),
    std::numeric_limits<double>::max(),
    std::numeric_limits<double>::min(),
    std::numeric_limits<double>::denorm_min(),
    -0.0,
    -1e5,
    1e155,
};

WideString caseChanged(Input &input, WideString text)
{
    const unsigned pattern = input.byte() | 1u;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isLetter = (text[i] >= u'a' && text[i] <= u'z') || (text[i] >= u'A' && text[i] <= u'Z');
        if (isLetter && (pattern >> i % 8 & 1))
            text[i] = static_cast<WCHAR>(text[i] ^ 0x20);
    }
    return text;
}

} // namespace

MaybeText Terminated(const MaybeText &text)
{
    if (!text)
        return {};
    return text->c_str(); // up to the first null character
}

WideString Altered(Input &input, WideString text)
{
    switch (input.below(24)) {
    case 1:
    case 2:
    case 3:
        return caseChanged(input, std::move(text));
    case 4:
        if (!text.empty())
            text.pop_back();
        return text;
    case 5:
        return text + input.pick(oddCharacters);
    case 6: {
        const std::size_t at = input.below(text.size() + 1);
        return text.insert(at, 1, input.pick(oddCharacters));
    }
    case 7:
        return text + WideString(1, 0) + u"more";
    case 8:
        for (int i = 0; i < 4; ++i)
            text += text;
        return text;
    default:
        return text;
    }
}

WideString PropertyWord(Input &input)
{
    const unsigned choice = input.byte();
    // Half of all choices fall on the first twelve names.
    const std::size_t index = choice < 128 ? choice % 12 : choice % std::size(properties);
    WideString word = properties[index];
    word += suffixes[input.chance(96) ? input.below(std::size(suffixes)) : 0];
    return Altered(input, std::move(word));
}

MaybeText PropertyText(Input &input)
{
    if (input.chance(4))
        return {};
    return PropertyWord(input);
}

MaybeText BasisText(Input &input)
{
    const unsigned choice = input.byte();
    if (choice < 64)
        return {};
    if (choice < 224)
        return bases[choice % 2];
    return bases[choice % std::size(bases)];
}

MaybeText LabelText(Input &input, const std::vector<WideString> &known)
{
    const unsigned choice = input.byte();
    if (choice < 192 && !known.empty())
        return known[choice % known.size()];
    if (choice == 255)
        return {};
    if (choice < 224 && !known.empty())
        return Altered(input, known[choice % known.size()]);
    return Altered(input, labels[choice % std::size(labels)]);
}

double Number(Input &input)
{
    const unsigned choice = input.byte();
    if (choice < 176)
        return plainNumbers[choice % std::size(plainNumbers)];
    if (choice < 216)
        return input.bits<std::int16_t>() / 100.0;
    if (choice < 250)
        return oddNumbers[choice % std::size(oddNumbers)];
    return input.bits<double>();
}

double PlainNumber(Input &input)
{
    const unsigned choice = input.byte();
    return choice < 128 ? plainNumbers[choice % std::size(plainNumbers)] : input.bits<std::uint16_t>() / 64.0 + 0.0625;
}

} // namespace fuzz
