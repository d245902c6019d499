#include "reference/engine/phase_properties.h"
#include "tests/reference/engine/mixtures.h"

#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <set>
#include <string>

using namespace reference;

namespace {

// Standard atomic weights of 2005 (IUPAC), summed over a formula such as C5H12.
double weightOf(std::string_view formula)
{
    const std::map<char, double> atoms = {
        {'C', 12.0107}, {'H', 1.00794}, {'N', 14.0067}, {'O', 15.9994}, {'S', 32.065}};
    double weight = 0.0;
    for (std::size_t i = 0; i < formula.size();) {
        const double atom = atoms.at(formula[i++]);
        int count = 0;
        while (i < formula.size() && std::isdigit(static_cast<unsigned char>(formula[i])))
            count = 10 * count + (formula[i++] - '0');
        weight += atom * std::max(count, 1);
    }
    return weight;
}

// The check digit of a CAS number: the digits before it from right to left, times 1, 2, 3, ...
bool hasGoodCheckDigit(std::string_view cas)
{
    int sum = 0;
    int factor = 0;
    for (const char digit : std::string(cas.rbegin(), cas.rend()))
        if (digit != '-')
            sum += factor++ * (digit - '0');
    return sum % 10 == cas.back() - '0';
}

} // namespace

TEST(CompoundTable, HoldsElevenDifferentCompounds)
{
    std::set<std::string_view> ids;
    std::set<std::string_view> casNumbers;
    for (const CompoundData &compound : compoundTable()) {
        ids.insert(compound.id);
        casNumbers.insert(compound.casNumber);
    }
    EXPECT_EQ(ids.size(), 11u);
    EXPECT_EQ(casNumbers.size(), 11u);
}

TEST(CompoundTable, HasMolecularWeightsThatFollowFromTheFormulae)
{
    for (const CompoundData &compound : compoundTable())
        EXPECT_NEAR(compound.molecularWeight, weightOf(compound.formula), 1e-9) << compound.id;
}

TEST(CompoundTable, HasCasNumbersWithGoodCheckDigits)
{
    for (const CompoundData &compound : compoundTable())
        EXPECT_TRUE(hasGoodCheckDigit(compound.casNumber)) << compound.id;
}

// The definition of the acentric factor, with the boiling point in place of the temperature 0.7 Tc:
// Lee, Kesler, AIChE J. 21 (1975) 510, give omega from Tb, Tc and Pc within a few thousandths.
TEST(CompoundTable, HasBoilingAndCriticalPointsThatAgreeWithTheAcentricFactors)
{
    for (const CompoundData &compound : compoundTable()) {
        if (std::isnan(compound.normalBoilingPoint))
            continue;
        const double t = compound.normalBoilingPoint / compound.criticalTemperature;
        const double t6 = std::pow(t, 6);
        const double simple = -5.92714 + 6.09648 / t + 1.28862 * std::log(t) - 0.169347 * t6;
        const double deviation = 15.2518 - 15.6875 / t - 13.4721 * std::log(t) + 0.43577 * t6;
        const double omega = (-std::log(compound.criticalPressure / 101325.0) + simple) / deviation;
        EXPECT_NEAR(compound.acentricFactor, omega, 0.01) << compound.id;
    }
}

TEST(CompoundTable, LeavesTheBoilingPointOfCarbonDioxideOpenBecauseItSublimes)
{
    EXPECT_TRUE(std::isnan(findCompound("carbon dioxide")->normalBoilingPoint));
}

// NIST Chemistry WebBook, ideal-gas heat capacity at 298.15 K, J/mol/K.
TEST(CompoundTable, HasHeatCapacitiesThatGiveTheKnownValuesAtRoomTemperature)
{
    const std::map<std::string_view, double> known = {
        {"methane", 35.7},   {"ethane", 52.5},          {"propane", 73.6},         {"n-butane", 98.5},
        {"isobutane", 96.7}, {"n-pentane", 120.0},      {"isopentane", 118.9},     {"n-hexane", 142.6},
        {"nitrogen", 29.12}, {"carbon dioxide", 37.13}, {"hydrogen sulfide", 34.2}};
    ASSERT_EQ(known.size(), compoundTable().size());
    for (const CompoundData &compound : compoundTable()) {
        const double expected = known.at(compound.id);
        EXPECT_NEAR(idealGasHeatCapacity(compound.idealGasHeatCapacity, 298.15), expected, 0.007 * expected)
            << compound.id;
    }
}

// NIST-JANAF Thermochemical Tables, 4th ed. (1998), Cp at 1000 K, J/mol/K.
TEST(CompoundTable, HasHeatCapacitiesThatGiveTheKnownValuesAtAThousandKelvin)
{
    const std::map<std::string_view, double> known = {
        {"methane", 71.795}, {"nitrogen", 32.697}, {"carbon dioxide", 54.308}, {"hydrogen sulfide", 45.786}};
    for (const auto &[id, expected] : known)
        EXPECT_NEAR(idealGasHeatCapacity(findCompound(id)->idealGasHeatCapacity, 1000.0), expected, 0.02 * expected)
            << id;
}

TEST(FindCompound, KnowsNoOtherNames) { EXPECT_EQ(findCompound("water"), nullptr); }

TEST(InteractionParameter, IsTheSameInBothDirections)
{
    for (const CompoundData &first : compoundTable())
        for (const CompoundData &second : compoundTable())
            EXPECT_EQ(interactionParameter(first.id, second.id), interactionParameter(second.id, first.id));
}

TEST(InteractionParameter, IsThePublishedOne)
{
    EXPECT_EQ(interactionParameter("nitrogen", "methane"), 0.025);
    EXPECT_EQ(interactionParameter("n-hexane", "hydrogen sulfide"), 0.055);
    EXPECT_EQ(interactionParameter("carbon dioxide", "hydrogen sulfide"), 0.135);
    EXPECT_EQ(interactionParameter("methane", "n-butane"), 0.0);
    EXPECT_EQ(interactionParameter("methane", "methane"), 0.0);
}
