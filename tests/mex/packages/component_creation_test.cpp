// How a component comes into service and out of it. A package that stands alone shows what holds
// for managers too.
#include "packages/simulation_context.h"
#include "tests/mex/support/library_call.h"
#include "tests/support/mex_test.h"

using namespace support;

namespace {

class ComponentCreation : public MexTest {
protected:
    PackageScript &package = world.addPackage("Alone");

    std::string refusalToOpen() { return refusal(1, {Scalar(3), Text("Alone"), Text("")}); }
};

} // namespace

TEST_F(ComponentCreation, InitNewComesBeforeInitializeAndTheContextLast)
{
    package.persistent = true;
    package.onCall = [this](const std::string &method) {
        EXPECT_EQ(package.context.get(), nullptr) << "a context before " << method;
    };
    open("Alone");
    EXPECT_EQ(world.log,
              (CallLog{"package.created", "package.InitNew", "package.Initialize", "package.put_simulationContext"}));
    EXPECT_NE(package.context.get(), nullptr);
    package.onCall = nullptr;
}

TEST_F(ComponentCreation, KeepsNoInterfaceButThePackage)
{
    package.persistent = true;
    open("Alone");
    EXPECT_EQ(package.references(), 1);
    EXPECT_EQ(package.references(InterfaceId<IDispatch>), 1);
}

TEST_F(ComponentCreation, InitNewThatIsNotImplementedCountsAsDone)
{
    package.persistent = true;
    package.answer("InitNew", E_NOTIMPL);
    open("Alone");
    EXPECT_EQ(package.calls("Initialize"), 1);
}

TEST_F(ComponentCreation, InitializeThatIsNotImplementedCountsAsDoneAndTheContextIsGiven)
{
    package.answer("Initialize", E_NOTIMPL);
    open("Alone");
    EXPECT_NE(package.context.get(), nullptr);
}

TEST_F(ComponentCreation, OtherSuccessesThanOkAreSuccesses)
{
    package.persistent = true;
    package.answer("InitNew", S_FALSE);
    package.answer("Initialize", S_FALSE);
    open("Alone");
    EXPECT_EQ(package.calls("put_simulationContext"), 1);
}

TEST_F(ComponentCreation, AComponentWithoutUtilitiesIsNeitherInitializedNorTerminated)
{
    package.refuse(InterfaceId<ICapeUtilities>);
    mustReturn(0, {Scalar(4), open("Alone")});
    EXPECT_EQ(world.log, (CallLog{"package.created", "package.released"}));
}

TEST_F(ComponentCreation, UtilitiesThatAreNothingAreMissing)
{
    package.refuse(InterfaceId<ICapeUtilities>, S_OK);
    mustReturn(0, {Scalar(4), open("Alone")});
    EXPECT_EQ(world.log, (CallLog{"package.created", "package.released"}));
}

TEST_F(ComponentCreation, AContextThatIsRefusedIsLeftAtThat)
{
    package.answer("put_simulationContext", CapeFailure(0x09));
    EXPECT_EQ(open("Alone").classId(), mxINT32_CLASS);
}

TEST_F(ComponentCreation, ATerminateThatFailsIsLeftAtThat)
{
    package.answer("Terminate", computationFailed);
    mustReturn(0, {Scalar(4), open("Alone")});
    EXPECT_EQ(world.log.back(), "package.released");
}

TEST_F(ComponentCreation, AFailedInitNewIsToldInTheSystemsWordsAndTheComponentIsReleasedWithoutTerminate)
{
    package.persistent = true;
    package.words = Description("not asked for");
    for (const HRESULT failure : {oddFailure, E_FAIL, CapeFailure(0x0F)}) {
        world.log.clear();
        package.answer("InitNew", failure);
        EXPECT_EQ(refusalToOpen(), "PP InitNew failed: " + SystemText(failure));
        EXPECT_EQ(world.log, (CallLog{"package.created", "package.InitNew", "package.released"}));
    }
    package.answer("InitNew", S_OK);
    open("Alone");
}

TEST_F(ComponentCreation, AFailedInitializeIsToldInTheComponentsWordsAndTheComponentIsReleasedWithoutTerminate)
{
    package.answer("Initialize", CapeFailure(0x0F));
    package.words = Description("no data bank at C:\\data, 100% sure");
    package.words.onlyFrom = &InterfaceId<ICapeUtilities>;
    EXPECT_EQ(refusalToOpen(), "PP Initialize failed: no data bank at C:\\data, 100% sure");
    EXPECT_EQ(world.log,
              (CallLog{"package.created", "package.Initialize", "package.get_description", "package.released"}));
    package.words = ErrorName("ECapeFailedInitialization");
    EXPECT_EQ(refusalToOpen(), "PP Initialize failed: ECapeFailedInitialization");
    package.words = ErrorWords();
    EXPECT_EQ(refusalToOpen(), "PP Initialize failed: initialization error");
    package.answer("Initialize", oddFailure);
    EXPECT_EQ(refusalToOpen(), std::string("PP Initialize failed: ") + oddFailureText);
    EXPECT_EQ(package.calls("Terminate"), 0);
    EXPECT_EQ(package.calls("put_simulationContext"), 0);

    package.answer("Initialize", S_OK);
    open("Alone");
}

TEST_F(ComponentCreation, AsksForTheWantedInterfaceInAnyContextAndNoOuterObject)
{
    ManagerScript &manager = world.addManager("Manager");
    world.addPackageOf(manager, "Pair");
    std::vector<std::string> creations;
    LibraryCall<"CoCreateInstance", decltype(CoCreateInstance)> create(
        CoCreateInstance, [&](REFCLSID classId, IUnknown *outer, DWORD context, REFIID iid, void **object) {
            EXPECT_EQ(outer, nullptr);
            creations.push_back(Narrow(ClassIdText(iid)) + " in " + std::to_string(context));
            return CoCreateInstance(classId, outer, context, iid, object);
        });
    const std::string dispatch = "{00020400-0000-0000-C000-000000000046} in 23";
    const std::string packageManager = "{678C0AA2-7D66-11D2-A67D-00105A42887F} in 23";
    open("Alone");
    open("Manager", "Pair");
    mustReturn(1, {Scalar(2), Text("Manager")});
    EXPECT_EQ(creations, (std::vector<std::string>{dispatch, packageManager, packageManager}));
}

TEST_F(ComponentCreation, MakesTheContextJustBeforeTheFirstInitialize)
{
    PackageScript &simple = world.addPackage("Simple");
    simple.refuse(InterfaceId<ICapeUtilities>);
    package.persistent = true;
    package.answer("Initialize", oddFailure, 1);
    const LibraryMemory contexts(sizeof(CComObject<CSimulationContext>));
    std::vector<std::string> counts;
    package.onCall = [&](const std::string &method) {
        counts.push_back(method + " " + std::to_string(contexts.made()));
    };
    open("Simple");
    EXPECT_EQ(contexts.made(), 0) << "a component without utilities needs none";
    EXPECT_EQ(refusalToOpen(), std::string("PP Initialize failed: ") + oddFailureText);
    open("Alone");
    EXPECT_EQ(counts, (std::vector<std::string>{"InitNew 0", "Initialize 1", "InitNew 1", "Initialize 1",
                                                "put_simulationContext 1"}));
    package.onCall = nullptr;
}

TEST_F(ComponentCreation, GivesBackThePersistenceInterfaceBeforeInitialize)
{
    package.persistent = true;
    package.onCall = [this](const std::string &method) {
        EXPECT_EQ(package.references(InterfaceId<IPersistStreamInit>), method == "InitNew" ? 1 : 0) << method;
    };
    open("Alone");
    EXPECT_EQ(package.calls("Initialize"), 1);
    package.onCall = nullptr;
}
