#include "reference/engine/transport/chung_fluid.h"

#include "reference/engine/eos/gas_constant.h"

#include <cmath>

namespace reference {

namespace {

constexpr double cubicCentimeters = 1e6; // in one m3
constexpr double debye = 3.33564e-30;    // C m

// Tables 9-6 and 10-3 of Poling, Prausnitz, O'Connell, The Properties of Gases and Liquids, 5th ed.
// (2001), without the columns for dipoles and association: with these the functions have poles between
// weak and strong dipoles, where mixtures get, and hydrogen sulfide is given a negative viscosity. What
// polar liquids differ by is left to what scales the excess over the gas.
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

// The same for any fluid: what its reduced constants make of the tables.
struct DenseTerms {
    const ChungFluid &fluid;
    Dual y;

    // Quantum gases count as spherical here.
    Dual of(const Coefficients &row) const
    {
        return row.constant +
               row.byAcentricFactor * (fluid.acentricFactor.value > 0.0 ? fluid.acentricFactor : Dual(0.0));
    }
    // G2 of Chung et al., by either table's first five rows.
    Dual G2(const Coefficients *table) const
    {
        const Dual rest = 1.0 - y;
        const Dual G1 = (1.0 - 0.5 * y) / (rest * rest * rest);
        const Dual first = of(table[0]);
        const Dual second = of(table[1]);
        const Dual third = of(table[2]);
        const Dual fourth = of(table[3]);
        const Dual sum = -first * expm1(-fourth * y) / y + second * G1 * exp(of(table[4]) * y) + third * G1;
        return sum / (first * fourth + second + third);
    }
};

// T* = k T / epsilon
Dual reducedTemperature(const ChungFluid &fluid) { return 1.2593 * fluid.T / fluid.criticalTemperature; }

// Fc sqrt(T*) / Omega. Collision integral: Neufeld, Janzen, Aziz, J. Chem. Phys. 57 (1972) 1100.
Dual reducedGasViscosity(const ChungFluid &fluid)
{
    const Dual t = reducedTemperature(fluid);
    const Dual integral = 1.16145 * pow(t, -0.14874) + 0.52487 * exp(-0.77320 * t) + 2.16178 * exp(-2.43787 * t);
    const Dual shape = 1.0 - 0.2756 * fluid.acentricFactor + 0.059035 * fluid.reducedDipole4 + fluid.association;
    return shape * sqrt(t) / integral;
}

// What a reduced viscosity is multiplied by, Pa s.
Dual viscosityUnit(const ChungFluid &fluid)
{
    return 36.344e-7 * sqrt(fluid.mass * fluid.criticalTemperature) / pow(fluid.criticalVolume, 2.0 / 3.0);
}

// Of a density in mol/m3. Liquids come to 0.6; what an ideal gas has beyond that is no density of molecules.
Dual reduced(Dual density, Dual criticalVolume)
{
    constexpr double densest = 0.8;
    const Dual y = density / cubicCentimeters * criticalVolume / 6.0;
    return y.value > densest ? Dual(densest) : y;
}

double orZero(double constant) { return std::isnan(constant) ? 0.0 : constant; }

} // namespace

double chungVolume(const CompoundData &compound) { return compound.criticalVolume * cubicCentimeters; }
double chungDipole(const CompoundData &compound) { return orZero(compound.dipoleMoment) / debye; }
double chungAssociation(const CompoundData &compound) { return orZero(compound.associationFactor); }

void ChungFluid::setDensity(Dual density) { reducedDensity = reduced(density, criticalVolume); }

ChungFluid ChungFluid::ofCompound(const CompoundData &compound, Dual kelvin, Dual density)
{
    const double volume = chungVolume(compound);
    const double dipole = 131.3 * chungDipole(compound);
    ChungFluid fluid;
    fluid.T = kelvin;
    fluid.criticalVolume = volume;
    fluid.criticalTemperature = compound.criticalTemperature;
    fluid.mass = compound.molecularWeight;
    fluid.acentricFactor = compound.acentricFactor;
    fluid.reducedDipole4 = std::pow(dipole * dipole / (volume * compound.criticalTemperature), 2.0);
    fluid.association = chungAssociation(compound);
    fluid.setDensity(density);
    return fluid;
}

TransportParts ChungFluid::viscosity() const
{
    const DenseTerms terms{*this, reducedDensity};
    const Dual y = reducedDensity;
    const Dual gas = reducedGasViscosity(*this);
    const Dual t = reducedTemperature(*this);
    const Dual g2 = terms.G2(viscosityTable);
    const auto E = [&](int row) { return terms.of(viscosityTable[row - 1]); };
    const Dual dense = E(7) * y * y * g2 * exp(E(8) + (E(9) + E(10) / t) / t);
    const Dual unit = viscosityUnit(*this);
    return {unit * gas, unit * (gas * (1.0 / g2 - 1.0 + E(6) * y) + dense)};
}

TransportParts ChungFluid::conductivity(Dual heatCapacity) const
{
    const DenseTerms terms{*this, reducedDensity};
    const Dual y = reducedDensity;
    const Dual ratio = T / criticalTemperature;
    const Dual kilograms = 1e-3 * mass; // per mole
    // Internal energy carried along: Psi.
    const Dual alpha = heatCapacity / gasConstant - 2.5; // cv / R - 3/2
    const Dual beta = 0.7862 + (1.3168 * acentricFactor - 0.7109) * acentricFactor;
    const Dual z = 2.0 + 10.5 * ratio * ratio;
    const Dual internal = 1.0 + alpha * (0.215 + 0.28288 * alpha - 1.061 * beta + 0.26665 * z) /
                                    (0.6366 + beta * z + 1.061 * alpha * beta);
    const Dual gas = 31.2 * viscosityUnit(*this) * reducedGasViscosity(*this) * internal / kilograms;
    const Dual g2 = terms.G2(conductivityTable);
    const auto B = [&](int row) { return terms.of(conductivityTable[row - 1]); };
    const Dual unit = 3.586e-3 * sqrt(criticalTemperature / kilograms) / pow(criticalVolume, 2.0 / 3.0);
    return {gas, gas * (1.0 / g2 - 1.0 + B(6) * y) + unit * B(7) * y * y * sqrt(ratio) * g2};
}

} // namespace reference
