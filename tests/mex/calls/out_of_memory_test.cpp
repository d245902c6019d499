// MATLAB ends a call when it can't make an array. Nothing of the library may be alive in any frame
// then: the leak checker and the packages' counts tell. Memory of other kinds ends it by an exception, which leaves
// nothing half done.
#include "tests/mex/support/failing_call.h"
#include "tests/support/mex_test.h"

using namespace support;

namespace {

class OutOfMemory : public MexTest {
protected:
    // Lets the first, second, third, ... array that the library makes fail, until none does.
    void failEachCreation(int nlhs, const std::vector<Array> &arguments, int leastCreations)
    {
        int failed = 0;
        for (std::size_t n = 1;; ++n) {
            mxStandInFailCreation(n);
            const CallResult result = call(nlhs, arguments);
            mxStandInFailCreation(0);
            if (result.returned)
                break;
            EXPECT_EQ(result.error, "Out of memory.");
            ++failed;
        }
        EXPECT_GE(failed, leastCreations);
    }
};

} // namespace

TEST_F(OutOfMemory, EndsTheListsOfManagersAndPackages)
{
    ManagerScript &manager = world.addManager("Manager");
    manager.packageNames = TextArray({"One", "Two"});
    failEachCreation(1, {Scalar(1)}, 2);
    failEachCreation(1, {Scalar(2), Text("Manager")}, 3);
}

TEST_F(OutOfMemory, EndsTheCreationOfAPackage)
{
    ManagerScript &manager = world.addManager("Manager with a long name");
    world.addPackageOf(manager, "Package with a long name");
    failEachCreation(1, {Scalar(3), Text("Manager with a long name"), Text("Package with a long name")}, 1);
}

TEST_F(OutOfMemory, EndsUnitAndVersion)
{
    failEachCreation(1, {Scalar(19), Text("idealGasEnthalpyOfFormationAt25C")}, 1);
    failEachCreation(1, {Scalar(26)}, 1);
}

TEST_F(OutOfMemory, EndsACalculation)
{
    PackageScript &package = world.addPackage("Alone");
    package.calcSinglePhase = StoreSinglePhase({{"volume", "mole", {0.025}}, {"fugacityCoefficient", "", {1, 2}}});
    failEachCreation(1,
                     {Scalar(22), Scalar(2), open("Alone"), Text("volume fugacityCoefficient"), Scalar(350),
                      Scalar(101325), Row({0.25, 0.75}), Text("Vapor")},
                     3);
}

TEST_F(OutOfMemory, EndsAFlash)
{
    PackageScript &package = world.addPackage("Alone");
    package.calcEquilibrium =
        StoreEquilibrium({{"Vapor", 0.5, {0.75, 0.25}}, {"Liquid", 0.5, {0.25, 0.75}}}, 340, 101325);
    failEachCreation(5,
                     {Scalar(24), open("Alone"), Row({0.5, 0.5}), Text("temperature"), Scalar(340), Text("pressure"),
                      Scalar(101325), Text("Unspecified")},
                     7);
}

TEST_F(OutOfMemory, WhileTheVocabularyIsBuiltLeavesTheRestToTheNextCall)
{
    constexpr int someRow = 100;
    int requests = 0;
    mustReturn(1, {Scalar(5)});
    {
        const MemoryRefusal refusal([&](std::size_t) { return ++requests == someRow; });
        EXPECT_EQ(call(1, {Scalar(19), Text("volume")}).error, "Unexpected exception: std::bad_alloc");
    }
    EXPECT_EQ(mustReturn(1, {Scalar(19), Text("volume")})[0].text(), Wide("m3 / mol"));
}

TEST_F(OutOfMemory, ForThePackageNameEndsTheCreationAndTheManager)
{
    ManagerScript &manager = world.addManager("Manager");
    world.addPackageOf(manager, "Inner");
    {
        LibraryCall<"SysAllocString", decltype(SysAllocString)> none(SysAllocString,
                                                                     [](LPCWSTR) -> BSTR { return nullptr; });
        EXPECT_EQ(call(1, {Scalar(3), Text("Manager"), Text("Inner")}).error, "Unexpected exception: std::bad_alloc");
    }
    EXPECT_EQ(manager.calls("GetPropertyPackage"), 0);
    EXPECT_EQ(manager.calls("Terminate"), 1);
    EXPECT_EQ(manager.references(), 0);
    mustReturn(1, {Scalar(3), Text("Manager"), Text("Inner")});
}

TEST_F(OutOfMemory, ForTheNamesOfPackagesEndsTheManager)
{
    ManagerScript &manager = world.addManager("Manager");
    manager.packageNames = TextArray({"One", "Two"});
    {
        LibraryCall<"SafeArrayGetElement", decltype(SafeArrayGetElement)> none(
            SafeArrayGetElement, [](SAFEARRAY *, LONG *, void *) { return E_OUTOFMEMORY; });
        EXPECT_EQ(call(1, {Scalar(2), Text("Manager")}).error, "Unexpected exception: std::bad_alloc");
    }
    EXPECT_EQ(manager.calls("Terminate"), 1);
    EXPECT_EQ(manager.references(), 0);
    EXPECT_EQ(mustReturn(1, {Scalar(2), Text("Manager")})[0].texts(), Names({"One", "Two"}));
}
