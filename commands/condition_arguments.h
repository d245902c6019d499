// Conditions given as columns and compositions, and the rule that combines them: an argument of
// one row applies to all conditions.
#pragma once

#include "gateway/call/verdict.h"
#include "platform/matlab/matlab.h"

#include <cstdint>

// Values of one condition argument, in MATLAB's memory: row r, column k at r + k * rows.
struct ConditionValues {
    const double *data = nullptr;
    std::int32_t rows = 0;

    // The row that holds for condition c.
    std::int32_t rowFor(std::int32_t c) const { return rows < 2 ? 0 : c; }
    double at(std::int32_t c) const { return data[rowFor(c)]; }
    void copyRow(std::int32_t c, double *target, std::int32_t columns) const
    {
        const double *value = data + rowFor(c);
        for (std::int32_t k = 0; k < columns; ++k, value += rows)
            target[k] = *value;
    }
};

struct ConditionMessages {
    const char *wrongColumns;
    const char *notDouble;
    const char *noRows;
};

// Reads an argument of `columns` columns and keeps its row count in entry `index` of HandleList.
Verdict ReadConditions(const mxArray *argument, std::size_t columns, const ConditionMessages &messages,
                       std::size_t index, ConditionValues &values);

// Combines `count`, the number of conditions so far, with a further argument; false when they
// don't go together.
bool CombineConditions(std::int32_t &count, const ConditionValues &further);

extern const ConditionMessages temperatureMessages;
extern const ConditionMessages pressureMessages;
