// Command 26: the version that the library's file carries.
#include "gateway/call/marshalling.h"
#include "gateway/report/report_commands.h"
#include "gateway/state/global_text.h"
#include "gateway/state/library_module.h"

#include <memory>

namespace {

constexpr DWORD bufferBytes = 1024;
constexpr DWORD bufferCharacters = bufferBytes / sizeof(WCHAR);

constexpr unsigned highWord(DWORD value) { return value >> 16; }
constexpr unsigned lowWord(DWORD value) { return value & 0xFFFFu; }

// A version that can't be had is told in the result: scripts that print it go on.
void GetVersionText()
{
    const HMODULE library = LibraryModule();
    if (!library) {
        ScratchText = OLESTR("Failed to get Verdanth.DLL version: its file is not called Verdanth.mexw64");
        return;
    }
    const std::unique_ptr<WCHAR[]> buffer(new WCHAR[bufferCharacters]());
    GetModuleFileNameW(library, buffer.get(), bufferCharacters);
    VS_FIXEDFILEINFO *version = nullptr;
    UINT size = 0;
    // The version block takes the place of the path.
    if (!GetFileVersionInfoW(buffer.get(), 0, bufferBytes, buffer.get()) ||
        !VerQueryValueW(buffer.get(), OLESTR("\\"), reinterpret_cast<void **>(&version), &size)) {
        ScratchText = OLESTR("Failed to get Verdanth.DLL version");
        return;
    }
    const DWORD most = version->dwFileVersionMS;
    const DWORD least = version->dwFileVersionLS;
    swprintf(buffer.get(), bufferCharacters, OLESTR("Verdanth.DLL version: %u.%u.%u.%u"), highWord(most), lowWord(most),
             highWord(least), lowWord(least));
    ScratchText = buffer.get();
}

} // namespace

Verdict VersionCommand(const CommandCall &call)
{
    GetVersionText();
    PutRowString(ScratchText, &call.results[0]);
    return Verdict::done();
}
