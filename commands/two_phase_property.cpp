// Command 23: properties of a pair of phases over a list of conditions.
#include "cape/com/component_call.h"
#include "commands/calculation_commands.h"
#include "commands/command_scratch.h"
#include "commands/mixture_conditions.h"
#include "commands/name_argument.h"
#include "commands/phase_argument.h"
#include "commands/results.h"
#include "commands/stored_lookup.h"
#include "gateway/call/failure_text.h"
#include "gateway/state/global_lists.h"
#include "gateway/state/settings.h"
#include "material/ensure_material.h"
#include "material/two_phase_key.h"
#include "packages/handle_argument.h"

namespace {

constexpr ConditionMessages compositions1Messages = {
    "Invalid number of columns for compositions 1: must match number of compounds",
    "Expected double precision values for compositions 1", "Zero compositions 1 specified"};
constexpr ConditionMessages compositions2Messages = {
    "Invalid number of columns for compositions 2: must match number of compounds",
    "Expected double precision values for compositions 2", "Zero compositions 2 specified"};

// A derivative with respect to composition has a part for each phase.
bool hasTwoParts(const ParsedProperty &property) { return property.derivative >= MolesDerivative; }

Verdict parseNames(std::int32_t conditions, std::int32_t compounds)
{
    CommandContainers &scratch = CommandScratch;
    const std::size_t nameCount = NameList.size();
    scratch.parsedProperties.resize(nameCount);
    scratch.resultRows.resize(nameCount);
    scratch.resultColumns.resize(nameCount);
    for (std::size_t i = 0; i < nameCount; ++i) {
        ParsedProperty &property = scratch.parsedProperties[i];
        if (!ParsePropertyName(property, twoPhaseProperties, NameList[i].c_str(), ScratchText))
            return FailWith(OLESTR("Invalid / unsupported 2-phase property: "), NameList[i]);
        if (Verdict verdict = ShapeResult(property.dimensions, conditions, compounds, scratch.resultRows[i],
                                          scratch.resultColumns[i]);
            !verdict.isDone())
            return verdict;
    }
    return Verdict::done();
}

void addMatrix(mxArray *cell, std::size_t position, std::size_t name)
{
    CommandContainers &scratch = CommandScratch;
    scratch.resultData.push_back(
        AddResultMatrix(cell, position, scratch.resultRows[name], scratch.resultColumns[name]));
}

void prepareResults(mxArray *results)
{
    CommandScratch.resultData.clear();
    for (std::size_t i = 0; i < NameList.size(); ++i) {
        if (!hasTwoParts(CommandScratch.parsedProperties[i])) {
            addMatrix(results, i, i);
            continue;
        }
        const mwSize dimensions[] = {1, 2};
        mxArray *parts = mxCreateCellArray_730(2, dimensions);
        mxSetCell_730(results, i, parts);
        addMatrix(parts, 0, i);
        addMatrix(parts, 1, i);
    }
}

struct PhaseIndices {
    std::int32_t first = -1;
    std::int32_t second = -1;
};

Verdict readPhases(const mxArray *const *arguments, const CMaterialObject &material, PhaseIndices &phases)
{
    CommandContainers &scratch = CommandScratch;
    VariantArray &pair = scratch.phasePairArray;
    pair.Create(2, VT_BSTR);
    if (Verdict verdict = ReadPhase(arguments[0], {"Expected string value for phase ID 1", "Invalid phase ID 1"},
                                    material, scratch.phaseLabelArgument, phases.first);
        !verdict.isDone())
        return verdict;
    pair.PutString(0, scratch.phaseLabelArgument.get());
    if (Verdict verdict = ReadPhase(arguments[1], {"Expected string value for phase ID 2", "Invalid phase ID 2"},
                                    material, scratch.phaseLabelArgument, phases.second);
        !verdict.isDone())
        return verdict;
    pair.PutString(1, scratch.phaseLabelArgument.get());

    scratch.propertyLookupKeys.resize(NameList.size());
    for (std::size_t i = 0; i < NameList.size(); ++i)
        scratch.propertyLookupKeys[i] = TwoPhaseKey(scratch.phaseLabelArgument.get(), NameList[i].c_str());
    if (phases.first == phases.second)
        return Verdict::refuse("Phases for two-phase property cannot be the same");
    return Verdict::done();
}

struct Conditions {
    MixtureConditions first; // temperatures, pressures, compositions of phase 1
    ConditionValues compositions2;
};

Verdict storeValues(StoredLookup &lookup, std::int32_t c, std::int32_t stride)
{
    const CommandContainers &scratch = CommandScratch;
    std::size_t result = 0;
    for (std::size_t i = 0; i < NameList.size(); ++i) {
        const PropertyValues *stored = lookup.at(i, scratch.propertyLookupKeys[i].c_str());
        if (!stored)
            return Verdict::refuse("Property value was not set by property package during calculation");
        const std::uint32_t parts = hasTwoParts(scratch.parsedProperties[i]) ? 2 : 1;
        const std::uint32_t each = stored->count / parts;
        for (std::size_t part = 0; part < parts; ++part)
            SpreadValues(stored->values + part * each, each, scratch.resultData[result++] + c, stride);
    }
    return Verdict::done();
}

Verdict calculate(OpenPackage &package, const Conditions &conditions, const PhaseIndices &phases)
{
    CMaterialObject &material = *package.material;
    const std::int32_t count = conditions.first.count;
    StoredLookup lookup(material.phaseProps[phases.first], NameList.size());
    for (std::int32_t c = 0; c < count; ++c) {
        SetPhaseConditions(material, conditions.first, phases.first, c);
        conditions.compositions2.copyRow(c, material.phaseComposition[phases.second].get(), material.compoundCount());
        const HRESULT hr = CallComponent([&] {
            return package.propertyRoutine->CalcTwoPhaseProp(NameArray.value, CommandScratch.phasePairArray.value);
        });
        if (FAILED(hr))
            return CalculationFailure(OLESTR("CalcTwoPhaseProp failed"), conditions.first, c, package.propertyRoutine,
                                      hr);
        if (Verdict verdict = storeValues(lookup, c, count); !verdict.isDone())
            return verdict;
    }
    return Verdict::done();
}

} // namespace

Verdict TwoPhasePropertyCommand(const CommandCall &call)
{
    const mxArray *const *arguments = call.arguments;
    OpenPackage *package = nullptr;
    Conditions conditions;
    if (Verdict verdict = OpenMixtureCalculation(arguments, 4, compositions1Messages, package, conditions.first);
        !verdict.isDone())
        return verdict;
    CMaterialObject &material = *package->material;
    const std::int32_t compounds = material.compoundCount();
    if (Verdict verdict = ReadFurtherCompositions(arguments[7], compounds, compositions2Messages, 3,
                                                  conditions.first.count, conditions.compositions2);
        !verdict.isDone())
        return verdict;

    BuildNameArray();
    if (Verdict verdict = parseNames(conditions.first.count, compounds); !verdict.isDone())
        return verdict;
    call.results[0] = CreateResultCell(NameList.size());
    prepareResults(call.results[0]);
    PhaseIndices phases;
    if (Verdict verdict = readPhases(arguments + 8, material, phases); !verdict.isDone())
        return verdict;
    for (const std::int32_t phase : {phases.first, phases.second}) {
        material.phaseCompositionBasis[phase] = GlobalSettings.defaultBasis;
        material.phasePresent[phase] = 1;
    }
    if (!EnsurePropertyRoutine(*package))
        return Verdict::failed();
    return calculate(*package, conditions, phases);
}
