#include "tests/relay/installation.h"

#include "cape/com/cape_open_common.h"
#include "cape/com/com_pointer.h"
#include "platform/windows/module_folder.h"
#include "tests/support/processes.h"

#include <gtest/gtest.h>

namespace installation {

namespace {

constexpr DWORD patienceMilliseconds = 30'000;

WideString wide(const std::string &ascii) { return WideString(ascii.begin(), ascii.end()); }

void register32(LPCWSTR options)
{
    WCHAR folder[MAX_PATH] = {};
    GetWindowsDirectoryW(folder, MAX_PATH);
    const WideString registrar = WideString(folder) + L"\\syswow64\\regsvr32.exe";
    EXPECT_EQ(run(registrar, options + (L" \"" + file32(L"VerdanthReference.dll") + L"\"")), 0u)
        << "is the preset windows-x86 built?";
}

} // namespace

WideString fileHere(LPCWSTR name) { return FolderOf(nullptr) + name; }

WideString file32(LPCWSTR name)
{
    WideString folder = FolderOf(nullptr);
    folder.pop_back();
    folder.resize(folder.rfind(L'\\') + 1); // of all builds
    return folder + L"windows-x86\\" + name;
}

DWORD run(const WideString &program, const WideString &arguments)
{
    WideString commandLine = L"\"" + program + L"\" " + arguments;
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    PROCESS_INFORMATION process = {};
    if (!CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                        &process)) {
        ADD_FAILURE() << std::string(program.begin(), program.end()) << " does not start: " << GetLastError();
        return ERROR_FILE_NOT_FOUND;
    }
    EXPECT_EQ(WaitForSingleObject(process.hProcess, patienceMilliseconds), WAIT_OBJECT_0);
    DWORD code = STILL_ACTIVE;
    GetExitCodeProcess(process.hProcess, &code);
    if (code == STILL_ACTIVE)
        TerminateProcess(process.hProcess, 1);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return code;
}

RegisteredRelay::RegisteredRelay()
{
    EXPECT_EQ(run(file32(L"Verdanth6432Relay.exe"), L"/RegServer"), 0u) << "is the preset windows-x86 built?";
}

RegisteredRelay::~RegisteredRelay() { EXPECT_EQ(run(file32(L"Verdanth6432Relay.exe"), L"/UnregServer"), 0u); }

RegisteredPackage32::RegisteredPackage32() { register32(L"/s"); }

RegisteredPackage32::~RegisteredPackage32() { register32(L"/s /u"); }

void registerTypeLibrary(const WideString &path)
{
    ComPointer<ITypeLib> library;
    EXPECT_EQ(LoadTypeLibEx(path.c_str(), REGKIND_REGISTER, library.out()), S_OK);
}

WithoutStandardLibrary::WithoutStandardLibrary()
{
    const std::string path = registeredText(KEY_WOW64_64KEY, standardLibraryPathKey);
    if (path != "(none)")
        before = wide(path);
    UnRegisterTypeLib(LIBID_CAPEOPEN110, 1, 1, 0, SYS_WIN32);
    EXPECT_FALSE(keyExists(KEY_WOW64_64KEY, standardLibraryKey));
}

WithoutStandardLibrary::~WithoutStandardLibrary()
{
    UnRegisterTypeLib(LIBID_CAPEOPEN110, 1, 1, 0, SYS_WIN32);
    if (!before.empty())
        registerTypeLibrary(before);
}

namespace {

void killAll(LPCWSTR program)
{
    for (const DWORD id : support::ProcessesOf(program)) {
        HANDLE process = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, id);
        if (!process)
            continue;
        TerminateProcess(process, 1);
        WaitForSingleObject(process, patienceMilliseconds);
        CloseHandle(process);
    }
}

constexpr LPCWSTR relayProgram = L"Verdanth6432Relay.exe";

} // namespace

std::vector<DWORD> relays() { return support::ProcessesOf(relayProgram); }

bool relaysEnd()
{
    const DWORD start = GetTickCount();
    while (!relays().empty()) {
        if (GetTickCount() - start > patienceMilliseconds)
            return false;
        Sleep(20);
    }
    return true;
}

void killRelays() { killAll(relayProgram); }

void forgetDeadServers() { killAll(L"rpcss.exe"); }

} // namespace installation
