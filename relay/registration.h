// The relay in the class registry: the class in both views, so that clients of both kinds find it, and the type
// library by which calls get from one process to another.
#pragma once

#include "platform/platform.h"

// Give the first failure. Administrators can do it.
HRESULT RegisterServer();
HRESULT UnregisterServer(); // what is not there is no failure
