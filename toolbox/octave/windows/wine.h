// Wine as it is installed on this machine, and programs that run in a prefix of it.
#pragma once

#include "client/caller.h"
#include "toolbox/octave/windows/settings.h"

#include <string>
#include <vector>

struct Wine {
    std::string loader;   // starts Windows programs
    std::string server;   // what they have in common, the registry first of all; empty if it was not found
    std::string halfPath; // where the libraries of 32-bit programs lie if that is apart from Wine's own
};

// False with the reason and the remedy in `error`.
bool FindWine(const Settings &settings, Wine &wine, std::string &error);

// What it calls itself, such as "wine-8.0 (Debian 8.0~repack-4)"; empty if it does not say.
std::string VersionOf(const Wine &wine);

// The environment of a program that runs in the prefix.
std::vector<std::string> EnvironmentIn(const std::string &prefix, const Wine &wine);

// A file as Windows programs call it.
std::string WindowsPath(const std::string &file);

// Ends what runs in the prefix, and has the registry written to files.
void StopServer(const std::string &prefix, const Wine &wine);

// Runs a Windows program to its end, or as long as it may. What it says goes into the file `log`. False with what came
// of it in `error`, such as "exit code 3".
bool RunInPrefix(const std::string &prefix, const Wine &wine, const std::vector<std::string> &command, double seconds,
                 const std::string &log, const Caller &caller, std::string &error);
