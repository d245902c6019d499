// Command 25: a flash for each row of a table, with results of each row. The one command that goes
// on after a failed calculation.
#include "cape/com/component_call.h"
#include "cape/error_text.h"
#include "commands/calculation_commands.h"
#include "commands/command_scratch.h"
#include "commands/condition_arguments.h"
#include "commands/flash_constraint.h"
#include "commands/name_argument.h"
#include "commands/post_flash.h"
#include "commands/results.h"
#include "gateway/call/failure_text.h"
#include "gateway/state/global_lists.h"
#include "gateway/state/settings.h"
#include "gateway/state/warning.h"

#include <algorithm>

namespace {

struct FlashTable {
    ConditionValues compositions;
    ConditionValues values1;
    ConditionValues values2;
    std::int32_t count = 0;
};

constexpr ConditionMessages compositionMessages = {
    "Invalid number of columns for compositions: must match number of compounds",
    "Expected double precision values for compositions", "Zero values specified for compositions"};
constexpr ConditionMessages value1Messages = {"Expected column vector for value 1",
                                              "Expected double precision values for value 1",
                                              "Zero values specified for values 1"};
constexpr ConditionMessages value2Messages = {"Expected column vector for value 2",
                                              "Expected double precision values for value 2",
                                              "Zero values specified for values 2"};

Verdict readConstraintValues(const mxArray *argument, const ConditionMessages &messages, std::size_t index,
                             FlashTable &table, ConditionValues &values)
{
    if (Verdict verdict = ReadConditions(argument, 1, messages, index, values); !verdict.isDone())
        return verdict;
    if (!CombineConditions(table.count, values))
        return Verdict::refuse("Inconsistent number of rows for compositions and constraint values");
    return Verdict::done();
}

Verdict readTable(const mxArray *const *arguments, std::int32_t compounds, FlashTable &table)
{
    HandleList.resize(3);
    if (Verdict verdict = ReadConditions(arguments[2], static_cast<std::size_t>(compounds), compositionMessages, 0,
                                         table.compositions);
        !verdict.isDone())
        return verdict;
    table.count = table.compositions.rows;
    if (Verdict verdict = readConstraintValues(arguments[4], value1Messages, 1, table, table.values1);
        !verdict.isDone())
        return verdict;
    return readConstraintValues(arguments[6], value2Messages, 2, table, table.values2);
}

Verdict parseResultNames()
{
    std::vector<ParsedProperty> &properties = CommandScratch.parsedProperties;
    properties.resize(NameList.size());
    for (std::size_t i = 0; i < NameList.size(); ++i) {
        if (Verdict verdict = ReadFlashResult(NameList[i], properties[i]); !verdict.isDone())
            return verdict;
    }
    return Verdict::done();
}

Verdict readConstraints(const mxArray *const *arguments, OpenPackage &package, std::int32_t vaporPhase)
{
    CommandContainers &scratch = CommandScratch;
    EnsureSpecifications();
    if (Verdict verdict =
            ReadConstraint(arguments, FlashConstraint::First, package, vaporPhase, scratch.constraintSlot1);
        !verdict.isDone())
        return verdict;
    return ReadConstraint(arguments, FlashConstraint::Second, package, vaporPhase, scratch.constraintSlot2);
}

// The names that the package has to calculate after a flash.
void buildPostFlashNames()
{
    const std::vector<ParsedProperty> &properties = CommandScratch.parsedProperties;
    const auto isCalculated = [](const ParsedProperty &property) { return property.kind == SinglePhase; };
    const auto count = std::count_if(properties.begin(), properties.end(), isCalculated);
    if (count == 0) {
        NameArray.Reset(1);
        return;
    }
    NameArray.Create(static_cast<std::int32_t>(count), VT_BSTR);
    std::int32_t position = 0;
    for (std::size_t i = 0; i < properties.size(); ++i)
        if (isCalculated(properties[i]))
            NameArray.PutString(position++, Bstr(NameList[i]).get());
}

// Labels are made once: making strings in the loop over rows costs more than the loop.
void takePhaseLabels(const VariantArray &labels)
{
    std::vector<Bstr> &phaseLabels = CommandScratch.phaseLabels;
    phaseLabels.resize(static_cast<std::size_t>(labels.count));
    for (std::int32_t p = 0; p < labels.count; ++p)
        phaseLabels[static_cast<std::size_t>(p)].take(labels.GetString(p));
}

void prepareResults(mxArray *results, std::int32_t rows)
{
    CommandScratch.resultData.resize(NameList.size());
    for (std::size_t i = 0; i < NameList.size(); ++i)
        CommandScratch.resultData[i] = AddResultMatrix(results, i, rows, 1);
}

// A batch over one package.
class Batch {
public:
    Batch(OpenPackage &openPackage, const FlashTable &flashTable, std::int32_t vapor)
        : package(openPackage), material(*openPackage.material), table(flashTable), vaporPhase(vapor),
          mixture(material, NameList.size()),
          vaporFractionBasis(isVaporFractionGiven() ? GlobalSettings.defaultBasis : 0)
    {
    }

    Verdict runRow(std::int32_t c)
    {
        setConditions(c);
        const CommandContainers &scratch = CommandScratch;
        const HRESULT hr = CallComponent([&] {
            return package.equilibriumRoutine->CalcEquilibrium(scratch.flashSpecification1.value,
                                                               scratch.flashSpecification2.value,
                                                               scratch.solutionTypeArgument.get());
        });
        if (FAILED(hr)) {
            reportFailure(c, hr);
            return Verdict::done();
        }
        if (NameArray.count != 0)
            calculateProperties();
        return storeResults(c);
    }

private:
    bool isVaporFractionGiven() const
    {
        const CommandContainers &scratch = CommandScratch;
        return vaporPhase >= 0 && (scratch.constraintSlot1.field == &material.phaseFraction[vaporPhase] ||
                                   scratch.constraintSlot2.field == &material.phaseFraction[vaporPhase]);
    }

    void setConditions(std::int32_t c)
    {
        std::fill_n(material.phasePresent.get(), material.phaseCount(), 1);
        table.compositions.copyRow(c, material.overallComposition.get(), material.compoundCount());
        material.overallCompositionBasis = GlobalSettings.defaultBasis;
        if (vaporPhase >= 0)
            material.phaseFractionBasis[vaporPhase] = vaporFractionBasis;
        CommandScratch.constraintSlot1.write(material, table.values1.at(c));
        CommandScratch.constraintSlot2.write(material, table.values2.at(c));
    }

    void reportFailure(std::int32_t c, HRESULT hr)
    {
        for (double *column : CommandScratch.resultData)
            column[c] = QuietNaN;
        if (!GlobalSettings.showWarnings)
            return;
        ScratchText = OLESTR("Flash failed at ") + NumberText(table.values1.at(c)) + OLESTR(", ") +
                      NumberText(table.values2.at(c)) + OLESTR(": ") + CapeErrorText(package.equilibriumRoutine, hr);
        Warn(ScratchText.c_str());
    }

    // A failure is told by a warning only; results are then read from what the material holds.
    void calculateProperties()
    {
        for (std::int32_t p = 0; p < material.phaseCount(); ++p) {
            if (material.phasePresent[p] == 0)
                continue;
            const Bstr &label = CommandScratch.phaseLabels[static_cast<std::size_t>(p)];
            const HRESULT hr = CallComponent(
                [&] { return package.propertyRoutine->CalcSinglePhaseProp(NameArray.value, label.get()); });
            if (SUCCEEDED(hr))
                continue;
            if (GlobalSettings.showWarnings) {
                ScratchText = OLESTR("Failed to calculate post-flash ") + package.phaseLabels[p] +
                              OLESTR(" properties: ") + CapeErrorText(package.propertyRoutine, hr);
                Warn(ScratchText.c_str());
            }
            return;
        }
    }

    Verdict storeResults(std::int32_t c)
    {
        mixture.startRow();
        for (std::size_t i = 0; i < NameList.size(); ++i) {
            if (Verdict verdict = FlashResult(mixture, i, vaporPhase, CommandScratch.resultData[i][c]);
                !verdict.isDone())
                return verdict;
        }
        return Verdict::done();
    }

    OpenPackage &package;
    CMaterialObject &material;
    const FlashTable &table;
    std::int32_t vaporPhase;
    FlashedMixture mixture;
    std::int32_t vaporFractionBasis; // before each flash: what a given vapor fraction is in, else mole
};

} // namespace

Verdict BatchFlashCommand(const CommandCall &call)
{
    const mxArray *const *arguments = call.arguments;
    OpenPackage *package = nullptr;
    if (Verdict verdict = OpenFlash(arguments, package); !verdict.isDone())
        return verdict;
    FlashTable table;
    if (Verdict verdict = readTable(arguments, package->material->compoundCount(), table); !verdict.isDone())
        return verdict;
    if (Verdict verdict = ReadNames(arguments[9], arguments[8]); !verdict.isDone())
        return verdict;
    if (!EnsureEquilibriumRoutine(*package) || !EnsurePropertyRoutine(*package))
        return Verdict::failed();
    if (Verdict verdict = parseResultNames(); !verdict.isDone())
        return verdict;
    const std::int32_t vaporPhase = FindVaporPhase(*package);
    if (Verdict verdict = readConstraints(arguments, *package, vaporPhase); !verdict.isDone())
        return verdict;
    buildPostFlashNames();
    call.results[0] = CreateResultCell(NameList.size());
    prepareResults(call.results[0], table.count);
    if (Verdict verdict = ReadSolutionType(arguments[7]); !verdict.isDone())
        return verdict;

    takePhaseLabels(package->phaseLabelList);
    Batch batch(*package, table, vaporPhase);
    for (std::int32_t c = 0; c < table.count; ++c) {
        if (Verdict verdict = batch.runRow(c); !verdict.isDone())
            return verdict;
    }
    return Verdict::done();
}
