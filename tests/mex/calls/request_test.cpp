// Whole requests: from an empty registry to numbers of a package.
#include "tests/support/mex_test.h"

using namespace support;

namespace {

class Request : public MexTest {};

} // namespace

TEST_F(Request, ListsManagersAndPackagesThatAreRegistered)
{
    world.addManager("Manager of two");
    world.addPackage("Package alone");
    EXPECT_EQ(mustReturn(1, {Scalar(1)})[0].texts(), Names({"Manager of two", "Package alone"}));
}

TEST_F(Request, OpensAndClosesAPackageThatStandsAlone)
{
    PackageScript &package = world.addPackage("Alone");
    const Array handle = open("Alone");
    EXPECT_EQ(package.objectsMade(), 1);
    EXPECT_EQ(mustReturn(1, {Scalar(7), handle})[0].texts(), Names({"A", "B"}));
    mustReturn(0, {Scalar(4), handle});
    EXPECT_EQ(world.log, (CallLog{"package.created", "package.Initialize", "package.put_simulationContext",
                                  "package.GetCompoundList", "package.Terminate", "package.released"}));
}

TEST_F(Request, OpensAPackageThroughAManagerThatIsGoneBeforeThePackageStarts)
{
    ManagerScript &manager = world.addManager("Manager");
    world.addPackageOf(manager, "Pair");
    open("Manager", "Pair");
    EXPECT_EQ(world.log, (CallLog{"manager.created", "manager.Initialize", "manager.put_simulationContext",
                                  "manager.GetPropertyPackage", "package.created", "manager.Terminate",
                                  "manager.released", "package.Initialize", "package.put_simulationContext"}));
    EXPECT_EQ(manager.requestedNames, Names({"Pair"}));
}

TEST_F(Request, TellsTheWordsOfAPackageThatRefuses)
{
    PackageScript &package = world.addPackage("Alone");
    package.answer("Initialize", CapeFailure(0x03));
    package.words = Description("no license for 100% of it");
    const CallResult result = call(1, {Scalar(3), Text("Alone"), Text("")});
    EXPECT_FALSE(result.returned);
    EXPECT_EQ(result.error, "PP Initialize failed: no license for 100% of it");
    EXPECT_EQ(package.calls("Terminate"), 0);
}

TEST_F(Request, CalculatesAPropertyOfAPhase)
{
    PackageScript &package = world.addPackage("Alone");
    Conditions seen;
    package.calcSinglePhase = [&](const SinglePhaseCall &request) {
        EXPECT_EQ(request.properties, Names({"volume"}));
        EXPECT_EQ(request.material.getConditions(request.phase, seen), S_OK);
        return request.material.setSinglePhase("volume", request.phase, "mole", {0.025});
    };
    const CallResult result = mustReturn(1, {Scalar(22), Scalar(1), open("Alone"), Text("volume"), Scalar(350),
                                             Scalar(101325), Matrix({{0.25, 0.75}}), Text("Vapor")});
    EXPECT_EQ(result[0].cellMatrix(0), (std::vector<std::vector<double>>{{0.025}}));
    EXPECT_EQ(seen.temperature, 350);
    EXPECT_EQ(seen.pressure, 101325);
    EXPECT_EQ(seen.composition, (std::vector<double>{0.25, 0.75}));
}

TEST_F(Request, SeparatesPhases)
{
    PackageScript &package = world.addPackage("Alone");
    package.calcEquilibrium =
        StoreEquilibrium({{"Vapor", 0.5, {0.75, 0.25}}, {"Liquid", 0.5, {0.25, 0.75}}}, 340, 101325);
    const CallResult result = mustReturn(5, {Scalar(24), open("Alone"), Row({0.5, 0.5}), Text("temperature"),
                                             Scalar(340), Text("pressure"), Scalar(101325), Text("Unspecified")});
    EXPECT_EQ(result[0].texts(), Names({"Vapor", "Liquid"}));
    EXPECT_EQ(result[1].numbers(), (std::vector<double>{0.5, 0.5}));
    EXPECT_EQ(result[3].number(), 340);
    EXPECT_EQ(result[4].number(), 101325);
}

TEST_F(Request, ReachesA32BitClassThroughTheRelay)
{
    PackageScript &package = world.addUnregisteredPackage();
    RelayScript &relay = world.addRelay();
    const WideString classId = ClassIdText(world.newClassId());
    relay.offer(classId, package);
    EXPECT_EQ(ClassIdText(InterfaceId<IVerdanth6432Relay>), Wide("{E5D29B15-C411-4600-B764-370A604E2C06}"));
    world.registry().add(In32BitView(PackageClass("Old", classId)));

    const CallResult result = mustReturn(1, {Scalar(3), Text("Old"), Text("")});
    EXPECT_EQ(result.warnings,
              (std::vector<std::string>{"CAPE-OPEN: Old is a 32-bit COM object and is created out-of-process; running "
                                        "the 32-bit version of Matlab might be more efficient"}));
    EXPECT_EQ(relay.requestedClasses, std::vector<WideString>{classId});
    EXPECT_EQ(relay.objectsMade(), 2);
}

TEST_F(Request, LeavesALogMessageAsAWarning)
{
    PackageScript &package = world.addPackage("Alone");
    package.onCall = [&](const std::string &method) {
        if (method == "GetCompoundList") {
            EXPECT_EQ(LogMessage(package, "counting compounds"), S_OK);
        }
    };
    EXPECT_EQ(mustReturn(1, {Scalar(7), open("Alone")}).warnings,
              (std::vector<std::string>{"CAPE-OPEN: counting compounds"}));
}

TEST_F(Request, AfterClearingStartsFromNothing)
{
    world.addPackage("First");
    EXPECT_EQ(mustReturn(1, {Scalar(1)})[0].texts(), Names({"First"}));
    world.addPackage("Second");
    EXPECT_EQ(mustReturn(1, {Scalar(1)})[0].texts(), Names({"First"}));
    EXPECT_TRUE(matlab.clear());
    matlab.load();
    EXPECT_EQ(mustReturn(1, {Scalar(1)})[0].texts(), Names({"First", "Second"}));
}
