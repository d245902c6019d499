#include "relay/process_life.h"

#include "cape/com/registry_key.h"

#include <mutex>
#include <new>
#include <set>

namespace {

constexpr DWORD firstHoldMilliseconds = 60'000; // by then a client that started the process has asked for a relay
constexpr DWORD farewellMilliseconds = 10'000;  // that components have to shut down when all clients are dead

// Set when the process may have to end. A message would not do: it gets lost while a component waits in a loop of its
// own.
HANDLE wake = nullptr;

std::mutex mutex; // guards all variables below
unsigned holds = 0;
bool everHeld = false;
std::set<DWORD> clients; // all on record; their handles stay open, so that no id is reused
unsigned livingClients = 0;
bool allAreWatched = true; // false: there is a client that we may not wait for, which may be alive

bool nobodyIsLeft() { return holds == 0 || (allAreWatched && !clients.empty() && livingClients == 0); }

bool isReleased()
{
    const std::lock_guard lock(mutex);
    return nobodyIsLeft();
}

bool wasHeld()
{
    const std::lock_guard lock(mutex);
    return everHeld;
}

void dispatchMessages()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void CALLBACK clientDied(void *, BOOLEAN)
{
    {
        const std::lock_guard lock(mutex);
        --livingClients;
        if (!nobodyIsLeft())
            return;
        SetEvent(wake);
    }
    // A component that hangs blocks the main thread for ever.
    Sleep(farewellMilliseconds);
    if (isReleased())
        TerminateProcess(GetCurrentProcess(), ERROR_TIMEOUT);
}

} // namespace

HRESULT StartProcessLife() noexcept
{
    wake = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    return wake ? S_OK : ResultOf(static_cast<LSTATUS>(GetLastError()));
}

void HoldProcess()
{
    const std::lock_guard lock(mutex);
    ++holds;
    everHeld = true;
}

void LetGoOfProcess()
{
    const std::lock_guard lock(mutex);
    if (--holds == 0)
        SetEvent(wake);
}

void NoteClient(DWORD processId) noexcept
{
    const std::lock_guard lock(mutex);
    try {
        if (!clients.insert(processId).second)
            return;
    } catch (const std::bad_alloc &) {
        allAreWatched = false;
        return;
    }
    HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, processId);
    HANDLE wait = nullptr;
    if (process && RegisterWaitForSingleObject(&wait, process, clientDied, nullptr, INFINITE,
                                               WT_EXECUTEONLYONCE | WT_EXECUTELONGFUNCTION))
        ++livingClients;
    else
        allAreWatched = false;
}

void LiveUntilReleased()
{
    for (;;) {
        const DWORD reason = MsgWaitForMultipleObjectsEx(1, &wake, wasHeld() ? INFINITE : firstHoldMilliseconds,
                                                         QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        if (reason == WAIT_OBJECT_0 && isReleased())
            return;
        if (reason == WAIT_TIMEOUT && !wasHeld())
            return;
        dispatchMessages();
    }
}

bool StaysReleased(DWORD milliseconds)
{
    const DWORD start = GetTickCount();
    for (DWORD passed = 0; isReleased(); passed = GetTickCount() - start) {
        if (passed >= milliseconds)
            return true;
        // Only the main thread lets a client hold the process, while it handles a message.
        MsgWaitForMultipleObjectsEx(0, nullptr, milliseconds - passed, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        dispatchMessages();
    }
    return false;
}
