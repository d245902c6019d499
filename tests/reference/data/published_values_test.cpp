// What the packages say of pure compounds, held to the published values of reference/data/published.
#include "reference/package/compound_constants.h"
#include "reference/package/package_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string>
#include <vector>

using namespace reference;

namespace {

constexpr double any = std::numeric_limits<double>::infinity(); // temperature, or distance

struct Kind {
    std::string_view property;
    double unit; // in the SI
    double relative, absolute, median;

    double allowed(double value) const { return std::max(absolute, relative * std::fabs(value)); }
};
void PrintTo(const Kind &kind, std::ostream *stream) { *stream << kind.property; }

struct Reason {
    std::string_view id, property;
    double temperature;
    std::string_view equation;
    double outside;
};
struct Published {
    std::string_view id, property;
    double temperature;
    double value, lowest, highest;
};

#include "published_values.inc"

struct NamedEquation {
    EquationOfState equation;
    std::string_view name;
};
constexpr NamedEquation equations[] = {{EquationOfState::pengRobinson, "pengRobinson"},
                                       {EquationOfState::soaveRedlichKwong, "soaveRedlichKwong"},
                                       {EquationOfState::nrtl, "nrtl"}};

double ours(const PureCompound &compound, const Published &row)
{
    for (const CompoundConstant &constant : compoundConstants())
        if (constant.name == row.property)
            return constant.number(compound);
    const bool density = row.property == "saturatedLiquidDensity";
    for (const ConditionedProperty &property : temperatureDependentProperties().rows)
        if (property.name == (density ? "volumeOfLiquid" : row.property)) {
            const double value = property.value(compound, row.temperature);
            return density ? 1.0 / value : value;
        }
    ADD_FAILURE() << row.property;
    return NAN;
}

// Whether a package has the compound by this equation.
bool isUsed(std::string_view id, EquationOfState equation)
{
    return std::ranges::any_of(packageTable(), [&](const PackageDefinition &package) {
        return package.equation == equation &&
               (package.compounds.empty() || std::ranges::find(package.compounds, id) != package.compounds.end());
    });
}

// How far a value lies outside of the published range; infinite where there is no value.
double outside(const Published &row, double value)
{
    return std::isnan(value) ? any : std::max({row.lowest - value, value - row.highest, 0.0});
}

bool concerns(const Reason &reason, const Published &row, std::string_view equation)
{
    return reason.id == row.id && reason.property == row.property &&
           (reason.temperature == any || reason.temperature == row.temperature) &&
           (reason.equation.empty() || reason.equation == equation);
}

struct Comparison {
    const Published *row;
    std::string_view equation;
    double value;
};

// Of all rows of a kind, by each equation that a package has the compound by; in the unit of the table.
std::vector<Comparison> comparisons(const Kind &kind)
{
    std::vector<Comparison> result;
    for (const Published &row : publishedValues)
        if (row.property == kind.property)
            for (const auto &[equation, name] : equations)
                if (isUsed(row.id, equation))
                    result.push_back({&row, name, ours({*findCompound(row.id), equation}, row) / kind.unit});
    return result;
}

class PublishedKind : public testing::TestWithParam<Kind> {};

std::string describe(const Comparison &found)
{
    const Published &row = *found.row;
    std::string text(row.id);
    text += " " + std::string(row.property);
    if (row.temperature != any)
        text += " at " + std::to_string(row.temperature) + " K";
    char numbers[160];
    std::snprintf(numbers, sizeof numbers, " by %s is %.6g, published %.6g (%.6g to %.6g), outside by %.3g",
                  found.equation.data(), found.value, row.value, row.lowest, row.highest,
                  outside(row, found.value) / std::fabs(row.value));
    return text + numbers;
}

} // namespace

// A value outside needs a reason, and a reason a value outside.
TEST_P(PublishedKind, LiesInTheRangeOfTheSourcesOrHasAReason)
{
    const Kind &kind = GetParam();
    std::vector<bool> needed(std::size(reasons), false);
    for (const Comparison &found : comparisons(kind)) {
        double allowed = kind.allowed(found.row->value);
        const double distance = outside(*found.row, found.value);
        for (std::size_t k = 0; k < std::size(reasons); ++k)
            if (concerns(reasons[k], *found.row, found.equation) && distance > allowed) {
                needed[k] = true;
                allowed = reasons[k].outside * std::fabs(found.row->value);
            }
        EXPECT_LE(distance, allowed) << describe(found);
    }
    for (std::size_t k = 0; k < std::size(reasons); ++k)
        if (reasons[k].property == kind.property) {
            EXPECT_TRUE(needed[k]) << reasons[k].id << " " << kind.property << " needs no reason";
        }
}

TEST_P(PublishedKind, MeetsThePreferredSourceInHalfOfAllCases)
{
    const Kind &kind = GetParam();
    std::vector<double> deviations;
    double worst = 0.0;
    for (const Comparison &found : comparisons(kind))
        if (found.row->value != 0.0) {
            deviations.push_back(std::fabs(found.value / found.row->value - 1.0));
            if (!std::isnan(found.value))
                worst = std::max(worst, outside(*found.row, found.value) / std::fabs(found.row->value));
        }
    ASSERT_GE(deviations.size(), 50u);
    std::ranges::sort(deviations);
    const double median = deviations[deviations.size() / 2];
    RecordProperty("values", static_cast<int>(deviations.size()));
    RecordProperty("median", std::to_string(median));
    RecordProperty("outside", std::to_string(worst));
    EXPECT_LE(median, kind.median);
}

INSTANTIATE_TEST_SUITE_P(Of, PublishedKind, testing::ValuesIn(kinds),
                         [](const auto &info) { return std::string(info.param.property); });

// Every row is compared: its kind has a tolerance, its compound is there.
TEST(PublishedTables, AreComparedWhole)
{
    for (const Published &row : publishedValues) {
        EXPECT_NE(std::ranges::find(kinds, row.property, &Kind::property), std::end(kinds)) << row.property;
        EXPECT_NE(findCompound(row.id), nullptr) << row.id;
        EXPECT_TRUE(row.lowest <= row.value && row.value <= row.highest) << row.id << " " << row.property;
    }
    EXPECT_GE(std::size(publishedValues), 2199u);
}
