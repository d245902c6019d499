#include "reference/engine/transport.h"

#include <cmath>

namespace reference {

namespace {

constexpr double cubicCentimetres = 1e6; // in one m3
constexpr double debye = 3.33564e-30;    // C m

double orZero(double constant) { return std::isnan(constant) ? 0.0 : constant; }

// Table 9-6 and 10-3 of Poling, Prausnitz, O'Connell, The Properties of Gases and Liquids, 5th ed.
// (2001): a + b omega + c mu_r^4 + d kappa.
struct Coefficients {
    double a, b, c, d;
};
constexpr Coefficients viscosityTable[] = {
    {6.324, 50.412, -51.680, 1189.0},          //
    {1.210e-3, -1.154e-3, -6.257e-3, 0.03728}, //
    {5.283, 254.209, -168.48, 3898.0},         //
    {6.623, 38.096, -8.464, 31.42},            //
    {19.745, 7.630, -14.354, 31.53},           //
    {-1.900, -12.537, 4.985, -18.15},          //
    {24.275, 3.450, -11.291, 69.35},           //
    {0.7972, 1.117, 0.01235, -4.117},          //
    {-0.2382, 0.06770, -0.8163, 4.025},        //
    {0.06863, 0.3479, 0.5926, -0.727},
};
constexpr Coefficients conductivityTable[] = {
    {2.4166, 0.74824, -0.91858, 121.72},  //
    {-0.50924, -1.5094, -49.991, 69.983}, //
    {6.6107, 5.6207, 64.760, 27.039},     //
    {14.543, -8.9139, -5.6379, 74.344},   //
    {0.79274, 0.82019, -0.69369, 6.3173}, //
    {-5.8634, 12.801, 9.5893, 65.529},    //
    {91.089, 128.11, -54.217, 523.81},
};

} // namespace

// The pseudo-fluid of a mixture.
struct ChungMixture::Parameters {
    Dual T;
    Dual criticalVolume;      // cm3/mol
    Dual criticalTemperature; // K
    Dual mass;                // g/mol
    Dual acentricFactor;
    Dual reducedDipole4; // fourth power
    Dual association;
    Dual packing; // y = density Vc / 6

    Dual of(const Coefficients &row) const
    {
        return row.a + row.b * acentricFactor + row.c * reducedDipole4 + row.d * association;
    }
    // G2 of either table's first five rows: how close packing changes collisions.
    Dual collisions(const Coefficients *table) const
    {
        const Dual open = 1.0 - packing;
        const Dual contact = (1.0 - 0.5 * packing) / (open * open * open);
        const Dual first = of(table[0]);
        const Dual second = of(table[1]);
        const Dual third = of(table[2]);
        const Dual fourth = of(table[3]);
        const Dual sum = -first * expm1(-fourth * packing) / packing + second * contact * exp(of(table[4]) * packing) +
                         third * contact;
        return sum / (first * fourth + second + third);
    }
    Dual reducedTemperature() const { return 1.2593 * T / criticalTemperature; } // T* = k T / epsilon
    // Fc sqrt(T*) / Omega. Collision integral: Neufeld, Janzen, Aziz, J. Chem. Phys. 57 (1972) 1100.
    Dual thinGas() const
    {
        const Dual t = reducedTemperature();
        const Dual integral = 1.16145 * pow(t, -0.14874) + 0.52487 * exp(-0.77320 * t) + 2.16178 * exp(-2.43787 * t);
        const Dual shape = 1.0 - 0.2756 * acentricFactor + 0.059035 * reducedDipole4 + association;
        return shape * sqrt(t) / integral;
    }
    // What a reduced viscosity is multiplied by, Pa s.
    Dual viscosityUnit() const { return 36.344e-7 * sqrt(mass * criticalTemperature) / pow(criticalVolume, 2.0 / 3.0); }
};

Dual transportDensity(const PhasePoint &point, const Direction &direction)
{
    const MixtureModel &model = point.model();
    Dual shift;
    for (int i = 0; i < model.size; ++i)
        shift.value += point.fractions()[i] * model.compounds[i].volumeShift;
    if (direction.compound >= 0)
        shift.slope = model.compounds[direction.compound].volumeShift - shift.value;
    return 1.0 / (point.bulk(direction).residual.volume - shift);
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
        const double volume = data.criticalVolume * cubicCentimetres;
        const double dipole = orZero(data.dipoleMoment) / debye;
        compounds[i] = {.rootVolume = std::sqrt(volume),
                        .diameter = std::cbrt(volume),
                        .rootEnergy = std::sqrt(data.criticalTemperature),
                        .mass = data.molecularWeight,
                        .acentric = data.acentricFactor,
                        .dipole2 = dipole * dipole,
                        .rootAssociation = std::sqrt(orZero(data.associationFactor))};
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
    const Dual density = transportDensity(point, direction) / cubicCentimetres;
    result.packing = density * result.criticalVolume / 6.0;
    // Liquids come to 0.6. What an ideal gas has beyond that is no density of molecules.
    if (constexpr double densest = 0.8; result.packing.value > densest)
        result.packing = densest;
    return result;
}

Dual ChungMixture::viscosity(const Direction &direction) const
{
    const Parameters fluid = parameters(direction);
    const Dual packing = fluid.packing;
    const Dual collisions = fluid.collisions(viscosityTable);
    const Dual t = fluid.reducedTemperature();
    const Dual kinetic = fluid.thinGas() * (1.0 / collisions + fluid.of(viscosityTable[5]) * packing);
    const Dual dense =
        fluid.of(viscosityTable[6]) * packing * packing * collisions *
        exp(fluid.of(viscosityTable[7]) + (fluid.of(viscosityTable[8]) + fluid.of(viscosityTable[9]) / t) / t);
    return fluid.viscosityUnit() * (kinetic + dense);
}

Dual ChungMixture::thermalConductivity(const Direction &direction) const
{
    const Parameters fluid = parameters(direction);
    const Dual packing = fluid.packing;
    const Dual reduced = fluid.T / fluid.criticalTemperature;
    const Dual omega = fluid.acentricFactor;
    const Dual mass = 1e-3 * fluid.mass; // kg/mol

    // Internal energy carried along: Psi.
    const Dual alpha = point.bulk(direction).idealHeatCapacity / gasConstant - 2.5; // cv / R - 3/2
    const Dual beta = 0.7862 + (1.3168 * omega - 0.7109) * omega;
    const Dual z = 2.0 + 10.5 * reduced * reduced;
    const Dual internal = 1.0 + alpha * (0.215 + 0.28288 * alpha - 1.061 * beta + 0.26665 * z) /
                                    (0.6366 + beta * z + 1.061 * alpha * beta);

    const Dual thinViscosity = fluid.viscosityUnit() * fluid.thinGas();
    const Dual collisions = fluid.collisions(conductivityTable);
    const Dual dense = 3.586e-3 * sqrt(fluid.criticalTemperature / mass) / pow(fluid.criticalVolume, 2.0 / 3.0);
    return 31.2 * thinViscosity * internal / mass * (1.0 / collisions + fluid.of(conductivityTable[5]) * packing) +
           dense * fluid.of(conductivityTable[6]) * packing * packing * sqrt(reduced) * collisions;
}

} // namespace reference
