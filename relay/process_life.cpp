#include "relay/process_life.h"

#include <mutex>
#include <set>

namespace {

constexpr DWORD firstHoldMilliseconds = 60'000; // by then a client that started the process has asked for a relay
constexpr DWORD farewellMilliseconds = 10'000;  // for components to end in, when all clients are dead

// Set when there may be nothing to live for any more. A message would not do: it gets lost where a component waits in
// a loop of its own.
HANDLE wake = nullptr;

std::mutex mutex; // for all variables below
unsigned holds = 0;
bool everHeld = false;
std::set<DWORD> clients; // all that were noted; their handles stay open, so that no id is used again
unsigned livingClients = 0;
bool allAreWatched = true; // a client that may not be waited for may be alive

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
    // A component that is stuck holds up the main thread for ever.
    Sleep(farewellMilliseconds);
    if (isReleased())
        TerminateProcess(GetCurrentProcess(), ERROR_TIMEOUT);
}

} // namespace

void StartProcessLife() { wake = CreateEventW(nullptr, FALSE, FALSE, nullptr); }

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

void NoteClient(DWORD processId)
{
    const std::lock_guard lock(mutex);
    if (!clients.insert(processId).second)
        return;
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
        // The main thread alone lets somebody hold the process, while it handles a message.
        MsgWaitForMultipleObjectsEx(0, nullptr, milliseconds - passed, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        dispatchMessages();
    }
    return false;
}
