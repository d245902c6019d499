#include "reference/package/saturated_compound.h"

#include "reference/engine/flash/flash.h"
#include "reference/engine/quantities/phase_calculation.h"
#include "reference/engine/quantities/phase_pair.h"
#include "reference/engine/quantities/phase_quantity.h"

#include <limits>

namespace reference {

namespace {

constexpr double notKnown = std::numeric_limits<double>::quiet_NaN();
constexpr double lowPressure = 1.0; // Pa
constexpr double whole = 1.0;       // mole fraction of a pure compound

MixtureModel modelOf(const PureCompound &compound)
{
    const CompoundData *const list[] = {&compound.data};
    return MixtureModel::of(list, compound.equation);
}

double valueOf(const std::optional<PhasePoint> &point, PhaseQuantity quantity)
{
    double value = 0.0;
    return point && calculate(*point, quantity, Differential::none, {&value, 1}) ? value : notKnown;
}

} // namespace

SaturatedCompound::SaturatedCompound(const PureCompound &compound, double kelvin) : model(modelOf(compound))
{
    FlashResult result;
    FlashReason reason;
    const FlashRequest request = {{FlashVariable::temperature, kelvin}, {FlashVariable::vaporFraction, 0.5}};
    if (flash(model, request, {&whole, 1}, result, reason) != FlashStatus::solved)
        return;
    vapor.emplace(model, kelvin, result.pressure, std::span(&whole, 1), Root::vapor);
    liquid.emplace(model, kelvin, result.pressure, std::span(&whole, 1), Root::liquid);
}

double SaturatedCompound::ofVapor(PhaseQuantity quantity) const { return valueOf(vapor, quantity); }
double SaturatedCompound::ofLiquid(PhaseQuantity quantity) const { return valueOf(liquid, quantity); }

double SaturatedCompound::ofBoth(PairQuantity quantity) const
{
    double value = 0.0;
    const bool known = vapor && calculatePair(*vapor, *liquid, quantity, Differential::none, {&value, 1});
    return known ? value : notKnown;
}

double ofThinGas(const PureCompound &compound, PhaseQuantity quantity, double kelvin)
{
    const MixtureModel model = modelOf(compound);
    return valueOf(PhasePoint(model, kelvin, lowPressure, {&whole, 1}, Root::vapor), quantity);
}

double secondVirialCoefficient(const PureCompound &compound, double kelvin)
{
    const MixtureModel model = modelOf(compound);
    return PhasePoint(model, kelvin, lowPressure, {&whole, 1}, Root::vapor).bulk({}).residual.residualVolume.value;
}

} // namespace reference
