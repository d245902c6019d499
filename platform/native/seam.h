// What a test may change in the native platform: make a chosen call fail, count registry opens,
// answer message boxes. Exists natively only.
#pragma once

#include "platform/native/types.h"
#include "platform/nth_call.h"

namespace seam {

extern NthCall allocations;   // of BSTRs, SAFEARRAYs and CoTaskMemAlloc: no memory
extern NthCall registryCalls; // RegOpenKeyEx, RegEnumKey, RegQueryValueEx: ERROR_ACCESS_DENIED
extern NthCall comCalls;      // CoCreateInstance: comFailure
extern HRESULT comFailure;    // E_OUTOFMEMORY unless a test says otherwise

extern int registryOpens;    // calls of RegOpenKeyExW and RegOpenKeyExA, failed ones included
extern int openRegistryKeys; // handles not closed yet

// What MessageBoxW does instead of writing to the terminal; null for the terminal.
using MessageBoxFunction = int (*)(HWND owner, LPCWSTR text, LPCWSTR caption, UINT style);
extern MessageBoxFunction messageBox;

} // namespace seam
