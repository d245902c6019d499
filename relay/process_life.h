// How long the process lives: as long as somebody holds a relay, and one of its clients lives.
#pragma once

#include "platform/platform.h"

// To be called before anybody can hold the process.
void StartProcessLife();

// A relay, or a lock; from any thread.
void HoldProcess();
void LetGoOfProcess();

// A client by its process. A client that dies lets go of nothing, and not every system notices that for it: when all
// clients are dead the process ends, whatever they held.
void NoteClient(DWORD processId);
inline constexpr DWORD unknownClient = 0; // nobody can tell when it dies, so it counts as living

// Handles the messages of the main thread until nobody holds the process any more, or all clients are dead; or nobody
// ever came.
void LiveUntilReleased();

// Goes on handling messages for a while after that, and tells whether nobody came to hold the process again; returns at
// once when somebody does.
bool StaysReleased(DWORD milliseconds);
