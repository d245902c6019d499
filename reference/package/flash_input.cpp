#include "reference/package/flash_input.h"

#include "reference/package/phase_table.h"

#include <algorithm>
#include <iterator>

namespace reference {

namespace {

constexpr FlashProperty properties[] = {
    {"temperature", FlashVariable::temperature, false, false},
    {"pressure", FlashVariable::pressure, false, false},
    {"phaseFraction", FlashVariable::vaporFraction, false, false},
    {"enthalpy", FlashVariable::enthalpy, true, false},
    {"enthalpyF", FlashVariable::enthalpy, true, true},
    {"enthalpyNF", FlashVariable::enthalpy, true, false},
    {"entropy", FlashVariable::entropy, true, false},
    {"entropyF", FlashVariable::entropy, true, true},
    {"entropyNF", FlashVariable::entropy, true, false},
    {"volume", FlashVariable::volume, true, false},
    {"internalEnergy", FlashVariable::internalEnergy, true, false},
    {"gibbsEnergy", FlashVariable::gibbsEnergy, true, false},
    {"helmholtzEnergy", FlashVariable::helmholtzEnergy, true, false},
};

FlashVerdict readPhaseFraction(BSTR basis, BSTR label, int position, FlashInput &input)
{
    const PhaseRow *phase = findPhase(label);
    if (!phase)
        return {&errors::invalidArgument,
                OLESTR("A flash can be given the fraction of a phase of the package, and not of ") + quoted(label),
                position};
    const bool byMass = sameWord(basis, "mass");
    if (!byMass && !sameWord(basis, "mole") && !sameWord(basis, ""))
        return {&errors::invalidArgument,
                OLESTR("The basis of a phase fraction must be mole or mass, and not ") + quoted(basis), position};
    if (phase->index == liquid2Phase)
        return {
            &errors::limitedImplementation,
            OLESTR("A flash can be given the fraction of the vapor or of the only liquid, and not of a second liquid")};
    input.isPhaseFraction = true;
    input.ofLiquid = phase->index == liquidPhase;
    if (byMass)
        input.variable = FlashVariable::vaporMassFraction;
    return {};
}

FlashVerdict readFlashInput(const VARIANT &argument, int position, FlashInput &input)
{
    TextView parts;
    if (!parts.open(argument) || parts.size() < 3 || parts.size() > 4)
        return {&errors::invalidArgument,
                OLESTR("A flash specification must be an array of property, basis, phase and perhaps compound"),
                position};
    const auto found =
        std::ranges::find_if(properties, [&](const FlashProperty &each) { return sameWord(parts[0], each.name); });
    if (found == std::end(properties))
        return {&errors::limitedImplementation, OLESTR("A flash can't be given the property ") + quoted(parts[0])};
    input = {found, found->variable};
    if (isFraction(input.variable))
        return readPhaseFraction(parts[1], parts[2], position, input);
    if (!sameWord(parts[2], "Overall"))
        return {&errors::limitedImplementation, OLESTR("A flash can be given the ") + wide(found->name) +
                                                    OLESTR(" of the phase \"Overall\", and not of ") +
                                                    quoted(parts[2])};
    return {};
}

} // namespace

FlashVerdict readFlashInputs(const VARIANT &first, const VARIANT &second, FlashInput (&inputs)[2])
{
    FlashVerdict verdict = readFlashInput(first, 1, inputs[0]);
    if (verdict.isGood())
        verdict = readFlashInput(second, 2, inputs[1]);
    if (!verdict.isGood())
        return verdict;
    const char *reason = refusalOf(inputs[0].variable, inputs[1].variable);
    if (!reason)
        return {};
    if (inputs[0].variable == inputs[1].variable)
        return {&errors::invalidArgument, wide(reason), 2};
    return {&errors::limitedImplementation, wide(reason)};
}

FlashVerdict readSolutionType(BSTR text, SolutionType &type)
{
    constexpr struct {
        std::string_view name;
        SolutionType type;
    } types[] = {{"", SolutionType::unspecified},
                 {"Unspecified", SolutionType::unspecified},
                 {"Normal", SolutionType::normal},
                 {"Retrograde", SolutionType::retrograde}};
    for (const auto &each : types) {
        if (!sameWord(text, each.name))
            continue;
        type = each.type;
        return {};
    }
    return {&errors::invalidArgument, OLESTR("The solution type must be Unspecified, Normal or Retrograde"), 3};
}

} // namespace reference
