#include "platform/native/system_messages.h"

#include <algorithm>
#include <iterator>

namespace {

struct Message {
    DWORD code;
    const char *text;
};

// Win32 errors; as HRESULTs they stand in facility 7, 0x8007xxxx. Ascending.
constexpr Message win32Messages[] = {
    {1, "Function not valid."},
    {2, "File not found."},
    {3, "Path not found."},
    {4, "Too many open files."},
    {5, "Access denied."},
    {6, "Handle not valid."},
    {8, "Not enough memory for this command."},
    {13, "Data not valid."},
    {14, "Out of memory."},
    {15, "Drive not found."},
    {19, "Medium is write-protected."},
    {21, "Device not ready."},
    {32, "File in use by another process."},
    {50, "Request not supported."},
    {53, "Network path not found."},
    {80, "File exists."},
    {87, "Parameter not valid."},
    {109, "Pipe closed at the other end."},
    {110, "File or device cannot be opened."},
    {112, "Disk full."},
    {120, "Function not implemented."},
    {122, "Buffer too small."},
    {123, "Name not valid."},
    {126, "Module not found."},
    {127, "Procedure not found."},
    {183, "Item already exists."},
    {193, "Not a loadable program or library."},
    {234, "More data available."},
    {259, "No more items."},
    {998, "Access to a memory location not allowed."},
    {1018, "Registry key marked for deletion."},
    {1114, "Library failed to initialise."},
    {1168, "Element not found."},
    {1223, "Cancelled by the user."},
    {1460, "Time limit passed."},
    {1722, "Remote procedure server not available."},
    {1726, "Remote procedure call failed."},
    {1812, "Module has no resource of this kind."},
    {1813, "Resource type not found."},
};

// Other HRESULTs. Ascending.
constexpr Message resultMessages[] = {
    {0x80004001, "Not implemented."},
    {0x80004002, "Interface not supported."},
    {0x80004003, "Pointer not valid."},
    {0x80004004, "Operation aborted."},
    {0x80004005, "Call failed."},
    {0x8000FFFF, "Unexpected failure."},
    {0x80010001, "Call rejected by callee."},
    {0x80010002, "Call cancelled."},
    {0x80010005, "Call not possible while an outgoing call is dispatched."},
    {0x80010007, "Server died, the call may have been carried out."},
    {0x80010012, "Server died, the call was not carried out."},
    {0x80010105, "Server threw an exception."},
    {0x80010106, "Thread mode cannot be changed after it was set."},
    {0x80010108, "Object has been disconnected from its clients."},
    {0x8001010A, "Message filter says that the application is busy."},
    {0x8001010D, "Outgoing call not possible during an input-synchronous call."},
    {0x8001010E, "Interface belongs to another thread."},
    {0x8001011F, "Call timed out."},
    {0x80020001, "Unknown interface."},
    {0x80020003, "Member not found."},
    {0x80020004, "Argument not found."},
    {0x80020005, "Type mismatch."},
    {0x80020006, "Unknown name."},
    {0x80020007, "No named arguments."},
    {0x80020008, "Wrong variant type."},
    {0x80020009, "Exception occurred."},
    {0x8002000A, "Out of range."},
    {0x8002000B, "Index not valid."},
    {0x8002000D, "Array is locked."},
    {0x8002000E, "Wrong number of arguments."},
    {0x8002000F, "Argument is not optional."},
    {0x80020012, "Division by zero."},
    {0x80028019, "Type library has an old or wrong format."},
    {0x8002801D, "Type library not registered."},
    {0x8002802B, "Element not found."},
    {0x80029C4A, "Type library or DLL cannot be loaded."},
    {0x80040110, "Class does not support aggregation."},
    {0x80040111, "Class factory does not supply this class."},
    {0x80040112, "Class is not licensed for use."},
    {0x80040150, "Registry cannot be read."},
    {0x80040151, "Registry cannot be written."},
    {0x80040152, "Registry key not found."},
    {0x80040153, "Registry value not valid."},
    {0x80040154, "Class not registered."},
    {0x80040155, "Interface not registered."},
    {0x800401E3, "Operation not available."},
    {0x800401F0, "COM not initialised on this thread."},
    {0x800401F1, "COM already initialised."},
    {0x800401F3, "Class identifier text not valid."},
    {0x800401F5, "Application not found."},
    {0x800401F8, "Library of the class not found."},
    {0x800401F9, "Library of the class is faulty."},
    {0x800401FB, "Object not registered."},
    {0x800401FC, "Object already registered."},
    {0x800401FD, "Object not connected to its server."},
    {0x80080005, "Server could not be started."},
};

template <std::size_t Count> const char *find(const Message (&messages)[Count], DWORD code)
{
    const Message *found = std::lower_bound(std::begin(messages), std::end(messages), code,
                                            [](const Message &message, DWORD c) { return message.code < c; });
    return found != std::end(messages) && found->code == code ? found->text : "";
}

} // namespace

const char *native::systemMessage(DWORD code)
{
    constexpr DWORD win32Facility = 0x80070000;
    if (code <= 0xFFFF)
        return find(win32Messages, code);
    if ((code & 0xFFFF0000) == win32Facility)
        return find(win32Messages, code & 0xFFFF);
    return find(resultMessages, code);
}
