#include "commands/mixture_conditions.h"

#include "cape/error_text.h"
#include "commands/name_argument.h"
#include "gateway/call/failure_text.h"
#include "gateway/state/global_lists.h"
#include "material/ensure_material.h"
#include "packages/handle_argument.h"

Verdict ReadFurtherCompositions(const mxArray *argument, std::int32_t compounds, const ConditionMessages &messages,
                                std::size_t index, std::int32_t &count, ConditionValues &compositions)
{
    if (Verdict verdict = ReadConditions(argument, static_cast<std::size_t>(compounds), messages, index, compositions);
        !verdict.isDone())
        return verdict;
    if (!CombineConditions(count, compositions))
        return Verdict::refuse("Inconsistent number of temperatures, pressures and compositions");
    return Verdict::done();
}

Verdict OpenMixtureCalculation(const mxArray *const *arguments, std::size_t rowCounts,
                               const ConditionMessages &compositionMessages, OpenPackage *&package,
                               MixtureConditions &conditions)
{
    if (Verdict verdict = ReadPackage(arguments[2], package); !verdict.isDone())
        return verdict;
    if (Verdict verdict = ReadNames(arguments[3], arguments[1]); !verdict.isDone())
        return verdict;
    HandleList.resize(rowCounts);
    if (!EnsureMaterial(*package))
        return Verdict::failed();
    if (Verdict verdict = ReadConditions(arguments[4], 1, temperatureMessages, 0, conditions.temperatures);
        !verdict.isDone())
        return verdict;
    conditions.count = conditions.temperatures.rows;
    if (Verdict verdict = ReadConditions(arguments[5], 1, pressureMessages, 1, conditions.pressures); !verdict.isDone())
        return verdict;
    if (!CombineConditions(conditions.count, conditions.pressures))
        return Verdict::refuse("Inconsistent number of temperatures and pressures");
    return ReadFurtherCompositions(arguments[6], package->material->compoundCount(), compositionMessages, 2,
                                   conditions.count, conditions.compositions);
}

void SetPhaseConditions(CMaterialObject &material, const MixtureConditions &conditions, std::int32_t phase,
                        std::int32_t c)
{
    material.temperature = conditions.temperatures.at(c);
    material.pressure = conditions.pressures.at(c);
    conditions.compositions.copyRow(c, material.phaseComposition[phase].get(), material.compoundCount());
}

namespace {

// A condition is only told when more than one was given.
WideString conditionText(const ConditionValues &values, std::int32_t c, LPCWSTR unit)
{
    return values.rows < 2 ? WideString() : OLESTR(", at ") + NumberText(values.at(c)) + unit;
}

} // namespace

Verdict CalculationFailure(LPCWSTR what, const MixtureConditions &conditions, std::int32_t c, IUnknown *failed,
                           HRESULT hr)
{
    return FailWith(what, conditionText(conditions.pressures, c, OLESTR(" Pa")),
                    conditionText(conditions.temperatures, c, OLESTR(" K")), OLESTR(": "), CapeErrorText(failed, hr));
}
