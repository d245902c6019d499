// How long the process runs: as long as somebody holds a relay and at least one of its clients is alive.
#pragma once

#include "platform/platform.h"

// Call this before anybody can hold the process. Where it fails, nobody could ever end the wait for the release.
HRESULT StartProcessLife() noexcept;

// A relay, or a lock; from any thread.
void HoldProcess();
void LetGoOfProcess();

// Records a client by its process. A client that dies releases nothing, and not every system does so on its behalf:
// when all clients are dead the process ends, whatever they held.
void NoteClient(DWORD processId) noexcept;
inline constexpr DWORD unknownClient = 0; // its death cannot be observed, so it counts as alive

// Runs the main thread's message loop until nobody holds the process any more, until all clients are dead, or because
// no client ever connected.
void LiveUntilReleased();

// Runs it for that long after that, and returns whether nobody has held the process again; false as soon as a client
// does.
bool StaysReleased(DWORD milliseconds);
