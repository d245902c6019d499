#include "tests/relay/relay_room.h"

#include "cape/com/guarded_call.h"
#include "relay/class_object.h"
#include "relay/process_life.h"
#include "relay/registration.h"
#include "relay/relay_object.h"
#include "relay/standard_library.h"

namespace {

template <HRESULT (*operation)()> HRESULT guarded() { return GuardedCall(operation); }

HRESULT admitClients()
{
    ClassObject classObject;
    const HRESULT hr = classObject.registration();
    if (SUCCEEDED(hr))
        classObject.close();
    return hr;
}

RelayFactory factory;

} // namespace

extern "C" const RelayRoom *TheRelayRoom()
{
    static const RelayRoom room = {guarded<RegisterServer>,
                                   guarded<UnregisterServer>,
                                   guarded<RegisterStandardLibrary>,
                                   guarded<UnregisterStandardLibrary>,
                                   guarded<admitClients>,
                                   &factory,
                                   [] { return StartProcessLife(); },
                                   [](DWORD processId) { NoteClient(processId); },
                                   StaysReleased};
    return &room;
}
