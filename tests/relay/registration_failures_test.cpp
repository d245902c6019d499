// The relay's registrations, with one of the calls they make failing: the error is told, what was entered can be taken
// back, and the next time all is well.
#include "cape/com/com_pointer.h"
#include "cape/com/relay_interface.h"
#include "tests/relay/installation.h"
#include "tests/relay/room_failures.h"
#include "tests/relay/room_registry.h"

using namespace installation;
using namespace room_failures;

namespace {

void expectInterface(REGSAM view, const std::string &key, const std::string &name, const std::string &library)
{
    EXPECT_EQ(registeredText(view, key), name);
    EXPECT_EQ(registeredText(view, key + "\\ProxyStubClsid32"), "{00020424-0000-0000-C000-000000000046}") << name;
    EXPECT_EQ(registeredText(view, key + "\\TypeLib"), library) << name;
    EXPECT_EQ(registeredText(view, key + "\\TypeLib", "Version"), "1.1") << name;
}

// Wine enters some paths with a prefix.
void expectFile(REGSAM view, const std::string &key, const std::string &file)
{
    const std::string path = registeredText(view, key);
    EXPECT_TRUE(path.ends_with("\\" + file)) << key << ": " << path;
}

void expectNone(std::initializer_list<std::string> keys)
{
    for (const REGSAM view : views)
        for (const std::string &key : keys)
            EXPECT_FALSE(keyExists(view, key)) << key;
}

const Way loading = gives<"LoadTypeLibEx">(LoadTypeLibEx, TYPE_E_CANTLOADLIBRARY, TYPE_E_CANTLOADLIBRARY);
const Way findingProgram = gives<"GetModuleFileNameW">(programFile, 0, HRESULT_FROM_WIN32(ERROR_FILENAME_EXCED_RANGE));
const std::vector<Way> writing = {
    gives<"RegCreateKeyExW">(createKey, ERROR_ACCESS_DENIED, E_ACCESSDENIED),
    gives<"RegSetValueExW">(RegSetValueExW, ERROR_NO_SYSTEM_RESOURCES, HRESULT_FROM_WIN32(ERROR_NO_SYSTEM_RESOURCES)),
};
const std::vector<Way> reading = {
    gives<"RegOpenKeyExW">(openKey, ERROR_ACCESS_DENIED, E_ACCESSDENIED),
    gives<"RegQueryValueExW">(RegQueryValueExW, ERROR_NO_SYSTEM_RESOURCES,
                              HRESULT_FROM_WIN32(ERROR_NO_SYSTEM_RESOURCES)),
};
const Way removing = gives<"RegDeleteTreeW">(RegDeleteTreeW, ERROR_ACCESS_DENIED, E_ACCESSDENIED);
const Way unregistering = gives<"UnRegisterTypeLib">(UnRegisterTypeLib, TYPE_E_REGISTRYACCESS, TYPE_E_REGISTRYACCESS);

class RegistrationCallFails : public RoomCallFails {
protected:
    RegistrationCallFails()
    {
        install(L"Verdanth6432Relay.exe", L"Verdanth6432Relay.exe");
        const WideString file = install(L"SmallStandard.tlb", L"CapeOpen11.tlb");
        EXPECT_EQ(LoadTypeLibEx(file.c_str(), REGKIND_NONE, library.out()), S_OK);
        EXPECT_EQ(library->GetTypeInfo(0, information.out()), S_OK);
        firstReferences = references();
    }

    static void expectServerRegistered()
    {
        for (const REGSAM view : views) {
            EXPECT_EQ(registeredText(view, relayClass), "Verdanth 32-bit relay");
            expectFile(view, relayClass + "\\LocalServer32", "Verdanth6432Relay.exe\"");
            EXPECT_EQ(registeredText(view, relayClass + "\\TypeLib"), relayLibraryId);
            expectInterface(view, relayInterface, "IVerdanth6432Relay", relayLibraryId);
            for (const char *system : {"win32", "win64"})
                expectFile(view, relayLibrary + "\\1.1\\0\\" + system, "Verdanth6432Relay.exe");
        }
    }
    void registerServer()
    {
        EXPECT_EQ(room->registerServer(), S_OK);
        expectServerRegistered();
    }
    static void expectServerUnregistered() { expectNone({relayClass, relayInterface, relayLibrary}); }
    void unregisterServer()
    {
        EXPECT_EQ(room->unregisterServer(), S_OK);
        expectServerUnregistered();
    }

    void expectLibraryRegistered()
    {
        for (const REGSAM view : views) {
            expectFile(view, standardLibraryPathKey, "CapeOpen11.tlb");
            expectInterface(view, firstInterface, "ISmallFirst", standardLibrary);
            expectInterface(view, secondInterface, "ISmallSecond", standardLibrary);
        }
        EXPECT_EQ(references(), firstReferences);
    }
    void registerLibrary()
    {
        EXPECT_EQ(room->registerStandardLibrary(), S_OK);
        expectLibraryRegistered();
    }
    void expectLibraryUnregistered()
    {
        expectNone({standardLibraryKey, firstInterface, secondInterface});
        EXPECT_EQ(references(), firstReferences);
    }
    void unregisterLibrary()
    {
        EXPECT_EQ(room->unregisterStandardLibrary(), S_OK);
        expectLibraryUnregistered();
    }

    std::vector<Way> lookingIntoLibrary() const
    {
        return {methodGives<"GetTypeInfo">(&ITypeLib::GetTypeInfo, library.get(), 4, TYPE_E_IOERROR),
                methodGives<"GetTypeAttr">(&ITypeInfo::GetTypeAttr, information.get(), 3, TYPE_E_INVDATAREAD),
                methodGives<"GetDocumentation">(&ITypeInfo::GetDocumentation, information.get(), 12,
                                                TYPE_E_ELEMENTNOTFOUND)};
    }

private:
    // An open library is one object, whoever opens it.
    ULONG references() const
    {
        library->AddRef();
        return library->Release();
    }

    ComPointer<ITypeLib> library;
    ComPointer<ITypeInfo> information;
    ULONG firstReferences = 0;
};

} // namespace

TEST_F(RegistrationCallFails, InRegisterServer)
{
    failEach(
        {.run = room->registerServer, .expectDone = expectServerRegistered, .undo = [this] { unregisterServer(); }},
        together({{memory(), findingProgram, loading}, writing}));
}

TEST_F(RegistrationCallFails, InUnregisterServer)
{
    failEach(
        {.run = room->unregisterServer, .expectDone = expectServerUnregistered, .undo = [this] { registerServer(); }},
        together({{memory(), removing}, reading}));
}

TEST_F(RegistrationCallFails, InRegisterStandardLibrary)
{
    // Of a library that is not registered, nothing is read: the entry does not open.
    failEach({.run = room->registerStandardLibrary,
              .expectDone = [this] { expectLibraryRegistered(); },
              .undo = [this] { unregisterLibrary(); }},
             together({{memory(), findingProgram, loading, reading[0]}, writing, lookingIntoLibrary()}));
}

TEST_F(RegistrationCallFails, InRegisterStandardLibraryAgain)
{
    failEach({.run = room->registerStandardLibrary,
              .expectDone = [this] { expectLibraryRegistered(); },
              .undo = [this] { registerLibrary(); }},
             together({{memory(), findingProgram, loading}, reading, writing, lookingIntoLibrary()}));
}

TEST_F(RegistrationCallFails, InUnregisterStandardLibrary)
{
    // By the library's entry the rest is found the next time.
    failEach({.run = room->unregisterStandardLibrary,
              .expectDone = [this] { expectLibraryUnregistered(); },
              .undo = [this] { registerLibrary(); },
              .expectFailed = [] { expectFile(KEY_WOW64_32KEY, standardLibraryPathKey, "CapeOpen11.tlb"); }},
             together({{memory(), findingProgram, loading, removing, unregistering}, reading, lookingIntoLibrary()}));
}

// What cannot be loaded serves nobody.
TEST_F(RegistrationCallFails, WhereAnotherProgramsLibraryIsRegistered)
{
    registerTypeLibrary(install(L"SmallStandard.tlb", L"somebody_elses.tlb"));
    const auto expectTheirs = [] { expectFile(KEY_WOW64_32KEY, standardLibraryPathKey, "somebody_elses.tlb"); };
    for (const Way &way : {findingProgram, reading[0], reading[1]}) {
        SCOPED_TRACE(way.name);
        EXPECT_TRUE(runStruck({.run = room->registerStandardLibrary}, way, 1));
        expectTheirs();
    }
    EXPECT_EQ(room->registerStandardLibrary(), S_OK);
    expectTheirs();
    const Way search = gives<"LoadRegTypeLib">(LoadRegTypeLib, TYPE_E_LIBNOTREGISTERED, S_OK);
    EXPECT_TRUE(runStruck({.run = room->registerStandardLibrary}, search, 1));
    expectLibraryRegistered();
}

TEST_F(RegistrationCallFails, InNamesOfMethods)
{
    registerServer();
    ComPointer<IDispatch> relay;
    ASSERT_EQ(room->factory->CreateInstance(nullptr, InterfaceId<IDispatch>, relay.outVoid()), S_OK);
    DISPID id = 0;
    const auto askForId = [&] {
        WideString name = L"CreateObject32";
        LPOLESTR names[] = {name.data()};
        id = 0;
        return relay->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
    };
    failEach({.run = askForId, .expectDone = [&] { EXPECT_EQ(id, 1); }},
             {gives<"LoadRegTypeLib">(LoadRegTypeLib, TYPE_E_LIBNOTREGISTERED, TYPE_E_LIBNOTREGISTERED)});
}
