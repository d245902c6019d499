#include "relay/program_file.h"

WideString ProgramFile()
{
    WCHAR path[1024];
    const DWORD length = GetModuleFileNameW(nullptr, path, 1024);
    return length < 1024 ? WideString(path, length) : WideString();
}

WideString FileBesideProgram(LPCWSTR name)
{
    const WideString path = ProgramFile();
    return path.empty() ? path : path.substr(0, path.rfind(L'\\') + 1) + name;
}
