// What a test may change in the native platform: make a chosen call fail, count registry opens,
// answer message boxes. Exists natively only.
#pragma once

#include "platform/native/types.h"

namespace seam {

// One kind of call, of which the n-th can be made to fail.
class FaultPoint {
public:
    // The n-th call from here on fails, once. 0 lets all calls through.
    void failAt(int call) { remaining = call; }

    // True until the failure has happened.
    bool pending() const { return remaining > 0; }

    // Asked by the platform at each call: does this one fail?
    bool strikes() { return remaining > 0 && --remaining == 0; }

private:
    int remaining = 0;
};

extern FaultPoint allocations;   // of BSTRs, SAFEARRAYs and CoTaskMemAlloc: no memory
extern FaultPoint registryCalls; // RegOpenKeyEx, RegEnumKey, RegQueryValueEx: ERROR_ACCESS_DENIED
extern FaultPoint comCalls;      // CoCreateInstance: comFailure
extern HRESULT comFailure;       // E_OUTOFMEMORY unless a test says otherwise

extern int registryOpens;    // calls of RegOpenKeyExW and RegOpenKeyExA, failed ones included
extern int openRegistryKeys; // handles not closed yet

// What MessageBoxW does instead of writing to the terminal; null for the terminal.
using MessageBoxFunction = int (*)(HWND owner, LPCWSTR text, LPCWSTR caption, UINT style);
extern MessageBoxFunction messageBox;

} // namespace seam
