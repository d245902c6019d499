// A pure compound at saturation, by the equation of state of a package.
#pragma once

#include "reference/engine/phase/phase_point.h"
#include "reference/engine/quantities/phase_quantity.h"

#include <optional>

namespace reference {

struct PureCompound {
    const CompoundData &data;
    EquationOfState equation;
};

class SaturatedCompound {
public:
    // The compound at a temperature, where it need not have a saturated state.
    SaturatedCompound(const PureCompound &compound, double kelvin);
    SaturatedCompound(const SaturatedCompound &) = delete;
    SaturatedCompound &operator=(const SaturatedCompound &) = delete;

    // One value of a phase, of the change from liquid to vapor, or of both together. NaN where the
    // compound does not boil or the equation has no such value.
    double ofVapor(PhaseQuantity quantity) const;
    double ofLiquid(PhaseQuantity quantity) const;
    double change(PhaseQuantity quantity) const { return ofVapor(quantity) - ofLiquid(quantity); }
    double ofBoth(PairQuantity quantity) const;

private:
    MixtureModel model;
    std::optional<PhasePoint> vapor;
    std::optional<PhasePoint> liquid;
};

// A value of the compound as a gas so dilute that it is ideal, and its second virial coefficient,
// m3/mol.
double ofThinGas(const PureCompound &compound, PhaseQuantity quantity, double kelvin);
double secondVirialCoefficient(const PureCompound &compound, double kelvin);

} // namespace reference
