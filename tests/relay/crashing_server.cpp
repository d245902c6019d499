// A component library that is broken in the way that the class asked for says: its last byte is what happens.
#include "platform/platform.h"

extern "C" HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID classId, REFIID, LPVOID *object)
{
    switch (classId.Data4[7]) {
    case 1: { // crashes
        volatile int *nowhere = nullptr;
        *nowhere = 1;
        return S_OK;
    }
    case 2: // says it did, and gives nothing
        *object = nullptr;
        return S_OK;
    default: // refuses
        *object = nullptr;
        return static_cast<HRESULT>(0x8004050Fu);
    }
}

extern "C" HRESULT STDAPICALLTYPE DllCanUnloadNow() { return S_OK; }
