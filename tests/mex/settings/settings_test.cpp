// Commands 17 and 18.
#include "tests/support/mex_test.h"

#include <cmath>

using namespace support;

namespace {

class SettingsCommands : public MexTest {
protected:
    WideString unitOfFraction() { return mustReturn(1, {Scalar(19), Text("fraction")})[0].text(); }

    // True when a package's log message reaches the user.
    bool warningsAreOn()
    {
        if (!package) {
            package = &world.addPackage("Alone");
            package->answer("GetCompoundList", E_FAIL);
            package->onCall = [this](const std::string &method) {
                if (method == "GetCompoundList")
                    LogMessage(*package, "hello");
            };
            handle = open("Alone");
        }
        return call(1, {Scalar(7), handle}).warnings == std::vector<std::string>{"CAPE-OPEN: hello"};
    }

private:
    PackageScript *package = nullptr;
};

const char *const wrongBasis = "Expected string value 'mole' or 'mass' as argument";

} // namespace

TEST_F(SettingsCommands, ALoadedLibraryStartsWithMoleBasisAndWarnings)
{
    EXPECT_EQ(unitOfFraction(), Wide("mole fraction"));
    EXPECT_TRUE(warningsAreOn());
}

TEST_F(SettingsCommands, TheBasisIsSetByItsWordInAnyCase)
{
    mustReturn(0, {Scalar(18), Text("MASS")});
    EXPECT_EQ(unitOfFraction(), Wide("mass fraction"));
    mustReturn(0, {Scalar(18), Text("mOLe")});
    EXPECT_EQ(unitOfFraction(), Wide("mole fraction"));
}

TEST_F(SettingsCommands, AnotherWordIsRefusedAndTheBasisStays)
{
    mustReturn(0, {Scalar(18), Text("mass")});
    for (const Array &argument :
         {Text("molar"), Text("mole "), Text(""), Scalar(1), Empty(), EmptyCell(), Texts({"mole", "mole"})})
        EXPECT_EQ(refusal(0, {Scalar(18), argument}), wrongBasis);
    EXPECT_EQ(unitOfFraction(), Wide("mass fraction"));
}

TEST_F(SettingsCommands, TheBasisMayComeInACellOfOne)
{
    mustReturn(0, {Scalar(18), Texts({"mass"})});
    EXPECT_EQ(unitOfFraction(), Wide("mass fraction"));
}

TEST_F(SettingsCommands, ZeroAndFalseTurnWarningsOff)
{
    for (const Array &off : {Scalar(0), Logical(false), Int32(0), Single(0), Scalar(-0.0)}) {
        mustReturn(0, {Scalar(17), Scalar(1)});
        EXPECT_TRUE(warningsAreOn());
        mustReturn(0, {Scalar(17), off});
        EXPECT_FALSE(warningsAreOn());
    }
}

TEST_F(SettingsCommands, AnythingElseTurnsWarningsOnNaNIncluded)
{
    for (const Array &on : {Scalar(std::nan("")), Scalar(0.5), Scalar(-3), Logical(true), Int32(2)}) {
        mustReturn(0, {Scalar(17), Scalar(0)});
        mustReturn(0, {Scalar(17), on});
        EXPECT_TRUE(warningsAreOn());
    }
}

TEST_F(SettingsCommands, AStringIsJudgedByItsFirstCharacter)
{
    mustReturn(0, {Scalar(17), Scalar(0)});
    mustReturn(0, {Scalar(17), Text("off")}); // 'o' is not zero
    EXPECT_TRUE(warningsAreOn());
    mustReturn(0, {Scalar(17), Text(WideString(1, WCHAR(0)))});
    EXPECT_FALSE(warningsAreOn());
}

TEST_F(SettingsCommands, AReloadedLibraryHasTheInitialSettings)
{
    mustReturn(0, {Scalar(18), Text("mass")});
    mustReturn(0, {Scalar(17), Scalar(0)});
    matlab.clear();
    matlab.load();
    EXPECT_EQ(unitOfFraction(), Wide("mole fraction"));
}
