#include "cape/com/com_object.h"

ComModule Module;
