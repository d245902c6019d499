// What the command line tells the relay to do.
#pragma once

enum class RelayTask { None, RegisterServer, UnregisterServer, RegisterTypeLibrary, UnregisterTypeLibrary, Serve };

// The task that the switch at the start of a command line stands for. It begins with / or -, its case does not matter,
// and what follows a blank behind it does not count. None for anything else; the line may be null.
RelayTask TaskOf(const char *commandLine);
