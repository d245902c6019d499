// What the published correlations of a pure compound make of its transport properties and its surface
// tension in a model.
#pragma once

#include "reference/engine/phase/mixture_model.h"
#include "reference/engine/transport/chung_fluid.h"

namespace reference {

// With derivatives by temperature. Beyond the range of a correlation, ratios stay as they are at its end; near and
// above the critical temperature they go back to what they are at 0.7 of it.
struct PureTransport {
    Dual gasViscosity;       // Pa s, of the thin gas
    Dual gasConductivity;    // W/m/K
    Dual viscosityFactor;    // of the excess over the gas that ChungFluid has, so that the saturated liquid of
    Dual conductivityFactor; // the model has what was published
};
PureTransport pureTransport(const CompoundTerms &compound, EquationOfState equation, double kelvin);

// The parachor that gives the published surface tension with the densities of the model's saturated
// phases, kg^0.25 m3 / (s^0.5 mol). That of the compound's constants where none is published.
Dual parachorAt(const CompoundTerms &compound, EquationOfState equation, double kelvin);

} // namespace reference
