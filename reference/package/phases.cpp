#include "cape/com/guarded_call.h"
#include "reference/package/phase_table.h"
#include "reference/package/property_package.h"

#include <algorithm>

namespace reference {

namespace {

constexpr PhaseRow phases[phaseCount] = {
    {vaporPhase, "Vapor", "Vapor", "Vapour", Root::vapor},
    {liquidPhase, "Liquid", "Liquid", "The only liquid, or the less aqueous or less dense one of two", Root::liquid},
    {liquid2Phase, "Liquid2", "Liquid", "The more aqueous or denser one of two liquids", Root::liquid},
};

using Compounds = std::span<const CompoundData *const>;

// Of two liquids without a key compound, which is the denser one.
std::string_view densityOf(const PhaseRow &phase, Compounds compounds)
{
    if (phase.index == vaporPhase || !keyCompoundOf(phases[liquid2Phase], compounds).empty())
        return {};
    return phase.index == liquidPhase ? "Light" : "Heavy";
}

// What a phase answers to each attribute; an empty text is undefined.
struct PhaseAttribute {
    std::string_view name;
    std::string_view (*value)(const PhaseRow &phase, Compounds compounds);
};
std::string_view undefined(const PhaseRow &, Compounds) { return {}; }
constexpr PhaseAttribute attributes[] = {
    {"StateOfAggregation", [](const PhaseRow &phase, Compounds) { return phase.stateOfAggregation; }},
    {"UserDescription", [](const PhaseRow &phase, Compounds) { return phase.description; }},
    {"KeyCompoundId", keyCompoundOf},
    {"ExcludedCompoundId", undefined},
    {"DensityDescription", densityOf},
    {"TypeOfSolid", undefined},
};

} // namespace

std::span<const PhaseRow, phaseCount> phaseTable() { return phases; }

const PhaseRow *findPhase(BSTR label)
{
    for (const PhaseRow &phase : phases)
        if (sameWord(label, phase.label))
            return &phase;
    return nullptr;
}

std::string_view keyCompoundOf(const PhaseRow &phase, Compounds compounds)
{
    constexpr std::string_view water = "water";
    const bool hasWater = std::ranges::find(compounds, water, &CompoundData::id) != compounds.end();
    return phase.index == liquid2Phase && hasWater ? water : std::string_view();
}

HRESULT STDMETHODCALLTYPE PropertyPackage::GetNumPhases(LONG *count)
{
    if (!count)
        return E_POINTER;
    *count = phaseCount;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE PropertyPackage::GetPhaseInfo(BSTR phaseLabel, BSTR attribute, VARIANT *value)
{
    const Call call{*this, OLESTR("ICapeThermoPhases"), OLESTR("GetPhaseInfo")};
    return GuardedCall([&]() -> HRESULT {
        if (!value)
            return E_POINTER;
        VariantInit(value);
        const PhaseRow *phase = findPhase(phaseLabel);
        if (!phase)
            return call.refuse(errors::invalidArgument, OLESTR("There is no phase ") + quoted(phaseLabel), 1);
        for (const PhaseAttribute &row : attributes) {
            if (!sameWord(attribute, row.name))
                continue;
            Value text;
            text.setText(row.value(*phase, compounds));
            return text.give(value);
        }
        return call.refuse(errors::invalidArgument, OLESTR("Phases have no attribute ") + quoted(attribute), 2);
    });
}

HRESULT STDMETHODCALLTYPE PropertyPackage::GetPhaseList(VARIANT *phaseLabels, VARIANT *statesOfAggregation,
                                                        VARIANT *keyCompoundIds)
{
    return GuardedCall([&]() -> HRESULT {
        if (!phaseLabels || !statesOfAggregation || !keyCompoundIds)
            return E_POINTER;
        Value labels;
        Value states;
        Value keys;
        if (!labels.setTexts(phases, &PhaseRow::label) || !states.setTexts(phases, &PhaseRow::stateOfAggregation) ||
            !keys.setTexts(phases, [&](const PhaseRow &phase) { return keyCompoundOf(phase, compounds); }))
            return E_OUTOFMEMORY;
        labels.replace(phaseLabels);
        states.replace(statesOfAggregation);
        return keys.replace(keyCompoundIds);
    });
}

} // namespace reference
