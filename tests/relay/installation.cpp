#include "tests/relay/installation.h"

#include "cape/com/cape_open_common.h"
#include "cape/com/com_pointer.h"

#include <gtest/gtest.h>

#include <tlhelp32.h>

namespace installation {

namespace {

constexpr DWORD patienceMilliseconds = 30'000;

WideString wide(const std::string &ascii) { return WideString(ascii.begin(), ascii.end()); }

WideString ownFolder()
{
    WCHAR path[1024] = {};
    GetModuleFileNameW(nullptr, path, 1024);
    WideString folder(path);
    folder.resize(folder.rfind(L'\\'));
    return folder;
}

void register32(LPCWSTR options)
{
    WCHAR folder[MAX_PATH] = {};
    GetWindowsDirectoryW(folder, MAX_PATH);
    const WideString registrar = WideString(folder) + L"\\syswow64\\regsvr32.exe";
    EXPECT_EQ(run(registrar, options + (L" \"" + file32(L"VerdanthReference.dll") + L"\"")), 0u)
        << "is the preset windows-x86 built?";
}

} // namespace

WideString fileHere(LPCWSTR name) { return ownFolder() + L"\\" + name; }

WideString file32(LPCWSTR name)
{
    WideString folder = ownFolder();
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
    EXPECT_FALSE(keyExists(KEY_WOW64_64KEY, "TypeLib\\" + standardLibrary));
}

WithoutStandardLibrary::~WithoutStandardLibrary()
{
    UnRegisterTypeLib(LIBID_CAPEOPEN110, 1, 1, 0, SYS_WIN32);
    if (!before.empty())
        registerTypeLibrary(before);
}

namespace {

std::vector<DWORD> processesOf(LPCWSTR program)
{
    std::vector<DWORD> found;
    HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(snapshot, &entry); more; more = Process32NextW(snapshot, &entry))
        if (lstrcmpiW(entry.szExeFile, program) == 0)
            found.push_back(entry.th32ProcessID);
    CloseHandle(snapshot);
    return found;
}

void killAll(LPCWSTR program)
{
    for (const DWORD id : processesOf(program)) {
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

std::vector<DWORD> relays() { return processesOf(relayProgram); }

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
