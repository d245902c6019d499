#include "reference/engine/flash.h"

#include "reference/engine/flash_reason.h"

#include <cmath>
#include <utility>

namespace reference {

namespace {

bool isFraction(FlashVariable variable)
{
    return variable == FlashVariable::vaporFraction || variable == FlashVariable::vaporMassFraction;
}

// What is wrong with a value for itself; null for nothing.
const char *wrongWith(const FlashSpecification &given)
{
    if (!std::isfinite(given.value))
        return "must be a finite number";
    switch (given.variable) {
    case FlashVariable::temperature:
        return given.value >= lowestFlashTemperature && given.value <= highestFlashTemperature
                   ? nullptr
                   : "must be from 20 K to 1500 K";
    case FlashVariable::pressure:
        return given.value >= lowestFlashPressure && given.value <= highestFlashPressure
                   ? nullptr
                   : "must be from 0.01 Pa to 1e+09 Pa";
    case FlashVariable::vaporFraction:
    case FlashVariable::vaporMassFraction:
        return given.value >= 0.0 && given.value <= 1.0 ? nullptr : "must be from 0 to 1";
    case FlashVariable::volume:
        return given.value > 0.0 ? nullptr : "must be above zero";
    default:
        return nullptr;
    }
}

} // namespace

const char *refusalOf(FlashVariable first, FlashVariable second)
{
    if (first == second)
        return "The two flash specifications are the same";
    if (isFraction(first) && isFraction(second))
        return "A vapor fraction and a vapor mass fraction do not determine a temperature";
    return nullptr;
}

FlashStatus flash(const MixtureModel &model, const FlashRequest &request, std::span<const double> z,
                  FlashResult &result, FlashReason &reason)
{
    FlashSpecification first = request.first;
    FlashSpecification second = request.second;
    if (const char *refusal = refusalOf(first.variable, second.variable)) {
        giveReason(reason, "%s", refusal);
        return FlashStatus::undetermined;
    }
    for (const FlashSpecification &given : {first, second})
        if (const char *wrong = wrongWith(given)) {
            giveReason(reason, "The %s %.6g %s", flashVariableName(given.variable), given.value, wrong);
            return FlashStatus::badValue;
        }
    if (second.variable < first.variable)
        std::swap(first, second);

    if (first.variable == FlashVariable::temperature && second.variable == FlashVariable::pressure) {
        const FlashStatus status = flashTP(model, first.value, second.value, z, result);
        if (status != FlashStatus::solved)
            giveReason(reason, "The phases at %s and %s were not found", SpecificationText(first).text.data(),
                       SpecificationText(second).text.data());
        return status;
    }
    giveReason(reason, "No solution for %s and %s was found", SpecificationText(first).text.data(),
               SpecificationText(second).text.data());
    return FlashStatus::notConverged;
}

} // namespace reference
