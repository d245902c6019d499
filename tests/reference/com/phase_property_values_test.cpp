// Whether each single-phase property stands under its own name, in its unit, and with its
// derivatives in the order of the standard.
#include "tests/reference/com/package_fixture.h"

#include <cmath>

using namespace reference;

namespace {

constexpr double R = 8.31446261815324; // J/mol/K

enum class Kind { scalar, extensive, vector, matrix };

// The identifiers of the standard, and what they are: an extensive one has its .Dmoles as partial
// molar property.
const struct {
    std::string name;
    Kind kind;
    const char *basis;
} identifiers[] = {
    {"fugacity", Kind::vector, ""},
    {"fugacityCoefficient", Kind::vector, ""},
    {"logFugacity", Kind::vector, ""},
    {"logFugacityCoefficient", Kind::vector, ""},
    {"activity", Kind::vector, ""},
    {"activityCoefficient", Kind::vector, ""},
    {"volume", Kind::extensive, "mole"},
    {"density", Kind::scalar, "mole"},
    {"compressibilityFactor", Kind::scalar, ""},
    {"compressibility", Kind::scalar, ""},
    {"enthalpy", Kind::extensive, "mole"},
    {"enthalpyF", Kind::extensive, "mole"},
    {"enthalpyNF", Kind::extensive, "mole"},
    {"entropy", Kind::extensive, "mole"},
    {"entropyF", Kind::extensive, "mole"},
    {"entropyNF", Kind::extensive, "mole"},
    {"gibbsEnergy", Kind::extensive, "mole"},
    {"helmholtzEnergy", Kind::extensive, "mole"},
    {"internalEnergy", Kind::extensive, "mole"},
    {"heatCapacityCp", Kind::extensive, "mole"},
    {"heatCapacityCv", Kind::extensive, "mole"},
    {"speedOfSound", Kind::scalar, ""},
    {"jouleThomsonCoefficient", Kind::scalar, ""},
    {"molecularWeight", Kind::scalar, ""},
    {"excessEnthalpy", Kind::extensive, "mole"},
    {"excessEntropy", Kind::extensive, "mole"},
    {"excessGibbsEnergy", Kind::extensive, "mole"},
    {"excessHelmholtzEnergy", Kind::extensive, "mole"},
    {"excessInternalEnergy", Kind::extensive, "mole"},
    {"excessVolume", Kind::extensive, "mole"},
    {"viscosity", Kind::scalar, ""},
    {"thermalConductivity", Kind::scalar, ""},
    {"diffusionCoefficient", Kind::matrix, ""},
};

class PackagePropertyValues : public PackageFixture {
protected:
    static constexpr std::size_t n = 3;

    void SetUp() override
    {
        PackageFixture::SetUp();
        setMaterial();
        material.pressure = 2e6;
    }

    std::vector<double> valuesOf(const std::string &name, const std::string &phase = "Vapor")
    {
        material.written.clear();
        EXPECT_EQ(properties->CalcSinglePhaseProp(texts({name}).get(), Bstr(phase).get()), S_OK)
            << name << ": " << lastFailure(properties.get()).description;
        return material.written[phase + "/" + name].values;
    }
    double valueOf(const std::string &name, const std::string &phase = "Vapor")
    {
        const std::vector<double> values = valuesOf(name, phase);
        EXPECT_EQ(values.size(), 1u) << name;
        return values.at(0);
    }

    // Central difference of all values when `place` changes, Richardson's way.
    std::vector<double> difference(const std::string &name, const std::string &phase, double &place, double step)
    {
        const double middle = place;
        const auto slope = [&](double h) {
            place = middle - h;
            std::vector<double> values = valuesOf(name, phase);
            place = middle + h;
            const std::vector<double> above = valuesOf(name, phase);
            place = middle;
            for (std::size_t i = 0; i < values.size(); ++i)
                values[i] = (above[i] - values[i]) / (2.0 * h);
            return values;
        };
        std::vector<double> fine = slope(step / 2.0);
        const std::vector<double> coarse = slope(step);
        for (std::size_t i = 0; i < fine.size(); ++i)
            fine[i] += (fine[i] - coarse[i]) / 3.0;
        return fine;
    }

    // What rounding leaves of a difference quotient of values of this size.
    static double allowance(const std::vector<double> &values, double step)
    {
        double largest = 0.0;
        for (const double value : values)
            largest = std::max(largest, std::fabs(value));
        return 1e-11 * largest / step;
    }
};

} // namespace

TEST_F(PackagePropertyValues, AreListedWithFourDerivativesEach)
{
    std::vector<std::string> expected;
    for (const auto &each : identifiers)
        for (const char *suffix : {"", ".Dtemperature", ".Dpressure", ".Dmoles", ".DmolFraction"})
            expected.push_back(each.name + suffix);
    Argument list;
    ASSERT_EQ(properties->GetSinglePhasePropList(list.out()), S_OK);
    EXPECT_EQ(textsOf(list.get()), expected);
    for (const std::string &name : expected)
        for (const char *phase : {"VAPOR", "liquid"}) {
            VARIANT_BOOL valid = VARIANT_FALSE;
            EXPECT_EQ(
                properties->CheckSinglePhasePropSpec(Bstr(name).get(), Bstr(std::string_view(phase)).get(), &valid),
                S_OK);
            EXPECT_EQ(valid, VARIANT_TRUE) << name << " " << phase;
        }
}

TEST_F(PackagePropertyValues, ComeWithTheirBasisAndInTheirNumber)
{
    const std::size_t sizes[] = {1, 1, n, n * n}; // by Kind
    for (const auto &each : identifiers)
        for (const char *phase : {"Vapor", "Liquid"})
            for (const char *suffix : {"", ".Dtemperature", ".Dpressure", ".Dmoles", ".DmolFraction"}) {
                const std::string name = each.name + suffix;
                const bool byComposition = std::string_view(suffix).starts_with(".Dmol");
                const std::vector<double> values = valuesOf(name, phase);
                EXPECT_EQ(values.size(), sizes[static_cast<int>(each.kind)] * (byComposition ? n : 1)) << name;
                EXPECT_EQ(material.written[std::string(phase) + "/" + name].basis, each.basis) << name;
                for (const double value : values)
                    EXPECT_TRUE(std::isfinite(value)) << name << " " << phase;
            }
}

TEST_F(PackagePropertyValues, KeepTheRelationsThatDefineThem)
{
    for (const std::string phase : {"Vapor", "Liquid"}) {
        SCOPED_TRACE(phase);
        const double T = material.temperature;
        const double P = material.pressure;
        const std::vector<double> &x = material.composition;
        const auto value = [&](const char *name) { return valueOf(name, phase); };
        const double V = value("volume");
        const double H = value("enthalpy");
        const double S = value("entropy");
        const double U = value("internalEnergy");
        const double Cp = value("heatCapacityCp");
        const double Cv = value("heatCapacityCv");
        const double VbyT = value("volume.Dtemperature");
        const double VbyP = value("volume.Dpressure");
        const double scale = std::fabs(H) + R * T;
        EXPECT_NEAR(value("density") * V, 1.0, 1e-14);
        EXPECT_NEAR(value("compressibilityFactor"), P * V / (R * T), 1e-14);
        EXPECT_NEAR(value("compressibility"), -VbyP / V, 1e-12 * std::fabs(VbyP / V));
        EXPECT_NEAR(value("enthalpyNF"), H, 1e-13 * scale);
        EXPECT_NEAR(value("entropyNF"), S, 1e-13 * scale / T);
        EXPECT_NEAR(U, H - P * V, 1e-13 * scale);
        EXPECT_NEAR(value("gibbsEnergy"), H - T * S, 1e-13 * scale);
        EXPECT_NEAR(value("helmholtzEnergy"), U - T * S, 1e-13 * scale);
        EXPECT_NEAR(Cp, value("enthalpy.Dtemperature"), 1e-11 * Cp);
        EXPECT_NEAR(Cp - Cv, -T * VbyT * VbyT / VbyP, 1e-11 * Cp);
        EXPECT_NEAR(value("jouleThomsonCoefficient"), (T * VbyT - V) / Cp, 1e-11 * std::fabs(V / Cp));
        const double mass = value("molecularWeight") / 1000.0; // kg/mol
        EXPECT_NEAR(mass, 0.25 * 44.09562e-3 + 0.625 * 16.04246e-3 + 0.125 * 28.0134e-3, 1e-12);
        EXPECT_NEAR(value("speedOfSound"), std::sqrt(-V * V * Cp / (Cv * VbyP * mass)), 1e-9);

        const std::vector<double> phi = valuesOf("fugacityCoefficient", phase);
        const std::vector<double> fugacity = valuesOf("fugacity", phase);
        const std::vector<double> logPhi = valuesOf("logFugacityCoefficient", phase);
        const std::vector<double> logFugacity = valuesOf("logFugacity", phase);
        const std::vector<double> activity = valuesOf("activity", phase);
        const std::vector<double> gamma = valuesOf("activityCoefficient", phase);
        for (std::size_t i = 0; i < n; ++i) {
            EXPECT_NEAR(std::log(phi[i]), logPhi[i], 1e-13);
            EXPECT_NEAR(fugacity[i], x[i] * phi[i] * P, 1e-13 * fugacity[i]);
            EXPECT_NEAR(logFugacity[i], std::log(fugacity[i]), 1e-13);
            EXPECT_NEAR(activity[i], x[i] * gamma[i], 1e-13 * activity[i]);
        }
    }
}

// Formation: the plain properties leave it out.
TEST_F(PackagePropertyValues, IncludeTheFormationWhereTheNameSaysSo)
{
    Argument constants;
    ASSERT_EQ(
        compounds->GetCompoundConstant(texts({"standardFormationEnthalpyGas", "standardFormationGibbsEnergyGas"}).get(),
                                       texts(material.compoundIds).get(), constants.out()),
        S_OK);
    ArrayView<VARIANT, VT_VARIANT> list;
    ASSERT_TRUE(list.open(constants.get()));
    double enthalpy = 0.0;
    double entropy = 0.0;
    for (int i = 0; i < 3; ++i) {
        enthalpy += material.composition[i] * list[i].dblVal;
        entropy += material.composition[i] * (list[i].dblVal - list[i + 3].dblVal) / 298.15;
    }
    EXPECT_LT(enthalpy, -40e3); // most is methane, with -74.5 kJ/mol
    for (const char *phase : {"Vapor", "Liquid"}) {
        EXPECT_NEAR(valueOf("enthalpyF", phase) - valueOf("enthalpyNF", phase), enthalpy, 1e-9 * std::fabs(enthalpy));
        EXPECT_NEAR(valueOf("entropyF", phase) - valueOf("entropyNF", phase), entropy, 1e-9 * std::fabs(entropy));
    }
}

// Over the pure compounds at the same temperature and pressure, which are asked for one by one.
TEST_F(PackagePropertyValues, TakeExcessAndActivityFromThePureCompounds)
{
    const std::vector<double> x = material.composition;
    const std::string phase = "Liquid";
    const struct {
        const char *excess;
        const char *property;
        double mixing; // what ideal mixing adds, of the sum of x ln x
    } pairs[] = {{"excessVolume", "volume", 0.0},
                 {"excessEnthalpy", "enthalpy", 0.0},
                 {"excessInternalEnergy", "internalEnergy", 0.0},
                 {"excessEntropy", "entropy", -R},
                 {"excessGibbsEnergy", "gibbsEnergy", R * material.temperature},
                 {"excessHelmholtzEnergy", "helmholtzEnergy", R * material.temperature}};
    double sumXLnX = 0.0;
    for (const double fraction : x)
        sumXLnX += fraction * std::log(fraction);
    for (const auto &pair : pairs) {
        const double excess = valueOf(pair.excess, phase);
        double expected = valueOf(pair.property, phase) - pair.mixing * sumXLnX;
        const double scale = std::fabs(expected);
        for (std::size_t i = 0; i < n; ++i) {
            material.composition = {0.0, 0.0, 0.0};
            material.composition[i] = 1.0;
            expected -= x[i] * valueOf(pair.property, phase);
        }
        material.composition = x;
        EXPECT_NEAR(excess, expected, 1e-11 * scale) << pair.excess;
    }
    const std::vector<double> gamma = valuesOf("activityCoefficient", phase);
    const std::vector<double> logPhi = valuesOf("logFugacityCoefficient", phase);
    double excessGibbs = 0.0;
    for (std::size_t i = 0; i < n; ++i) {
        material.composition = {0.0, 0.0, 0.0};
        material.composition[i] = 1.0;
        EXPECT_NEAR(std::log(gamma[i]), logPhi[i] - valuesOf("logFugacityCoefficient", phase)[i], 1e-11);
        excessGibbs += R * material.temperature * x[i] * std::log(gamma[i]);
    }
    material.composition = x;
    EXPECT_NEAR(valueOf("excessGibbsEnergy", phase), excessGibbs, 1e-9 * std::fabs(excessGibbs));
}

TEST_F(PackagePropertyValues, HaveTheDerivativesThatDifferencesGive)
{
    for (const std::string phase : {"Vapor", "Liquid"})
        for (const auto &each : identifiers) {
            SCOPED_TRACE(each.name + " " + phase);
            const std::vector<double> values = valuesOf(each.name, phase);
            const struct {
                const char *suffix;
                double &place;
                double step;
            } conditions[] = {{".Dtemperature", material.temperature, 0.5}, {".Dpressure", material.pressure, 1e4}};
            for (const auto &condition : conditions) {
                const std::vector<double> analytic = valuesOf(each.name + condition.suffix, phase);
                const std::vector<double> differences = difference(each.name, phase, condition.place, condition.step);
                ASSERT_EQ(analytic.size(), differences.size());
                for (std::size_t i = 0; i < analytic.size(); ++i)
                    EXPECT_NEAR(analytic[i], differences[i],
                                1e-6 * std::fabs(differences[i]) + allowance(values, condition.step))
                        << condition.suffix << " " << i;
            }
        }
}

// All derivatives by one compound stand together, in the order of the property's own values. What is
// scaled to sum to one tells the change of a molar property with an amount; a partial molar property
// is that and the molar property itself.
TEST_F(PackagePropertyValues, HaveCompositionDerivativesCompoundByCompound)
{
    for (const std::string phase : {"Vapor", "Liquid"})
        for (const auto &each : identifiers) {
            SCOPED_TRACE(each.name + " " + phase);
            const std::vector<double> values = valuesOf(each.name, phase);
            const std::vector<double> byMoles = valuesOf(each.name + ".Dmoles", phase);
            const std::vector<double> byFraction = valuesOf(each.name + ".DmolFraction", phase);
            const std::size_t block = values.size();
            ASSERT_EQ(byMoles.size(), n * block);
            ASSERT_EQ(byFraction.size(), n * block);
            const double step = 1e-3;
            for (std::size_t j = 0; j < n; ++j) {
                std::vector<double> slope = difference(each.name, phase, material.composition[j], step);
                for (std::size_t i = 0; i < block; ++i) {
                    slope[i] += each.kind == Kind::extensive ? values[i] : 0.0;
                    EXPECT_NEAR(byMoles[i + block * j], slope[i], 1e-6 * std::fabs(slope[i]) + allowance(values, step))
                        << i << " by " << j;
                    // A step from the first compound to another.
                    EXPECT_NEAR(byFraction[i + block * j] - byFraction[i], byMoles[i + block * j] - byMoles[i],
                                1e-9 * (std::fabs(byMoles[i + block * j]) + std::fabs(byMoles[i])))
                        << i << " by " << j;
                }
            }
        }
}

// What a script can tell a phase by that the equation does not have.
TEST_F(PackagePropertyValues, AreTheSameByBothNamesWhereTheEquationHasOneRoot)
{
    material.temperature = 400.0;
    material.pressure = 1e5;
    EXPECT_EQ(valueOf("density", "Liquid"), valueOf("density", "Vapor"));
    material.temperature = 200.0;
    EXPECT_GT(valueOf("density", "Liquid"), 10.0 * valueOf("density", "Vapor"));
    EXPECT_LT(valueOf("gibbsEnergy", "Vapor"), valueOf("gibbsEnergy", "Liquid")); // a gas at 1 bar
    material.pressure = 2e7;
    material.temperature = 120.0;
    material.composition = {0.25, 0.75, 0.0}; // propane and methane, a liquid there
    EXPECT_LE(valueOf("gibbsEnergy", "Liquid"), valueOf("gibbsEnergy", "Vapor"));
}

// Methane at 300 K and 1 bar: 11.1 uPa s, 34.4 mW/m/K and 450 m/s (NIST Chemistry WebBook); the
// equations of transport are good for some percent. Methane in nitrogen at 298 K and 1 atm: 0.22
// cm2/s (Marrero, Mason, J. Phys. Chem. Ref. Data 1 (1972) 3).
TEST_F(PackagePropertyValues, AreInSIUnits)
{
    material.temperature = 300.0;
    material.pressure = 1e5;
    material.composition = {0.0, 1.0, 0.0};
    EXPECT_NEAR(valueOf("viscosity"), 11.1e-6, 0.6e-6);
    EXPECT_NEAR(valueOf("thermalConductivity"), 34.4e-3, 3e-3);
    EXPECT_NEAR(valueOf("speedOfSound"), 450.0, 3.0);
    EXPECT_NEAR(valueOf("density"), 1e5 / (R * 300.0), 0.2);
    material.temperature = 298.0;
    material.pressure = 101325.0;
    material.composition = {0.0, 0.5, 0.5};
    const std::vector<double> diffusion = valuesOf("diffusionCoefficient");
    ASSERT_EQ(diffusion.size(), n * n);
    EXPECT_NEAR(diffusion[1 + 3 * 2], 0.22e-4, 0.02e-4);
    EXPECT_DOUBLE_EQ(diffusion[1 + 3 * 2], diffusion[2 + 3 * 1]);
    EXPECT_LT(diffusion[0 + 3 * 1], diffusion[1 + 3 * 2]); // propane is slower
}
