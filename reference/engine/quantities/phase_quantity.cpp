#include "reference/engine/quantities/phase_quantity.h"

#include <array>

namespace reference {

namespace {

using Shapes = std::array<QuantityShape, phaseQuantityCount>;

constexpr Shapes phaseShapes = {{
    {"fugacity", 1, false, false},
    {"fugacityCoefficient", 1, false, false},
    {"logFugacity", 1, false, false},
    {"logFugacityCoefficient", 1, false, false},
    {"activity", 1, false, false},
    {"activityCoefficient", 1, false, false},
    {"volume", 0, true, true},
    {"density", 0, true, false},
    {"compressibilityFactor", 0, false, false},
    {"compressibility", 0, false, false},
    {"enthalpy", 0, true, true},
    {"enthalpyF", 0, true, true},
    {"enthalpyNF", 0, true, true},
    {"entropy", 0, true, true},
    {"entropyF", 0, true, true},
    {"entropyNF", 0, true, true},
    {"gibbsEnergy", 0, true, true},
    {"helmholtzEnergy", 0, true, true},
    {"internalEnergy", 0, true, true},
    {"heatCapacityCp", 0, true, true},
    {"heatCapacityCv", 0, true, true},
    {"speedOfSound", 0, false, false},
    {"jouleThomsonCoefficient", 0, false, false},
    {"molecularWeight", 0, false, false},
    {"excessEnthalpy", 0, true, true},
    {"excessEntropy", 0, true, true},
    {"excessGibbsEnergy", 0, true, true},
    {"excessHelmholtzEnergy", 0, true, true},
    {"excessInternalEnergy", 0, true, true},
    {"excessVolume", 0, true, true},
    {"viscosity", 0, false, false},
    {"thermalConductivity", 0, false, false},
    {"diffusionCoefficient", 2, false, false},
}};

constexpr std::array<QuantityShape, pairQuantityCount> pairShapes = {{
    {"kvalue", 1, false, false},
    {"logKvalue", 1, false, false},
    {"surfaceTension", 0, false, false},
}};

int power(int base, int exponent) { return exponent == 0 ? 1 : base * power(base, exponent - 1); }

} // namespace

std::span<const QuantityShape, phaseQuantityCount> phaseQuantities() { return phaseShapes; }
std::span<const QuantityShape, pairQuantityCount> pairQuantities() { return pairShapes; }

int valueCount(PhaseQuantity quantity, Differential differential, int compounds)
{
    return power(compounds, shapeOf(quantity).dimension + (isByComposition(differential) ? 1 : 0));
}

int valueCount(PairQuantity quantity, Differential differential, int compounds)
{
    const int block = power(compounds, shapeOf(quantity).dimension);
    return isByComposition(differential) ? 2 * compounds * block : block;
}

} // namespace reference
