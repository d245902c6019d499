// What a package that does its work stores in its material, with values, bases and phases of the input's choice. Each
// write is made at the model, too, if there is one.
#pragma once

#include "fuzz/material/calls.h"

namespace fuzz {

// The values of these properties of a phase; now and then one is left out, or is of another basis than the others.
void StoreSinglePhase(Input &input, Client &client, const std::vector<WideString> &properties, const MaybeText &label);

void StoreTwoPhase(Input &input, Client &client, const std::vector<WideString> &properties,
                   const std::vector<WideString> &labels);

// The phases of an equilibrium, their compositions and amounts, temperature and pressure.
void StoreEquilibrium(Input &input, Client &client);

} // namespace fuzz
