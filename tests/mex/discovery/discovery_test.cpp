// Which classes of the registry are managers and packages, and under which names.
#include "tests/support/mex_test.h"

using namespace support;

namespace {

// In the order in which the registry lists them.
constexpr const char *firstId = "{7E57A001-3B1C-4D0A-9E55-216B0C5FA810}";
constexpr const char *secondId = "{7E57A002-3B1C-4D0A-9E55-216B0C5FA810}";
constexpr const char *thirdId = "{7E57A003-3B1C-4D0A-9E55-216B0C5FA810}";
constexpr const char *fourthId = "{7E57A004-3B1C-4D0A-9E55-216B0C5FA810}";

class Discovery : public MexTest {
protected:
    std::vector<WideString> listed() { return mustReturn(1, {Scalar(1)})[0].texts(); }

    void addNamed(const char *classId, const std::optional<RegistryValue> &name)
    {
        RegisteredClass entry = PackageClass("", classId);
        entry.name = name;
        world.registry().add(entry);
    }
};

std::string ofLength(std::size_t length)
{
    std::string text(length, 'n');
    text.back() = 'z';
    return text;
}

} // namespace

TEST_F(Discovery, ARegistryWithoutPackagesGivesAnEmptyList) { EXPECT_EQ(listed(), Names({})); }

TEST_F(Discovery, ManagersAndPackagesAreListedTogetherInTheOrderOfTheRegistry)
{
    world.registry().add(PackageClass("z", firstId));
    world.registry().add(ManagerClass("m", secondId));
    world.registry().add(PackageClass("a", thirdId));
    EXPECT_EQ(listed(), Names({"z", "m", "a"}));
}

TEST_F(Discovery, AClassWithoutACategoryIsNotListed)
{
    RegisteredClass entry = PackageClass("no package", firstId);
    entry.categories = Names({"{7E57A00F-3B1C-4D0A-9E55-216B0C5FA810}"});
    world.registry().add(entry);
    EXPECT_EQ(listed(), Names({}));
}

TEST_F(Discovery, AClassOfBothCategoriesIsAManager)
{
    ManagerScript &manager = world.addUnregisteredManager();
    manager.packageNames = TextArray({"P"});
    const CLSID classId = world.newClassId();
    world.serve(classId, manager);
    RegisteredClass entry = PackageClass("Both", ClassIdText(classId));
    entry.categories.push_back(Wide(managerCategory));
    world.registry().add(entry);
    EXPECT_EQ(mustReturn(1, {Scalar(2), Text("Both")})[0].texts(), Names({"P"}));
    EXPECT_EQ(listed(), Names({"Both"}));
}

TEST_F(Discovery, AClassWithoutADescriptionGoesByItsClassId)
{
    RegisteredClass entry = ManagerClass("", firstId);
    entry.described = false;
    world.registry().add(entry);
    EXPECT_EQ(listed(), Names({firstId}));
}

TEST_F(Discovery, AClassWithoutANameGoesByItsClassIdAsTheKeyIsSpelled)
{
    addNamed("{7e57a001-3B1C-4d0a-9e55-216b0c5fa810}", std::nullopt);
    EXPECT_EQ(listed(), Names({"{7e57a001-3B1C-4d0a-9e55-216b0c5fa810}"}));
}

TEST_F(Discovery, ANameOfAnotherTypeThanTextIsNoName)
{
    RegistryValue name = TextValue("named");
    name.type = REG_EXPAND_SZ;
    addNamed(firstId, name);
    name.type = REG_BINARY;
    addNamed(secondId, name);
    name.type = REG_MULTI_SZ;
    addNamed(thirdId, name);
    addNamed(fourthId, RegistryValue{REG_DWORD, {1, 0, 0, 0}});
    EXPECT_EQ(listed(), Names({firstId, secondId, thirdId, fourthId}));
}

TEST_F(Discovery, AnEmptyNameIsAName)
{
    addNamed(firstId, TextValue(""));
    addNamed(secondId, RegistryValue{REG_SZ, {}});
    EXPECT_EQ(listed(), Names({"", ""}));
    EXPECT_EQ(mustReturn(1, {Scalar(2), EmptyText()})[0].texts(), Names({"(stand-alone)"}));
}

TEST_F(Discovery, ANameOf1024BytesIsTaken)
{
    const std::string name = ofLength(511); // and its terminator
    addNamed(firstId, TextValue(name));
    EXPECT_EQ(listed(), Names({name}));
}

TEST_F(Discovery, ANameOfMoreThan1024BytesIsNoName)
{
    addNamed(firstId, TextValue(ofLength(512)));
    addNamed(secondId, TextValue(ofLength(1500)));
    EXPECT_EQ(listed(), Names({firstId, secondId}));
}

TEST_F(Discovery, ANameStoredWithoutItsTerminatorIsRead)
{
    RegistryValue name = TextValue("a longer name that is stored first");
    addNamed(firstId, name);
    name = TextValue("open-ended");
    name.bytes.resize(name.bytes.size() - sizeof(WCHAR));
    addNamed(secondId, name);
    EXPECT_EQ(listed(), Names({"a longer name that is stored first", "open-ended"}));
}

TEST_F(Discovery, ANameComesBackUnchangedWhateverItsLetters)
{
    addNamed(firstId, TextValue("Équilibre \xE2\x99\xA5 100%"));
    EXPECT_EQ(listed(), Names({"Équilibre \xE2\x99\xA5 100%"}));
}

TEST_F(Discovery, AClassOfBothViewsIsListedOnceWithTheNameOfTheNativeView)
{
    world.registry().add(PackageClass("native", "{7E57A001-3B1C-4D0A-9E55-216B0C5FA81F}"));
    world.registry().add(In32BitView(PackageClass("32-bit", "{7e57a001-3b1c-4d0a-9e55-216b0c5fa81f}")));
    EXPECT_EQ(listed(), Names({"native"}));
}

TEST_F(Discovery, ClassesOfThe32BitViewComeLast)
{
    world.registry().add(In32BitView(ManagerClass("32-bit manager", firstId)));
    world.registry().add(In32BitView(PackageClass("32-bit package", secondId)));
    world.registry().add(PackageClass("native", thirdId));
    EXPECT_EQ(listed(), Names({"native", "32-bit manager", "32-bit package"}));
}

TEST_F(Discovery, AClassThatIsNoPackageInTheNativeViewIsListedFromThe32BitView)
{
    RegisteredClass entry = PackageClass("native", firstId);
    entry.categories.clear();
    world.registry().add(entry);
    world.registry().add(In32BitView(PackageClass("32-bit", firstId)));
    EXPECT_EQ(listed(), Names({"32-bit"}));
}

TEST_F(Discovery, OfTwoClassesWithOneNameBothAreListedAndTheFirstIsReached)
{
    world.registry().add(PackageClass("twin", firstId));
    world.registry().add(ManagerClass("twin", secondId));
    EXPECT_EQ(listed(), Names({"twin", "twin"}));
    EXPECT_EQ(mustReturn(1, {Scalar(2), Text("twin")})[0].texts(), Names({"(stand-alone)"}));
}

TEST_F(Discovery, OfTwoPackagesWithOneNameTheFirstIsOpened)
{
    PackageScript &first = world.addPackage("twin");
    PackageScript &second = world.addPackage("twin");
    open("twin");
    EXPECT_EQ(first.objectsMade(), 1);
    EXPECT_EQ(second.objectsMade(), 0);
}

TEST_F(Discovery, NamesAreMatchedWithExactCase)
{
    world.addManager("Manager");
    world.addPackage("Alone");
    EXPECT_EQ(refusal(1, {Scalar(2), Text("manager")}), "no such package manager: \"manager\"");
    EXPECT_EQ(refusal(1, {Scalar(2), Text("ALONE")}), "no such package manager: \"ALONE\"");
    EXPECT_EQ(refusal(1, {Scalar(3), Text("MANAGER"), Text("P")}), "no such package manager: \"MANAGER\"");
    EXPECT_EQ(refusal(1, {Scalar(3), Text("alone"), Text("")}), "no such package manager: \"alone\"");
    EXPECT_EQ(world.log, CallLog());
}

TEST_F(Discovery, TheRegistryIsReadOnce)
{
    const RegisteredClass early = PackageClass("early", firstId);
    world.registry().add(early);
    EXPECT_EQ(listed(), Names({"early"}));
    world.registry().add(PackageClass("late", secondId));
    world.registry().remove(early);
    EXPECT_EQ(listed(), Names({"early"}));
}

TEST_F(Discovery, ACommandThatFailsReadsTheRegistryToo)
{
    EXPECT_EQ(refusal(1, {Scalar(2), Text("late")}), "no such package manager: \"late\"");
    world.registry().add(PackageClass("late", firstId));
    EXPECT_EQ(refusal(1, {Scalar(2), Text("late")}), "no such package manager: \"late\"");
    EXPECT_EQ(refusal(1, {Scalar(3), Text("late"), Text("")}), "no such package manager: \"late\"");
    EXPECT_EQ(listed(), Names({}));
}

TEST_F(Discovery, ALibraryThatIsLoadedAnewReadsTheRegistryAnew)
{
    EXPECT_EQ(listed(), Names({}));
    world.registry().add(PackageClass("late", firstId));
    matlab.clear();
    matlab.load();
    EXPECT_EQ(listed(), Names({"late"}));
}

TEST_F(Discovery, ListingCreatesNothing)
{
    world.addManager("Manager");
    world.addPackage("Alone");
    listed();
    EXPECT_EQ(world.log, CallLog());
}

TEST_F(Discovery, AKeyThatIsNoClassIdIsListedAndCannotBeCreated)
{
    world.registry().add(ManagerClass("wrong manager", "{7E57A001-wrong}"));
    world.registry().add(PackageClass("wrong package", "{7E57A002-wrong}"));
    EXPECT_EQ(listed(), Names({"wrong manager", "wrong package"}));
    EXPECT_EQ(refusal(1, {Scalar(2), Text("wrong manager")}), "Failed to convert CLSID");
    EXPECT_EQ(refusal(1, {Scalar(3), Text("wrong manager"), Text("P")}), "Failed to convert CLSID");
    EXPECT_EQ(refusal(1, {Scalar(3), Text("wrong package"), Text("")}), "Failed to convert CLSID");
}
