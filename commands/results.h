// The results of the commands that calculate properties: a cell with an array for each name.
#pragma once

#include "gateway/call/verdict.h"
#include "platform/matlab/matlab.h"
#include "properties/property_map.h"

#include <cstddef>
#include <cstdint>

// An n-by-1 cell.
mxArray *CreateResultCell(std::size_t count);

// A zero-filled real matrix in a cell; gives its data. The matrix is the cell's.
double *AddResultMatrix(mxArray *cell, std::size_t position, std::int32_t rows, std::int32_t columns);

// The shape of a property's result: rows and columns by its dimensions, and a row per condition
// when there are several. A matrix can't be given for several conditions.
Verdict ShapeResult(std::int32_t dimensions, std::int32_t conditions, std::int32_t compounds, std::int32_t &rows,
                    std::int32_t &columns);

// Puts `count` values at a stride, which is the number of conditions.
void SpreadValues(const double *values, std::uint32_t count, double *target, std::int32_t stride);
