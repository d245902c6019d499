#include "toolbox/octave/load_beside.h"

#include <dlfcn.h>

#include <string>

void *LoadBeside(void *self, const char *name)
{
    Dl_info file{};
    dladdr(self, &file);
    std::string path = file.dli_fname;
    path.resize(path.rfind('/') + 1);
    path += name;
    return dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_DEEPBIND);
}
