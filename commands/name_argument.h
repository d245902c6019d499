// What every command that takes property names does with them.
#pragma once

#include "gateway/call/verdict.h"
#include "platform/matlab/matlab.h"

// Reads the names into NameList and cuts the list to the number of outputs that the calling script
// asked for; none counts as one. Names beyond are not calculated.
Verdict ReadNames(const mxArray *names, const mxArray *outputCount);

// NameList as an array of strings in NameArray; empty for an empty list.
void BuildNameArray();
