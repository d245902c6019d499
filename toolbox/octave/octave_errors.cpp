#include "toolbox/octave/octave_errors.h"

#include <octave/error.h>
#include <octave/quit.h>

#include <cstdlib>

void RaiseOctaveError(const char *identifier, const char *text)
{
    error_with_id(identifier, "%s", text);
    std::abort(); // not reached: an error does not return
}

void GiveOctaveWarning(const char *identifier, const char *text) { warning_with_id(identifier, "%s", text); }

bool OctaveIsInterrupted() { return octave_interrupt_state > 0; }

void StopInOctave()
{
    octave_quit();
    throw octave::interrupt_exception(); // someone else had taken note of it
}
