// Makes a function visible outside of its library.
#pragma once

#ifdef _WIN32
#define MEX_EXPORT __declspec(dllexport)
#else
#define MEX_EXPORT __attribute__((visibility("default")))
#endif
