// The process-wide strings in which operations leave their words.
#pragma once

#include "platform/platform.h"

// Out-parameter of every operation that can fail; the gateway raises it.
extern WideString LastError;

// Second message buffer of the commands, and the text results of commands 19 and 26.
extern WideString ScratchText;
