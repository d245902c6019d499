// A program of measurements that have limits.
#pragma once

// Runs them all; what main gives. Above a limit, of which `isAbove` tells then, it fails with those words.
int RunMeasurements(int argc, char **argv, const bool &isAbove, const char *words);
