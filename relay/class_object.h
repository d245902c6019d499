// The relay's class object, registered with COM while the process runs.
#pragma once

#include "platform/platform.h"

// Admits clients. Construct it on the main thread, in the single-threaded apartment where the relays are created.
// Clients connect through the apartment of a second thread, because only there does COM tell which process is calling.
// That thread stays until the process ends, for calls that are still in progress.
class ClassObject {
public:
    ClassObject();
    ClassObject(const ClassObject &) = delete;
    ClassObject &operator=(const ClassObject &) = delete;

    HRESULT registration() const { return result; } // of the class

    void close(); // admits no more clients

private:
    static DWORD WINAPI run(void *self);
    void serve();
    void waitFor(HANDLE event) const;

    IStream *factoryStream = nullptr; // the main thread's factory, marshalled for the other thread
    HANDLE opened = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HANDLE closing = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HANDLE closed = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HRESULT result = E_OUTOFMEMORY;
};
