// Commands 20 and 21: properties of the pure compounds that depend on temperature or on pressure
// alone. No material is involved: the package answers in the returned array.
#include "cape/com/component_call.h"
#include "cape/com/variant.h"
#include "cape/error_text.h"
#include "cape/list_access.h"
#include "commands/calculation_commands.h"
#include "commands/command_scratch.h"
#include "commands/condition_arguments.h"
#include "commands/name_argument.h"
#include "commands/results.h"
#include "gateway/call/failure_text.h"
#include "gateway/state/global_lists.h"
#include "gateway/state/settings.h"
#include "packages/handle_argument.h"
#include "properties/chain_rule.h"

namespace {

using PureCompoundMethod = HRESULT (STDMETHODCALLTYPE ICapeThermoCompounds::*)(VARIANT names, double condition,
                                                                               VARIANT compounds, VARIANT *values);

struct PureCompoundRow {
    PureCompoundMethod calculate;
    LPCWSTR method;
    LPCWSTR unit;
    const PropertyTable *table;
    const ConditionMessages *messages;
};

const PureCompoundRow temperatureRow = {&ICapeThermoCompounds::GetTDependentProperty, OLESTR("GetTDependentProperty"),
                                        OLESTR(" K: "), &tDependentProperties, &temperatureMessages};
const PureCompoundRow pressureRow = {&ICapeThermoCompounds::GetPDependentProperty, OLESTR("GetPDependentProperty"),
                                     OLESTR(" Pa: "), &pDependentProperties, &pressureMessages};

void prepareResults(mxArray *results, std::int32_t conditions, std::size_t compounds)
{
    CommandScratch.resultData.resize(NameList.size());
    for (std::size_t i = 0; i < NameList.size(); ++i)
        CommandScratch.resultData[i] = AddResultMatrix(results, i, conditions, static_cast<std::int32_t>(compounds));
}

// Only a conversion needs the vocabulary: a name that it doesn't know has no basis.
void parseForMassBasis(const PropertyTable &table)
{
    std::vector<ParsedProperty> &properties = CommandScratch.parsedProperties;
    properties.resize(NameList.size());
    for (std::size_t i = 0; i < NameList.size(); ++i)
        if (!ParsePropertyName(properties[i], table, NameList[i].c_str(), ScratchText))
            properties[i].basisPower = 0;
}

Verdict invalidData(const PureCompoundRow &row, double condition, const WideString &detail)
{
    return FailWith(OLESTR("Invalid data from "), row.method, OLESTR(" at "), NumberText(condition), row.unit, detail);
}

// The values of one condition, all compounds of the first name, then all of the second, and so on,
// into ResultArray; `data` are they.
Verdict fetchValues(OpenPackage &package, const PureCompoundRow &row, double condition, const double *&data)
{
    Variant values;
    const HRESULT hr = CallComponent(
        [&] { return (package.compounds->*row.calculate)(NameArray.value, condition, EmptyVariant, values.out()); });
    if (FAILED(hr))
        return FailWith(row.method, OLESTR(" failed at "), NumberText(condition), row.unit,
                        CapeErrorText(package.compounds, hr));
    ResultArray.Attach(values.release(), 1);
    std::int32_t count = 0;
    if (!TakeDoubles(ResultArray.value, data, count, ScratchText))
        return invalidData(row, condition, ScratchText);
    if (static_cast<std::size_t>(count) != package.compoundIds.size() * NameList.size())
        return invalidData(row, condition, OLESTR("unexpected number of values"));
    return Verdict::done();
}

// Puts the values of condition c into the results and brings them to the default basis: what
// packages give for pure compounds is on a mole basis.
Verdict storeValues(const OpenPackage &package, const double *value, std::int32_t c, std::int32_t conditions)
{
    const std::size_t compounds = package.compoundIds.size();
    for (std::size_t i = 0; i < NameList.size(); ++i) {
        double *const row = CommandScratch.resultData[i] + c;
        for (std::size_t j = 0; j < compounds; ++j)
            row[j * static_cast<std::size_t>(conditions)] = *value++;
        if (GlobalSettings.defaultBasis == 0)
            continue;
        const std::int32_t power = CommandScratch.parsedProperties[i].basisPower;
        if (power != 0 && !ConvertCompoundValues(package.molecularWeights, power, row, LastError, conditions))
            return Verdict::failed();
    }
    return Verdict::done();
}

Verdict calculate(const CommandCall &call, const PureCompoundRow &row)
{
    OpenPackage *package = nullptr;
    if (Verdict verdict = ReadPackage(call.arguments[2], package); !verdict.isDone())
        return verdict;
    if (Verdict verdict = ReadNames(call.arguments[3], call.arguments[1]); !verdict.isDone())
        return verdict;
    HandleList.resize(1);
    ConditionValues conditions;
    if (Verdict verdict = ReadConditions(call.arguments[4], 1, *row.messages, 0, conditions); !verdict.isDone())
        return verdict;
    if (!EnsureCompounds(*package))
        return Verdict::failed();

    call.results[0] = CreateResultCell(NameList.size());
    prepareResults(call.results[0], conditions.rows, package->compoundIds.size());
    if (GlobalSettings.defaultBasis != 0)
        parseForMassBasis(*row.table);
    BuildNameArray();
    for (std::int32_t c = 0; c < conditions.rows; ++c) {
        const double *data = nullptr;
        if (Verdict verdict = fetchValues(*package, row, conditions.at(c), data); !verdict.isDone())
            return verdict;
        if (Verdict verdict = storeValues(*package, data, c, conditions.rows); !verdict.isDone())
            return verdict;
    }
    return Verdict::done();
}

} // namespace

Verdict TDependentPropertyCommand(const CommandCall &call) { return calculate(call, temperatureRow); }

Verdict PDependentPropertyCommand(const CommandCall &call) { return calculate(call, pressureRow); }
