#include "toolbox/octave/octave_errors.h"

#include <octave/error.h>

#include <cstdlib>

void RaiseOctaveError(const char *identifier, const char *text)
{
    error_with_id(identifier, "%s", text);
    std::abort(); // not reached: an error does not return
}

void GiveOctaveWarning(const char *identifier, const char *text) { warning_with_id(identifier, "%s", text); }
