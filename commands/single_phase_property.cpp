// Command 22: single-phase properties of one phase over a list of conditions.
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
#include "packages/handle_argument.h"
#include "properties/chain_rule.h"

namespace {

constexpr ConditionMessages compositionMessages = {
    "Invalid number of columns for compositions: must match number of compounds",
    "Expected double precision values for compositions", "Zero compositions specified"};

// Parses the names and makes the result matrices. Converting a mole-fraction derivative needs the
// base property: its name is added for the package to calculate, without a result of its own.
Verdict prepareResults(mxArray *results, std::size_t nameCount, std::int32_t conditionCount, std::int32_t compounds)
{
    CommandContainers &scratch = CommandScratch;
    scratch.resultData.resize(nameCount);
    scratch.parsedProperties.resize(nameCount);
    scratch.resultColumns.resize(nameCount);
    scratch.resultRows.resize(nameCount);
    for (std::size_t i = 0; i < nameCount; ++i) {
        ParsedProperty &property = scratch.parsedProperties[i];
        if (!ParsePropertyName(property, singlePhaseProperties, NameList[i].c_str(), ScratchText))
            return FailWith(OLESTR("Invalid / unsupported 1-phase property: "), NameList[i]);
        if (property.basisPower != 0 && property.derivative == MolFractionDerivative)
            NameList.emplace_back(property.info->name);
        std::int32_t &rows = scratch.resultRows[i];
        std::int32_t &columns = scratch.resultColumns[i];
        if (Verdict verdict = ShapeResult(property.dimensions, conditionCount, compounds, rows, columns);
            !verdict.isDone())
            return verdict;
        scratch.resultData[i] = AddResultMatrix(results, i, rows, columns);
    }
    return Verdict::done();
}

// The value of the property that a mole-fraction derivative belongs to.
Verdict findBaseValue(const PropertyMap &store, const ParsedProperty &property, const WideString &name,
                      std::int32_t derivativeBasis, double &value)
{
    const PropertyValues *base = store.stored(property.info->name);
    if (!base)
        return FailWith(OLESTR("Property value for "), property.info->name,
                        OLESTR(" was not set by property package during calculation"));
    if (base->count != 1)
        return Verdict::refuse("Internal error; expected scalar in chain rule basis conversion");
    if ((base->basis & 1) != (derivativeBasis & 1))
        return FailWith(OLESTR("Property value for "), name,
                        OLESTR(" cannot be mole/mass supported; the base property was set in a different basis, "
                               "which is not supported"));
    value = base->values[0];
    return Verdict::done();
}

// Brings the values of one condition, already in the result, to the default basis.
Verdict convertValues(const CMaterialObject &material, std::int32_t phase, const ParsedProperty &property,
                      const WideString &name, const PropertyValues &stored, KnownMolarMass &molarMass, double *values,
                      std::int32_t stride)
{
    const bool wantedPerMass = GlobalSettings.defaultBasis != 0;
    const std::int32_t power = ConversionPower(property.basisPower, (stored.basis & 1) != 0, wantedPerMass);
    if (power == 0)
        return Verdict::done();
    if (property.derivative == MolesDerivative)
        return FailWith(OLESTR("Mole/mass conversion for "), name, OLESTR(" is not supported"));
    double baseValue = 0;
    if (property.derivative == MolFractionDerivative) {
        if (Verdict verdict = findBaseValue(material.phaseProps[phase], property, name, stored.basis, baseValue);
            !verdict.isDone())
            return verdict;
    }
    MixtureComposition composition = material.compositionOf(phase);
    composition.basis = GlobalSettings.defaultBasis; // as the conditions are given
    double mass = 0;
    return Verdict::of(
        molarMass.of(composition, mass, LastError) &&
        ChainRuleConvert(mass, composition.weights, values, values, stored.count, power, LastError, stride, baseValue));
}

Verdict calculate(OpenPackage &package, const MixtureConditions &conditions, std::int32_t phase, std::size_t nameCount)
{
    const CommandContainers &scratch = CommandScratch;
    CMaterialObject &material = *package.material;
    const std::int32_t stride = conditions.count;
    StoredLookup lookup(material.phaseProps[phase], nameCount);
    KnownMolarMass molarMass;
    for (std::int32_t c = 0; c < conditions.count; ++c) {
        SetPhaseConditions(material, conditions, phase, c);
        const HRESULT hr = CallComponent([&] {
            return package.propertyRoutine->CalcSinglePhaseProp(NameArray.value, scratch.phaseLabelArgument.get());
        });
        if (FAILED(hr))
            return CalculationFailure(OLESTR("CalcSinglePhaseProp failed"), conditions, c, package.propertyRoutine, hr);
        molarMass.forget();
        for (std::size_t i = 0; i < nameCount; ++i) {
            const WideString &name = NameList[i];
            const PropertyValues *stored = lookup.at(i, name.c_str());
            if (!stored)
                return FailWith(OLESTR("Property value for "), name,
                                OLESTR(" was not set by property package during calculation"));
            double *const values = scratch.resultData[i] + c;
            SpreadValues(stored->values, stored->count, values, stride);
            if (Verdict verdict = convertValues(material, phase, scratch.parsedProperties[i], name, *stored, molarMass,
                                                values, stride);
                !verdict.isDone())
                return verdict;
        }
    }
    return Verdict::done();
}

} // namespace

Verdict SinglePhasePropertyCommand(const CommandCall &call)
{
    const mxArray *const *arguments = call.arguments;
    OpenPackage *package = nullptr;
    MixtureConditions conditions;
    if (Verdict verdict = OpenMixtureCalculation(arguments, 3, compositionMessages, package, conditions);
        !verdict.isDone())
        return verdict;
    CMaterialObject &material = *package->material;
    std::int32_t phase = -1;
    constexpr PhaseMessages phaseMessages = {"Expected string value for phase ID", "Invalid phase ID"};
    if (Verdict verdict = ReadPhase(arguments[7], phaseMessages, material, CommandScratch.phaseLabelArgument, phase);
        !verdict.isDone())
        return verdict;

    const std::size_t nameCount = NameList.size();
    call.results[0] = CreateResultCell(nameCount);
    if (Verdict verdict = prepareResults(call.results[0], nameCount, conditions.count, material.compoundCount());
        !verdict.isDone())
        return verdict;
    BuildNameArray();
    material.phaseCompositionBasis[phase] = GlobalSettings.defaultBasis;
    material.phasePresent[phase] = 1;
    if (!EnsurePropertyRoutine(*package))
        return Verdict::failed();
    return calculate(*package, conditions, phase, nameCount);
}
