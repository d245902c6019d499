// What several commands of the model need.
#pragma once

#include "fuzz/model/commands.h"

#include <limits>

namespace fuzz::model {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

// One row, or one element, of an argument: that of all rows alike if it has only one.
Numbers RowOf(const Matrix &matrix, std::size_t row);
double ElementOf(const Matrix &column, std::size_t row);

int VaporPhaseOf(const Package &package); // -1 for none

} // namespace fuzz::model
