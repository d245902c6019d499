#include "reference/package/compound_constants.h"

#include "reference/engine/compounds/ideal_gas.h"
#include "reference/engine/compounds/saturation.h"
#include "reference/engine/flash/flash.h"
#include "reference/engine/quantities/phase_quantity.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace reference {

namespace {

using Compound = const PureCompound &;

constexpr double roomTemperature = 298.15; // K
constexpr double notKnown = std::numeric_limits<double>::quiet_NaN();

double liquidDensityAt25C(Compound compound) { return saturatedLiquidDensity(compound.data, roomTemperature); }

double heatAtBoilingPoint(Compound compound)
{
    const double boilingPoint = compound.data.normalBoilingPoint;
    return std::isnan(boilingPoint) || boilingPoint < lowestFlashTemperature
               ? notKnown
               : SaturatedCompound(compound, boilingPoint).change(PhaseQuantity::enthalpy);
}

constexpr CompoundConstant constants[] = {
    {"molecularWeight", [](Compound compound) { return compound.data.molecularWeight; }, nullptr},
    {"criticalTemperature", [](Compound compound) { return compound.data.criticalTemperature; }, nullptr},
    {"criticalPressure", [](Compound compound) { return compound.data.criticalPressure; }, nullptr},
    {"criticalVolume", [](Compound compound) { return compound.data.criticalVolume; }, nullptr},
    {"criticalDensity", [](Compound compound) { return 1.0 / compound.data.criticalVolume; }, nullptr},
    {"criticalCompressibilityFactor", [](Compound compound) { return compound.data.criticalCompressibility; }, nullptr},
    {"acentricFactor", [](Compound compound) { return compound.data.acentricFactor; }, nullptr},
    {"normalBoilingPoint", [](Compound compound) { return compound.data.normalBoilingPoint; }, nullptr},
    {"normalFreezingPoint", [](Compound compound) { return compound.data.normalFreezingPoint; }, nullptr},
    {"triplePointTemperature", [](Compound compound) { return compound.data.triplePointTemperature; }, nullptr},
    {"triplePointPressure", [](Compound compound) { return compound.data.triplePointPressure; }, nullptr},
    {"standardFormationEnthalpyGas", [](Compound compound) { return compound.data.formationEnthalpy; }, nullptr},
    {"standardFormationGibbsEnergyGas", [](Compound compound) { return compound.data.formationGibbsEnergy; }, nullptr},
    {"standardEntropyGas", [](Compound compound) { return compound.data.standardEntropy; }, nullptr},
    {"idealGasEnthalpyOfFormationAt25C", [](Compound compound) { return compound.data.formationEnthalpy; }, nullptr},
    {"idealGasGibbsFreeEnergyOfFormationAt25C", [](Compound compound) { return compound.data.formationGibbsEnergy; },
     nullptr},
    {"dipoleMoment", [](Compound compound) { return compound.data.dipoleMoment; }, nullptr},
    {"parachor", [](Compound compound) { return compound.data.parachor; }, nullptr},
    {"diffusionVolume", [](Compound compound) { return compound.data.diffusionVolume; }, nullptr},
    {"liquidDensityAt25C", liquidDensityAt25C, nullptr},
    {"liquidVolumeAt25C", [](Compound compound) { return 1.0 / liquidDensityAt25C(compound); }, nullptr},
    {"heatOfVaporizationAtNormalBoilingPoint", heatAtBoilingPoint, nullptr},
    {"casRegistryNumber", nullptr, [](Compound compound) { return compound.data.casNumber; }},
    {"chemicalFormula", nullptr, [](Compound compound) { return compound.data.formula; }},
    {"iupacName", nullptr, [](Compound compound) { return compound.data.iupacName; }},
    {"SMILESformula", nullptr, [](Compound compound) { return compound.data.smiles; }},
};

KnownRange rangeOf(const Correlation &correlation)
{
    if (correlation.form == CorrelationForm::none)
        return {notKnown, notKnown};
    return {correlation.lowest, correlation.temperature};
}

KnownRange vaporPressureRange(const CompoundData &compound) { return rangeOf(compound.vaporPressure); }
KnownRange liquidDensityRange(const CompoundData &compound) { return rangeOf(compound.liquidDensity); }
KnownRange everyTemperature(const CompoundData &) { return {lowestFlashTemperature, highestFlashTemperature}; }

KnownRange boilingTemperatures(const CompoundData &compound)
{
    const double triplePoint = compound.triplePointTemperature;
    const double lowest = std::isnan(triplePoint) ? vaporPressureRange(compound).lowest : triplePoint;
    return {std::max(lowest, lowestFlashTemperature), compound.criticalTemperature};
}

KnownRange boilingRange(const CompoundData &compound)
{
    const auto [lowest, highest] = vaporPressureRange(compound);
    return {vaporPressure(compound, lowest), vaporPressure(compound, highest)};
}

// The temperature at which the vapor pressure is the one given. Its logarithm is nearly
// linear in 1/T: regula falsi in these, with the Illinois rule for an end that stays.
double boilingTemperature(Compound pure, double pressure)
{
    const CompoundData &compound = pure.data;
    struct End {
        double inverse; // 1/K
        double excess;  // of the logarithm of the vapor pressure
    };
    const auto endAt = [&](double inverse) {
        return End{inverse, std::log(vaporPressure(compound, 1.0 / inverse) / pressure)};
    };
    const auto [lowest, highest] = vaporPressureRange(compound);
    End ends[] = {{1.0 / lowest, std::log(vaporPressure(compound, lowest) / pressure)},
                  {1.0 / highest, std::log(vaporPressure(compound, highest) / pressure)}};
    for (const auto &[end, kelvin] : {std::pair{ends[0], lowest}, std::pair{ends[1], highest}})
        if (end.excess == 0.0)
            return kelvin;
    int moved = -1;
    for (int step = 0; step < 100; ++step) {
        const End middle = endAt(ends[0].inverse - ends[0].excess * (ends[1].inverse - ends[0].inverse) /
                                                       (ends[1].excess - ends[0].excess));
        if (std::fabs(middle.excess) < 1e-13)
            return 1.0 / middle.inverse;
        const int side = middle.excess < 0.0 ? 0 : 1;
        if (side == moved)
            ends[1 - side].excess *= 0.5;
        ends[side] = middle;
        moved = side;
    }
    return 1.0 / ends[moved].inverse;
}

// A quantity of the saturated vapor, of the liquid, of the change between them, or of both.
template <PhaseQuantity quantity> double ofLiquid(Compound compound, double kelvin)
{
    return SaturatedCompound(compound, kelvin).ofLiquid(quantity);
}
template <PhaseQuantity quantity> double ofVapor(Compound compound, double kelvin)
{
    return SaturatedCompound(compound, kelvin).ofVapor(quantity);
}
template <PhaseQuantity quantity> double vaporization(Compound compound, double kelvin)
{
    return SaturatedCompound(compound, kelvin).change(quantity);
}
double surfaceTension(Compound compound, double kelvin)
{
    return SaturatedCompound(compound, kelvin).ofBoth(PairQuantity::surfaceTension);
}
template <PhaseQuantity quantity> double thinGas(Compound compound, double kelvin)
{
    return ofThinGas(compound, quantity, kelvin);
}

// A function of the ideal gas's heat capacity.
template <double (*function)(const HeatCapacityTerms &, double)> double idealGas(Compound compound, double kelvin)
{
    return function(compound.data.idealGasHeatCapacity, kelvin);
}

using enum PhaseQuantity;

constexpr ConditionedProperty byTemperature[] = {
    {"idealGasHeatCapacity", idealGas<idealGasHeatCapacity>, everyTemperature},
    {"idealGasEnthalpy", idealGas<idealGasEnthalpy>, everyTemperature},
    {"idealGasEntropy", idealGas<idealGasEntropy>, everyTemperature},
    {"vaporPressure", [](Compound compound, double kelvin) { return vaporPressure(compound.data, kelvin); },
     vaporPressureRange},
    {"volumeOfLiquid",
     [](Compound compound, double kelvin) { return 1.0 / saturatedLiquidDensity(compound.data, kelvin); },
     liquidDensityRange},
    {"heatOfVaporization", vaporization<enthalpy>, boilingTemperatures},
    {"volumeChangeUponVaporization", vaporization<volume>, boilingTemperatures},
    {"heatCapacityOfLiquid", ofLiquid<heatCapacityCp>, boilingTemperatures},
    {"fugacityCoefficientOfVapor", ofVapor<fugacityCoefficient>, boilingTemperatures},
    {"surfaceTensionSatLiquid", surfaceTension, boilingTemperatures},
    {"viscosityOfLiquid", ofLiquid<viscosity>, boilingTemperatures},
    {"viscosityOfVapor", thinGas<viscosity>, everyTemperature},
    {"thermalConductivityOfLiquid", ofLiquid<thermalConductivity>, boilingTemperatures},
    {"thermalConductivityOfVapor", thinGas<thermalConductivity>, everyTemperature},
    {"virialCoefficient", secondVirialCoefficient, everyTemperature},
};

constexpr ConditionedProperty byPressure[] = {
    {"boilingPointTemperature", boilingTemperature, boilingRange},
};

constexpr ConditionedProperties ofTemperature = {"temperature", "K", byTemperature};
constexpr ConditionedProperties ofPressure = {"pressure", "Pa", byPressure};

} // namespace

std::span<const CompoundConstant> compoundConstants() { return constants; }
const ConditionedProperties &temperatureDependentProperties() { return ofTemperature; }
const ConditionedProperties &pressureDependentProperties() { return ofPressure; }

} // namespace reference
