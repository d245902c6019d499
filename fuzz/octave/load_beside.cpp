// In the place of toolbox/octave/load_beside.cpp: the sanitizers do not allow libraries whose own names come first. So
// all that the bridge loads is one library here, which was linked to use its own names (CMakeLists.txt).
#include "toolbox/octave/load_beside.h"

#include <dlfcn.h>

#include <string>

void *LoadBeside(void *self, const char *)
{
    Dl_info file{};
    dladdr(self, &file);
    std::string path = file.dli_fname;
    path.resize(path.rfind('/') + 1);
    path += "libfuzz_octave_library.so";
    return dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
}
