// The Wine prefix: a folder that is to Windows programs what a Windows machine is, with disks and a registry.
#pragma once

#include "toolbox/octave/windows/windows_files.h"
#include "toolbox/octave/windows/wine.h"

#include <string>

// Makes the prefix that the settings name unless it is there, and registers in it the relay and the reference packages
// of `files`, once. `warning` gets what does not work without hindering the rest. False with the reason and the remedy
// in `error`.
bool PreparePrefix(const Settings &settings, const Wine &wine, const WindowsFiles &files, const Caller &caller,
                   std::string &warning, std::string &error);
