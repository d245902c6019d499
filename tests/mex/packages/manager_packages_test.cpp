// Command 2: the packages of a manager.
#include "tests/mex/support/library_call.h"
#include "tests/support/mex_test.h"

using namespace support;

namespace {

class ManagerPackages : public MexTest {
protected:
    std::vector<WideString> packagesOf(const char *name) { return mustReturn(1, {Scalar(2), Text(name)})[0].texts(); }
    std::string refusalOf(const char *name) { return refusal(1, {Scalar(2), Text(name)}); }
};

} // namespace

TEST_F(ManagerPackages, AreListedInTheManagersOrderAndTheManagerIsGoneAfterwards)
{
    ManagerScript &manager = world.addManager("Manager");
    manager.packageNames = TextArray({"zeta", "Alpha", "zeta"});
    EXPECT_EQ(packagesOf("Manager"), Names({"zeta", "Alpha", "zeta"}));
    EXPECT_EQ(world.log, (CallLog{"manager.created", "manager.Initialize", "manager.put_simulationContext",
                                  "manager.GetPropertyPackageList", "manager.Terminate", "manager.released"}));
    EXPECT_EQ(manager.misuses, std::vector<std::string>());
}

TEST_F(ManagerPackages, AreAskedForAtEachCall)
{
    ManagerScript &manager = world.addManager("Manager");
    manager.packageNames = TextArray({"one"});
    EXPECT_EQ(packagesOf("Manager"), Names({"one"}));
    manager.packageNames = TextArray({"two"});
    EXPECT_EQ(packagesOf("Manager"), Names({"two"}));
    EXPECT_EQ(manager.objectsMade(), 2);
}

TEST_F(ManagerPackages, OfAPackageThatStandsAloneAreItselfAndNothingIsCreated)
{
    world.addPackage("Alone");
    EXPECT_EQ(packagesOf("Alone"), Names({"(stand-alone)"}));
    EXPECT_EQ(world.log, CallLog());
}

TEST_F(ManagerPackages, OfAnUnknownNameAreRefusedWithTheNameAsItCame)
{
    EXPECT_EQ(refusalOf("Nobody"), "no such package manager: \"Nobody\"");
    EXPECT_EQ(refusalOf("100%s \\n \"x\""), "no such package manager: \"100%s \\n \"x\"\"");
    EXPECT_EQ(refusal(1, {Scalar(2), EmptyText()}), "no such package manager: \"\"");
}

TEST_F(ManagerPackages, NeedANameThatIsAString)
{
    for (const Array &name : WrongStrings())
        EXPECT_EQ(refusal(1, {Scalar(2), name}), "Expected string for argument");
}

TEST_F(ManagerPackages, TakeANameInACellOfOne)
{
    world.addPackage("Alone");
    EXPECT_EQ(mustReturn(1, {Scalar(2), Texts({"Alone"})})[0].texts(), Names({"(stand-alone)"}));
}

TEST_F(ManagerPackages, TakeACharMatrixColumnByColumn)
{
    world.addPackage("Liquid");
    EXPECT_EQ(mustReturn(1, {Scalar(2), TextMatrix({"Lqi", "iud"})})[0].texts(), Names({"(stand-alone)"}));
}

TEST_F(ManagerPackages, OfAManagerThatCannotBeCreatedAreRefused)
{
    ManagerScript &manager = world.addManager("Manager");
    manager.answer("created", oddFailure, 1);
    manager.answer("created", E_FAIL, 2);
    EXPECT_EQ(refusalOf("Manager"), std::string("creation of package manager failed: ") + oddFailureText);
    EXPECT_EQ(refusalOf("Manager"), "creation of package manager failed: " + SystemText(E_FAIL));
    EXPECT_EQ(packagesOf("Manager"), Names({}));
}

TEST_F(ManagerPackages, OfAClassThatIsNoManagerAreRefused)
{
    ManagerScript &manager = world.addManager("Manager");
    manager.refuse(InterfaceId<ICapeThermoPropertyPackageManager>, oddFailure);
    EXPECT_EQ(refusalOf("Manager"), std::string("creation of package manager failed: ") + oddFailureText);
}

TEST_F(ManagerPackages, OfAManagerThatIsCreatedAsNothingAreRefused)
{
    ManagerScript &manager = world.addManager("Manager");
    manager.refuse(InterfaceId<ICapeThermoPropertyPackageManager>, S_OK);
    EXPECT_EQ(refusalOf("Manager"), "creation of package manager failed: " + SystemText(E_POINTER));
}

TEST_F(ManagerPackages, OfAManagerThatRefusesInitNewAreRefusedWithoutTerminate)
{
    ManagerScript &manager = world.addManager("Manager");
    manager.persistent = true;
    manager.answer("InitNew", oddFailure, 1);
    EXPECT_EQ(refusalOf("Manager"), std::string("PPM InitNew failed: ") + oddFailureText);
    EXPECT_EQ(world.log, (CallLog{"manager.created", "manager.InitNew", "manager.released"}));
    EXPECT_EQ(packagesOf("Manager"), Names({}));
}

TEST_F(ManagerPackages, OfAManagerThatRefusesInitializeAreRefusedWithoutTerminate)
{
    ManagerScript &manager = world.addManager("Manager");
    manager.answer("Initialize", CapeFailure(0x0F), 1);
    EXPECT_EQ(refusalOf("Manager"), "PPM Initialize failed: initialization error");
    EXPECT_EQ(world.log, (CallLog{"manager.created", "manager.Initialize", "manager.released"}));
    EXPECT_EQ(packagesOf("Manager"), Names({}));
}

TEST_F(ManagerPackages, OfAManagerThatFailsToListThemAreRefusedInItsWordsAndItIsTerminated)
{
    ManagerScript &manager = world.addManager("Manager");
    manager.answer("GetPropertyPackageList", CapeFailure(0x03));
    manager.words = Description("ask the license server");
    manager.words.onlyFrom = &InterfaceId<ICapeThermoPropertyPackageManager>;
    EXPECT_EQ(refusalOf("Manager"), "failed to get list of packages from ppm: ask the license server");
    EXPECT_EQ(world.log, (CallLog{"manager.created", "manager.Initialize", "manager.put_simulationContext",
                                  "manager.GetPropertyPackageList", "manager.get_description", "manager.Terminate",
                                  "manager.released"}));
    manager.words = ErrorWords();
    EXPECT_EQ(refusalOf("Manager"), "failed to get list of packages from ppm: license problem");
    manager.answer("GetPropertyPackageList", oddFailure);
    EXPECT_EQ(refusalOf("Manager"), std::string("failed to get list of packages from ppm: ") + oddFailureText);
}

TEST_F(ManagerPackages, MayBeNone)
{
    ManagerScript &manager = world.addManager("Manager");
    manager.packageNames = TextArray({});
    EXPECT_EQ(packagesOf("Manager"), Names({}));
    manager.packageNames = Variant();
    EXPECT_EQ(packagesOf("Manager"), Names({}));
}

TEST_F(ManagerPackages, AreReadFromAnyLowerBound)
{
    ManagerScript &manager = world.addManager("Manager");
    for (const LONG lowerBound : {1, -3}) {
        manager.packageNames = TextArray({"first", "second"}, lowerBound);
        EXPECT_EQ(packagesOf("Manager"), Names({"first", "second"}));
    }
}

TEST_F(ManagerPackages, ThatAreNullAreEmpty)
{
    ManagerScript &manager = world.addManager("Manager");
    manager.packageNames = BlankArray(VT_BSTR, 2);
    EXPECT_EQ(packagesOf("Manager"), Names({"", ""}));
}

TEST_F(ManagerPackages, ThatAreNoListOfStringsAreRefusedAndTheManagerIsTerminated)
{
    ManagerScript &manager = world.addManager("Manager");
    const char *const noStrings = "Invalid list of packages from ppm: Expected an array of type string";
    for (const Variant &list : {NumberArray({1, 2}), ArrayOfVariants({TextVariant("P")}), TextVariant("P")}) {
        manager.packageNames = list;
        world.log.clear();
        EXPECT_EQ(refusalOf("Manager"), noStrings);
        EXPECT_EQ(world.log, (CallLog{"manager.created", "manager.Initialize", "manager.put_simulationContext",
                                      "manager.GetPropertyPackageList", "manager.Terminate", "manager.released"}));
    }
    manager.packageNames = TwoDimensionalArray(VT_BSTR, 2, 2);
    EXPECT_EQ(refusalOf("Manager"),
              "Invalid list of packages from ppm: unexpected dimension; 1-dimensional array expected");
    manager.packageNames = TextArray({"P"});
    EXPECT_EQ(packagesOf("Manager"), Names({"P"}));
}

TEST_F(ManagerPackages, WhoseBoundsCannotBeHadAreRefused)
{
    ManagerScript &manager = world.addManager("Manager");
    manager.packageNames = TextArray({"P"});
    const auto fail = [](SAFEARRAY *, UINT dimension, LONG *) {
        EXPECT_EQ(dimension, 1u);
        return E_FAIL;
    };
    {
        LibraryCall<"SafeArrayGetLBound", decltype(SafeArrayGetLBound)> lower(SafeArrayGetLBound, fail);
        EXPECT_EQ(refusalOf("Manager"), "Invalid list of packages from ppm: failed to get lower bound");
    }
    {
        LibraryCall<"SafeArrayGetUBound", decltype(SafeArrayGetUBound)> upper(SafeArrayGetUBound, fail);
        EXPECT_EQ(refusalOf("Manager"), "Invalid list of packages from ppm: failed to get upper bound");
    }
    EXPECT_EQ(packagesOf("Manager"), Names({"P"}));
}
