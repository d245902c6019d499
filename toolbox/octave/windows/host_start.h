// From the settings to a program that is ready for calls.
#pragma once

#include "client/host_connection.h"
#include "toolbox/octave/windows/settings.h"

#include <memory>
#include <string>

// Makes the prefix ready and starts the program in it; `folder` is where Verdanth is installed, `warning` as in
// PreparePrefix. Null when that failed, with the reason and the remedy in `error`, and when the user wished to wait no
// longer; `error` is empty then.
std::unique_ptr<HostConnection> StartHost(const Settings &settings, const std::string &folder, const Caller &caller,
                                          std::string &warning, std::string &error);
