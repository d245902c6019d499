// The parts of a model that depend on temperature alone, worked out once for a temperature.
#pragma once

#include "reference/engine/phase/local_compositions.h"
#include "reference/engine/phase/mixture_model.h"

namespace reference {

struct Isotherm {
    double temperature; // K

    // Cubic equations: a_ij = s_i s_j (1 - kij).
    CompoundArray s;         // square root of a alpha, Pa^0.5 m3/mol
    CompoundArray slope;     // ds/dT
    CompoundArray curvature; // d2s/dT2
    CompoundArray b;         // covolumes, which stand far apart in the model, m3/mol

    // Liquids that are not by a cubic equation: ln phi_i is saturation_i + ln gamma_i + volume_i P - ln P.
    std::array<TemperatureFunction, maximumCompounds> saturation; // ln p_i - v_i p_i / (R T)
    std::array<TemperatureFunction, maximumCompounds> volume;     // v_i / (R T), 1/Pa

    LocalCompositions local; // for ln gamma_i of NRTL; of the ideal mixture it is zero

    Isotherm(const MixtureModel &model, double kelvin);
};

} // namespace reference
