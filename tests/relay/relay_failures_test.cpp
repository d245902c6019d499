// The n-th call that the relay makes of the system fails, for n from 1 until an operation passes untouched: it ends
// with an error or is whole all the same, and works the next time.
#include "cape/com/bstr.h"
#include "cape/com/cape_open_common.h"
#include "cape/com/com_pointer.h"
#include "cape/com/relay_interface.h"
#include "tests/mex/support/failing_call.h"
#include "tests/relay/installation.h"
#include "tests/relay/relay_room.h"

#include <gtest/gtest.h>

#include <cstdio>

using namespace installation;
using support::FunctionName;
using support::ImportSlot;
using support::Lead;
using support::NthCall;

namespace {

const std::string relayClass = "{E3F8AF5B-DE4E-4FE0-B243-0FDB6173B5E8}";
const std::string relayInterface = "{E5D29B15-C411-4600-B764-370A604E2C06}";
const std::string relayLibrary = "{9C36D8A1-5F0E-4B7D-8E21-3AD467B01C92}";
const std::string packageClass = "{8337DA1D-2C46-4715-9C96-CFCE8AE51506}";
const std::string automationMarshaller = "{00020424-0000-0000-C000-000000000046}";
constexpr REGSAM views[] = {KEY_WOW64_32KEY, KEY_WOW64_64KEY};
constexpr int mostCalls = 20'000;     // of one kind in one operation
constexpr int callsOfAnInterface = 8; // at least; of one kind

const RelayRoom &room = *TheRelayRoom();

// What a function of the system, or a method, is led to.
template <FunctionName Name, class Result, class... Arguments> struct Striking {
    using Function = Result(WINAPI *)(Arguments...);

    static Result WINAPI call(Arguments... arguments)
    {
        if (!calls->strikes())
            return system(arguments...);
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return failure;
    }

    static inline Function system = nullptr;
    static inline Result failure = {};
    static inline NthCall *calls = nullptr;
};

struct Way {
    std::string name;
    Lead lead;
};

template <FunctionName Name, class Result, class... Arguments>
Way gives(Result(WINAPI *system)(Arguments...), std::type_identity_t<Result> failure)
{
    using Call = Striking<Name, Result, Arguments...>;
    return {Name.text, [=](NthCall &calls) {
                Call::system = system;
                Call::failure = failure;
                Call::calls = &calls;
                return std::make_shared<ImportSlot>(Name.text, reinterpret_cast<ImportSlot::AnyFunction>(system),
                                                    reinterpret_cast<ImportSlot::AnyFunction>(&Call::call));
            }};
}

// A method of all the objects that share this one's table.
template <FunctionName Name, class Interface, class... Arguments>
Way methodGives(HRESULT (WINAPI Interface::*)(Arguments...), Interface *object, std::size_t row, HRESULT failure)
{
    using Call = Striking<Name, HRESULT, Interface *, Arguments...>;
    auto *place = *reinterpret_cast<ImportSlot::AnyFunction **>(object) + row;
    return {Name.text, [=](NthCall &calls) {
                Call::system = reinterpret_cast<typename Call::Function>(*place);
                Call::failure = failure;
                Call::calls = &calls;
                return std::make_shared<ImportSlot>(place, reinterpret_cast<ImportSlot::AnyFunction>(&Call::call));
            }};
}

const Way memory = {"memory", support::FailsToGetMemory()};
const Way programFile = gives<"GetModuleFileNameW">(GetModuleFileNameW, 0);
const Way loadingLibrary = gives<"LoadTypeLibEx">(LoadTypeLibEx, TYPE_E_CANTLOADLIBRARY);

std::vector<Way> together(std::initializer_list<std::vector<Way>> parts)
{
    std::vector<Way> all;
    for (const std::vector<Way> &part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

const std::vector<Way> writing = {
    gives<"RegCreateKeyExW">(RegCreateKeyExW, ERROR_ACCESS_DENIED),
    gives<"RegSetValueExW">(RegSetValueExW, ERROR_NOT_ENOUGH_MEMORY),
};
const std::vector<Way> reading = {
    gives<"RegOpenKeyExW">(RegOpenKeyExW, ERROR_ACCESS_DENIED),
    gives<"RegQueryValueExW">(RegQueryValueExW, ERROR_NOT_ENOUGH_MEMORY),
};
const std::vector<Way> removing = {gives<"RegDeleteTreeW">(RegDeleteTreeW, ERROR_ACCESS_DENIED)};

class RelayCallFails : public testing::Test {
protected:
    RelayCallFails()
    {
        ImportSlot::library = "relay_room.dll";
        EXPECT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    }
    ~RelayCallFails() override
    {
        room.unregisterServer();
        CoUninitialize();
    }

    struct Operation {
        std::function<void()> prepare = [] {};
        std::function<HRESULT()> run;
        std::function<void()> expectWhole = [] {};
    };

    // An operation that does the same for each of many interfaces need not fail at every call: `dense` are the first
    // ones, which all do.
    void failEach(const Operation &operation, const std::vector<Way> &ways, int dense = mostCalls)
    {
        for (const Way &way : ways) {
            int n = 1;
            int failures = 0;
            while (failOnce(operation, way, n, failures) && !HasFailure())
                ASSERT_LT(n = n < dense ? n + 1 : 3 * n, mostCalls);
            EXPECT_GT(n, 1) << "it makes no call of " << way.name;
            EXPECT_GT(failures, 0) << "nothing fails by " << way.name;
        }
    }

private:
    // False when nothing was struck.
    bool failOnce(const Operation &operation, const Way &way, int n, int &failures)
    {
        SCOPED_TRACE(way.name + ", call " + std::to_string(n));
        operation.prepare();
        NthCall calls;
        HRESULT hr = S_OK;
        {
            const auto led = way.lead(calls);
            calls.failAt(n);
            hr = operation.run();
            calls.letThrough();
        }
        if (FAILED(hr)) {
            EXPECT_TRUE(calls.struck()) << std::hex << hr;
            ++failures;
            EXPECT_EQ(operation.run(), S_OK) << "the next time";
        }
        operation.expectWhole();
        return calls.struck();
    }
};

class StandardLibraryCallFails : public RelayCallFails {
protected:
    StandardLibraryCallFails()
    {
        EXPECT_EQ(LoadTypeLibEx(file32(L"CapeOpen11.tlb").c_str(), REGKIND_NONE, library.out()), S_OK);
        EXPECT_EQ(library->GetTypeInfo(0, information.out()), S_OK);
        for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
            ComPointer<ITypeInfo> each;
            TYPEATTR *attributes = nullptr;
            EXPECT_EQ(library->GetTypeInfo(i, each.out()), S_OK);
            EXPECT_EQ(each->GetTypeAttr(&attributes), S_OK);
            OLECHAR id[39];
            StringFromGUID2(attributes->guid, id, 39);
            Bstr name;
            EXPECT_EQ(each->GetDocumentation(MEMBERID_NIL, name.out(), nullptr, nullptr, nullptr), S_OK);
            const WideString text = TextOf(name.get());
            if (attributes->typekind == TKIND_DISPATCH)
                interfaces.emplace_back(std::string(id, id + 38), std::string(text.begin(), text.end()));
            each->ReleaseTypeAttr(attributes);
        }
        EXPECT_GT(interfaces.size(), 30u);
        unregisterWhole();
    }
    ~StandardLibraryCallFails() override { room.unregisterStandardLibrary(); }

    void unregisterWhole()
    {
        EXPECT_EQ(room.registerStandardLibrary(), S_OK);
        EXPECT_EQ(room.unregisterStandardLibrary(), S_OK);
    }

    void expectRegistered()
    {
        EXPECT_TRUE(registeredText(KEY_WOW64_64KEY, standardLibraryPathKey).ends_with("CapeOpen11.tlb"));
        for (const REGSAM view : views)
            for (const auto &[id, name] : interfaces) {
                const std::string key = "Interface\\" + id;
                ASSERT_EQ(registeredText(view, key), name) << id;
                ASSERT_EQ(registeredText(view, key + "\\ProxyStubClsid32"), automationMarshaller) << id;
                ASSERT_EQ(registeredText(view, key + "\\TypeLib"), standardLibrary) << id;
                ASSERT_EQ(registeredText(view, key + "\\TypeLib", "Version"), "1.1") << id;
            }
    }

    void expectUnregistered()
    {
        for (const REGSAM view : views) {
            EXPECT_FALSE(keyExists(view, "TypeLib\\" + standardLibrary));
            for (const auto &[id, name] : interfaces)
                ASSERT_FALSE(keyExists(view, "Interface\\" + id)) << name;
        }
    }

    // An open library is one object, whoever opens it.
    ULONG references() const
    {
        library->AddRef();
        return library->Release();
    }

    void failEachInLibrary(const Operation &operation, const std::vector<Way> &ways)
    {
        const ULONG before = references();
        failEach(operation, ways, callsOfAnInterface);
        EXPECT_EQ(references(), before);
    }

    std::vector<Way> lookingIntoLibrary() const
    {
        return {methodGives<"GetTypeInfo">(&ITypeLib::GetTypeInfo, library.get(), 4, TYPE_E_IOERROR),
                methodGives<"GetTypeAttr">(&ITypeInfo::GetTypeAttr, information.get(), 3, E_OUTOFMEMORY),
                methodGives<"GetDocumentation">(&ITypeInfo::GetDocumentation, information.get(), 12, E_OUTOFMEMORY)};
    }

    const WithoutStandardLibrary machine;
    ComPointer<ITypeLib> library;
    ComPointer<ITypeInfo> information;
    std::vector<std::pair<std::string, std::string>> interfaces; // identifiers and names
};

void expectServerRegistered()
{
    for (const REGSAM view : views) {
        EXPECT_EQ(registeredText(view, "CLSID\\" + relayClass), "Verdanth 32-bit relay");
        EXPECT_TRUE(registeredText(view, "CLSID\\" + relayClass + "\\LocalServer32").ends_with("relay_failures.exe\""));
        EXPECT_EQ(registeredText(view, "CLSID\\" + relayClass + "\\TypeLib"), relayLibrary);
        EXPECT_EQ(registeredText(view, "Interface\\" + relayInterface), "IVerdanth6432Relay");
        EXPECT_EQ(registeredText(view, "Interface\\" + relayInterface + "\\ProxyStubClsid32"), automationMarshaller);
        EXPECT_EQ(registeredText(view, "Interface\\" + relayInterface + "\\TypeLib"), relayLibrary);
        EXPECT_EQ(registeredText(view, "Interface\\" + relayInterface + "\\TypeLib", "Version"), "1.1");
        for (const char *system : {"win32", "win64"})
            EXPECT_TRUE(registeredText(view, "TypeLib\\" + relayLibrary + "\\1.1\\0\\" + system)
                            .ends_with("relay_failures.exe"))
                << system;
    }
}

void expectServerUnregistered()
{
    for (const REGSAM view : views)
        for (const std::string &key :
             {"CLSID\\" + relayClass, "Interface\\" + relayInterface, "TypeLib\\" + relayLibrary})
            EXPECT_FALSE(keyExists(view, key)) << key;
}

// A process that does nothing until it is ended.
class IdleProcess {
public:
    IdleProcess()
    {
        STARTUPINFOW start = {};
        start.cb = sizeof start;
        EXPECT_TRUE(CreateProcessW(fileHere(L"relay_deserter.exe").c_str(), nullptr, nullptr, nullptr, FALSE,
                                   CREATE_SUSPENDED, nullptr, nullptr, &start, &process));
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
        WaitForSingleObject(process.hProcess, INFINITE);
    }

private:
    PROCESS_INFORMATION process = {};
};

// Whether the held process is released within that time.
bool isReleasedWithin(DWORD milliseconds)
{
    for (const DWORD start = GetTickCount(); GetTickCount() - start < milliseconds; Sleep(10))
        if (room.staysReleased(0))
            return true;
    return false;
}

// Until the program ends: ten seconds after the last client's death a released relay ends it.
void holdProcess() { EXPECT_EQ(room.factory->LockServer(TRUE), S_OK); }

class ClientCallFails : public RelayCallFails, public testing::WithParamInterface<Way> {};

} // namespace

// First of all: the clients on record stay there as long as the library is loaded.
TEST_F(RelayCallFails, NotWhenClientsAreObserved)
{
    ASSERT_EQ(room.startProcessLife(), S_OK);
    holdProcess();
    IdleProcess client;
    room.noteClient(client.id());
    EXPECT_FALSE(isReleasedWithin(100));
    client.end();
    EXPECT_TRUE(isReleasedWithin(3000));
    room.noteClient(0); // or the process would be ended soon
    EXPECT_FALSE(room.staysReleased(0));
}

// Such a client counts as alive, whatever becomes of it and of the others.
TEST_P(ClientCallFails, AndTheClientCountsAsOneThatCannotBeObserved)
{
    ASSERT_EQ(room.startProcessLife(), S_OK);
    holdProcess();
    IdleProcess unobserved;
    IdleProcess observed;
    NthCall calls;
    {
        const auto led = GetParam().lead(calls);
        calls.failAt(1);
        room.noteClient(unobserved.id());
        calls.letThrough();
    }
    ASSERT_TRUE(calls.struck());
    room.noteClient(observed.id());
    unobserved.end();
    observed.end();
    EXPECT_FALSE(isReleasedWithin(300));
}

INSTANTIATE_TEST_SUITE_P(Each, ClientCallFails,
                         testing::Values(memory, gives<"OpenProcess">(OpenProcess, nullptr),
                                         gives<"RegisterWaitForSingleObject">(RegisterWaitForSingleObject, FALSE)),
                         [](const auto &info) { return info.param.name; });

TEST_F(RelayCallFails, InStartProcessLife)
{
    failEach({.run = room.startProcessLife}, {gives<"CreateEventW">(CreateEventW, nullptr)});
}

TEST_F(RelayCallFails, InClassObject)
{
    failEach({.run = room.admitClients},
             {gives<"CreateEventW">(CreateEventW, nullptr), gives<"CreateThread">(CreateThread, nullptr),
              gives<"CoMarshalInterThreadInterfaceInStream">(CoMarshalInterThreadInterfaceInStream, E_OUTOFMEMORY),
              gives<"CoGetInterfaceAndReleaseStream">(CoGetInterfaceAndReleaseStream, E_OUTOFMEMORY),
              gives<"CoRegisterClassObject">(CoRegisterClassObject, E_OUTOFMEMORY)});
}

TEST_F(RelayCallFails, InCreateInstance)
{
    ComPointer<IUnknown> made;
    failEach({.run =
                  [&] {
                      const HRESULT hr = room.factory->CreateInstance(nullptr, InterfaceId<IUnknown>, made.outVoid());
                      EXPECT_EQ(SUCCEEDED(hr), static_cast<bool>(made));
                      EXPECT_TRUE(SUCCEEDED(hr) || hr == E_OUTOFMEMORY);
                      return hr;
                  }},
             {memory});
}

TEST_F(RelayCallFails, InCreateObject32)
{
    const RegisteredPackage32 package;
    ComPointer<IVerdanth6432Relay> relay;
    ASSERT_EQ(room.factory->CreateInstance(nullptr, InterfaceId<IVerdanth6432Relay>, relay.outVoid()), S_OK);
    const Bstr classId(packageClass);
    ComPointer<IUnknown> made;
    failEach({.run =
                  [&] {
                      const HRESULT hr = relay->CreateObject32(classId.get(), made.out());
                      EXPECT_EQ(SUCCEEDED(hr), static_cast<bool>(made));
                      return hr;
                  }},
             {gives<"CoCreateInstance">(CoCreateInstance, E_OUTOFMEMORY),
              gives<"CoCreateInstance">(CoCreateInstance, S_OK), gives<"IIDFromString">(IIDFromString, E_OUTOFMEMORY)});
}

TEST_F(RelayCallFails, InRegisterServer)
{
    failEach({.prepare = [] { EXPECT_EQ(room.unregisterServer(), S_OK); },
              .run = room.registerServer,
              .expectWhole = expectServerRegistered},
             together({{memory, programFile, loadingLibrary}, writing}));
}

TEST_F(RelayCallFails, InUnregisterServer)
{
    failEach({.prepare = [] { EXPECT_EQ(room.registerServer(), S_OK); },
              .run = room.unregisterServer,
              .expectWhole = expectServerUnregistered},
             together({{memory}, reading, removing}));
}

TEST_F(StandardLibraryCallFails, InRegistering)
{
    failEachInLibrary({.prepare = [] { EXPECT_EQ(room.unregisterStandardLibrary(), S_OK); },
                       .run = room.registerStandardLibrary,
                       .expectWhole = [this] { expectRegistered(); }},
                      together({{memory, programFile, loadingLibrary}, writing, lookingIntoLibrary()}),
                      callsOfAnInterface);
}

TEST_F(StandardLibraryCallFails, InRegisteringAgain)
{
    EXPECT_EQ(room.registerStandardLibrary(), S_OK);
    failEachInLibrary({.run = room.registerStandardLibrary, .expectWhole = [this] { expectRegistered(); }}, reading);
}

TEST_F(StandardLibraryCallFails, InUnregistering)
{
    failEachInLibrary({.prepare = [] { EXPECT_EQ(room.registerStandardLibrary(), S_OK); },
                       .run = room.unregisterStandardLibrary,
                       .expectWhole = [this] { expectUnregistered(); }},
                      together({{memory, programFile, loadingLibrary,
                                 gives<"UnRegisterTypeLib">(UnRegisterTypeLib, TYPE_E_REGISTRYACCESS)},
                                reading,
                                removing,
                                lookingIntoLibrary()}));
}

int main(int count, char **arguments)
{
    testing::InitGoogleTest(&count, arguments);
    const int result = RUN_ALL_TESTS();
    // As the relay ends: a thread that admitted clients is still there, so nothing is torn down.
    std::fflush(nullptr);
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(result));
    return result;
}
