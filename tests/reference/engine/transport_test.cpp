#include "reference/engine/transport/chung_mixture.h"
#include "reference/engine/transport/pure_transport.h"
#include "tests/reference/engine/random_points.h"

#include <gtest/gtest.h>

using namespace reference;

namespace {

double pure(EquationOfState equation, std::string_view id, double T, double P, Root root, PhaseQuantity quantity)
{
    const MixtureModel model = modelOf({id}, equation);
    return valueOf(PhasePoint(model, T, P, std::array{1.0}, root), quantity);
}

} // namespace

// CRC Handbook of Chemistry and Physics, "Viscosity of gases" and "Thermal conductivity of gases", at 300 K and
// low pressure: uPa s and mW/m/K.
TEST(Transport, IsThatOfPublishedTablesInGases)
{
    const struct {
        std::string_view id;
        double viscosity;
        double conductivity;
    } rows[] = {{"methane", 11.2e-6, 34.1e-3},        {"ethane", 9.5e-6, 21.3e-3},        {"propane", 8.3e-6, 18.0e-3},
                {"nitrogen", 17.9e-6, 26.0e-3},       {"oxygen", 20.8e-6, 26.3e-3},       {"argon", 22.9e-6, 17.9e-3},
                {"carbon dioxide", 15.0e-6, 16.8e-3}, {"sulfur dioxide", 12.9e-6, 9.6e-3}};
    for (const auto &row : rows) {
        for (const EquationOfState equation : equations) {
            EXPECT_NEAR(pure(equation, row.id, 300.0, 101325.0, Root::vapor, PhaseQuantity::viscosity), row.viscosity,
                        0.03 * row.viscosity)
                << row.id;
            EXPECT_NEAR(pure(equation, row.id, 300.0, 101325.0, Root::vapor, PhaseQuantity::thermalConductivity),
                        row.conductivity, 0.06 * row.conductivity)
                << row.id;
        }
    }
}

// CRC Handbook, "Viscosity of liquids" (mPa s) and "Thermal conductivity of liquids" (W/m/K) at 25 C.
TEST(Transport, IsThatOfPublishedTablesInLiquids)
{
    const struct {
        std::string_view id;
        double viscosity;
        double conductivity;
    } rows[] = {{"n-pentane", 0.224e-3, 0.113},   {"n-hexane", 0.300e-3, 0.120}, {"n-heptane", 0.387e-3, 0.123},
                {"n-octane", 0.508e-3, 0.128},    {"benzene", 0.604e-3, 0.141},  {"toluene", 0.560e-3, 0.131},
                {"cyclohexane", 0.894e-3, 0.123}, {"acetone", 0.306e-3, 0.161},  {"ethanol", 1.074e-3, 0.169},
                {"1-butanol", 2.544e-3, 0.154},   {"water", 0.890e-3, 0.607}};
    for (const auto &row : rows)
        for (const EquationOfState equation : equations) {
            EXPECT_NEAR(pure(equation, row.id, 298.15, 101325.0, Root::liquid, PhaseQuantity::viscosity), row.viscosity,
                        0.04 * row.viscosity)
                << row.id << " " << static_cast<int>(equation);
            EXPECT_NEAR(pure(equation, row.id, 298.15, 101325.0, Root::liquid, PhaseQuantity::thermalConductivity),
                        row.conductivity, 0.05 * row.conductivity)
                << row.id << " " << static_cast<int>(equation);
        }
}

// CRC Handbook, "Viscosity of liquids" at 50 C, mPa s.
TEST(Transport, FallsWithTheTemperatureOfALiquid)
{
    const struct {
        std::string_view id;
        double viscosity;
    } rows[] = {{"n-heptane", 0.301e-3}, {"n-octane", 0.385e-3}, {"benzene", 0.436e-3}, {"toluene", 0.424e-3},
                {"acetone", 0.247e-3},   {"ethanol", 0.694e-3},  {"water", 0.547e-3}};
    for (const auto &row : rows)
        for (const EquationOfState equation : equations)
            EXPECT_NEAR(pure(equation, row.id, 323.15, 101325.0, Root::liquid, PhaseQuantity::viscosity), row.viscosity,
                        0.04 * row.viscosity)
                << row.id << " " << static_cast<int>(equation);
}

// Neither has a pole between weak and strong dipoles.
TEST(Transport, IsPositiveInEveryMixture)
{
    for (const CompoundData &first : compoundTable())
        for (const std::string_view second : {"n-hexane", "acetone", "water", "R-32", "hydrogen"})
            for (const EquationOfState equation : equations) {
                const MixtureModel model = modelOf({first.id, second}, equation);
                for (const double x : {0.0, 0.3, 0.7, 1.0})
                    for (const Root root : {Root::vapor, Root::liquid}) {
                        const PhasePoint point(model, 320.0, 5e6, std::array{x, 1.0 - x}, root);
                        const double viscosity = valueOf(point, PhaseQuantity::viscosity);
                        const double conductivity = valueOf(point, PhaseQuantity::thermalConductivity);
                        ASSERT_TRUE(viscosity > 5e-6 && viscosity < 1.0) << first.id << " " << second << viscosity;
                        ASSERT_TRUE(conductivity > 5e-3 && conductivity < 5.0)
                            << first.id << " " << second << conductivity;
                    }
            }
}

// NIST Chemistry WebBook (SRD 69): methane at 300 K and 10 MPa, dense but no liquid: 13.8 uPa s, 45.6 mW/m/K.
TEST(Transport, RisesWithTheDensityOfAGas)
{
    for (const EquationOfState equation : {EquationOfState::pengRobinson, EquationOfState::soaveRedlichKwong}) {
        EXPECT_NEAR(pure(equation, "methane", 300.0, 1e7, Root::vapor, PhaseQuantity::viscosity), 13.8e-6, 0.7e-6);
        EXPECT_NEAR(pure(equation, "methane", 300.0, 1e7, Root::vapor, PhaseQuantity::thermalConductivity), 45.6e-3,
                    4.6e-3);
    }
}

// With sigma^3 = Vc / 0.809^3 and epsilon / k = Tc / 1.2593, the correlation's dilute gas is
// 40.785 Fc sqrt(M T) / (Vc^(2/3) Omega) uP. For methane at 300 K (Vc 98.6 cm3/mol) T* = 1.2593 * 300 / 190.564 =
// 1.98249 and Omega = 1.16145 / 1.98249^0.14874 + 0.52487 exp(-0.7732 * 1.98249) + 2.16178 exp(-2.43787 * 1.98249)
// = 1.17959; Fc = 1 - 0.2756 * 0.01142 = 0.99685.
TEST(ChungFluid, HasTheViscosityOfTheThinGasWorkedOutByHand)
{
    const CompoundData &methane = *findCompound("methane");
    const double Vc = 1e6 * methane.criticalVolume;
    const double expected = 40.785e-7 * 0.99685 * std::sqrt(16.04246 * 300.0) / (std::pow(Vc, 2.0 / 3.0) * 1.17959);
    const TransportParts parts = ChungFluid::ofCompound(methane, 300.0, 1e-6).viscosity();
    EXPECT_NEAR(parts.gas.value, expected, 1e-4 * expected);
    EXPECT_NEAR(parts.excess.value, 0.0, 1e-9 * expected);
}

// The table's equation by hand: 5.2546e-7 * 300^0.59006 / (1 + 105.67 / 300) = 1.12496e-5.
TEST(Transport, HasThePublishedViscosityOfTheThinGas)
{
    EXPECT_NEAR(pure(EquationOfState::pengRobinson, "methane", 300.0, 1.0, Root::vapor, PhaseQuantity::viscosity),
                1.12496e-5, 1e-10);
}

// Wilke: the sum over i of x_i eta_i / (the sum over j of x_j phi_ij), phi_12 = (1 + sqrt(eta_1 / eta_2)
// (M2 / M1)^0.25)^2 / sqrt(8 (1 + M1 / M2)); for the conductivity, with the same phi.
TEST(Transport, MixesThinGasesAsWilkeDoes)
{
    const MixtureModel model = modelOf({"hydrogen", "carbon dioxide"});
    const auto of = [&](double x, PhaseQuantity quantity) {
        return valueOf(PhasePoint(model, 350.0, 1.0, std::array{x, 1.0 - x}, Root::vapor), quantity);
    };
    const double first = of(1.0, PhaseQuantity::viscosity);
    const double second = of(0.0, PhaseQuantity::viscosity);
    const double mass = 2.01588 / 44.0095;
    const double phi12 =
        std::pow(1.0 + std::sqrt(first / second) * std::pow(mass, -0.25), 2.0) / std::sqrt(8.0 * (1.0 + mass));
    const double phi21 =
        std::pow(1.0 + std::sqrt(second / first) * std::pow(mass, 0.25), 2.0) / std::sqrt(8.0 * (1.0 + 1.0 / mass));
    for (const PhaseQuantity quantity : {PhaseQuantity::viscosity, PhaseQuantity::thermalConductivity}) {
        const double expected =
            0.3 * of(1.0, quantity) / (0.3 + 0.7 * phi12) + 0.7 * of(0.0, quantity) / (0.7 + 0.3 * phi21);
        EXPECT_NEAR(of(0.3, quantity), expected, 1e-6 * expected);
    }
}

// What a liquid has over the thin gas is the correlation's for the mixture, times the geometric mean of the factors
// that its pure compounds need: Grunberg, Nissan, Nature 164 (1949) 799. For 1-butanol and n-hexane an arithmetic mean
// of these would be another one by a part.
TEST(Transport, MixesWhatLiquidsNeedGeometrically)
{
    constexpr double T = 298.15;
    constexpr std::array x = {0.4, 0.6};
    const MixtureModel model = modelOf({"1-butanol", "n-hexane"});
    const PureTransport butanol = pureTransport(model.compounds[0], model.equation, T);
    const PureTransport hexane = pureTransport(model.compounds[1], model.equation, T);
    const PhasePoint liquid(model, T, 101325.0, x, Root::liquid);
    const PhasePoint thinGas(model, T, 1.0, x, Root::vapor);
    const auto expect = [&](PhaseQuantity quantity, const Dual &one, const Dual &other, double excessOfCorrelation) {
        const double geometric = std::pow(one.value, x[0]) * std::pow(other.value, x[1]);
        const double arithmetic = x[0] * one.value + x[1] * other.value;
        EXPECT_GT(std::fabs(arithmetic / geometric - 1.0), 0.005);
        const double excess = valueOf(liquid, quantity) - valueOf(thinGas, quantity);
        EXPECT_NEAR(excess, geometric * excessOfCorrelation, 1e-4 * excess);
    };
    const ChungFluid fluid = ChungMixture(liquid).fluid({});
    expect(PhaseQuantity::viscosity, butanol.viscosityFactor, hexane.viscosityFactor, fluid.viscosity().excess.value);
    expect(PhaseQuantity::thermalConductivity, butanol.conductivityFactor, hexane.conductivityFactor,
           fluid.conductivity(liquid.bulk({}).idealHeatCapacity).excess.value);
}

// 0.00143 * 298.2^1.75 / (1 bar * sqrt(34.23) * (18.5^(1/3) + 26.9^(1/3))^2) = 0.1645 cm2/s.
TEST(Transport, HasTheDiffusionCoefficientOfAGasWorkedOutByHand)
{
    for (const EquationOfState equation : equations) {
        const MixtureModel model = modelOf({"nitrogen", "carbon dioxide"}, equation);
        const PhasePoint gas(model, 298.2, 1.0, std::array{0.3, 0.7}, Root::vapor);
        const std::vector<double> D = valuesOf(gas, PhaseQuantity::diffusionCoefficient);
        EXPECT_NEAR(D[1], 0.1645 * 1e-4 * 1e5, 0.001 * 1e-4 * 1e5);
        EXPECT_EQ(D[1], D[2]);
        EXPECT_NE(D[0], D[3]);
    }
}

// CRC Handbook, "Diffusion of gases" at 1 atm and 20 C, and "Diffusion in liquids" at infinite dilution and 25 C.
TEST(Transport, HasDiffusionCoefficientsNearPublishedOnes)
{
    const MixtureModel gas = modelOf({"nitrogen", "carbon dioxide"});
    const PhasePoint air(gas, 293.15, 101325.0, std::array{0.5, 0.5}, Root::vapor);
    EXPECT_NEAR(valuesOf(air, PhaseQuantity::diffusionCoefficient)[1], 0.160e-4, 0.008e-4);

    const MixtureModel model = modelOf({"toluene", "n-hexane"});
    const PhasePoint oil(model, 298.15, 101325.0, std::array{0.0, 1.0}, Root::liquid);
    EXPECT_NEAR(valuesOf(oil, PhaseQuantity::diffusionCoefficient)[1], 4.21e-9, 0.25 * 4.21e-9);
}

// At either end, one compound moves in the other; between, by the logarithm.
TEST(Transport, LetsTheLiquidsDiffusionFollowFromBothEnds)
{
    const MixtureModel model = modelOf({"propane", "n-hexane"});
    const auto scaled = [&](double x) { // times viscosity
        const PhasePoint point(model, 280.0, 2e6, std::array{x, 1.0 - x}, Root::liquid);
        const std::vector<double> D = valuesOf(point, PhaseQuantity::diffusionCoefficient);
        EXPECT_EQ(D[1], D[2]);
        return D[1] * valueOf(point, PhaseQuantity::viscosity);
    };
    // Wilke and Chang: sqrt(M of the solvent) / V^0.6 of the solute, V = 0.285 Vc^1.048.
    const CompoundData &propane = *findCompound("propane");
    const CompoundData &hexane = *findCompound("n-hexane");
    const auto expected = [&](const CompoundData &solute, const CompoundData &solvent) {
        const double V = 0.285 * std::pow(1e6 * solute.criticalVolume, 1.048);
        return 7.4e-12 * 1e-3 * 280.0 * std::sqrt(solvent.molecularWeight) / std::pow(V, 0.6);
    };
    EXPECT_NEAR(scaled(0.0), expected(propane, hexane), 1e-9 * scaled(0.0));
    EXPECT_NEAR(scaled(1.0), expected(hexane, propane), 1e-9 * scaled(1.0));
    EXPECT_NEAR(scaled(0.5), std::sqrt(scaled(0.0) * scaled(1.0)), 1e-9 * scaled(0.5));
}
