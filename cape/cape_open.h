// All of CAPE-OPEN 1.1 that the system speaks.
#pragma once

#include "cape/cape_open_common.h"
#include "cape/cape_open_errors.h"
#include "cape/cape_open_thermo.h"
