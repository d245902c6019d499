// Command 28: the help file, shown by the system's help viewer.
#include "gateway/report/html_help.h"
#include "gateway/report/report_commands.h"
#include "gateway/state/library_module.h"

#include <cstring>
#include <memory>
#include <new>

Verdict HelpCommand(const CommandCall &)
{
    constexpr DWORD capacity = 1024;
    const std::unique_ptr<char[]> path(new (std::nothrow) char[capacity]());
    if (!path)
        return Verdict::refuse("out of memory");
    const HMODULE library = LibraryModule();
    if (!library) // the name of the host's program would be taken in its place
        return Verdict::refuse("Failed to load help file: the library's file is not called Verdanth.mexw64");
    GetModuleFileNameA(library, path.get(), capacity);
    path[capacity - 1] = 0;
    // The help file lies in the parent of the library's folder.
    char *const lastSeparator = std::strrchr(path.get(), '\\');
    char *const name = lastSeparator ? lastSeparator + 1 : path.get();
    const std::size_t rest = capacity - static_cast<std::size_t>(name - path.get());
    constexpr char helpFile[] = "..\\Verdanth.chm";
    const std::size_t copied = sizeof helpFile < rest ? sizeof helpFile : rest;
    std::memcpy(name, helpFile, copied);
    path[capacity - 1] = 0;
    return HtmlHelp(path.get()) ? Verdict::done() : Verdict::refuse("Failed to load help file");
}
