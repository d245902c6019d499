// What happens when MATLAB clears the library: everything is given up, in a fixed order.
#include "tests/mex/support/library_call.h"
#include "tests/support/mex_test.h"

#include <algorithm>

using namespace support;

namespace {

class Exit : public MexTest {};

// A package is open that is reached through the relay, and the vocabulary is built.
class ExitBehindRelay : public MexTest {
protected:
    RelayScript &relay = world.addRelay();
    PackageScript &old = world.addUnregisteredPackage();

    void SetUp() override
    {
        MexTest::SetUp();
        const WideString classId = ClassIdText(world.newClassId());
        world.registry().add(In32BitView(PackageClass("Old", classId)));
        relay.offer(classId, old);
        mustReturn(1, {Scalar(3), Text("Old"), Text("")});
    }
};

// A class object whose release tells that COM is being shut down.
class ShutdownWatch : public IClassFactory {
public:
    std::function<void()> onShutdown;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override
    {
        const bool known = iid == InterfaceId<IUnknown> || iid == InterfaceId<IClassFactory>;
        *object = known ? this : nullptr;
        if (known)
            AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        if (--references == 1 && onShutdown) // the test's own reference is left
            onShutdown();
        return references;
    }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown *, REFIID, void **object) override
    {
        *object = nullptr;
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

private:
    ULONG references = 1;
};

} // namespace

TEST_F(Exit, ClosesEveryPackage)
{
    ManagerScript &manager = world.addManager("Manager");
    PackageScript &pair = world.addPackageOf(manager, "Pair");
    PackageScript &alone = world.addPackage("Alone");
    open("Manager", "Pair");
    open("Alone");
    EXPECT_TRUE(matlab.clear());
    for (const PackageScript *package : {&pair, &alone}) {
        EXPECT_EQ(package->calls("Terminate"), 1);
        EXPECT_EQ(package->references(), 0);
    }
}

TEST_F(ExitBehindRelay, ReleasesTheRelayAfterThePackages)
{
    world.log.clear();
    matlab.clear();
    EXPECT_EQ(world.log, (CallLog{"package.Terminate", "package.released", "relay.released"}));
}

TEST_F(Exit, ReleasesTheSimulationContextBehindComAndTheRelayBeforeIt)
{
    RelayScript &relay = world.addRelay();
    PackageScript &old = world.addUnregisteredPackage();
    const WideString classId = ClassIdText(world.newClassId());
    world.registry().add(In32BitView(PackageClass("Old", classId)));
    relay.offer(classId, old);
    old.keepsContext = true;
    mustReturn(1, {Scalar(3), Text("Old"), Text("")});
    EXPECT_EQ(ReferencesOn(old.keptContext.get()), 3) << "the process and twice the package";

    ShutdownWatch watch;
    DWORD cookie = 0;
    ASSERT_EQ(CoRegisterClassObject(world.newClassId(), &watch, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie),
              S_OK);
    bool shutDown = false;
    watch.onShutdown = [&] {
        shutDown = true;
        EXPECT_EQ(old.references(), 0) << "packages are closed by now";
        EXPECT_EQ(relay.references(), 0) << "the relay is released by now";
        EXPECT_EQ(ReferencesOn(old.keptContext.get()), 2) << "the process still holds the context";
    };
    CoUninitialize(); // of the test's world, so that the library's call is the last
    EXPECT_FALSE(shutDown);
    EXPECT_TRUE(mexStandInRunExit());
    EXPECT_TRUE(shutDown);
    watch.onShutdown = nullptr;
    EXPECT_EQ(ReferencesOn(old.keptContext.get()), 1) << "the context of a component outlives the process's reference";
    EXPECT_EQ(LastRefusal(old.keptContext.get()), RefusedCall());
    old.keptContext.reset();
    EXPECT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
}

// A result that was refused still lies there, and what it holds may not be touched when COM is gone.
TEST_F(Exit, GivesUpWhatAPackageLeftInARefusedResult)
{
    PackageScript &package = world.addPackage("Alone");
    package.keepsContext = true;
    const Array handle = open("Alone");
    package.constants = AnswerValues(
        ArrayOfVariants({InterfaceVariant(package.context.get()), InterfaceVariant(package.context.get())}));
    EXPECT_EQ(refusal(1, {Scalar(16), handle, Text("charge")}),
              "Inconsistent return data type from GetCompoundConstant");
    package.constants = nullptr;
    int atTerminate = 0;
    int atEndOfCom = 0;
    package.onCall = [&](const std::string &) { atTerminate = ReferencesOn(package.keptContext.get()); };
    {
        LibraryCall<"CoUninitialize", decltype(CoUninitialize)> end(CoUninitialize, [&] {
            atEndOfCom = ReferencesOn(package.keptContext.get());
            CoUninitialize();
        });
        EXPECT_TRUE(mexStandInRunExit());
    }
    EXPECT_EQ(atTerminate, 3) << "the process, and the package twice";
    EXPECT_EQ(atEndOfCom, 2);
    package.onCall = nullptr;
    package.keptContext.reset();
}

TEST_F(Exit, OfALibraryThatOnlyListedIsQuiet)
{
    world.addPackage("Alone");
    mustReturn(1, {Scalar(1)});
    EXPECT_TRUE(matlab.clear());
    EXPECT_EQ(world.log, CallLog());
}

TEST_F(Exit, ForgetsTheSettings)
{
    PackageScript &package = world.addPackage("Alone");
    package.constants = AnswerValues(ArrayOfVariants({RealVariant(1000), RealVariant(500)}));
    useBasis("mass");
    showWarnings(false);
    matlab.clear();
    matlab.load();
    package.onCall = [&](const std::string &method) {
        if (method == "GetCompoundConstant") {
            EXPECT_EQ(LogMessage(package, "heard"), S_OK);
        }
    };
    const CallResult result = mustReturn(1, {Scalar(16), open("Alone"), Text("criticalDensity")});
    EXPECT_EQ(result[0].numbers(), (std::vector<double>{1000, 500}));
    EXPECT_EQ(result.warnings, std::vector<std::string>{"CAPE-OPEN: heard"});
    package.onCall = nullptr;
}

TEST_F(Exit, EndsComThenTheContextThenTheLibrarysOwnHandle)
{
    PackageScript &package = world.addPackage("Alone");
    package.keepsContext = true;
    open("Alone");
    mustReturn(1, {Scalar(26)}); // takes the handle
    world.log.clear();
    {
        LibraryCall<"CoUninitialize", decltype(CoUninitialize)> end(CoUninitialize, [&] {
            world.log.push_back("COM ends with " + std::to_string(ReferencesOn(package.keptContext.get())));
            CoUninitialize();
        });
        LibraryCall<"FreeLibrary", decltype(FreeLibrary)> free(FreeLibrary, [&](HMODULE module) {
            EXPECT_NE(module, nullptr);
            world.log.push_back("library freed with " + std::to_string(ReferencesOn(package.keptContext.get())));
            return FreeLibrary(module);
        });
        EXPECT_TRUE(mexStandInRunExit());
    }
    EXPECT_EQ(world.log, (CallLog{"package.Terminate", "package.released", "COM ends with 2", "library freed with 1"}));
    package.keptContext.reset();
}

TEST_F(Exit, FreesNoHandleThatWasNotTaken)
{
    mustReturn(1, {Scalar(5)});
    int freed = 0;
    LibraryCall<"FreeLibrary", decltype(FreeLibrary)> free(FreeLibrary, [&](HMODULE module) {
        ++freed;
        return FreeLibrary(module);
    });
    EXPECT_TRUE(mexStandInRunExit());
    EXPECT_EQ(freed, 0);
}

TEST_F(ExitBehindRelay, EmptiesTheVocabularyBetweenThePackagesAndTheRelay)
{
    int atPackage = -1;
    int atRelay = -1;
    {
        const LibraryMemory memory;
        old.onInterfaceReleased = [&](REFIID) { atPackage = memory.givenBack(); };
        relay.onInterfaceReleased = [&](REFIID) { atRelay = memory.givenBack(); };
        EXPECT_TRUE(mexStandInRunExit());
        EXPECT_LT(memory.givenBack() - atRelay, 20) << "little is left behind the relay";
    }
    EXPECT_GE(atPackage, 0);
    EXPECT_GT(atRelay - atPackage, 150) << "the vocabulary has more rows than that";

    // MATLAB would unload the library now. A vocabulary that is marked unbuilt is built anew.
    EXPECT_EQ(mustReturn(1, {Scalar(19), Text("volume")})[0].text(), Wide("m3 / mol"));
}
