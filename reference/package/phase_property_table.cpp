#include "reference/package/phase_property_table.h"

#include "reference/com/automation.h"

#include <cmath>

namespace reference {

namespace {

using Phase = const PhaseProperties &;

template <double (*function)(Phase)> void fillOne(Phase phase, int, double *values) { *values = function(phase); }

template <double (*function)(Phase, int)> void fillEach(Phase phase, int compounds, double *values)
{
    for (int i = 0; i < compounds; ++i)
        values[i] = function(phase, i);
}

// A property with one value, from the functions for it and its two derivatives.
template <double (*value)(Phase), double (*byTemperature)(Phase), double (*byPressure)(Phase)>
constexpr PhaseProperty scalar(std::string_view name, bool molar)
{
    return {name, molar, false, {fillOne<value>, fillOne<byTemperature>, fillOne<byPressure>}};
}

// The same with one value for each compound.
template <double (*value)(Phase, int), double (*byTemperature)(Phase, int), double (*byPressure)(Phase, int)>
constexpr PhaseProperty vector(std::string_view name)
{
    return {name, false, true, {fillEach<value>, fillEach<byTemperature>, fillEach<byPressure>}};
}

double zero(Phase) { return 0.0; }

double factor(Phase phase) { return phase.state.Z; }
double factorByT(Phase phase) { return phase.slopes.ZbyT; }
double factorByP(Phase phase) { return phase.slopes.ZbyP; }

double volume(Phase phase) { return phase.volume; }
double volumeByT(Phase phase) { return phase.volumeByT; }
double volumeByP(Phase phase) { return phase.volumeByP; }

double density(Phase phase) { return 1.0 / phase.volume; }
double densityByT(Phase phase) { return -phase.volumeByT / (phase.volume * phase.volume); }
double densityByP(Phase phase) { return -phase.volumeByP / (phase.volume * phase.volume); }

double enthalpy(Phase phase) { return phase.enthalpy; }
double enthalpyByT(Phase phase) { return phase.heatCapacity; }
double enthalpyByP(Phase phase) { return phase.volume - phase.temperature * phase.volumeByT; }

double entropy(Phase phase) { return phase.entropy; }
double entropyByT(Phase phase) { return phase.heatCapacity / phase.temperature; }
double entropyByP(Phase phase) { return -phase.volumeByT; }

double molecularWeight(Phase phase) { return phase.molecularWeight; }

double lnPhi(Phase phase, int i) { return phase.state.lnPhi[i]; }
double lnPhiByT(Phase phase, int i) { return phase.slopes.lnPhiByT[i]; }
double lnPhiByP(Phase phase, int i) { return phase.slopes.lnPhiByP[i]; }

double phi(Phase phase, int i) { return std::exp(lnPhi(phase, i)); }
double phiByT(Phase phase, int i) { return phi(phase, i) * lnPhiByT(phase, i); }
double phiByP(Phase phase, int i) { return phi(phase, i) * lnPhiByP(phase, i); }

double fugacity(Phase phase, int i) { return phase.fractions[i] * phi(phase, i) * phase.state.pressure; }
double fugacityByT(Phase phase, int i) { return fugacity(phase, i) * lnPhiByT(phase, i); }
double fugacityByP(Phase phase, int i)
{
    return fugacity(phase, i) * (lnPhiByP(phase, i) + 1.0 / phase.state.pressure);
}

constexpr PhaseProperty properties[] = {
    vector<phi, phiByT, phiByP>("fugacityCoefficient"),
    vector<lnPhi, lnPhiByT, lnPhiByP>("logFugacityCoefficient"),
    vector<fugacity, fugacityByT, fugacityByP>("fugacity"),
    scalar<volume, volumeByT, volumeByP>("volume", true),
    scalar<density, densityByT, densityByP>("density", true),
    scalar<enthalpy, enthalpyByT, enthalpyByP>("enthalpy", true),
    scalar<entropy, entropyByT, entropyByP>("entropy", true),
    scalar<factor, factorByT, factorByP>("compressibilityFactor", false),
    scalar<molecularWeight, zero, zero>("molecularWeight", false),
};

} // namespace

std::span<const PhaseProperty> phaseProperties() { return properties; }

PropertyRequest parsePropertyName(BSTR name)
{
    const std::size_t length = SysStringLen(name);
    std::size_t base = 0;
    while (base < length && name[base] != '.')
        ++base;
    for (const Variation variation : {Variation::value, Variation::byTemperature, Variation::byPressure}) {
        if (!sameWord(name + base, length - base, variationSuffixes[static_cast<int>(variation)]))
            continue;
        for (const PhaseProperty &property : properties)
            if (sameWord(name, base, property.name))
                return {&property, variation};
    }
    return {};
}

} // namespace reference
