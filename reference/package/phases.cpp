#include "cape/com/guarded_call.h"
#include "reference/package/phase_table.h"
#include "reference/package/property_package.h"

namespace reference {

namespace {

constexpr PhaseRow phases[phaseCount] = {
    {"Vapor", "Vapor", "Vapour", Root::vapor},
    {"Liquid", "Liquid", "Liquid", Root::liquid},
};

// What a phase answers to each attribute; an empty text is undefined.
struct PhaseAttribute {
    std::string_view name;
    std::string_view (*value)(const PhaseRow &phase);
};
std::string_view undefined(const PhaseRow &) { return {}; }
constexpr PhaseAttribute attributes[] = {
    {"StateOfAggregation", [](const PhaseRow &phase) { return phase.stateOfAggregation; }},
    {"UserDescription", [](const PhaseRow &phase) { return phase.description; }},
    {"KeyCompoundId", undefined},
    {"ExcludedCompoundId", undefined},
    {"DensityDescription", undefined},
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
            text.setText(row.value(*phase));
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
            !keys.setTexts(phases, undefined))
            return E_OUTOFMEMORY;
        labels.replace(phaseLabels);
        states.replace(statesOfAggregation);
        return keys.replace(keyCompoundIds);
    });
}

} // namespace reference
