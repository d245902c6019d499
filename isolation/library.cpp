#include "isolation/library.h"

#include "isolation/text.h"
#include "platform/procedure.h"
#include "platform/windows/import_slot.h"
#include "platform/windows/module_folder.h"

#include <cstdio>
#include <exception>
#include <type_traits>

namespace {

constexpr WCHAR fileName[] = L"Verdanth.mexw64";

// Where the program lies, and where it lies when it was installed beside the functions for scripts.
constexpr LPCWSTR folders[] = {L"", L"..\\toolbox\\"};

DWORD mainThread = 0;

// In the place of the library's call of MessageBoxW: nobody may be there to press a button.
int WINAPI warn(HWND, LPCWSTR text, LPCWSTR, UINT)
{
    try {
        if (GetCurrentThreadId() == mainThread)
            mexWarnMsgTxt(CodePageText(text).c_str());
        else
            std::fprintf(stderr, "%s\n", Utf8(text).c_str());
    } catch (const std::exception &) { // without memory nothing is said
    }
    return IDOK;
}

} // namespace

MexFunction IsolatedLibrary::load(std::string &error)
{
    if (function)
        return function;
    mainThread = GetCurrentThreadId();
    const WideString own = FolderOf(nullptr);
    std::string why = "Verdanth.mexw64 is not in " + Utf8(own.c_str());
    if (const WideString path = FileNear(own, folders, fileName); !path.empty()) {
        module = LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
        why = "Verdanth.mexw64, error " + std::to_string(GetLastError());
    }
    if (module)
        function = findProcedure<std::remove_pointer_t<MexFunction>>(module, "mexFunction");
    if (!function) {
        if (module)
            why = "Verdanth.mexw64 is another library";
        unload();
        error = "Verdanth could not be loaded: " + why;
        return nullptr;
    }
    if (AnyFunction *slot = FindImportSlot(module, "MessageBoxW"))
        WriteImportSlot(slot, reinterpret_cast<AnyFunction>(warn));
    return function;
}

void IsolatedLibrary::unload()
{
    if (!module)
        return;
    mexStandInRunExit();
    FreeLibrary(module);
    module = nullptr;
    function = nullptr;
}
