// The package of the alcohols: activity coefficients of NRTL.
#include "tests/reference/com/opened_package.h"

#include <cmath>

using namespace reference;

namespace {

constexpr const char *packageName = "Water and light alcohols";

enum class PairKind {
    fitted,  // has parameters
    ideal,   // has none: alcohols with each other are nearly ideal
    refused, // has none
};

// tau12 = b12 / T, tau21 = b21 / T, from the DECHEMA collection as the tables of ChemSep (Kooijman, Taylor) give it.
const struct {
    const char *first;
    const char *second;
    PairKind pair;
    double b12, b21; // K
    double alpha;
} pairs[] = {
    {"methanol", "water", PairKind::fitted, -95.1321, 398.9535, 0.2999},
    {"ethanol", "water", PairKind::fitted, -29.1667, 624.8676, 0.2937},
    {"water", "1-butanol", PairKind::fitted, 1325.3268, 253.6418, 0.4447},
    {"methanol", "ethanol", PairKind::fitted, 33.8617, -35.4816, 0.3009},
    {"methanol", "1-propanol", PairKind::fitted, 12.5303, 4.7981, 0.3011},
    {"methanol", "1-butanol", PairKind::fitted, 399.4644, -244.7307, 0.2483},
    {"ethanol", "2-propanol", PairKind::fitted, 347.2915, -266.3779, 0.3125},
    {"2-propanol", "1-propanol", PairKind::fitted, 84.1635, -88.2108, 0.3057},
    {"water", "1-propanol", PairKind::refused, 0.0, 0.0, 0.0},
    {"water", "2-propanol", PairKind::refused, 0.0, 0.0, 0.0},
    {"methanol", "2-propanol", PairKind::ideal, 0.0, 0.0, 0.0},
    {"ethanol", "1-propanol", PairKind::ideal, 0.0, 0.0, 0.0},
    {"ethanol", "1-butanol", PairKind::ideal, 0.0, 0.0, 0.0},
    {"1-propanol", "1-butanol", PairKind::ideal, 0.0, 0.0, 0.0},
    {"2-propanol", "1-butanol", PairKind::ideal, 0.0, 0.0, 0.0},
};

// The equation for two compounds: Renon, Prausnitz, AIChE J. 14 (1968) 135, eqs. 15 and 16.
double logActivityCoefficient(double x1, double tau12, double tau21, double alpha)
{
    const double x2 = 1.0 - x1;
    const double G12 = std::exp(-alpha * tau12);
    const double G21 = std::exp(-alpha * tau21);
    const double own = G21 / (x1 + x2 * G21);
    const double other = x2 + x1 * G12;
    return x2 * x2 * (tau21 * own * own + tau12 * G12 / (other * other));
}

} // namespace

// All fifteen, in both orders.
TEST(AlcoholPackage, HasThePublishedActivityCoefficientsOfEachPairOrRefuses)
{
    Library library;
    OpenedPackage package(library, packageName);
    ASSERT_EQ(package.ids().size(), 6u);
    constexpr double temperature = 350.0;
    for (const auto &row : pairs)
        for (const bool swapped : {false, true}) {
            std::vector<std::string> ids = {row.first, row.second};
            std::vector<double> x = {0.3, 0.7};
            if (swapped) {
                std::swap(ids[0], ids[1]);
                std::swap(x[0], x[1]);
            }
            package.setMaterial(ids, temperature, 101325.0, x);
            package.material.ownCompositions["Liquid"] = x;
            if (row.pair == PairKind::refused) {
                EXPECT_EQ(package.properties->CalcSinglePhaseProp(texts({"activityCoefficient"}).get(),
                                                                  Bstr(std::string_view("Liquid")).get()),
                          errors::limitedImplementation.result)
                    << row.first << ", " << row.second;
                continue;
            }
            const std::vector<double> gamma = package.valuesOf("activityCoefficient", "Liquid");
            const double tau12 = row.b12 / temperature;
            const double tau21 = row.b21 / temperature;
            EXPECT_NEAR(std::log(gamma[swapped]), logActivityCoefficient(0.3, tau12, tau21, row.alpha), 1e-12)
                << row.first << ", " << row.second;
            EXPECT_NEAR(std::log(gamma[!swapped]), logActivityCoefficient(0.7, tau21, tau12, row.alpha), 1e-12)
                << row.first << ", " << row.second;
        }
}

// At their azeotrope, 351.3 K and 0.894 of ethanol at 101325 Pa, vapor and liquid are alike: each compound has the
// pressure as its fugacity over its fraction.
TEST(AlcoholPackage, BoilsEthanolAndWaterAsIsMeasured)
{
    Library library;
    OpenedPackage package(library, packageName);
    package.setMaterial({"ethanol", "water"}, 351.3, 101325.0, {0.894, 0.106});
    package.material.ownCompositions["Liquid"] = {0.894, 0.106};
    const std::vector<double> gamma = package.valuesOf("activityCoefficient", "Liquid");
    const std::vector<double> fugacity = package.valuesOf("fugacity", "Liquid");
    EXPECT_NEAR(fugacity[0] / 0.894, 101325.0, 0.01 * 101325.0);
    EXPECT_NEAR(fugacity[1] / 0.106, 101325.0, 0.03 * 101325.0);
    EXPECT_GT(gamma[0], 1.0);
    EXPECT_GT(gamma[1], 2.0);
}

TEST(AlcoholPackage, NamesThePairThatItHasNoParametersFor)
{
    Library library;
    OpenedPackage package(library, packageName);
    package.setMaterial({"water", "ethanol", "2-propanol"}, 340.0, 1e5, {0.5, 0.4, 0.1});
    EXPECT_EQ(package.properties->CalcSinglePhaseProp(texts({"density"}).get(), Bstr(std::string_view("Liquid")).get()),
              errors::limitedImplementation.result);
    EXPECT_EQ(lastFailure(package.properties.get()).description,
              "The package has no parameters for 2-propanol together with water");
    package.material.composition = {0.5, 0.5, 0.0};
    EXPECT_GT(package.valuesOf("density", "Liquid")[0], 0.0);
    package.material.composition = {0.0, 0.5, 0.5}; // alcohols with each other are nearly ideal
    EXPECT_GT(package.valuesOf("density", "Liquid")[0], 0.0);
}
