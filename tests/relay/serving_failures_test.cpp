// The relay as a server, with one of the calls it makes failing: no client waits for ever, and none loses its relay.
#include "cape/com/bstr.h"
#include "cape/com/com_pointer.h"
#include "cape/com/relay_interface.h"
#include "tests/relay/installation.h"
#include "tests/relay/room_failures.h"

using namespace room_failures;

namespace {

constexpr CLSID componentClass = {0x7E57B1B0, 0x3B1C, 0x4D0A, {0x9E, 0x55, 0x21, 0x6B, 0x0C, 0x5F, 0xA8, 0x00}};
constexpr LPCWSTR componentClassId = L"{7E57B1B0-3B1C-4D0A-9E55-216B0C5FA800}";

// A component, and its class in this process alone.
class Component final : public IClassFactory {
public:
    Component()
    {
        EXPECT_EQ(CoRegisterClassObject(componentClass, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration),
                  S_OK);
    }
    ~Component() { EXPECT_EQ(CoRevokeClassObject(registration), S_OK); }
    Component(const Component &) = delete;
    Component &operator=(const Component &) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) noexcept override
    {
        const bool known = iid == InterfaceId<IUnknown> || iid == InterfaceId<IClassFactory>;
        *object = known ? this : nullptr;
        references += known;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return static_cast<ULONG>(++references); }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return static_cast<ULONG>(--references); }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown *, REFIID iid, void **object) noexcept override
    {
        return QueryInterface(iid, object);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) noexcept override { return S_OK; }

    int references = 0;

private:
    DWORD registration = 0;
};

// A creation that fails and gives something all the same, which is no object.
HRESULT WINAPI createsRubbish(REFCLSID, LPUNKNOWN, DWORD, REFIID, LPVOID *object)
{
    static int rubbish = 0;
    *object = &rubbish;
    return CO_E_APPDIDNTREG;
}

// A process that does nothing until it is ended.
class IdleProcess {
public:
    IdleProcess()
    {
        STARTUPINFOW start = {};
        start.cb = sizeof start;
        EXPECT_TRUE(CreateProcessW(installation::fileHere(L"relay_deserter.exe").c_str(), nullptr, nullptr, nullptr,
                                   FALSE, CREATE_SUSPENDED, nullptr, nullptr, &start, &process));
    }
    ~IdleProcess()
    {
        end();
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
    IdleProcess(const IdleProcess &) = delete;
    IdleProcess &operator=(const IdleProcess &) = delete;

    DWORD id() const { return process.dwProcessId; }
    void end()
    {
        TerminateProcess(process.hProcess, 0);
        EXPECT_EQ(WaitForSingleObject(process.hProcess, 10'000), WAIT_OBJECT_0);
    }

private:
    PROCESS_INFORMATION process = {};
};

class ServingCallFails : public RoomCallFails {
protected:
    ComPointer<IVerdanth6432Relay> newRelay()
    {
        ComPointer<IVerdanth6432Relay> relay;
        EXPECT_EQ(room->factory->CreateInstance(nullptr, InterfaceId<IVerdanth6432Relay>, relay.outVoid()), S_OK);
        return relay;
    }

    ~ServingCallFails() override
    {
        if (isHeldForEver) {
            room->noteClient(0);
            EXPECT_FALSE(isReleased());
        }
    }

    bool isReleased() const { return room->staysReleased(0); }
    bool isReleasedWithin(DWORD milliseconds) const
    {
        for (const DWORD start = GetTickCount(); GetTickCount() - start < milliseconds; Sleep(10))
            if (isReleased())
                return true;
        return false;
    }

    // By somebody who goes only with the last client. Ten seconds after that a released relay would end the process, so
    // in the end there is one that is never seen to die.
    void holdProcess()
    {
        ASSERT_EQ(room->startProcessLife(), S_OK);
        ASSERT_EQ(room->factory->LockServer(TRUE), S_OK);
        isHeldForEver = true;
    }

    void expectUnobservedClient(const Way &way);

private:
    bool isHeldForEver = false;
};

// Such a client counts as alive, whatever becomes of it and of the others.
void ServingCallFails::expectUnobservedClient(const Way &way)
{
    holdProcess();
    IdleProcess unobserved;
    IdleProcess observed;
    const auto note = [&] {
        room->noteClient(unobserved.id());
        return S_OK;
    };
    EXPECT_TRUE(runStruck({.run = note}, way, 1));
    room->noteClient(observed.id());
    unobserved.end();
    observed.end();
    EXPECT_FALSE(isReleasedWithin(300));
}

} // namespace

TEST_F(ServingCallFails, InStartProcessLife)
{
    failEach({.run = room->startProcessLife},
             {gives<"CreateEventW">(CreateEventW, nullptr, HRESULT_FROM_WIN32(ERROR_NOT_ENOUGH_MEMORY))});
}

TEST_F(ServingCallFails, InClassObject)
{
    const auto expectNoClass = [] {
        ComPointer<IClassFactory> factory;
        EXPECT_EQ(CoGetClassObject(CLSID_Verdanth6432Relay, CLSCTX_LOCAL_SERVER, nullptr, InterfaceId<IClassFactory>,
                                   factory.outVoid()),
                  REGDB_E_CLASSNOTREG);
    };
    failEach({.run = room->admitClients, .expectDone = expectNoClass, .undo = expectNoClass},
             {gives<"CreateEventW">(CreateEventW, nullptr, E_OUTOFMEMORY),
              gives<"CreateThread">(CreateThread, nullptr, E_OUTOFMEMORY),
              gives<"CoMarshalInterThreadInterfaceInStream">(CoMarshalInterThreadInterfaceInStream,
                                                             CO_E_OBJNOTCONNECTED, CO_E_OBJNOTCONNECTED),
              gives<"CoGetInterfaceAndReleaseStream">(CoGetInterfaceAndReleaseStream, RPC_E_DISCONNECTED,
                                                      RPC_E_DISCONNECTED),
              gives<"CoRegisterClassObject">(CoRegisterClassObject, CO_E_OBJISREG, CO_E_OBJISREG)});
}

TEST_F(ServingCallFails, InCreateInstance)
{
    ComPointer<IUnknown> made;
    const auto create = [&] {
        const HRESULT hr = room->factory->CreateInstance(nullptr, InterfaceId<IUnknown>, made.outVoid());
        EXPECT_EQ(SUCCEEDED(hr), static_cast<bool>(made));
        return hr;
    };
    failEach({.run = create,
              .expectDone = [&] { EXPECT_FALSE(isReleased()); },
              .undo =
                  [&] {
                      made.reset();
                      EXPECT_TRUE(isReleased());
                  }},
             {memory()});
}

TEST_F(ServingCallFails, InCreateObject32)
{
    Component component;
    const int inTheClass = component.references;
    const ComPointer<IVerdanth6432Relay> relay = newRelay();
    const Bstr classId(componentClassId);
    ComPointer<IUnknown> made;
    const auto create = [&] {
        const HRESULT hr = relay->CreateObject32(classId.get(), made.out());
        EXPECT_EQ(SUCCEEDED(hr), static_cast<bool>(made));
        return hr;
    };
    failEach({.run = create,
              .expectDone = [&] { EXPECT_EQ(component.references, inTheClass + 1); },
              .undo =
                  [&] {
                      made.reset();
                      EXPECT_EQ(component.references, inTheClass);
                  }},
             {gives<"CoCreateInstance">(CoCreateInstance, CO_E_DLLNOTFOUND, CO_E_DLLNOTFOUND),
              gives<"CoCreateInstance">(CoCreateInstance, S_OK, E_UNEXPECTED),
              gives<"IIDFromString">(IIDFromString, CO_E_IIDSTRING, CO_E_IIDSTRING)});
}

TEST_F(ServingCallFails, InAComponentThatGivesRubbish)
{
    const auto any = reinterpret_cast<ImportSlot::AnyFunction>(createsRubbish);
    const ImportSlot creation("CoCreateInstance", any, any);
    IUnknown *made = nullptr;
    EXPECT_EQ(newRelay()->CreateObject32(Bstr(componentClassId).get(), &made), CO_E_APPDIDNTREG);
    EXPECT_EQ(made, nullptr);
}

TEST_F(ServingCallFails, NotWithAClientThatIsObserved)
{
    holdProcess();
    IdleProcess client;
    room->noteClient(client.id());
    EXPECT_FALSE(isReleasedWithin(100));
    client.end();
    EXPECT_TRUE(isReleasedWithin(9'000));
}

TEST_F(ServingCallFails, InRecordingAClient)
{
    Way way = memory();
    way.result = S_OK;
    expectUnobservedClient(way);
}

TEST_F(ServingCallFails, InOpeningAClientsProcess)
{
    expectUnobservedClient(gives<"OpenProcess">(OpenProcess, nullptr, S_OK));
}

TEST_F(ServingCallFails, InWaitingForAClientsEnd)
{
    expectUnobservedClient(gives<"RegisterWaitForSingleObject">(RegisterWaitForSingleObject, FALSE, S_OK));
}
