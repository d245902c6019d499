#include "cape/com_object.h"

ComModule Module;
