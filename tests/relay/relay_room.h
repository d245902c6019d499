// The relay without its main function, as a library: so that its calls of the system have an import table of their own.
#pragma once

#include "platform/platform.h"

struct RelayRoom {
    // As the program's main function calls them.
    HRESULT (*registerServer)();
    HRESULT (*unregisterServer)();
    HRESULT (*registerStandardLibrary)();
    HRESULT (*unregisterStandardLibrary)();

    HRESULT (*admitClients)(); // registers the class; after a success it is revoked again
    IClassFactory *factory;

    HRESULT (*startProcessLife)();
    void (*noteClient)(DWORD processId);
    bool (*staysReleased)(DWORD milliseconds);
};

extern "C" __declspec(dllexport) const RelayRoom *TheRelayRoom();
