// Start and end of the library's life in MATLAB.
#pragma once

// Starts the process-wide state at the first call: the COM apartment, the seed of the handles, the
// exit routine.
void EnsureStarted();

// What MATLAB runs when it clears the function or quits. The order is required: packages before
// COM ends, the simulation context after it. What a package gave and nobody has asked for since goes with the packages.
void OnMexExit();
