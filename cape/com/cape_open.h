// All of CAPE-OPEN 1.1 that the system speaks.
#pragma once

#include "cape/com/cape_open_common.h"
#include "cape/com/cape_open_errors.h"
#include "cape/com/cape_open_thermo.h"
