// Names, lists and compounds in numbers that nobody would type.
#include "tests/support/package_test.h"

#include <cmath>
#include <set>

using namespace support;

namespace {

constexpr std::size_t megabyte = 1'000'000;

class Large : public PackageTest {
protected:
    // Before its first use.
    void makeCompounds(std::size_t count)
    {
        std::vector<WideString> ids;
        for (std::size_t i = 0; i < count; ++i)
            ids.push_back(Wide("compound " + std::to_string(i)));
        package.compoundIds = TextArray(ids);
        package.molecularWeights = NumberArray(std::vector<double>(count, 18));
    }
};

} // namespace

TEST_F(Large, NamesAreToldWhole)
{
    const std::string name(megabyte, 'n');
    EXPECT_EQ(refusal(1, {Scalar(2), Text(name)}), "no such package manager: \"" + name + "\"");
    EXPECT_EQ(refusal(1, singlePhase({.names = Text(name)})), "Invalid / unsupported 1-phase property: " + name);
    EXPECT_EQ(refusal(1, singlePhase({.phase = Text(name)})), "Invalid phase ID");
    EXPECT_EQ(refusal(5, flash({.property1 = Text(name)})),
              "Not a valid flash property: " + name + " (use capeOpenFlashPropList for list of valid properties)");
    EXPECT_EQ(refusal(1, {Scalar(19), Text(name)}), "unknown / unsupported property");
    package.answer("GetCompoundConstant", computationFailed);
    EXPECT_EQ(refusal(1, {Scalar(16), handle, Text(name)}), "GetCompoundConstant failed: computation error");
}

TEST_F(Large, NamesReachThePackageAndComeBack)
{
    const WideString name = Wide(std::string(megabyte, 'n'));
    package.compoundIds = TextArray({AnyText(std::string(megabyte, 'n')), "B"});
    EXPECT_EQ(mustReturn(1, {Scalar(7), handle})[0].texts()[0], name);
    WideString asked;
    package.calcEquilibrium = [&](const EquilibriumCall &request) {
        asked = request.solutionType;
        return StoreEquilibrium({{"Liquid", 1, {0.5, 0.5}}}, 340, 2e5)(request);
    };
    mustReturn(5, flash({.solutionType = Text(std::string(megabyte, 'n'))}));
    EXPECT_EQ(asked, name);
}

TEST_F(Large, ListsOfNamesGiveAsManyResults)
{
    constexpr std::size_t count = 100'000;
    std::string names;
    for (std::size_t i = 0; i < count; ++i)
        names += "volume ";
    std::size_t asked = 0;
    package.calcSinglePhase = [&](const SinglePhaseCall &request) {
        asked = request.properties.size();
        return StoreSinglePhase({{"volume", "mole", {0.025}}})(request);
    };
    const CallResult result =
        mustReturn(1, singlePhase({.outputs = Scalar(static_cast<double>(count)), .names = Text(names)}));
    EXPECT_EQ(asked, count);
    ASSERT_EQ(result[0].count(), count);
    EXPECT_EQ(result[0].element(count - 1).numbers(), std::vector<double>{0.025});
}

TEST_F(Large, MixturesHaveMatricesOfTheirCompounds)
{
    constexpr std::size_t count = 500;
    makeCompounds(count);
    std::vector<double> matrix(count * count);
    for (std::size_t i = 0; i < matrix.size(); ++i)
        matrix[i] = static_cast<double>(i);
    package.calcSinglePhase = StoreSinglePhase({{"diffusionCoefficient", "", matrix}, {"enthalpy", "mole", {-1800}}});
    const Array composition = Row(std::vector<double>(count, 1.0 / count));
    useBasis("mass");
    const CallResult result = mustReturn(
        1, singlePhase(
               {.outputs = Scalar(2), .names = Text("diffusionCoefficient enthalpy"), .compositions = composition}));
    EXPECT_EQ(result[0].element(0).dimensions(), (std::vector<std::size_t>{count, count}));
    EXPECT_EQ(result[0].element(0).numbers(), matrix);
    EXPECT_NEAR(result[0].element(1).number(), -1e5, 1e-6);
}

TEST_F(Large, NumbersOfPackagesAreOpenAtOnce)
{
    constexpr int count = 500;
    ManagerScript &manager = world.addManager("Manager");
    for (int i = 0; i < count; ++i)
        manager.offer("Package " + std::to_string(i), package);
    matlab.clear();
    matlab.load(); // registered since the scan
    for (int i = 0; i < count; ++i)
        open("Manager", "Package " + std::to_string(i));
    const Array handles = mustReturn(1, {Scalar(5)})[0];
    ASSERT_EQ(handles.count(), static_cast<std::size_t>(count));
    std::set<WideString> names;
    for (const std::int32_t each : handles.int32s())
        names.insert(mustReturn(1, {Scalar(6), Int32(each)})[0].text());
    EXPECT_EQ(names.size(), static_cast<std::size_t>(count));
    for (const std::int32_t each : handles.int32s())
        mustReturn(0, {Scalar(4), Int32(each)});
    EXPECT_EQ(mustReturn(1, {Scalar(5)})[0].count(), 0u);
}
