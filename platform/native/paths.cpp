#include "platform/native/paths.h"

#include <algorithm>
#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>

std::string native::withBackslashes(std::string path)
{
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

std::string native::withSlashes(std::string path)
{
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

std::string native::platformFolder()
{
    static const char anchor = 0;
    Dl_info info;
    if (dladdr(&anchor, &info) == 0 || !info.dli_fname)
        return ".";
    std::error_code ignored;
    return std::filesystem::absolute(info.dli_fname, ignored).parent_path().lexically_normal().string();
}
