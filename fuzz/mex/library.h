// The library as MATLAB has it in one process, started and cleared for each input without being loaded anew.
#pragma once

#include "platform/platform.h"

namespace fuzz {

// Makes a component for a class factory.
enum class ComponentKind { package, manager, relay };
using Creator = HRESULT (*)(ComponentKind kind, REFIID iid, void **object);

// Classes and factories, for the life of the process: "Alone" and "Second" are packages, "Manager" gives others out,
// and "Ghost" is one that only the relay makes.
void RegisterClasses(Creator creator);

// What lasts as long as MATLAB does; once.
void StartMatlab(Creator creator);

// Around each input: the library as it is when it was just loaded, and its exit routine.
void StartLibrary();
void ExitLibrary();

// When the managers are gone that were given them.
void FreeLentNames();

} // namespace fuzz
