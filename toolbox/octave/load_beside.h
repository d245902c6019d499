// Loading what lies beside the library that asks for it.
#pragma once

#include <string>

// The folder of the library that `self` is in.
std::string FolderOf(void *self);

// The library `name` in the folder of the one that `self` is in. Octave has given the names that such a library uses to
// functions of its own; those of the libraries that it was linked with come first. Null when it could not be loaded,
// and dlerror() tells why.
void *LoadBeside(void *self, const char *name);
