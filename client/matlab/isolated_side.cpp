#include "client/matlab/isolated_side.h"
#include "client/matlab/host_pipes.h"
#include "platform/procedure.h"
#include "platform/windows/code_page.h"
#include "platform/windows/module_folder.h"

#include <utility>

namespace {

constexpr WCHAR hostName[] = L"VerdanthHost64.exe";

// Beside this library, and where both are installed.
constexpr LPCWSTR folders[] = {L"", L"..\\host\\"};

// MATLAB tells of Ctrl-C by a function that it does not promise to keep. Without it nobody interrupts.
bool isInterrupted()
{
    const HMODULE utilities = GetModuleHandleW(L"libut.dll");
    const auto ask = utilities ? findProcedure<bool()>(utilities, "utIsInterruptPending") : nullptr;
    return ask && ask();
}

// The folder of the library that this is.
WideString ownFolder()
{
    HMODULE own = nullptr;
    constexpr DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    GetModuleHandleExW(flags, hostName, &own);
    return FolderOf(own);
}

std::string utf8(const WideString &text) { return Narrow(CP_UTF8, text.c_str()); }

WideString withoutSteps(const WideString &path)
{
    WideString full(path.size() + MAX_PATH, L'\0');
    full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full.empty() ? path : full;
}

// Empty when it is nowhere.
WideString hostFile() { return withoutSteps(FileNear(ownFolder(), folders, hostName)); }

std::string notFound()
{
    return "VerdanthHost64.exe was not found: it is neither in " + utf8(ownFolder()) +
           " nor in the folder host beside that";
}

std::string variable(const char *ascii)
{
    const WideString name = Widen(CP_UTF8, ascii);
    WideString text(GetEnvironmentVariableW(name.c_str(), nullptr, 0), L'\0');
    GetEnvironmentVariableW(name.c_str(), text.data(), static_cast<DWORD>(text.size()));
    return utf8(text);
}

} // namespace

IsolatedSide::IsolatedSide()
{
    // What MATLAB is told in the middle of a call it might answer by ending the call.
    serve({isInterrupted, [](const char *) {}});
}

bool IsolatedSide::readWishes(Wishes &wishes, std::string &error)
{
    limits = {};
    if (!ReadLimits(variable, limits, error))
        return false;
    wishes = {{}, limits.call};
    return true;
}

std::unique_ptr<HostConnection> IsolatedSide::startHost(const Caller &caller, std::string &, std::string &error)
{
    const WideString file = hostFile();
    if (file.empty()) {
        error = notFound();
        return nullptr;
    }
    const std::string name = "The host process " + utf8(file);
    const std::string remedy = ". If files of Verdanth are missing, install it again";
    auto process = std::make_unique<HostPipes>();
    std::string reason;
    if (!process->start(file, reason)) {
        error = NotStarted(name, reason, remedy);
        return nullptr;
    }
    return ReadyHost(std::move(process), name, remedy, limits.start, caller, error);
}

std::string IsolatedSide::description()
{
    const WideString file = hostFile();
    return "isolated: " + (file.empty() ? notFound() : utf8(file));
}
