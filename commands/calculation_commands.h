// The bodies of the calculation commands.
#pragma once

#include "gateway/call/command.h"

// 20 and 21: number of wrapper outputs; handle; names; temperatures, K, or pressures, Pa, column.
// Result: cell n-by-1 of double matrices, conditions-by-compounds.
Verdict TDependentPropertyCommand(const CommandCall &call);
Verdict PDependentPropertyCommand(const CommandCall &call);

// 22: number of wrapper outputs; handle; names; temperatures, K, column; pressures, Pa, column;
// compositions, one row per condition, fractions in the default basis; phase label. Result: cell
// n-by-1 of double matrices, conditions-by-values (values-by-values for a matrix property).
Verdict SinglePhasePropertyCommand(const CommandCall &call);

// 23: number of wrapper outputs; handle; names; temperatures; pressures; compositions of phase 1;
// compositions of phase 2; label of phase 1; label of phase 2. Result: as 22; a derivative with
// respect to composition is a 1-by-2 cell with a matrix for each phase.
Verdict TwoPhasePropertyCommand(const CommandCall &call);

// 24: handle; overall composition; constraint 1 property and value; constraint 2 property and
// value; solution type. Results: phase labels, phase fractions, phase compositions, temperature,
// pressure.
Verdict SingleFlashCommand(const CommandCall &call);

// 25: handle; overall compositions, one row per flash; constraint 1 property and values, column;
// constraint 2 property and values, column; solution type; number of wrapper outputs; result names.
// Result: cell n-by-1 of double columns, one row per flash, NaN where the flash failed.
Verdict BatchFlashCommand(const CommandCall &call);
