#include "reference/package/flash_input.h"
#include "reference/package/property_package.h"

#include <algorithm>

namespace reference {

namespace {

// The limits within which a value can be one of a state.
Bounds limitsOf(const FlashInput &input, double value)
{
    const std::string_view name = input.property->name;
    if (isCondition(input.variable)) {
        const FlashLimits limits = flashLimitsOf(input.variable);
        return {limits.lowest, limits.highest, value, name};
    }
    if (input.isPhaseFraction)
        return {0.0, 1.0, input.ofLiquid ? 1.0 - value : value, name};
    const double lowest = input.variable == FlashVariable::volume ? smallestPositive : -largestNumber;
    return {lowest, largestNumber, value, name};
}

double distanceOutside(const Bounds &bounds)
{
    return std::max(bounds.lower - bounds.value, bounds.value - bounds.upper);
}

} // namespace

HRESULT PropertyPackage::refuseFlash(const Call &call, FlashStatus status, const FlashInput (&inputs)[2],
                                     const FlashRequest &request, const FlashReason &reason) const
{
    if (status != FlashStatus::badValue)
        return call.refuse(errors::solvingError, wide(reason.data()));
    const Bounds bounds[] = {limitsOf(inputs[0], request.first.value), limitsOf(inputs[1], request.second.value)};
    const int bad = distanceOutside(bounds[0]) > distanceOutside(bounds[1]) ? 0 : 1;
    return call.refuseBounds(bounds[bad], bad + 1, wide(reason.data()));
}

} // namespace reference
