#include "reference/package/compound_constants.h"

#include "reference/engine/phase_properties.h"

namespace reference {

namespace {

using Compound = const CompoundData &;

constexpr CompoundConstant constants[] = {
    {"molecularWeight", [](Compound compound) { return compound.molecularWeight; }, nullptr},
    {"criticalTemperature", [](Compound compound) { return compound.criticalTemperature; }, nullptr},
    {"criticalPressure", [](Compound compound) { return compound.criticalPressure; }, nullptr},
    {"acentricFactor", [](Compound compound) { return compound.acentricFactor; }, nullptr},
    {"normalBoilingPoint", [](Compound compound) { return compound.normalBoilingPoint; }, nullptr},
    {"casRegistryNumber", nullptr, [](Compound compound) { return compound.casNumber; }},
    {"chemicalFormula", nullptr, [](Compound compound) { return compound.formula; }},
    {"iupacName", nullptr, [](Compound compound) { return compound.iupacName; }},
};

constexpr TemperatureDependentProperty byTemperature[] = {
    {"idealGasHeatCapacity",
     [](Compound compound, double kelvin) { return idealGasHeatCapacity(compound.idealGasHeatCapacity, kelvin); }},
};

} // namespace

std::span<const CompoundConstant> compoundConstants() { return constants; }
std::span<const TemperatureDependentProperty> temperatureDependentProperties() { return byTemperature; }

} // namespace reference
