// The relay's class as COM knows it while the process runs.
#pragma once

#include "platform/platform.h"

// Lets clients in. To be made by the main thread, in its single-threaded apartment, where relays are made, too; but it
// is another thread's apartment that clients come in by, because only there COM tells which process calls. That thread
// stays for calls that are under way, to the end of the process.
class ClassObject {
public:
    ClassObject();
    ClassObject(const ClassObject &) = delete;
    ClassObject &operator=(const ClassObject &) = delete;

    HRESULT registration() const { return result; } // of the class

    void close(); // lets no new clients in

private:
    static DWORD WINAPI run(void *self);
    void serve();
    void waitFor(HANDLE event) const;

    IStream *factoryStream = nullptr; // the main thread's factory on its way to the other
    HANDLE opened = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HANDLE closing = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HANDLE closed = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HRESULT result = E_OUTOFMEMORY;
};
