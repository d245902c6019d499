// Strings, names and lists on their way in and out.
#include "tests/support/mex_test.h"

using namespace support;

namespace {

class Marshalling : public MexTest {
protected:
    // The unit command takes one string; it shows what the library read.
    std::string refusalOf(const Array &argument) { return refusal(1, {Scalar(19), argument}); }

    // Command 20 hands its names to the package as they were read.
    std::vector<WideString> namesRead(const Array &names, double outputs)
    {
        PackageScript &package = world.addPackage("Alone");
        std::vector<WideString> seen = Names({"not asked"});
        package.temperatureDependent = [&](const CompoundCall &request, Variant &values) {
            seen = request.properties;
            values = NumberArray(std::vector<double>(request.properties.size() * 2, 1.0));
            return S_OK;
        };
        mustReturn(1, {Scalar(20), Scalar(outputs), open("Alone"), names, Scalar(300)});
        return seen;
    }
};

const char *const notString = "Expected string value for property name";
const char *const notNames = "Expected string or cell array of strings for property names";

} // namespace

TEST_F(Marshalling, AStringIsReadFromACharArrayOrFromACellOfOne)
{
    EXPECT_EQ(mustReturn(1, {Scalar(19), Text("pressure")})[0].text(), Wide("Pa"));
    EXPECT_EQ(mustReturn(1, {Scalar(19), Texts({"pressure"})})[0].text(), Wide("Pa"));
}

TEST_F(Marshalling, AnotherCellOrAnotherClassIsNoString)
{
    for (const Array &argument : WrongStrings())
        EXPECT_EQ(refusalOf(argument), notString);
}

TEST_F(Marshalling, AnEmptyCharArrayIsAnEmptyString)
{
    EXPECT_EQ(refusalOf(EmptyText()), "unknown / unsupported property");
}

TEST_F(Marshalling, ACharMatrixIsReadColumnByColumn)
{
    // Its columns are pr, es, su, re.
    EXPECT_EQ(mustReturn(1, {Scalar(19), TextMatrix({"pesr", "rsue"})})[0].text(), Wide("Pa"));
}

TEST_F(Marshalling, NamesAreSplitAtBlanksAndNothingElse)
{
    EXPECT_EQ(namesRead(Text("  vaporPressure   idealGasHeatCapacity "), 2),
              Names({"vaporPressure", "idealGasHeatCapacity"}));
}

TEST_F(Marshalling, ATabIsPartOfAName) { EXPECT_EQ(namesRead(Text("a\tb c"), 2), Names({"a\tb", "c"})); }

TEST_F(Marshalling, EachElementOfACellIsSplitToo)
{
    EXPECT_EQ(namesRead(Texts({"a b", "c"}), 3), Names({"a", "b", "c"}));
}

TEST_F(Marshalling, AnEmptyOrBlankStringIsAnEmptyList)
{
    world.addPackage("Alone");
    const Array handle = open("Alone");
    for (const Array &names : {EmptyText(), Text(" "), Text("     "), EmptyCell(), Texts({"", " "})}) {
        const CallResult result = mustReturn(1, {Scalar(20), Scalar(0), handle, names, Scalar(300)});
        EXPECT_EQ(result[0].count(), 0u);
    }
}

TEST_F(Marshalling, ACellWithSomethingElseThanStringsIsNoListOfNames)
{
    const Array handle = (world.addPackage("Alone"), open("Alone"));
    for (const Array &names : {Cell({Text("a"), Scalar(1)}), Cell({Texts({"a"})}), Cell({Array()}), Scalar(1), Empty(),
                               Int32(1), Logical(true)})
        EXPECT_EQ(refusal(1, {Scalar(20), Scalar(1), handle, names, Scalar(300)}), notNames);
}

TEST_F(Marshalling, AnEmptyListIsACellOfNoRowsAndNoColumns)
{
    EXPECT_EQ(mustReturn(1, {Scalar(1)})[0].dimensions(), (std::vector<std::size_t>{0, 0}));
}

TEST_F(Marshalling, AListOfOneIsACellOfOneRow)
{
    world.addPackage("Alone");
    const CallResult result = mustReturn(1, {Scalar(1)});
    EXPECT_EQ(result[0].dimensions(), (std::vector<std::size_t>{1, 1}));
    EXPECT_EQ(result[0].element(0).dimensions(), (std::vector<std::size_t>{1, 5}));
}

TEST_F(Marshalling, AnEmptyTextIsARowOfNoColumns)
{
    EXPECT_EQ(mustReturn(1, {Scalar(19), Text("acentricFactor")})[0].dimensions(), (std::vector<std::size_t>{1, 0}));
}

TEST_F(Marshalling, TextBeyondAsciiComesBackUnchanged)
{
    const AnyText name("Erdgas \xC3\xBC"
                       "ber \xE2\x82\xAC \xF0\x9D\x9C\x97");
    world.addPackage(name);
    EXPECT_EQ(mustReturn(1, {Scalar(1)})[0].texts(), std::vector<WideString>{name.wide});
    EXPECT_EQ(mustReturn(1, {Scalar(6), open(name)})[0].text(), name.wide);
}
