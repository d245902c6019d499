#include "commands/mixture_conditions.h"

#include "commands/failure_text.h"

Verdict ReadFurtherCompositions(const mxArray *argument, std::int32_t compounds, const ConditionMessages &messages,
                                std::size_t index, std::int32_t &count, ConditionValues &compositions)
{
    const Verdict verdict =
        ReadConditions(argument, static_cast<std::size_t>(compounds), messages, index, compositions);
    if (!verdict.isDone())
        return verdict;
    if (!CombineConditions(count, compositions))
        return Verdict::refuse("Inconsistent number of temperatures, pressures and compositions");
    return Verdict::done();
}

Verdict ReadMixtureConditions(const mxArray *const *arguments, std::int32_t compounds,
                              const ConditionMessages &compositionMessages, MixtureConditions &conditions)
{
    Verdict verdict = ReadConditions(arguments[0], 1, temperatureMessages, 0, conditions.temperatures);
    if (!verdict.isDone())
        return verdict;
    conditions.count = conditions.temperatures.rows;
    verdict = ReadConditions(arguments[1], 1, pressureMessages, 1, conditions.pressures);
    if (!verdict.isDone())
        return verdict;
    if (!CombineConditions(conditions.count, conditions.pressures))
        return Verdict::refuse("Inconsistent number of temperatures and pressures");
    return ReadFurtherCompositions(arguments[2], compounds, compositionMessages, 2, conditions.count,
                                   conditions.compositions);
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
void appendCondition(const ConditionValues &values, std::int32_t c, LPCWSTR unit)
{
    if (values.rows < 2)
        return;
    LastError += OLESTR(", at ");
    AppendNumber(LastError, values.at(c));
    LastError += unit;
}

} // namespace

Verdict CalculationFailure(LPCWSTR what, const MixtureConditions &conditions, std::int32_t c, IUnknown *failed,
                           HRESULT hr)
{
    LastError = what;
    appendCondition(conditions.pressures, c, OLESTR(" Pa"));
    appendCondition(conditions.temperatures, c, OLESTR(" K"));
    LastError += OLESTR(": ");
    LastError += CapeErrorText(failed, hr);
    return Verdict::failed();
}
