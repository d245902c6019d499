// Classes that exist as 32-bit servers only, reached through the relay.
#include "tests/mex/support/library_call.h"
#include "tests/support/mex_test.h"

#include <set>
#include <utility>

using namespace support;

namespace {

const std::string tail = " is a 32-bit COM object and is created out-of-process; running the 32-bit version of Matlab "
                         "might be more efficient";

const std::string noRelay =
    "Verdanth6432Relay is not properly registered or not accessible. Please make sure Verdanth6432Relay.exe is "
    "present in the Verdanth installation folder, and run \"Verdanth6432Relay.exe /RegServer\" (administration rights "
    "required) to fix the problem. Verdanth will not be able to access 32-bit in-process CAPE-OPEN objects";

class RelayClient : public MexTest {
protected:
    RelayScript &relay = world.addRelay();
    PackageScript &package = world.addUnregisteredPackage();
    const WideString classId = ClassIdText(world.newClassId());

    // A package class of the 32-bit view that the relay makes, listed by its class id unless it
    // has a name.
    void registerPackage(const std::optional<RegistryValue> &name = std::nullopt)
    {
        RegisteredClass entry = In32BitView(PackageClass("", classId));
        entry.name = name;
        world.registry().add(entry);
        relay.offer(classId, package);
    }

    // The class in the native view, with nothing but the program id "Old.Package.1".
    void registerProgramId()
    {
        RegisteredClass native = PackageClass("", classId);
        native.categories.clear();
        native.described = false;
        native.progId = Wide("Old.Package.1");
        world.registry().add(native);
    }

    CallResult openBy(AnyText name) { return mustReturn(1, {Scalar(3), Text(name), Text("")}); }

    static std::vector<std::string> warningOf(const std::string &name) { return {"CAPE-OPEN: " + name + tail}; }

    CallResult refusedOpening(AnyText name)
    {
        CallResult result = call(1, {Scalar(3), Text(name), Text("")});
        EXPECT_FALSE(result.returned);
        return result;
    }
};

} // namespace

TEST_F(RelayClient, MakesAnObjectThroughASecondInstanceAndKeepsTheFirst)
{
    registerPackage(TextValue("Old"));
    openBy("Old");
    EXPECT_EQ(world.log, (CallLog{"relay.created", "relay.created", "relay.CreateObject32", "package.created",
                                  "relay.released", "package.Initialize", "package.put_simulationContext"}));
    EXPECT_EQ(relay.requestedClasses, std::vector<WideString>{classId});
    EXPECT_EQ(relay.references(), 1);
    EXPECT_EQ(package.references(), 1);
}

TEST_F(RelayClient, KeepsOneInstanceUntilExit)
{
    registerPackage(TextValue("Old"));
    mustReturn(0, {Scalar(4), openBy("Old")[0]});
    mustReturn(0, {Scalar(4), openBy("Old")[0]});
    EXPECT_EQ(relay.objectsMade(), 3);
    EXPECT_EQ(relay.references(), 1);
    matlab.clear();
    EXPECT_EQ(relay.references(), 0);
}

// Its process was killed, or a component ended it.
TEST_F(RelayClient, PutsAnotherInstanceInThePlaceOfOneThatDied)
{
    registerPackage(TextValue("Old"));
    mustReturn(0, {Scalar(4), openBy("Old")[0]});
    for (const std::uint32_t result :
         {0x80010007u, 0x80010012u, 0x80010108u, 0x800401FDu, 0x800706BAu, 0x800706BEu, 0x800706BFu}) {
        const int before = relay.objectsMade();
        relay.answer("GetTypeInfoCount", static_cast<HRESULT>(result));
        mustReturn(0, {Scalar(4), openBy("Old")[0]});
        EXPECT_EQ(relay.objectsMade() - before, 2) << std::hex << result;
        EXPECT_EQ(relay.references(), 1);
    }
}

TEST_F(RelayClient, KeepsAnInstanceThatLivesWhateverItAnswers)
{
    registerPackage(TextValue("Old"));
    mustReturn(0, {Scalar(4), openBy("Old")[0]});
    for (const HRESULT result : {S_OK, S_FALSE, E_NOTIMPL, E_FAIL, static_cast<HRESULT>(0x80010001u)}) {
        const int before = relay.objectsMade();
        relay.answer("GetTypeInfoCount", result);
        mustReturn(0, {Scalar(4), openBy("Old")[0]});
        EXPECT_EQ(relay.objectsMade() - before, 1) << std::hex << result;
    }
}

// Its process was about to end, and gave its class to one more.
TEST_F(RelayClient, IsAskedForAgainWhenItDiesBeforeItIsThere)
{
    registerPackage(TextValue("Old"));
    for (const std::uint32_t result : {0x80010108u, 0x800706BAu, 0x80004005u})
        for (const int instance : {1, 2}) {
            const int before = relay.calls("created");
            relay.answer("created", static_cast<HRESULT>(result), before + instance);
            relay.answer("created", static_cast<HRESULT>(result), before + instance + 1);
            const CallResult opened = openBy("Old");
            EXPECT_EQ(opened.warnings, warningOf("Old")) << std::hex << result;
            EXPECT_EQ(relay.calls("created") - before, 4);
            EXPECT_EQ(relay.references(), 1);
            mustReturn(0, {Scalar(4), opened[0]});
            relay.answer("GetTypeInfoCount", static_cast<HRESULT>(0x80010108u)); // so that there are two again
        }
}

TEST_F(RelayClient, IsAskedForThreeTimesAtMost)
{
    registerPackage(TextValue("Old"));
    relay.answer("created", static_cast<HRESULT>(0x80010108u));
    const CallResult result = refusedOpening("Old");
    EXPECT_EQ(result.error, "creation of package failed: " + SystemText(E_UNEXPECTED));
    EXPECT_EQ(result.warnings, std::vector<std::string>{noRelay});
    EXPECT_EQ(relay.calls("created"), 3);
}

TEST_F(RelayClient, WarnsAtEveryCreation)
{
    registerPackage(TextValue("Old"));
    const CallResult first = openBy("Old");
    EXPECT_EQ(first.warnings, warningOf("Old"));
    EXPECT_EQ(openBy("Old").warnings, std::vector<std::string>()) << "the package is open already";
    mustReturn(0, {Scalar(4), first[0]});
    EXPECT_EQ(openBy("Old").warnings, warningOf("Old"));
}

TEST_F(RelayClient, IsSilentWhenWarningsAreOff)
{
    registerPackage(TextValue("Old"));
    showWarnings(false);
    EXPECT_EQ(openBy("Old").warnings, std::vector<std::string>());
}

TEST_F(RelayClient, AsksForTheClassAsTheSystemSpellsIt)
{
    const WideString spelled = Wide("{7E57b0c1-3b1c-4D0A-9e55-216b0c5fa810}");
    const WideString canonical = Wide("{7E57B0C1-3B1C-4D0A-9E55-216B0C5FA810}");
    world.registry().add(In32BitView(PackageClass("Old", spelled)));
    relay.offer(canonical, package);
    EXPECT_EQ(openBy("Old").warnings, warningOf("Old"));
    EXPECT_EQ(relay.requestedClasses, std::vector<WideString>{canonical});
}

TEST_F(RelayClient, NamesAnObjectByItsNameWhateverTheLength)
{
    registerPackage(TextValue(std::string(700, 'n'))); // too long to be listed by
    EXPECT_EQ(openBy(classId).warnings, warningOf(std::string(700, 'n')));
    EXPECT_EQ(package.calls("get_ComponentName"), 0);
}

TEST_F(RelayClient, TakesANameThatIsEmptyAsAName)
{
    registerPackage(TextValue(""));
    EXPECT_EQ(openBy("").warnings, warningOf(""));
    EXPECT_EQ(package.calls("get_ComponentName"), 0);
}

TEST_F(RelayClient, NamesAnObjectWithoutARegisteredNameAsItCallsItself)
{
    registerPackage();
    package.componentName = Wide("An old package, 100%");
    EXPECT_EQ(openBy(classId).warnings, warningOf("An old package, 100%"));
}

TEST_F(RelayClient, ANameOfAnotherTypeOrWithoutAnyByteIsNoName)
{
    RegistryValue name = TextValue("named");
    name.type = REG_EXPAND_SZ;
    registerPackage(name);
    package.componentName = Wide("Itself");
    EXPECT_EQ(openBy(classId).warnings, warningOf("Itself"));
}

TEST_F(RelayClient, ANameWithoutAnyByteIsNoNameForTheWarning)
{
    registerPackage(RegistryValue{REG_SZ, {}});
    package.componentName = Wide("Itself");
    EXPECT_EQ(openBy("").warnings, warningOf("Itself"));
}

TEST_F(RelayClient, AnObjectThatCannotTellItsNameGoesByItsClassIdAndNotByItsProgramId)
{
    registerPackage();
    registerProgramId();
    package.answer("get_ComponentName", computationFailed);
    EXPECT_EQ(openBy(classId).warnings, warningOf(Narrow(classId)));
}

TEST_F(RelayClient, AnObjectWithoutIdentificationGoesByItsProgramId)
{
    registerPackage();
    registerProgramId();
    package.refuse(InterfaceId<ICapeIdentification>);
    EXPECT_EQ(openBy(classId).warnings, warningOf("Old.Package.1"));
}

TEST_F(RelayClient, AnObjectWithNoNameAtAllGoesByItsClassId)
{
    registerPackage();
    package.refuse(InterfaceId<ICapeIdentification>);
    EXPECT_EQ(openBy(classId).warnings, warningOf(Narrow(classId)));
}

TEST_F(RelayClient, ReachesManagersToo)
{
    ManagerScript &manager = world.addUnregisteredManager();
    manager.packageNames = TextArray({"P"});
    world.registry().add(In32BitView(ManagerClass("Old manager", classId)));
    relay.offer(classId, manager);
    const CallResult result = mustReturn(1, {Scalar(2), Text("Old manager")});
    EXPECT_EQ(result[0].texts(), Names({"P"}));
    EXPECT_EQ(result.warnings, warningOf("Old manager"));
    EXPECT_EQ(manager.references(), 0);
}

TEST_F(RelayClient, IsNotTriedForAClassThatFailsInAnyOtherWay)
{
    PackageScript &failing = world.addPackage("Failing");
    failing.answer("created", E_FAIL);
    EXPECT_EQ(refusal(1, {Scalar(3), Text("Failing"), Text("")}), "creation of package failed: " + SystemText(E_FAIL));
    EXPECT_EQ(relay.calls("created"), 0);
}

TEST_F(RelayClient, ThatIsMissingIsWarnedOfAtEveryAttempt)
{
    registerPackage(TextValue("Old"));
    relay.answer("created", oddFailure, 1);
    relay.answer("created", oddFailure, 2);
    for (int attempt = 1; attempt <= 2; ++attempt) {
        const CallResult result = refusedOpening("Old");
        EXPECT_EQ(result.error, "creation of package failed: " + SystemText(E_UNEXPECTED));
        EXPECT_EQ(result.warnings, std::vector<std::string>{noRelay});
        EXPECT_EQ(relay.calls("created"), attempt);
    }
    EXPECT_EQ(openBy("Old").warnings, warningOf("Old")) << "the relay is there now";
}

TEST_F(RelayClient, ThatIsMissingGivesOnlyTheErrorWhenWarningsAreOff)
{
    registerPackage(TextValue("Old"));
    relay.answer("created", oddFailure);
    showWarnings(false);
    EXPECT_EQ(refusal(1, {Scalar(3), Text("Old"), Text("")}),
              "creation of package failed: " + SystemText(E_UNEXPECTED));
}

TEST_F(RelayClient, ThatIsMissingFailsAManagerInItsOwnWords)
{
    world.registry().add(In32BitView(ManagerClass("Old manager", classId)));
    relay.answer("created", oddFailure);
    const CallResult result = call(1, {Scalar(2), Text("Old manager")});
    EXPECT_EQ(result.error, "creation of package manager failed: " + SystemText(E_UNEXPECTED));
    EXPECT_EQ(result.warnings, std::vector<std::string>{noRelay});
}

TEST_F(RelayClient, WhoseSecondInstanceFailsGivesThatResult)
{
    registerPackage(TextValue("Old"));
    relay.answer("created", oddFailure, 2);
    EXPECT_EQ(refusal(1, {Scalar(3), Text("Old"), Text("")}),
              std::string("creation of package failed: ") + oddFailureText);
    EXPECT_EQ(relay.references(), 1);
    EXPECT_EQ(openBy("Old").warnings, warningOf("Old"));
}

TEST_F(RelayClient, WhoseInstancesAreNothingIsUnusable)
{
    registerPackage(TextValue("Old"));
    relay.refuse(InterfaceId<IVerdanth6432Relay>, S_OK);
    const CallResult result = refusedOpening("Old");
    EXPECT_EQ(result.error, "creation of package failed: " + SystemText(E_UNEXPECTED));
    EXPECT_EQ(result.warnings, std::vector<std::string>{noRelay});
}

TEST_F(RelayClient, ThatCannotMakeTheObjectGivesItsResult)
{
    registerPackage(TextValue("Old"));
    relay.answer("CreateObject32", oddFailure, 1);
    EXPECT_EQ(refusal(1, {Scalar(3), Text("Old"), Text("")}),
              std::string("creation of package failed: ") + oddFailureText);
    EXPECT_EQ(relay.references(), 1);
    EXPECT_EQ(package.objectsMade(), 0);
    EXPECT_EQ(openBy("Old").warnings, warningOf("Old"));
}

TEST_F(RelayClient, ThatMakesNothingFails)
{
    registerPackage(TextValue("Old"));
    package.refuse(InterfaceId<IUnknown>, S_OK);
    EXPECT_EQ(refusal(1, {Scalar(3), Text("Old"), Text("")}),
              "creation of package failed: " + SystemText(E_UNEXPECTED));
}

TEST_F(RelayClient, AnObjectWithoutTheWantedInterfaceIsReleasedWithoutAWarning)
{
    ManagerScript &manager = world.addUnregisteredManager();
    manager.refuse(InterfaceId<ICapeThermoPropertyPackageManager>, oddFailure);
    world.registry().add(In32BitView(ManagerClass("Old manager", classId)));
    relay.offer(classId, manager);
    EXPECT_EQ(refusal(1, {Scalar(2), Text("Old manager")}),
              std::string("creation of package manager failed: ") + oddFailureText);
    EXPECT_EQ(manager.objectsMade(), 1);
    EXPECT_EQ(manager.references(), 0);
}

TEST_F(RelayClient, IsALocalServerAndAskedForByItsOwnInterface)
{
    registerPackage(TextValue("Old"));
    std::vector<std::string> creations;
    LibraryCall<"CoCreateInstance", decltype(CoCreateInstance)> create(
        CoCreateInstance, [&](REFCLSID wanted, IUnknown *outer, DWORD context, REFIID iid, void **object) {
            EXPECT_EQ(outer, nullptr);
            creations.push_back(Narrow(ClassIdText(wanted)) + " by " + Narrow(ClassIdText(iid)) + " in " +
                                std::to_string(context));
            return CoCreateInstance(wanted, outer, context, iid, object);
        });
    openBy("Old");
    const std::string instance = "{E3F8AF5B-DE4E-4FE0-B243-0FDB6173B5E8} by {E5D29B15-C411-4600-B764-370A604E2C06} "
                                 "in 4";
    EXPECT_EQ(creations, (std::vector<std::string>{Narrow(classId) + " by {00020400-0000-0000-C000-000000000046} in 23",
                                                   instance, instance}));
}

TEST_F(RelayClient, IsKeptOnceWhenACommandMakesItWhileAnotherDoes)
{
    registerPackage(TextValue("Old"));
    bool isOuter = true;
    LibraryCall<"CoCreateInstance", decltype(CoCreateInstance)> create(
        CoCreateInstance, [&](REFCLSID wanted, IUnknown *outer, DWORD context, REFIID iid, void **object) {
            if (wanted == relayClass && std::exchange(isOuter, false))
                openBy("Old");
            return CoCreateInstance(wanted, outer, context, iid, object);
        });
    openBy("Old");
    EXPECT_EQ(relay.objectsMade(), 4); // one to keep and one to work, of each command
    EXPECT_EQ(relay.references(), 1);
}

TEST_F(RelayClient, WithoutATextForTheClassIsGivenUpAndTheResultHandedOn)
{
    registerPackage(TextValue("Old"));
    {
        LibraryCall<"StringFromCLSID", decltype(StringFromCLSID)> text(StringFromCLSID,
                                                                       [](REFCLSID, LPOLESTR *) { return oddFailure; });
        EXPECT_EQ(refusal(1, {Scalar(3), Text("Old"), Text("")}),
                  std::string("creation of package failed: ") + oddFailureText);
    }
    EXPECT_EQ(relay.calls("CreateObject32"), 0);
    EXPECT_EQ(relay.references(), 1);
    EXPECT_EQ(openBy("Old").warnings, warningOf("Old"));
}

TEST_F(RelayClient, GivesTheTextsBackThatItGot)
{
    registerPackage();
    registerProgramId();
    package.refuse(InterfaceId<ICapeIdentification>);
    std::vector<void *> texts;
    std::vector<void *> freed;
    LibraryCall<"StringFromCLSID", decltype(StringFromCLSID)> classText(
        StringFromCLSID, [&](REFCLSID wanted, LPOLESTR *text) {
            const HRESULT hr = StringFromCLSID(wanted, text);
            texts.push_back(*text);
            return hr;
        });
    LibraryCall<"ProgIDFromCLSID", decltype(ProgIDFromCLSID)> programId(
        ProgIDFromCLSID, [&](REFCLSID wanted, LPOLESTR *text) {
            const HRESULT hr = ProgIDFromCLSID(wanted, text);
            texts.push_back(*text);
            return hr;
        });
    LibraryCall<"CoTaskMemFree", decltype(CoTaskMemFree)> frees(CoTaskMemFree, [&](LPVOID text) {
        if (text)
            freed.push_back(text);
        CoTaskMemFree(text);
    });
    EXPECT_EQ(openBy(classId).warnings, warningOf("Old.Package.1"));
    EXPECT_EQ(texts.size(), 2u);
    EXPECT_EQ(std::set<void *>(freed.begin(), freed.end()), std::set<void *>(texts.begin(), texts.end()));
    EXPECT_EQ(freed.size(), texts.size());
}

TEST_F(RelayClient, ReadsTheRegisteredNameInTwoStepsAndClosesItsKey)
{
    registerPackage(TextValue("Old"));
    mustReturn(1, {Scalar(1)}); // the scan reads names, too
    std::vector<std::string> steps;
    LibraryCall<"RegOpenKeyExW", decltype(RegOpenKeyExW)> opens(
        RegOpenKeyExW, [&](HKEY parent, LPCWSTR path, DWORD options, REGSAM access, PHKEY key) {
            EXPECT_EQ(parent, HKEY_CLASSES_ROOT);
            EXPECT_EQ(access, 0x20019u);
            steps.push_back(Narrow(path));
            return RegOpenKeyExW(parent, path, options, access, key);
        });
    LibraryCall<"RegQueryValueExW", decltype(RegQueryValueExW)> queries(
        RegQueryValueExW, [&](HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data, LPDWORD size) {
            steps.push_back(Narrow(name) + (data ? " of " + std::to_string(*size) : ""));
            return RegQueryValueExW(key, name, reserved, type, data, size);
        });
    LibraryCall<"RegCloseKey", decltype(RegCloseKey)> closes(RegCloseKey, [&](HKEY key) {
        steps.push_back("closed");
        return RegCloseKey(key);
    });
    EXPECT_EQ(openBy("Old").warnings, warningOf("Old"));
    EXPECT_EQ(steps, (std::vector<std::string>{"Wow6432Node\\CLSID\\" + Narrow(classId) + "\\CapeDescription", "Name",
                                               "Name of 9", "closed"}));
}

TEST_F(RelayClient, ANameThatCannotBeReadInTheEndIsNoName)
{
    registerPackage(TextValue("Old"));
    package.componentName = Wide("Itself");
    mustReturn(1, {Scalar(1)});
    LibraryCall<"RegQueryValueExW", decltype(RegQueryValueExW)> queries(
        RegQueryValueExW, [&](HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data, LPDWORD size) {
            return data ? LSTATUS(5) : RegQueryValueExW(key, name, reserved, type, data, size);
        });
    EXPECT_EQ(openBy("Old").warnings, warningOf("Itself"));
}

TEST_F(RelayClient, ANameOfASingleByteIsNoName)
{
    registerPackage(RegistryValue{REG_SZ, {'N'}});
    package.componentName = Wide("Itself");
    const Array name = mustReturn(1, {Scalar(1)})[0].element(0);
    EXPECT_EQ(mustReturn(1, {Scalar(3), name, Text("")}).warnings, warningOf("Itself"));
}

TEST_F(RelayClient, GivesUpTheSecondInstanceBeforeItLooksForANameAndTheObjectBeforeItWarns)
{
    registerPackage();
    package.onCall = [this](const std::string &method) {
        if (method == "get_ComponentName") {
            EXPECT_EQ(relay.references(), 1) << "the instance that keeps the relay alive";
        }
    };
    int heldAtWarning = 0;
    LibraryCall<"mexWarnMsgTxt", decltype(mexWarnMsgTxt)> warn(mexWarnMsgTxt, [&](const char *text) {
        heldAtWarning = package.references();
        mexWarnMsgTxt(text);
    });
    EXPECT_EQ(openBy(classId).warnings, warningOf(Narrow(package.componentName)));
    EXPECT_EQ(heldAtWarning, 1) << "the reference of the record to be";
    package.onCall = nullptr;
}
