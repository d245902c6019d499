#include "isolation/listener.h"

namespace {

constexpr DWORD briefMilliseconds = 20;      // most calls take less, and often the next one comes at once
constexpr DWORD farewellMilliseconds = 5000; // that packages have to come to an end when the client is gone

void dispatchMessages()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

} // namespace

bool Listener::start()
{
    wake = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    return wake && CreateThread(nullptr, 0, run, this, 0, nullptr);
}

bool Listener::next()
{
    if (!changesSoonFrom(Nothing)) {
        sleeps = true;
        while (state == Nothing) {
            MsgWaitForMultipleObjectsEx(1, &wake, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
            dispatchMessages();
        }
        sleeps = false;
    }
    return state == Message;
}

void Listener::done()
{
    unsigned expected = Message;
    state.compare_exchange_strong(expected, Nothing);
}

void Listener::answered() { WakeByAddressSingle(&state); }

// To be woken from here costs much less than from a wait that sees messages of windows, too.
bool Listener::changesSoonFrom(State known)
{
    static_assert(sizeof state == sizeof(unsigned));
    unsigned present = known;
    const DWORD start = GetTickCount();
    while (state == known) {
        const DWORD passed = GetTickCount() - start;
        if (passed >= briefMilliseconds)
            return false;
        WaitOnAddress(&state, &present, sizeof present, briefMilliseconds - passed);
    }
    return true;
}

void Listener::post(State posted)
{
    state = posted;
    WakeByAddressSingle(&state);
    if (sleeps)
        SetEvent(wake);
}

DWORD WINAPI Listener::run(void *self)
{
    static_cast<Listener *>(self)->listen();
    // The main thread ends the process, unless a package keeps it.
    Sleep(farewellMilliseconds);
    TerminateProcess(GetCurrentProcess(), ERROR_TIMEOUT);
    return 0;
}

void Listener::listen()
{
    using Arrival = wire::MessageReader::Arrival;
    Arrival arrival = reader.next();
    while (arrival == Arrival::Message) {
        post(Message);
        if (!reader.hasMore())
            changesSoonFrom(Message); // most calls are short: until the answer is on its way there is nothing to hear
        if (!reader.waitForMore()) {
            post(End);
            return;
        }
        if (state == Message) {
            wrong = "a message came before the last one was answered";
            post(End);
            return;
        }
        arrival = reader.next();
    }
    if (arrival != Arrival::End)
        wrong = reader.reason();
    post(End);
}
