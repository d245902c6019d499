// The constant of all equations of state.
#pragma once

namespace reference {

inline constexpr double gasConstant = 8.31446261815324; // J/mol/K, CODATA 2018 (exact)

} // namespace reference
