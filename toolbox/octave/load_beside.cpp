#include "toolbox/octave/load_beside.h"

#include <dlfcn.h>

std::string FolderOf(void *self)
{
    Dl_info file{};
    dladdr(self, &file);
    const std::string path = file.dli_fname;
    const std::size_t stroke = path.rfind('/');
    return stroke == std::string::npos ? "." : path.substr(0, stroke);
}

void *LoadBeside(void *self, const char *name)
{
    return dlopen((FolderOf(self) + "/" + name).c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_DEEPBIND);
}
