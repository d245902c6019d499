// A library that is no help viewer: it has nothing at the viewer's ordinal.
#include "platform/matlab/mex_export.h"

extern "C" MEX_EXPORT int NoViewer() { return 0; }
