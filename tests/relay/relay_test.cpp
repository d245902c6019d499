// The relay by itself: its registration, what it makes, and how long it lives.
#include "cape/com/bstr.h"
#include "cape/com/cape_open.h"
#include "cape/com/com_pointer.h"
#include "cape/com/relay_interface.h"
#include "tests/relay/installation.h"

#include <gtest/gtest.h>

#include <functional>

using namespace installation;

namespace {

const std::string relayClass = "{E3F8AF5B-DE4E-4FE0-B243-0FDB6173B5E8}";
const std::string relayInterface = "{E5D29B15-C411-4600-B764-370A604E2C06}";
const std::string relayLibrary = "{9C36D8A1-5F0E-4B7D-8E21-3AD467B01C92}";
const std::string packageClass = "{8337DA1D-2C46-4715-9C96-CFCE8AE51506}";
constexpr REGSAM views[] = {KEY_WOW64_32KEY, KEY_WOW64_64KEY};

std::string narrow(const WideString &text) { return std::string(text.begin(), text.end()); }

HRESULT newRelay(ComPointer<IVerdanth6432Relay> &relay)
{
    return CoCreateInstance(CLSID_Verdanth6432Relay, nullptr, CLSCTX_LOCAL_SERVER, InterfaceId<IVerdanth6432Relay>,
                            relay.outVoid());
}

class Relay : public testing::Test {
protected:
    Relay() { EXPECT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))); }
    ~Relay() override
    {
        CoUninitialize();
        if (!mayStay) {
            EXPECT_TRUE(relaysEnd()) << "a relay stays";
        }
    }

    RegisteredRelay registeredRelay;
    RegisteredPackage32 registeredPackage;
    bool mayStay = false;
};

// A class of the 32-bit view that one library is to serve, registered while the object lives.
class BrokenClass {
public:
    explicit BrokenClass(char kind, const WideString &library)
        : classId(std::string("{7E57B100-3B1C-4D0A-9E55-216B0C5FA80") + kind + "}")
    {
        HKEY key = nullptr;
        const std::string path = "CLSID\\" + classId + "\\InprocServer32";
        EXPECT_EQ(RegCreateKeyExA(HKEY_CLASSES_ROOT, path.c_str(), 0, nullptr, 0, KEY_WRITE | KEY_WOW64_32KEY, nullptr,
                                  &key, nullptr),
                  ERROR_SUCCESS);
        RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE *>(library.c_str()),
                       static_cast<DWORD>((library.size() + 1) * sizeof(WCHAR)));
        RegCloseKey(key);
    }
    ~BrokenClass()
    {
        HKEY key = nullptr;
        RegOpenKeyExA(HKEY_CLASSES_ROOT, "CLSID", 0, KEY_READ | KEY_WRITE | DELETE | KEY_WOW64_32KEY, &key);
        EXPECT_EQ(RegDeleteTreeA(key, classId.c_str()), ERROR_SUCCESS);
        RegCloseKey(key);
    }
    BrokenClass(const BrokenClass &) = delete;
    BrokenClass &operator=(const BrokenClass &) = delete;

    const std::string classId;
};

class StandardLibraryRegistration : public testing::Test {
protected:
    // Wine enters some paths with a prefix.
    static bool isRegistered(const WideString &path)
    {
        return registeredText(KEY_WOW64_64KEY, standardLibraryPathKey).ends_with(narrow(path));
    }

    const std::vector<std::pair<std::string, std::string>> someInterfaces = {
        {"{678C0A9B-7D66-11D2-A67D-00105A42887F}", "ICapeThermoMaterial"},
        {"{678C0B11-7D66-11D2-A67D-00105A42887F}", "ECapeUser"},
        {"{678C0AA2-7D66-11D2-A67D-00105A42887F}", "ICapeThermoPropertyPackageManager"},
    };
    const WideString relay = file32(L"Verdanth6432Relay.exe");
    const WithoutStandardLibrary machine;
};

// Whether the relay works: it makes the reference package.
bool makesThePackage(IVerdanth6432Relay *relay)
{
    ComPointer<IUnknown> object;
    return relay->CreateObject32(Bstr(WideString(packageClass.begin(), packageClass.end())).get(), object.out()) ==
               S_OK &&
           object;
}

// Whether an attempt succeeds that depends on the right moment, which a busy machine may miss; it gets a few tries.
bool succeedsInTime(const std::function<bool()> &attempt)
{
    for (int i = 0; i < 4; ++i) {
        if (attempt())
            return true;
        EXPECT_TRUE(relaysEnd());
    }
    return false;
}

void expectRefused(IVerdanth6432Relay *relay, const std::string &classIdText)
{
    SCOPED_TRACE(classIdText);
    ComPointer<IUnknown> object;
    EXPECT_TRUE(
        FAILED(relay->CreateObject32(Bstr(WideString(classIdText.begin(), classIdText.end())).get(), object.out())));
    EXPECT_EQ(object.get(), nullptr);
    EXPECT_TRUE(makesThePackage(relay)) << "and goes on";
}

} // namespace

TEST(RelayRegistration, EntersTheClassInBothViews)
{
    const RegisteredRelay relay;
    const std::string path = narrow(file32(L"Verdanth6432Relay.exe"));
    for (const REGSAM view : views) {
        EXPECT_EQ(registeredText(view, "CLSID\\" + relayClass + "\\LocalServer32"), "\"" + path + "\"");
        EXPECT_EQ(registeredText(view, "CLSID\\" + relayClass + "\\TypeLib"), relayLibrary);
        EXPECT_EQ(registeredText(view, "Interface\\" + relayInterface), "IVerdanth6432Relay");
        EXPECT_EQ(registeredText(view, "Interface\\" + relayInterface + "\\ProxyStubClsid32"),
                  "{00020424-0000-0000-C000-000000000046}");
        EXPECT_EQ(registeredText(view, "Interface\\" + relayInterface + "\\TypeLib"), relayLibrary);
        EXPECT_EQ(registeredText(view, "Interface\\" + relayInterface + "\\TypeLib", "Version"), "1.1");
        for (const char *system : {"win32", "win64"})
            EXPECT_TRUE(registeredText(view, "TypeLib\\" + relayLibrary + "\\1.1\\0\\" + system).ends_with(path))
                << system;
    }
}

TEST(RelayRegistration, IsTakenBackWhole)
{
    {
        const RegisteredRelay relay;
    }
    for (const REGSAM view : views)
        for (const std::string &key :
             {"CLSID\\" + relayClass, "Interface\\" + relayInterface, "TypeLib\\" + relayLibrary})
            EXPECT_FALSE(keyExists(view, key)) << key;
    EXPECT_EQ(run(file32(L"Verdanth6432Relay.exe"), L"/UnregServer"), 0u) << "nothing is left to do";
}

TEST(RelayRegistration, TakesItsSwitchesInEitherSignAndCase)
{
    const WideString relay = file32(L"Verdanth6432Relay.exe");
    EXPECT_EQ(run(relay, L"-regserver"), 0u);
    EXPECT_TRUE(keyExists(KEY_WOW64_64KEY, "CLSID\\" + relayClass));
    EXPECT_EQ(run(relay, L"-UNREGSERVER"), 0u);
    EXPECT_FALSE(keyExists(KEY_WOW64_64KEY, "CLSID\\" + relayClass));
}

TEST(RelayRegistration, NoOtherSwitchDoesAnything)
{
    for (const WCHAR *arguments : {L"", L"/help", L"RegServer", L"/RegServers", L"/RegTypeLibs"})
        EXPECT_EQ(run(file32(L"Verdanth6432Relay.exe"), arguments), static_cast<DWORD>(E_INVALIDARG));
    EXPECT_FALSE(keyExists(KEY_WOW64_64KEY, "CLSID\\" + relayClass));
    EXPECT_FALSE(keyExists(KEY_WOW64_32KEY, "CLSID\\" + relayClass));
}

TEST_F(StandardLibraryRegistration, IsForMachinesThatHaveNone)
{
    EXPECT_EQ(run(relay, L"/RegTypeLib"), 0u);
    EXPECT_TRUE(isRegistered(file32(L"CapeOpen11.tlb")));
    for (const REGSAM view : views)
        for (const auto &[id, name] : someInterfaces) {
            EXPECT_EQ(registeredText(view, "Interface\\" + id), name);
            EXPECT_EQ(registeredText(view, "Interface\\" + id + "\\ProxyStubClsid32"),
                      "{00020424-0000-0000-C000-000000000046}");
            EXPECT_EQ(registeredText(view, "Interface\\" + id + "\\TypeLib"), standardLibrary);
            EXPECT_EQ(registeredText(view, "Interface\\" + id + "\\TypeLib", "Version"), "1.1");
        }
    EXPECT_EQ(run(relay, L"/RegTypeLib"), 0u) << "again is no failure";
}

TEST_F(StandardLibraryRegistration, IsTakenBackWhole)
{
    EXPECT_EQ(run(relay, L"/RegTypeLib"), 0u);
    EXPECT_EQ(run(relay, L"/UnregTypeLib"), 0u);
    for (const REGSAM view : views) {
        EXPECT_FALSE(keyExists(view, standardLibraryKey));
        for (const auto &[id, name] : someInterfaces)
            EXPECT_FALSE(keyExists(view, "Interface\\" + id)) << name;
    }
    EXPECT_EQ(run(relay, L"/UnregTypeLib"), 0u) << "nothing is left to do";
}

TEST_F(StandardLibraryRegistration, LeavesAnotherProgramsAlone)
{
    const WideString theirs = fileHere(L"somebody_elses.tlb");
    ASSERT_TRUE(CopyFileW(file32(L"CapeOpen11.tlb").c_str(), theirs.c_str(), FALSE));
    registerTypeLibrary(theirs);
    for (const WCHAR *change : {L"/RegTypeLib", L"/UnregTypeLib"}) {
        EXPECT_EQ(run(relay, change), 0u);
        EXPECT_TRUE(isRegistered(theirs));
        for (const REGSAM view : views)
            EXPECT_EQ(registeredText(view, "Interface\\" + someInterfaces[0].first), someInterfaces[0].second);
    }
    EXPECT_TRUE(DeleteFileW(theirs.c_str()));
    EXPECT_EQ(run(relay, L"/RegTypeLib"), 0u);
    EXPECT_TRUE(isRegistered(file32(L"CapeOpen11.tlb"))) << "theirs can't be loaded";
}

TEST_F(StandardLibraryRegistration, FailsWithoutTheLibrary)
{
    const WideString folder = fileHere(L"relay_alone");
    const WideString alone = folder + L"\\Verdanth6432Relay.exe";
    CreateDirectoryW(folder.c_str(), nullptr);
    ASSERT_TRUE(CopyFileW(relay.c_str(), alone.c_str(), FALSE));
    EXPECT_NE(run(alone, L"/RegTypeLib"), 0u);
    EXPECT_FALSE(keyExists(KEY_WOW64_64KEY, standardLibraryKey));
    EXPECT_TRUE(DeleteFileW(alone.c_str()));
    EXPECT_TRUE(RemoveDirectoryW(folder.c_str()));
}

TEST(PackageRegistration32, StaysInTheViewOfItsOwnBitness)
{
    {
        const RegisteredPackage32 package;
        EXPECT_EQ(registeredText(KEY_WOW64_32KEY, "CLSID\\" + packageClass + "\\InprocServer32"),
                  narrow(file32(L"VerdanthReference.dll")));
        EXPECT_FALSE(keyExists(KEY_WOW64_64KEY, "CLSID\\" + packageClass));
    }
    EXPECT_FALSE(keyExists(KEY_WOW64_32KEY, "CLSID\\" + packageClass));
}

TEST_F(Relay, MakesA32BitObject)
{
    ComPointer<IVerdanth6432Relay> relay;
    ASSERT_EQ(newRelay(relay), S_OK);
    ComPointer<IUnknown> object;
    ASSERT_EQ(relay->CreateObject32(Bstr(WideString(packageClass.begin(), packageClass.end())).get(), object.out()),
              S_OK);
    ComPointer<ICapeIdentification> identification;
    ASSERT_EQ(identification.queryFrom(object.get()), S_OK);
    Bstr name;
    EXPECT_EQ(identification->get_ComponentName(name.out()), S_OK);
    EXPECT_EQ(narrow(TextOf(name.get())), "Verdanth Natural Gas (stand-alone)");
    ComPointer<ICapeThermoPropertyRoutine> routine;
    EXPECT_EQ(routine.queryFrom(object.get()), S_OK);
}

TEST_F(Relay, IsOneProcessForAll)
{
    ComPointer<IVerdanth6432Relay> first;
    ComPointer<IVerdanth6432Relay> second;
    ASSERT_EQ(newRelay(first), S_OK);
    ASSERT_EQ(newRelay(second), S_OK);
    EXPECT_EQ(relays().size(), 1u);
}

TEST_F(Relay, KeepsObjectsAsLongAsAnyRelayIsHeld)
{
    ComPointer<IVerdanth6432Relay> kept;
    ASSERT_EQ(newRelay(kept), S_OK);
    ComPointer<IVerdanth6432Relay> worker;
    ASSERT_EQ(newRelay(worker), S_OK);
    ComPointer<IUnknown> object;
    ASSERT_EQ(worker->CreateObject32(Bstr(WideString(packageClass.begin(), packageClass.end())).get(), object.out()),
              S_OK);
    worker.reset();
    ComPointer<ICapeThermoCompounds> compounds;
    ASSERT_EQ(compounds.queryFrom(object.get()), S_OK);
    LONG count = 0;
    EXPECT_EQ(compounds->GetNumCompounds(&count), S_OK);
    EXPECT_EQ(count, 11);
    kept.reset();
    EXPECT_TRUE(relaysEnd()) << "objects alone do not keep the process";
    EXPECT_TRUE(FAILED(compounds->GetNumCompounds(&count)));
}

TEST_F(Relay, StartsAnewAfterItsEnd)
{
    for (int i = 0; i < 2; ++i) {
        ComPointer<IVerdanth6432Relay> relay;
        ASSERT_EQ(newRelay(relay), S_OK);
        EXPECT_TRUE(makesThePackage(relay.get()));
        relay.reset();
        EXPECT_TRUE(relaysEnd());
    }
}

TEST_F(Relay, StaysForAClientThatReturnsAtOnce)
{
    const auto returns = [] {
        ComPointer<IVerdanth6432Relay> relay;
        EXPECT_EQ(newRelay(relay), S_OK);
        const std::vector<DWORD> before = relays();
        relay.reset();
        Sleep(100);
        return newRelay(relay) == S_OK && relays() == before;
    };
    EXPECT_TRUE(succeedsInTime(returns));
}

TEST_F(Relay, ServesAClientThatGotTheClassObjectBeforeItWasRevoked)
{
    const auto comesLate = [] {
        ComPointer<IClassFactory> factory;
        ComPointer<IVerdanth6432Relay> relay;
        if (CoGetClassObject(CLSID_Verdanth6432Relay, CLSCTX_LOCAL_SERVER, nullptr, InterfaceId<IClassFactory>,
                             factory.outVoid()) != S_OK ||
            factory->CreateInstance(nullptr, InterfaceId<IVerdanth6432Relay>, relay.outVoid()) != S_OK)
            return false;
        relay.reset();
        Sleep(750);
        return factory->CreateInstance(nullptr, InterfaceId<IVerdanth6432Relay>, relay.outVoid()) == S_OK &&
               makesThePackage(relay.get());
    };
    EXPECT_TRUE(succeedsInTime(comesLate));
}

TEST_F(Relay, RefusesWhatIsNoClassId)
{
    ComPointer<IVerdanth6432Relay> relay;
    ASSERT_EQ(newRelay(relay), S_OK);
    for (const char *text :
         {"", "{", "{}", "8337DA1D-2C46-4715-9C96-CFCE8AE51506", "{8337DA1D-2C46-4715-9C96-CFCE8AE5150}",
          "{8337DA1D-2C46-4715-9C96-CFCE8AE5150X}", "{8337DA1D-2C46-4715-9C96-CFCE8AE51506} "})
        expectRefused(relay.get(), text);
    expectRefused(relay.get(), std::string(100'000, '{'));
    ComPointer<IUnknown> object;
    EXPECT_TRUE(FAILED(relay->CreateObject32(nullptr, object.out())));
}

TEST_F(Relay, TakesNoProgramIds)
{
    ComPointer<IVerdanth6432Relay> relay;
    ASSERT_EQ(newRelay(relay), S_OK);
    EXPECT_TRUE(keyExists(KEY_WOW64_32KEY, "Verdanth.NaturalGas32\\CLSID"));
    expectRefused(relay.get(), "Verdanth.NaturalGas32");
}

TEST_F(Relay, TellsThatAClassIsUnknown)
{
    ComPointer<IVerdanth6432Relay> relay;
    ASSERT_EQ(newRelay(relay), S_OK);
    ComPointer<IUnknown> object;
    EXPECT_EQ(relay->CreateObject32(Bstr(OLESTR("{7E57B1FF-3B1C-4D0A-9E55-216B0C5FA800}")).get(), object.out()),
              REGDB_E_CLASSNOTREG);
    EXPECT_TRUE(makesThePackage(relay.get()));
}

TEST_F(Relay, SurvivesClassesThatDoNotStart)
{
    const WideString server = file32(L"crashing_server.dll");
    const BrokenClass refusing('0', server);
    const BrokenClass crashing('1', server);
    const BrokenClass empty('2', server);
    const BrokenClass missing('3', file32(L"no such file.dll"));
    const BrokenClass noLibrary('4', file32(L"CapeOpen11.tlb"));
    const BrokenClass noServer('5', L"version.dll");
    const BrokenClass pathless('6', L"");
    ComPointer<IVerdanth6432Relay> relay;
    ASSERT_EQ(newRelay(relay), S_OK);
    for (const BrokenClass *broken : {&refusing, &crashing, &empty, &missing, &noLibrary, &noServer, &pathless})
        expectRefused(relay.get(), broken->classId);
    EXPECT_EQ(relays().size(), 1u);
}

TEST_F(Relay, IsUsedByNameToo)
{
    ComPointer<IDispatch> relay;
    ASSERT_EQ(CoCreateInstance(CLSID_Verdanth6432Relay, nullptr, CLSCTX_LOCAL_SERVER, InterfaceId<IDispatch>,
                               relay.outVoid()),
              S_OK);
    WideString name = L"CreateObject32";
    LPOLESTR names[] = {name.data()};
    DISPID id = 0;
    EXPECT_EQ(relay->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), S_OK);
    EXPECT_EQ(id, 1);
}

TEST_F(Relay, IsNoPartOfAnotherObject)
{
    ComPointer<IClassFactory> factory;
    ASSERT_EQ(CoGetClassObject(CLSID_Verdanth6432Relay, CLSCTX_LOCAL_SERVER, nullptr, InterfaceId<IClassFactory>,
                               factory.outVoid()),
              S_OK);
    ComPointer<IUnknown> object;
    EXPECT_TRUE(FAILED(factory->CreateInstance(nullptr, InterfaceId<ICapeIdentification>, object.outVoid())));
    EXPECT_EQ(factory->CreateInstance(nullptr, InterfaceId<IVerdanth6432Relay>, object.outVoid()), S_OK);
}

TEST_F(Relay, DoesNotOutliveAClientThatEndsWithoutReleasing)
{
    for (const WCHAR *end : {L"exit ", L"die "}) {
        EXPECT_EQ(run(file32(L"relay_deserter.exe"), end + WideString(packageClass.begin(), packageClass.end())), 7u);
        EXPECT_TRUE(relaysEnd());
    }
}

TEST_F(Relay, ServesOnWhenOneOfItsClientsDies)
{
    ComPointer<IVerdanth6432Relay> relay;
    ASSERT_EQ(newRelay(relay), S_OK);
    EXPECT_EQ(run(file32(L"relay_deserter.exe"), L"die " + WideString(packageClass.begin(), packageClass.end())), 7u);
    Sleep(500);
    EXPECT_EQ(relays().size(), 1u);
    EXPECT_TRUE(makesThePackage(relay.get()));
    mayStay = true; // what the dead client held stays held, as long as this one lives
}
