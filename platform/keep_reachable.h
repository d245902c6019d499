// Blocks that are never freed on purpose.
#pragma once

#ifdef _WIN32
inline void keepReachable(const void *) {}
#else
// Notes a block, so that a leak checker can tell intent from accident even after the library that made it was unloaded.
void keepReachable(const void *block);
#endif
