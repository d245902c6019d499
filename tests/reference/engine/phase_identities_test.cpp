// What holds between the properties of any phase, whatever the equation of state: thermodynamics alone.
#include "reference/engine/quantities/phase_calculation.h"
#include "reference/engine/quantities/phase_quantity.h"
#include "tests/reference/engine/random_points.h"

#include <gtest/gtest.h>

using namespace reference;

namespace {

using enum PhaseQuantity;
using enum Differential;

constexpr double R = 8.31446261815324;
constexpr int phasesOfEach = 1000;

std::string described(const RandomPhase &phase)
{
    std::string text = "equation " + std::to_string(static_cast<int>(phase.model->equation)) + ", root " +
                       std::to_string(static_cast<int>(phase.root)) + ", " + std::to_string(phase.temperature) +
                       " K, " + std::to_string(phase.pressure) + " Pa:";
    for (std::size_t i = 0; i < phase.x.size(); ++i)
        text += " " + std::string(phase.model->compounds[i].data->id) + " " + std::to_string(phase.x[i]);
    return text;
}

// Equal to a part in 1e9 of the larger of the two or of what they were computed from.
void expectSame(double left, double right, double size, const RandomPhase &phase, const char *what)
{
    ASSERT_NEAR(left, right, 1e-9 * std::max(std::fabs(left), size)) << what << ", " << described(phase);
}

} // namespace

TEST(PhaseIdentities, TieTheEnergiesTogether)
{
    forRandomPhases(phasesOfEach, 11, [](const RandomPhase &phase) {
        const PhasePoint point = phase.point();
        const double T = phase.temperature;
        const double H = valueOf(point, enthalpy);
        const double S = valueOf(point, entropy);
        const double G = valueOf(point, gibbsEnergy);
        const double PV = phase.pressure * valueOf(point, volume);
        const double size = std::fabs(H) + std::fabs(T * S);
        expectSame(G, H - T * S, size, phase, "G = H - T S");
        expectSame(valueOf(point, helmholtzEnergy), G - PV, size + PV, phase, "A = G - P V");
        expectSame(valueOf(point, internalEnergy), H - PV, size + PV, phase, "U = H - P V");
        expectSame(valueOf(point, compressibilityFactor), PV / (R * T), 0.0, phase, "Z = P V / R T");
        expectSame(valueOf(point, density) * valueOf(point, volume), 1.0, 0.0, phase, "density");
        expectSame(valueOf(point, enthalpyNF), H, 0.0, phase, "enthalpyNF");
        expectSame(valueOf(point, entropyNF), S, 0.0, phase, "entropyNF");
        double formationH = 0.0;
        double formationG = 0.0;
        for (std::size_t i = 0; i < phase.x.size(); ++i) {
            formationH += phase.x[i] * phase.model->compounds[i].data->formationEnthalpy;
            formationG += phase.x[i] * phase.model->compounds[i].data->formationGibbsEnergy;
        }
        if (isAvailable(*phase.model, phase.root, enthalpyF))
            expectSame(valueOf(point, enthalpyF), H + formationH, 0.0, phase, "enthalpyF");
        if (isAvailable(*phase.model, phase.root, entropyF))
            expectSame(valueOf(point, entropyF), S + (formationH - formationG) / 298.15, std::fabs(S), phase,
                       "entropyF");
    });
}

TEST(PhaseIdentities, ObeyTheRelationsOfMaxwell)
{
    forRandomPhases(phasesOfEach, 12, [](const RandomPhase &phase) {
        const PhasePoint point = phase.point();
        const double T = phase.temperature;
        const double P = phase.pressure;
        const double V = valueOf(point, volume);
        const double VbyT = valueOf(point, volume, byTemperature);
        const double VbyP = valueOf(point, volume, byPressure);
        const double Cp = valueOf(point, heatCapacityCp);
        expectSame(valueOf(point, entropy, byPressure), -VbyT, R / P, phase, "dS/dP = -dV/dT");
        expectSame(valueOf(point, enthalpy, byPressure), V - T * VbyT, V + T * std::fabs(VbyT), phase,
                   "dH/dP = V - T dV/dT");
        expectSame(valueOf(point, gibbsEnergy, byPressure), V, R * T / P, phase, "dG/dP = V");
        expectSame(valueOf(point, gibbsEnergy, byTemperature), -valueOf(point, entropy), Cp, phase, "dG/dT = -S");
        expectSame(valueOf(point, enthalpy, byTemperature), Cp, 0.0, phase, "dH/dT = Cp");
        expectSame(valueOf(point, entropy, byTemperature), Cp / T, 0.0, phase, "dS/dT = Cp / T");
        expectSame(valueOf(point, compressibility), -VbyP / V, 0.0, phase, "compressibility");
        if (phase.model->equation == EquationOfState::idealMixture && phase.root == Root::liquid)
            return;
        const double Cv = valueOf(point, heatCapacityCv);
        expectSame(Cp - Cv, -T * VbyT * VbyT / VbyP, Cp, phase, "Cp - Cv = -T (dV/dT)^2 / (dV/dP)");
        // Speed of sound: w^2 = (dP / d rho) at constant entropy, rho in kg/m3.
        const double mass = 1e-3 * valueOf(point, molecularWeight);
        const double densityAtConstantEntropy =
            valueOf(point, density, byPressure) - valueOf(point, density, byTemperature) *
                                                      valueOf(point, entropy, byPressure) /
                                                      valueOf(point, entropy, byTemperature);
        const double w = valueOf(point, speedOfSound);
        ASSERT_NEAR(w * w * mass * densityAtConstantEntropy, 1.0, 1e-8) << described(phase);
    });
}

// dT/dP at constant enthalpy.
TEST(PhaseIdentities, GiveTheJouleThomsonCoefficientByTheSlopesOfTheEnthalpy)
{
    forRandomPhases(phasesOfEach, 13, [](const RandomPhase &phase) {
        const PhasePoint point = phase.point();
        const double expected = -valueOf(point, enthalpy, byPressure) / valueOf(point, enthalpy, byTemperature);
        expectSame(valueOf(point, jouleThomsonCoefficient), expected, 1e-3 * R / phase.pressure * 1e-3, phase,
                   "Joule-Thomson");
    });
}

// Partial molar properties add up to the whole; what does not grow with the amount does not change when
// everything is multiplied.
TEST(PhaseIdentities, AddUpAfterEuler)
{
    forRandomPhases(phasesOfEach / 4, 14, [](const RandomPhase &phase) {
        const PhasePoint point = phase.point();
        const int n = phase.model->size;
        for (int k = 0; k < phaseQuantityCount; ++k) {
            const PhaseQuantity quantity = static_cast<PhaseQuantity>(k);
            if (!isAvailable(*phase.model, phase.root, quantity))
                continue;
            const std::vector<double> values = valuesOf(point, quantity);
            const std::vector<double> moles = valuesOf(point, quantity, byMoles);
            const std::vector<double> fractions = valuesOf(point, quantity, byFractions);
            for (std::size_t i = 0; i < values.size(); ++i) {
                double ofMoles = 0.0;
                double ofFractions = 0.0;
                double size = std::fabs(values[i]);
                for (int j = 0; j < n; ++j) {
                    const std::size_t at = i + values.size() * static_cast<std::size_t>(j);
                    ofMoles += phase.x[j] * moles[at];
                    ofFractions += phase.x[j] * fractions[at];
                    size += phase.x[j] * std::fabs(moles[at]);
                }
                const bool extensive = shapeOf(quantity).extensive;
                expectSame(ofMoles, extensive ? values[i] : 0.0, size, phase, shapeOf(quantity).name.data());
                expectSame(ofFractions, 0.0, size, phase, shapeOf(quantity).name.data());
            }
        }
    });
}

TEST(PhaseIdentities, ObeyGibbsDuhem)
{
    forRandomPhases(phasesOfEach / 2, 15, [](const RandomPhase &phase) {
        const PhasePoint point = phase.point();
        const std::size_t n = phase.x.size();
        const std::vector<double> byMole = valuesOf(point, logFugacityCoefficient, byMoles);
        for (std::size_t j = 0; j < n; ++j) {
            double sum = 0.0;
            double size = 1.0;
            for (std::size_t i = 0; i < n; ++i) {
                sum += phase.x[i] * byMole[i + n * j];
                size += std::fabs(byMole[i + n * j]);
                expectSame(byMole[i + n * j], byMole[j + n * i], size, phase, "symmetry");
            }
            expectSame(sum, 0.0, size, phase, "Gibbs-Duhem");
        }
    });
}

// The logarithms of the fugacity coefficients are the partial molar residual Gibbs energy over R T: their
// slopes by temperature and pressure are partial enthalpies and volumes.
TEST(PhaseIdentities, MakeTheFugacityPartOfTheGibbsEnergy)
{
    forRandomPhases(phasesOfEach / 2, 16, [](const RandomPhase &phase) {
        const PhasePoint point = phase.point();
        const double T = phase.temperature;
        const double P = phase.pressure;
        const std::vector<double> logs = valuesOf(point, logFugacity);
        const std::vector<double> byT = valuesOf(point, logFugacityCoefficient, byTemperature);
        const std::vector<double> byP = valuesOf(point, logFugacity, byPressure);
        const std::vector<double> partialG = valuesOf(point, gibbsEnergy, byMoles);
        const std::vector<double> partialH = valuesOf(point, enthalpy, byMoles);
        const std::vector<double> partialV = valuesOf(point, volume, byMoles);
        for (std::size_t i = 0; i < phase.x.size(); ++i) {
            const MixtureModel pure =
                MixtureModel::of(std::array{phase.model->compounds[i].data}, EquationOfState::idealMixture);
            const PhasePoint pureGas(pure, T, 101325.0, std::array{1.0}, Root::vapor);
            const double idealG = valueOf(pureGas, gibbsEnergy);
            const double idealH = valueOf(pureGas, enthalpy);
            const double size = std::fabs(idealG) + std::fabs(partialG[i]) + std::fabs(idealH);
            expectSame(partialG[i], idealG + R * T * (logs[i] - std::log(101325.0)), size + 100.0 * R * T, phase,
                       "partial Gibbs energy");
            expectSame(-R * T * T * byT[i], partialH[i] - idealH, size, phase, "partial enthalpy");
            expectSame(R * T * byP[i], partialV[i], R * T / P, phase, "partial volume");
        }
    });
}

TEST(PhaseIdentities, MakeExcessPropertiesOfTheActivityCoefficients)
{
    forRandomPhases(phasesOfEach / 2, 17, [](const RandomPhase &phase) {
        const PhasePoint point = phase.point();
        const double T = phase.temperature;
        const double P = phase.pressure;
        const std::vector<double> gammas = valuesOf(point, activityCoefficient);
        const std::vector<double> activities = valuesOf(point, activity);
        double logs = 0.0;
        for (std::size_t i = 0; i < phase.x.size(); ++i) {
            logs += phase.x[i] * std::log(gammas[i]);
            expectSame(activities[i], phase.x[i] * gammas[i], 0.0, phase, "a = x gamma");
        }
        const double H = valueOf(point, excessEnthalpy);
        const double S = valueOf(point, excessEntropy);
        const double G = valueOf(point, excessGibbsEnergy);
        const double V = valueOf(point, excessVolume);
        const double size = std::fabs(H) + std::fabs(T * S) + 100.0 * R * T;
        expectSame(G, R * T * logs, size, phase, "excess Gibbs energy");
        expectSame(G, H - T * S, size, phase, "excess G = H - T S");
        expectSame(valueOf(point, excessHelmholtzEnergy), G - P * V, size, phase, "excess A");
        expectSame(valueOf(point, excessInternalEnergy), H - P * V, size, phase, "excess U");
        if (phase.x.size() == 1) {
            ASSERT_NEAR(gammas[0], 1.0, 1e-9);
            ASSERT_NEAR(V, 0.0, 1e-12 * valueOf(point, volume));
        }
    });
}

// A gas becomes ideal as the pressure goes to zero.
TEST(PhaseIdentities, MakeThinGasesIdeal)
{
    forRandomPhases(phasesOfEach, 18, [](const RandomPhase &phase) {
        if (phase.root != Root::vapor)
            return;
        const double T = phase.temperature;
        const double P = 1e-6;
        const PhasePoint point = phase.at(T, P, phase.x);
        for (const double phi : valuesOf(point, fugacityCoefficient))
            ASSERT_NEAR(phi, 1.0, 1e-8) << described(phase);
        ASSERT_NEAR(valueOf(point, compressibilityFactor), 1.0, 1e-8) << described(phase);
        ASSERT_NEAR(valueOf(point, heatCapacityCp) - valueOf(point, heatCapacityCv), R, 1e-6) << described(phase);
        const double gamma = valueOf(point, heatCapacityCp) / valueOf(point, heatCapacityCv);
        const double w = std::sqrt(gamma * R * T / (1e-3 * valueOf(point, molecularWeight)));
        ASSERT_NEAR(valueOf(point, speedOfSound), w, 1e-6 * w) << described(phase);
    });
}
