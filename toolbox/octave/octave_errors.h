// Octave's errors and warnings with the texts as they are; those of the MEX interface put the name of the function
// before them. A file of its own, because Octave's other headers have another mxArray than that interface.
#pragma once

[[noreturn]] void RaiseOctaveError(const char *identifier, const char *text);

// An error, too, where the user wants warnings to be.
void GiveOctaveWarning(const char *identifier, const char *text);

// Whether the user has pressed Ctrl-C.
bool OctaveIsInterrupted();

// What Octave does then: the prompt is back.
[[noreturn]] void StopInOctave();
