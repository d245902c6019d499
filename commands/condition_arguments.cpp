#include "commands/condition_arguments.h"

#include "gateway/call/marshalling.h"
#include "gateway/state/global_lists.h"

const ConditionMessages temperatureMessages = {"Expected column array for temperatures",
                                               "Expected double precision vector for temperatures",
                                               "Zero temperatures specified"};
const ConditionMessages pressureMessages = {"Expected column array for pressures",
                                            "Expected double precision vector for pressures",
                                            "Zero pressures specified"};

Verdict ReadConditions(const mxArray *argument, std::size_t columns, const ConditionMessages &messages,
                       std::size_t index, ConditionValues &values)
{
    if (mxGetN(argument) != columns)
        return Verdict::refuse(messages.wrongColumns);
    if (!IsRealDouble(argument))
        return Verdict::refuse(messages.notDouble);
    values.rows = static_cast<std::int32_t>(mxGetM(argument));
    HandleList[index] = values.rows;
    if (values.rows == 0)
        return Verdict::refuse(messages.noRows);
    values.data = mxGetPr(argument);
    return Verdict::done();
}

bool CombineConditions(std::int32_t &count, const ConditionValues &further)
{
    if (count == 1)
        count = further.rows;
    return further.rows == 1 || further.rows == count;
}
