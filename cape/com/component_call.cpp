#include "cape/com/component_call.h"

ComponentCallState ComponentCalls;
