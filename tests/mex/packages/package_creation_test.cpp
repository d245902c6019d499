// Command 3: from two names to a handle.
#include "tests/mex/support/library_call.h"
#include "tests/support/mex_test.h"

#include <set>

using namespace support;

namespace {

class PackageCreation : public MexTest {
protected:
    std::string refusalToOpen(AnyText manager, AnyText package = "")
    {
        return refusal(1, {Scalar(3), Text(manager), Text(package)});
    }
    std::size_t openCount() { return mustReturn(1, {Scalar(5)})[0].count(); }
};

// The manager "Manager" with the package "Pair".
class CreationThroughAManager : public PackageCreation {
protected:
    ManagerScript &manager = world.addManager("Manager");
    PackageScript &package = world.addPackageOf(manager, "Pair");
};

} // namespace

TEST_F(PackageCreation, GivesAHandleThatIsOneInt32)
{
    world.addPackage("Alone");
    const Array handle = open("Alone");
    EXPECT_EQ(handle.classId(), mxINT32_CLASS);
    EXPECT_EQ(handle.count(), 1u);
    EXPECT_GE(handle.int32(), 0);
    EXPECT_LE(handle.int32(), 0x7FFF);
}

TEST_F(PackageCreation, NeedsAManagerNameThatIsAString)
{
    for (const Array &name : WrongStrings())
        EXPECT_EQ(refusal(1, {Scalar(3), name, Scalar(1)}), "Expected string for package manager name");
}

TEST_F(PackageCreation, NeedsAPackageNameThatIsAStringAlsoForAPackageThatStandsAlone)
{
    world.addPackage("Alone");
    for (const Array &name : WrongStrings())
        EXPECT_EQ(refusal(1, {Scalar(3), Text("Alone"), name}), "Expected string for package name");
    EXPECT_EQ(world.log, CallLog());
}

TEST_F(PackageCreation, TakesNamesInCellsOfOne)
{
    world.addPackage("Alone");
    EXPECT_EQ(mustReturn(1, {Scalar(3), Texts({"Alone"}), Texts({""})})[0].classId(), mxINT32_CLASS);
}

TEST_F(PackageCreation, OfAnUnknownManagerIsRefused)
{
    EXPECT_EQ(refusalToOpen("Nobody", "P"), "no such package manager: \"Nobody\"");
}

TEST_F(PackageCreation, TouchesNeitherCompoundsNorPhasesNorMaterial)
{
    world.addPackage("Alone");
    open("Alone");
    EXPECT_EQ(world.log, (CallLog{"package.created", "package.Initialize", "package.put_simulationContext"}));
}

TEST_F(PackageCreation, OfAPackageThatStandsAloneIgnoresThePackageName)
{
    PackageScript &package = world.addPackage("Alone");
    const std::int32_t handle = open("Alone", "one").int32();
    EXPECT_EQ(open("Alone", "two").int32(), handle);
    EXPECT_EQ(package.objectsMade(), 1);
    EXPECT_EQ(openCount(), 1u);
}

TEST_F(PackageCreation, OfAPackageThatCannotBeCreatedIsRefused)
{
    PackageScript &package = world.addPackage("Alone");
    package.answer("created", oddFailure, 1);
    EXPECT_EQ(refusalToOpen("Alone"), std::string("creation of package failed: ") + oddFailureText);
    EXPECT_EQ(openCount(), 0u);
    open("Alone");
    EXPECT_EQ(openCount(), 1u);
}

TEST_F(PackageCreation, OfAPackageThatIsCreatedAsNothingIsRefused)
{
    PackageScript &package = world.addPackage("Alone");
    package.refuse(InterfaceId<IDispatch>, S_OK);
    EXPECT_EQ(refusalToOpen("Alone"), "creation of package failed: " + SystemText(E_POINTER));
    EXPECT_EQ(openCount(), 0u);
}

TEST_F(PackageCreation, OfAPackageThatFailsToStartDrawsNoHandle)
{
    PackageScript &package = world.addPackage("Alone");
    package.answer("Initialize", CapeFailure(0x0F), 1);
    EXPECT_EQ(refusalToOpen("Alone"), "PP Initialize failed: initialization error");
    EXPECT_EQ(package.references(), 0);
    EXPECT_EQ(package.calls("Terminate"), 0);
    EXPECT_EQ(openCount(), 0u);
    open("Alone");
}

TEST_F(PackageCreation, OfAPackageWithoutCompoundsSucceeds)
{
    PackageScript &package = world.addPackage("Alone");
    package.compoundIds = TextArray({});
    const Array handle = open("Alone");
    EXPECT_EQ(refusal(1, {Scalar(7), handle}), "Property package does not contain any compounds");
}

TEST_F(CreationThroughAManager, TerminatesTheManagerBeforeThePackageIsInitialized)
{
    package.persistent = true;
    manager.persistent = true;
    open("Manager", "Pair");
    EXPECT_EQ(world.log,
              (CallLog{"manager.created", "manager.InitNew", "manager.Initialize", "manager.put_simulationContext",
                       "manager.GetPropertyPackage", "package.created", "manager.Terminate", "manager.released",
                       "package.InitNew", "package.Initialize", "package.put_simulationContext"}));
    EXPECT_EQ(package.references(), 1);
}

TEST_F(CreationThroughAManager, HandsOverTheNameAsItCame)
{
    manager.offer(" Páir\t100% ", package);
    open("Manager", " Páir\t100% ");
    EXPECT_EQ(manager.requestedNames, Names({" Páir\t100% "}));
}

TEST_F(CreationThroughAManager, OfAnOpenPackageGivesItsHandleWhateverTheCaseOfThePackageName)
{
    const std::int32_t handle = open("Manager", "Pair").int32();
    world.log.clear();
    EXPECT_EQ(open("Manager", "pAIR").int32(), handle);
    EXPECT_EQ(open("Manager", "Pair").int32(), handle);
    EXPECT_EQ(world.log, CallLog()) << "something was created or asked";
    EXPECT_EQ(openCount(), 1u);
}

TEST_F(CreationThroughAManager, IsNotCountedSoThatTheFirstCloseEndsIt)
{
    const Array handle = open("Manager", "Pair");
    open("Manager", "Pair");
    mustReturn(0, {Scalar(4), handle});
    EXPECT_EQ(package.references(), 0);
    EXPECT_EQ(refusal(1, {Scalar(6), handle}), "Invalid property package handle");
}

TEST_F(CreationThroughAManager, OfAClosedPackageMakesANewOne)
{
    mustReturn(0, {Scalar(4), open("Manager", "Pair")});
    open("Manager", "Pair");
    EXPECT_EQ(package.objectsMade(), 2);
    EXPECT_EQ(manager.objectsMade(), 2);
}

TEST_F(CreationThroughAManager, OfTwoPackagesGivesTwoHandles)
{
    PackageScript &other = world.addPackageOf(manager, "Other");
    EXPECT_NE(open("Manager", "Pair").int32(), open("Manager", "Other").int32());
    EXPECT_EQ(other.objectsMade(), 1);
    EXPECT_EQ(openCount(), 2u);
}

TEST_F(CreationThroughAManager, OfAPackageThatTheManagerRefusesTerminatesTheManager)
{
    manager.words = Description("no package of that name");
    manager.words.onlyFrom = &InterfaceId<ICapeThermoPropertyPackageManager>;
    EXPECT_EQ(refusalToOpen("Manager", "Trio"), "package creation failed: no package of that name");
    EXPECT_EQ(world.log, (CallLog{"manager.created", "manager.Initialize", "manager.put_simulationContext",
                                  "manager.GetPropertyPackage", "manager.get_description", "manager.Terminate",
                                  "manager.released"}));
    EXPECT_EQ(openCount(), 0u);
    manager.words = ErrorWords();
    EXPECT_EQ(refusalToOpen("Manager", "Trio"), "package creation failed: Invalid argument");
    package.answer("created", oddFailure, 1);
    EXPECT_EQ(refusalToOpen("Manager", "Pair"), std::string("package creation failed: ") + oddFailureText);
    open("Manager", "Pair");
}

TEST_F(CreationThroughAManager, WithSuccessButWithoutAPackageIsRefused)
{
    package.refuse(InterfaceId<IDispatch>, S_OK);
    EXPECT_EQ(refusalToOpen("Manager", "Pair"), "package creation failed: " + SystemText(E_POINTER));
    EXPECT_EQ(manager.calls("Terminate"), 1);
    EXPECT_EQ(openCount(), 0u);
}

TEST_F(CreationThroughAManager, ThatCannotBeCreatedIsRefused)
{
    manager.answer("created", oddFailure);
    EXPECT_EQ(refusalToOpen("Manager", "Pair"), std::string("creation of package manager failed: ") + oddFailureText);
}

TEST_F(CreationThroughAManager, ThatFailsToStartIsRefusedWithoutTerminate)
{
    manager.persistent = true;
    manager.answer("InitNew", oddFailure, 1);
    manager.answer("Initialize", CapeFailure(0x0F), 1);
    EXPECT_EQ(refusalToOpen("Manager", "Pair"), std::string("PPM InitNew failed: ") + oddFailureText);
    EXPECT_EQ(refusalToOpen("Manager", "Pair"), "PPM Initialize failed: initialization error");
    EXPECT_EQ(manager.calls("Terminate"), 0);
    EXPECT_EQ(manager.references(), 0);
    open("Manager", "Pair");
}

TEST_F(CreationThroughAManager, OfAPackageThatFailsToStartReleasesIt)
{
    package.answer("Initialize", CapeFailure(0x0F));
    EXPECT_EQ(refusalToOpen("Manager", "Pair"), "PP Initialize failed: initialization error");
    EXPECT_EQ(world.log, (CallLog{"manager.created", "manager.Initialize", "manager.put_simulationContext",
                                  "manager.GetPropertyPackage", "package.created", "manager.Terminate",
                                  "manager.released", "package.Initialize", "package.released"}));
}

TEST_F(CreationThroughAManager, LeavesTheNameToTheManagerForGood)
{
    std::set<BSTR> names;
    LibraryCall<"SysAllocString", decltype(SysAllocString)> makes(SysAllocString, [&](LPCWSTR text) {
        const BSTR made = SysAllocString(text);
        if (text && (Wide("Pair") == text || Wide("Trio") == text))
            names.insert(made);
        return made;
    });
    LibraryCall<"SysFreeString", decltype(SysFreeString)> frees(SysFreeString, [&](BSTR text) {
        EXPECT_EQ(names.count(text), 0u) << "the name was freed";
        SysFreeString(text);
    });
    const Array opened = open("Manager", "Pair");
    EXPECT_EQ(refusalToOpen("Manager", "Trio"), "package creation failed: Invalid argument");
    mustReturn(0, {Scalar(4), opened});
    EXPECT_EQ(names.size(), 2u);
    EXPECT_TRUE(matlab.clear());
}

TEST_F(PackageCreation, OfTwoPackagesWhoseNamesDifferInCaseGivesTheOpenOne)
{
    PackageScript &first = world.addPackage("\xC3\x89thane");
    PackageScript &second = world.addPackage("\xC3\xA9THANE");
    const std::int32_t handle = open("\xC3\x89thane").int32();
    EXPECT_EQ(open("\xC3\xA9THANE").int32(), handle);
    EXPECT_EQ(first.objectsMade(), 1);
    EXPECT_EQ(second.objectsMade(), 0);
}

TEST_F(CreationThroughAManager, IsKeyedByBothNamesWithAColonBetweenThem)
{
    PackageScript &alone = world.addPackage("Manager:Pair");
    const std::int32_t handle = open("Manager", "Pair").int32();
    EXPECT_EQ(open("Manager:Pair").int32(), handle);
    EXPECT_EQ(alone.objectsMade(), 0);
}
