// What is common to every foreign component that is brought up, manager or package.
#pragma once

#include "platform/platform.h"

// Creates a COM class. A class that is registered nowhere this process can load it from may be a
// 32-bit one: then it is created through the relay, and the user is warned. Gives the failing
// result unchanged; E_UNEXPECTED when the relay is needed and not available.
HRESULT CreateComObject(REFCLSID classId, REFIID iid, void **object);

// Brings a component into service: InitNew, then Initialize, then the simulation context, each as
// far as the component has the interface; E_NOTIMPL counts as success. False with the message in
// LastError.
bool InitializeComponent(IUnknown *object);

// Calls Terminate, if the component has it; the result does not count.
void TerminateComponent(IUnknown *object);
