// The Windows programs and libraries of Verdanth on this machine.
#pragma once

#include <string>

struct WindowsFiles {
    std::string folder; // host, library, and MATLAB's functions for it
    std::string host;
    std::string reference;    // the reference packages; empty if they are not there
    std::string relay;        // for 32-bit packages; empty if it is not there
    bool hasStandard = false; // the type library of CAPE-OPEN, beside the relay
};

// `named` is the folder that the user names, or empty; `own` is the one that this library lies in. False with the
// reason and the remedy in `error`.
bool FindWindowsFiles(const std::string &named, const std::string &own, WindowsFiles &files, std::string &error);
