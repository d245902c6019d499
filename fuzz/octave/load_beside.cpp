// In the place of toolbox/octave/load_beside.cpp: the sanitizers do not allow libraries whose own names come first. So
// all that the bridge loads is one library here, which was linked to use its own names (CMakeLists.txt).
#include "toolbox/octave/load_beside.h"

#include <dlfcn.h>

std::string FolderOf(void *self)
{
    Dl_info file{};
    dladdr(self, &file);
    const std::string path = file.dli_fname;
    return path.substr(0, path.rfind('/'));
}

void *LoadBeside(void *self, const char *)
{
    return dlopen((FolderOf(self) + "/libfuzz_octave_library.so").c_str(), RTLD_NOW | RTLD_LOCAL);
}
