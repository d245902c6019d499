#include "reference/engine/transport/chung_mixture.h"

#include "reference/engine/compounds/ideal_gas.h"
#include "reference/engine/eos/gas_constant.h"
#include "reference/engine/transport/transport_density.h"

#include <cmath>

namespace reference {

namespace {

constexpr double cubicCentimeters = 1e6; // in one m3
constexpr double debye = 3.33564e-30;    // C m

// The conditions of the liquids that the correlations are fitted to.
constexpr double liquidTemperature = 298.15; // K
constexpr double liquidPressure = 101325.0;  // Pa

double orZero(double constant) { return std::isnan(constant) ? 0.0 : constant; }

// Tables 9-6 and 10-3 of Poling, Prausnitz, O'Connell, The Properties of Gases and Liquids, 5th ed.
// (2001), without the columns for dipoles and association: with these the functions have poles between
// weak and strong dipoles, where mixtures get, and hydrogen sulfide is given a negative viscosity. What
// polar liquids differ by is left to the fit to liquids. The correlation's dense part is scaled to meet their values.
struct Coefficients {
    double constant;
    double byAcentricFactor;
};
constexpr Coefficients viscosityTable[] = {
    {6.324, 50.412},       //
    {1.210e-3, -1.154e-3}, //
    {5.283, 254.209},      //
    {6.623, 38.096},       //
    {19.745, 7.630},       //
    {-1.900, -12.537},     //
    {24.275, 3.450},       //
    {0.7972, 1.117},       //
    {-0.2382, 0.06770},    //
    {0.06863, 0.3479},
};
constexpr Coefficients conductivityTable[] = {
    {2.4166, 0.74824},   //
    {-0.50924, -1.5094}, //
    {6.6107, 5.6207},    //
    {14.543, -8.9139},   //
    {0.79274, 0.82019},  //
    {-5.8634, 12.801},   //
    {91.089, 128.11},
};

// A property of the dilute gas, and what it is in the dense fluid before scaling.
struct Parts {
    Dual dilute;
    Dual dense;

    Dual scaled(Dual factor) const { return dilute + factor * (dense - dilute); }
    double factorFor(double value) const { return (value - dilute.value) / (dense.value - dilute.value); }
};

} // namespace

// The pseudo-fluid of a mixture, or a pure fluid.
struct ChungMixture::Parameters {
    Dual T;
    Dual criticalVolume;      // cm3/mol
    Dual criticalTemperature; // K
    Dual mass;                // g/mol
    Dual acentricFactor;
    Dual reducedDipole4; // fourth power
    Dual association;
    Dual reducedDensity; // y = density Vc / 6

    // Quantum gases count as spherical here.
    Dual of(const Coefficients &row) const
    {
        return row.constant + row.byAcentricFactor * (acentricFactor.value > 0.0 ? acentricFactor : Dual(0.0));
    }
    // G2 of Chung et al., by either table's first five rows.
    Dual G2(const Coefficients *table) const
    {
        const Dual rest = 1.0 - reducedDensity;
        const Dual G1 = (1.0 - 0.5 * reducedDensity) / (rest * rest * rest);
        const Dual first = of(table[0]);
        const Dual second = of(table[1]);
        const Dual third = of(table[2]);
        const Dual fourth = of(table[3]);
        const Dual sum = -first * expm1(-fourth * reducedDensity) / reducedDensity +
                         second * G1 * exp(of(table[4]) * reducedDensity) + third * G1;
        return sum / (first * fourth + second + third);
    }
    Dual reducedTemperature() const { return 1.2593 * T / criticalTemperature; } // T* = k T / epsilon
    // Fc sqrt(T*) / Omega. Collision integral: Neufeld, Janzen, Aziz, J. Chem. Phys. 57 (1972) 1100.
    Dual diluteGas() const
    {
        const Dual t = reducedTemperature();
        const Dual integral = 1.16145 * pow(t, -0.14874) + 0.52487 * exp(-0.77320 * t) + 2.16178 * exp(-2.43787 * t);
        const Dual shape = 1.0 - 0.2756 * acentricFactor + 0.059035 * reducedDipole4 + association;
        return shape * sqrt(t) / integral;
    }
    Parts viscosity() const
    {
        const Dual gas = diluteGas();
        const Dual t = reducedTemperature();
        const Dual g2 = G2(viscosityTable);
        const Dual dense = of(viscosityTable[6]) * reducedDensity * reducedDensity * g2 *
                           exp(of(viscosityTable[7]) + (of(viscosityTable[8]) + of(viscosityTable[9]) / t) / t);
        return {viscosityUnit() * gas,
                viscosityUnit() * (gas * (1.0 / g2 + of(viscosityTable[5]) * reducedDensity) + dense)};
    }
    // `heatCapacity` is that of the ideal gas at constant pressure, J/mol/K.
    Parts conductivity(Dual heatCapacity) const
    {
        const Dual reduced = T / criticalTemperature;
        const Dual kilograms = 1e-3 * mass; // per mole
        // Internal energy carried along: Psi.
        const Dual alpha = heatCapacity / gasConstant - 2.5; // cv / R - 3/2
        const Dual beta = 0.7862 + (1.3168 * acentricFactor - 0.7109) * acentricFactor;
        const Dual z = 2.0 + 10.5 * reduced * reduced;
        const Dual internal = 1.0 + alpha * (0.215 + 0.28288 * alpha - 1.061 * beta + 0.26665 * z) /
                                        (0.6366 + beta * z + 1.061 * alpha * beta);
        const Dual gas = 31.2 * viscosityUnit() * diluteGas() * internal / kilograms;
        const Dual g2 = G2(conductivityTable);
        const Dual unit = 3.586e-3 * sqrt(criticalTemperature / kilograms) / pow(criticalVolume, 2.0 / 3.0);
        return {gas, gas * (1.0 / g2 + of(conductivityTable[5]) * reducedDensity) +
                         unit * of(conductivityTable[6]) * reducedDensity * reducedDensity * sqrt(reduced) * g2};
    }
    // What a reduced viscosity is multiplied by, Pa s.
    Dual viscosityUnit() const { return 36.344e-7 * sqrt(mass * criticalTemperature) / pow(criticalVolume, 2.0 / 3.0); }
};

void ChungMixture::fitToLiquid(int i)
{
    viscosityFactors[i] = 1.0;
    conductivityFactors[i] = 1.0;
    const CompoundTerms &compound = point.model().compounds[i];
    const CompoundData &data = *compound.data;
    if (std::isnan(data.liquidViscosity))
        return;
    const double volume = data.criticalVolume * cubicCentimeters;
    const double dipole = 131.3 * orZero(data.dipoleMoment) / debye;
    Parameters fluid;
    fluid.T = liquidTemperature;
    fluid.criticalVolume = volume;
    fluid.criticalTemperature = data.criticalTemperature;
    fluid.mass = data.molecularWeight;
    fluid.acentricFactor = data.acentricFactor;
    fluid.reducedDipole4 = std::pow(dipole * dipole / (volume * data.criticalTemperature), 2.0);
    fluid.association = orZero(data.associationFactor);
    // With the density that the model has there.
    const EquationOfState equation = point.model().equation;
    const double liquid =
        equation == EquationOfState::idealMixture
            ? compound.liquidVolume.volume(liquidTemperature).value
            : cubicLiquidVolume(compound, equation, liquidTemperature, liquidPressure) - compound.volumeShift;
    fluid.reducedDensity = data.criticalVolume / liquid / 6.0;
    const double heatCapacity = idealGasHeatCapacity(data.idealGasHeatCapacity, liquidTemperature);
    viscosityFactors[i] = fluid.viscosity().factorFor(data.liquidViscosity);
    conductivityFactors[i] = fluid.conductivity(heatCapacity).factorFor(data.liquidThermalConductivity);
}

ChungMixture::ChungMixture(const PhasePoint &of) : point(of)
{
    const MixtureModel &model = point.model();
    const int n = model.size;
    struct Compound {
        double rootVolume, diameter, rootEnergy, mass, acentric, dipole2, rootAssociation;
    };
    std::array<Compound, maximumCompounds> compounds;
    for (int i = 0; i < n; ++i) {
        const CompoundData &data = *model.compounds[i].data;
        const double volume = data.criticalVolume * cubicCentimeters;
        const double dipole = orZero(data.dipoleMoment) / debye;
        compounds[i] = {.rootVolume = std::sqrt(volume),
                        .diameter = std::cbrt(volume),
                        .rootEnergy = std::sqrt(data.criticalTemperature),
                        .mass = data.molecularWeight,
                        .acentric = data.acentricFactor,
                        .dipole2 = dipole * dipole,
                        .rootAssociation = std::sqrt(orZero(data.associationFactor))};
        fitToLiquid(i);
    }
    // In units where sigma^3 is the critical volume and epsilon the critical temperature.
    for (auto &row : rows)
        row.fill(0.0);
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j) {
            const Compound &a = compounds[i];
            const Compound &b = compounds[j];
            const double x = point.fractions()[j];
            const double volumeOfPair = a.rootVolume * b.rootVolume;
            const double energyOfPair = a.rootEnergy * b.rootEnergy;
            const double massOfPair = 2.0 * a.mass * b.mass / (a.mass + b.mass);
            rows[volume][i] += x * volumeOfPair;
            rows[energy][i] += x * energyOfPair * volumeOfPair;
            rows[mass][i] += x * energyOfPair * a.diameter * b.diameter * std::sqrt(massOfPair);
            rows[acentric][i] += x * 0.5 * (a.acentric + b.acentric) * volumeOfPair;
            rows[dipole][i] += x * a.dipole2 * b.dipole2 / volumeOfPair;
            rows[association][i] += x * a.rootAssociation * b.rootAssociation;
        }
    for (int kind = 0; kind < pairKinds; ++kind) {
        totals[kind] = 0.0;
        for (int i = 0; i < n; ++i)
            totals[kind] += point.fractions()[i] * rows[kind][i];
    }
}

ChungMixture::Parameters ChungMixture::parameters(const Direction &direction) const
{
    const auto sum = [&](Pair kind) {
        return Dual(totals[kind], direction.compound < 0 ? 0.0 : 2.0 * (rows[kind][direction.compound] - totals[kind]));
    };
    Parameters result;
    result.T = {point.temperature(), direction.ofTemperature()};
    result.criticalVolume = sum(volume);
    result.criticalTemperature = sum(energy) / result.criticalVolume;
    const Dual rootMass = sum(mass) / (result.criticalTemperature * pow(result.criticalVolume, 2.0 / 3.0));
    result.mass = rootMass * rootMass;
    result.acentricFactor = sum(acentric) / result.criticalVolume;
    // mu_r = 131.3 mu / sqrt(Vc Tc), and mu^4 = Vc times the sum over the pairs.
    const Dual scale = 131.3 * 131.3 / result.criticalTemperature;
    result.reducedDipole4 = scale * scale * sum(dipole) / result.criticalVolume;
    result.association = sum(association);
    const Dual density = transportDensity(point, direction) / cubicCentimeters;
    result.reducedDensity = density * result.criticalVolume / 6.0;
    // Liquids come to 0.6. What an ideal gas has beyond that is no density of molecules.
    if (constexpr double densest = 0.8; result.reducedDensity.value > densest)
        result.reducedDensity = densest;
    return result;
}

Dual ChungMixture::mean(const CompoundArray &values, const Direction &direction) const
{
    Dual sum;
    for (int i = 0; i < point.model().size; ++i)
        sum.value += point.fractions()[i] * values[i];
    if (direction.compound >= 0)
        sum.slope = values[direction.compound] - sum.value;
    return sum;
}

Dual ChungMixture::viscosity(const Direction &direction) const
{
    return parameters(direction).viscosity().scaled(mean(viscosityFactors, direction));
}

Dual ChungMixture::thermalConductivity(const Direction &direction) const
{
    return parameters(direction)
        .conductivity(point.bulk(direction).idealHeatCapacity)
        .scaled(mean(conductivityFactors, direction));
}

} // namespace reference
