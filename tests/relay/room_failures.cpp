#include "tests/relay/room_failures.h"

#include "tests/relay/room_registry.h"

#include <cstdio>

namespace room_failures {

namespace {

constexpr int mostCalls = 1000; // of one kind in one operation
constexpr DWORD stepMilliseconds = 30'000;

HMODULE roomModule = nullptr;

LSTATUS WINAPI closeKey(HKEY key)
{
    --openKeys;
    return RegCloseKey(key);
}

template <class Function> std::unique_ptr<ImportSlot> observe(const char *name, Function *function)
{
    const auto any = reinterpret_cast<ImportSlot::AnyFunction>(function);
    return std::make_unique<ImportSlot>(name, any, any);
}

const RelayRoom *loadCopy()
{
    static int copies = 0;
    const std::string name = "relay_room_" + std::to_string(++copies) + ".dll";
    const WideString copy = install(L"relay_room.dll", WideString(name.begin(), name.end()).c_str());
    roomModule = LoadLibraryW(copy.c_str());
    ImportSlot::library = name;
    const auto get = reinterpret_cast<decltype(&TheRelayRoom)>(
        reinterpret_cast<ImportSlot::AnyFunction>(GetProcAddress(roomModule, "TheRelayRoom")));
    return get ? get() : nullptr;
}

} // namespace

bool isCodeOfRoom(const void *address)
{
    HMODULE module = nullptr;
    return GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                              static_cast<LPCWSTR>(address), &module) &&
           module == roomModule;
}

Way memory() { return {"memory", support::FailsToGetMemory(), E_OUTOFMEMORY}; }

std::vector<Way> together(std::initializer_list<std::vector<Way>> parts)
{
    std::vector<Way> all;
    for (const std::vector<Way> &part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

Deadline::Deadline(std::string described, DWORD milliseconds) : what(std::move(described))
{
    EXPECT_TRUE(CreateTimerQueueTimer(&timer, nullptr, pass, this, milliseconds, 0, WT_EXECUTEONLYONCE));
}

Deadline::~Deadline() { DeleteTimerQueueTimer(nullptr, timer, INVALID_HANDLE_VALUE); }

void CALLBACK Deadline::pass(void *self, BOOLEAN)
{
    std::fprintf(stderr, "This hangs: %s\n", static_cast<Deadline *>(self)->what.c_str());
    std::fflush(nullptr);
    TerminateProcess(GetCurrentProcess(), ERROR_TIMEOUT);
}

RoomCallFails::RoomCallFails() : room(loadCopy())
{
    cleanRegistry();
    openKeys = 0;
    observed.push_back(observe("RegOpenKeyExW", openKey));
    observed.push_back(observe("RegCreateKeyExW", createKey));
    observed.push_back(observe("RegCloseKey", closeKey));
    observed.push_back(observe("GetModuleFileNameW", programFile));
    EXPECT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
}

RoomCallFails::~RoomCallFails()
{
    CoUninitialize();
    cleanRegistry();
}

void RoomCallFails::failEach(const Operation &operation, const std::vector<Way> &ways)
{
    for (const Way &way : ways) {
        for (int n = 1;; ++n) {
            const std::string step = way.name + ", call " + std::to_string(n);
            SCOPED_TRACE(step);
            const Deadline forStep(step, stepMilliseconds);
            ASSERT_LT(n, mostCalls);
            operation.undo();
            if (!runStruck(operation, way, n)) {
                ASSERT_GT(n, 1) << "it makes no such call";
                operation.expectDone();
                RecordProperty(way.name, n - 1);
                break;
            }
            operation.expectFailed();
            // What the failure left can be taken back,
            operation.undo();
            ASSERT_TRUE(runStruck(operation, way, n)) << "it makes fewer calls the second time";
            // and it is no obstacle.
            EXPECT_EQ(operation.run(), S_OK) << "the next time";
            operation.expectDone();
            if (HasFailure())
                return;
        }
        if (HasFailure())
            return;
    }
}

bool RoomCallFails::runStruck(const Operation &operation, const Way &way, int n)
{
    NthCall calls;
    const auto led = way.lead(calls);
    calls.failAt(n);
    const HRESULT hr = operation.run();
    EXPECT_EQ(hr, calls.struck() ? way.result : S_OK) << std::hex << hr;
    EXPECT_EQ(openKeys, 0);
    return calls.struck();
}

LSTATUS WINAPI openKey(HKEY parent, LPCWSTR path, DWORD options, REGSAM access, PHKEY key)
{
    const LSTATUS status = RegOpenKeyExW(parent, path, options, access, key);
    openKeys += status == ERROR_SUCCESS;
    return status;
}

LSTATUS WINAPI createKey(HKEY parent, LPCWSTR path, DWORD reserved, LPWSTR type, DWORD options, REGSAM access,
                         LPSECURITY_ATTRIBUTES security, PHKEY key, LPDWORD disposition)
{
    const LSTATUS status = RegCreateKeyExW(parent, path, reserved, type, options, access, security, key, disposition);
    openKeys += status == ERROR_SUCCESS;
    return status;
}

WideString installedFile(LPCWSTR name)
{
    WCHAR folder[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    return WideString(folder) + name;
}

WideString install(LPCWSTR name, LPCWSTR newName)
{
    const WideString file = installedFile(newName);
    DeleteFileW(file.c_str());
    EXPECT_TRUE(CopyFileW(installation::fileHere(name).c_str(), file.c_str(), TRUE));
    return file;
}

DWORD WINAPI programFile(HMODULE, LPWSTR path, DWORD size)
{
    const WideString file = installedFile(L"Verdanth6432Relay.exe");
    lstrcpynW(path, file.c_str(), static_cast<int>(size));
    return static_cast<DWORD>(file.size());
}

} // namespace room_failures

int main(int count, char **arguments)
{
    testing::InitGoogleTest(&count, arguments);
    const int result = RUN_ALL_TESTS();
    // As the relay ends: threads that admitted clients are still there, so nothing is torn down.
    std::fflush(nullptr);
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(result));
    return result;
}
