#pragma once

#include "platform/platform.h"

// The name under which a value of two phases is stored with its first phase: the label of the
// second phase, a colon, the property, each as the caller wrote it; the map lower-cases it. The
// phases are not sorted: a pair and the same pair in the other order are different entries.
WideString TwoPhaseKey(LPCWSTR secondLabel, LPCWSTR property);

// The same in the place of a text that was used before: allocates nothing once it has the room.
void AssignTwoPhaseKey(WideString &key, LPCWSTR secondLabel, LPCWSTR property);
