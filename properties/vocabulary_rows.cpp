#include "properties/vocabulary_rows.h"

#include <array>
#include <cstddef>
#include <initializer_list>

namespace {

// Names that share all columns.
struct PropertyGroup {
    std::int32_t basisPower;
    std::int32_t dimensions;
    std::int32_t mixable;
    std::int32_t specific;
    LPCWSTR massUnit;
    LPCWSTR moleUnit;
    std::initializer_list<LPCWSTR> names;
};

// The names and units are those that scripts have always seen, odd ones included.
// clang-format off

constexpr PropertyGroup constantGroups[] = {
    {0, 1, 0, 0, nullptr, nullptr, {OLESTR("casRegistryNumber"), OLESTR("chemicalFormula"), OLESTR("iupacName"), OLESTR("SMILESformula"), OLESTR("acentricFactor"), OLESTR("associationParameter"), OLESTR("charge"), OLESTR("criticalCompressibilityFactor")}},
    {0, 1, 0, 0, OLESTR("m"), OLESTR("m"), {OLESTR("bornRadius"), OLESTR("lengthLennardJones")}},
    {1, 1, 0, 0, OLESTR("kg / m3"), OLESTR("mol / m3"), {OLESTR("criticalDensity"), OLESTR("liquidDensityAt25C")}},
    {0, 1, 0, 0, OLESTR("Pa"), OLESTR("Pa"), {OLESTR("criticalPressure"), OLESTR("triplePointPressure")}},
    {0, 1, 0, 0, OLESTR("K"), OLESTR("K"), {OLESTR("criticalTemperature"), OLESTR("energyLennardJones"), OLESTR("normalBoilingPoint"), OLESTR("normalFreezingPoint"), OLESTR("triplePointTemperature ")}},
    {-1, 1, 0, 0, OLESTR("m3 / kg"), OLESTR("m3 / mol"), {OLESTR("criticalVolume"), OLESTR("liquidVolumeAt25C"), OLESTR("vanderwaalsVolume")}},
    {0, 1, 0, 0, OLESTR("m3"), OLESTR("m3"), {OLESTR("diffusionVolume")}},
    {0, 1, 0, 0, OLESTR("C m"), OLESTR("C m"), {OLESTR("dipoleMoment")}},
    {0, 1, 0, 0, OLESTR("M"), OLESTR("M"), {OLESTR("gyrationRadius")}},
    {-1, 1, 0, 0, OLESTR("J / kg"), OLESTR("J / mol"), {OLESTR("heatOfFusionAtNormalFreezingPoint"), OLESTR("heatOfVaporizationAtNormalBoilingPoint"), OLESTR("idealGasEnthalpyOfFormationAt25C"), OLESTR("idealGasGibbsFreeEnergyOfFormationAt25C"), OLESTR("standardEntropyGas"), OLESTR("standardEntropyLiquid"), OLESTR("standardEntropySolid"), OLESTR("standardEnthalpyAqueousDilution"), OLESTR("standardFormationEnthalpyGas"), OLESTR("standardFormationEnthalpyLiquid"), OLESTR("standardFormationEnthalpySolid"), OLESTR("standardFormationGibbsEnergyGas"), OLESTR("standardFormationGibbsEnergyLiquid"), OLESTR("standardFormationGibbsEnergySolid"), OLESTR("standardGibbsAqueousDilution")}},
    {0, 1, 0, 0, OLESTR("gr / mol"), OLESTR("gr / mol"), {OLESTR("molecularWeight")}},
    {0, 1, 0, 0, OLESTR("m3 kg0.25 / (s 0.5 mol)"), OLESTR("m3 kg0.25 / (s 0.5 mol)"), {OLESTR("parachor")}},
    {-1, 1, 0, 0, OLESTR("m2 / kg"), OLESTR("m2 / mol"), {OLESTR("vanderwaalsArea")}},
};

constexpr PropertyGroup tDependentGroups[] = {
    {-1, 1, 0, 0, OLESTR("J / kg / K"), OLESTR("J / mol / K"), {OLESTR("cpAqueousInfiniteDilution"), OLESTR("heatCapacityOfLiquid"), OLESTR("heatCapacityOfSolid"), OLESTR("idealGasEntropy"), OLESTR("idealGasHeatCapacity")}},
    {0, 1, 0, 0, nullptr, nullptr, {OLESTR("dielectricConstant"), OLESTR("fugacityCoefficientOfVapor")}},
    {0, 1, 0, 0, OLESTR("1 / K"), OLESTR("1 / K"), {OLESTR("expansivity")}},
    {0, 1, 0, 0, OLESTR("Pa"), OLESTR("Pa"), {OLESTR("glassTransitionPressure"), OLESTR("meltingPressure"), OLESTR("solidSolidPhaseTransitionPressure"), OLESTR("sublimationPressure"), OLESTR("vaporPressure")}},
    {-1, 1, 0, 0, OLESTR("J / kg"), OLESTR("J / mol"), {OLESTR("heatOfFusion"), OLESTR("heatOfSublimation"), OLESTR("heatOfSolidSolidPhaseTransition"), OLESTR("heatOfVaporization"), OLESTR("idealGasEnthalpy")}},
    {0, 1, 0, 0, OLESTR("m2 / s"), OLESTR("m2 / s"), {OLESTR("selfDiffusionCoefficientGas"), OLESTR("selfDiffusionCoefficientLiquid")}},
    {0, 1, 0, 0, OLESTR("N / m"), OLESTR("N / m"), {OLESTR("surfaceTensionSatLiquid")}},
    {0, 1, 0, 0, OLESTR("W / m / K"), OLESTR("W / m / K"), {OLESTR("thermalConductivityOfLiquid"), OLESTR("thermalConductivityOfSolid"), OLESTR("thermalConductivityOfVapor")}},
    {-1, 1, 0, 0, OLESTR("m3 / kg"), OLESTR("m3 / mol"), {OLESTR("virialCoefficient"), OLESTR("volumeChangeUponMelting"), OLESTR("volumeChangeUponSolidSolidPhaseTransition"), OLESTR("volumeChangeUponSublimation"), OLESTR("volumeChangeUponVaporization"), OLESTR("volumeOfLiquid"), OLESTR("volumeOfSolid")}},
    {0, 1, 0, 0, OLESTR("Pa s"), OLESTR("Pa s"), {OLESTR("viscosityOfLiquid"), OLESTR("viscosityOfVapor")}},
};

constexpr PropertyGroup pDependentGroups[] = {
    {0, 1, 0, 0, OLESTR("K"), OLESTR("K"), {OLESTR("boilingPointTemperature"), OLESTR("glassTransitionTemperature"), OLESTR("meltingTemperature"), OLESTR("solidSolidPhaseTransitionTemperature")}},
};

constexpr PropertyGroup singlePhaseGroups[] = {
    {0, 1, 0, 0, nullptr, nullptr, {OLESTR("activity"), OLESTR("activityCoefficient"), OLESTR("fugacityCoefficient"), OLESTR("logFugacity"), OLESTR("logFugacityCoefficient")}},
    {0, 0, 0, 0, OLESTR("1 / Pa"), OLESTR("1 / Pa"), {OLESTR("compressibility")}},
    {0, 0, 0, 0, nullptr, nullptr, {OLESTR("compressibilityFactor"), OLESTR("dissociationConstant"), OLESTR("meanActivityCoefficient"), OLESTR("osmoticCoefficient"), OLESTR("pH"), OLESTR("pOH")}},
    {1, 0, 0, 0, OLESTR("kg / m3"), OLESTR("mol / m3"), {OLESTR("density")}},
    {0, 2, 0, 0, OLESTR("m2 / s"), OLESTR("m2 / s"), {OLESTR("diffusionCoefficient")}},
    {-1, 0, 1, 1, OLESTR("J / kg"), OLESTR("J / mol"), {OLESTR("enthalpy"), OLESTR("enthalpyF"), OLESTR("enthalpyNF"), OLESTR("gibbsEnergy"), OLESTR("helmholtzEnergy"), OLESTR("internalEnergy")}},
    {-1, 0, 1, 1, OLESTR("J / kg / K"), OLESTR("J / mol / K"), {OLESTR("entropy"), OLESTR("entropyF"), OLESTR("entropyNF")}},
    {-1, 0, 0, 1, OLESTR("J / kg"), OLESTR("J / mol"), {OLESTR("excessEnthalpy"), OLESTR("excessGibbsEnergy"), OLESTR("excessHelmholtzEnergy"), OLESTR("excessInternalEnergy")}},
    {-1, 0, 0, 1, OLESTR("J / kg / K"), OLESTR("J / mol / K"), {OLESTR("excessEntropy"), OLESTR("heatCapacityCp"), OLESTR("heatCapacityCv")}},
    {-1, 0, 0, 1, OLESTR("m3 / kg"), OLESTR("m3 / mol"), {OLESTR("excessVolume")}},
    {0, 1, 0, 0, OLESTR("Pa"), OLESTR("Pa"), {OLESTR("fugacity")}},
    {0, 0, 0, 0, OLESTR("K / Pa"), OLESTR("K / Pa"), {OLESTR("jouleThomsonCoefficient")}},
    {0, 0, 0, 0, OLESTR("gr / mol"), OLESTR("gr / mol"), {OLESTR("molecularWeight")}},
    {0, 0, 0, 0, OLESTR("m / s"), OLESTR("m / s"), {OLESTR("speedOfSound")}},
    {0, 0, 0, 0, OLESTR("W / m / K"), OLESTR("W / m / K"), {OLESTR("thermalConductivity")}},
    {0, 0, 0, 0, OLESTR("Pa s"), OLESTR("Pa s"), {OLESTR("viscosity")}},
    {-1, 0, 1, 1, OLESTR("m3 / kg"), OLESTR("m3 / mol"), {OLESTR("volume")}},
};

constexpr PropertyGroup twoPhaseGroups[] = {
    {0, 1, 0, 0, nullptr, nullptr, {OLESTR("kvalue"), OLESTR("logKvalue")}},
    {0, 0, 0, 0, OLESTR("N m"), OLESTR("N m"), {OLESTR("surfaceTension")}},
};
// clang-format on

template <std::size_t GroupCount> consteval std::size_t countNames(const PropertyGroup (&groups)[GroupCount])
{
    std::size_t count = 0;
    for (const PropertyGroup &group : groups)
        count += group.names.size();
    return count;
}

template <const auto &Groups> consteval auto rowsOf(PropertyKind kind)
{
    std::array<PropertyInfo, countNames(Groups)> rows{};
    std::size_t next = 0;
    for (const PropertyGroup &group : Groups)
        for (const LPCWSTR name : group.names)
            rows[next++] = {kind,          group.massUnit, group.moleUnit, name, group.basisPower, group.dimensions,
                            group.mixable, group.specific};
    return rows;
}

constexpr auto constantRows = rowsOf<constantGroups>(CompoundConstant);
constexpr auto tDependentRows = rowsOf<tDependentGroups>(TemperatureDependent);
constexpr auto pDependentRows = rowsOf<pDependentGroups>(PressureDependent);
constexpr auto singlePhaseRows = rowsOf<singlePhaseGroups>(SinglePhase);
constexpr auto twoPhaseRows = rowsOf<twoPhaseGroups>(TwoPhase);

} // namespace

std::span<const PropertyInfo> PropertyRows(PropertyKind kind)
{
    switch (kind) {
    case CompoundConstant:
        return constantRows;
    case TemperatureDependent:
        return tDependentRows;
    case PressureDependent:
        return pDependentRows;
    case SinglePhase:
        return singlePhaseRows;
    case TwoPhase:
        return twoPhaseRows;
    }
    return {};
}
