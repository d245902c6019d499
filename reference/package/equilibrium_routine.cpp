#include "cape/com/guarded_call.h"
#include "reference/engine/quantities/phase_calculation.h"
#include "reference/package/allowed_phases.h"
#include "reference/package/flash_input.h"
#include "reference/package/phase_of_known.h"
#include "reference/package/phase_table.h"
#include "reference/package/property_package.h"

#include <cmath>
#include <limits>

namespace reference {

namespace {

constexpr auto interfaceName = OLESTR("ICapeThermoEquilibriumRoutine");
constexpr double notSet = std::numeric_limits<double>::quiet_NaN();
constexpr LONG atEquilibrium = 1; // CAPE_ATEQUILIBRIUM

bool isGiven(const FlashInput (&inputs)[2], FlashVariable variable)
{
    return inputs[0].variable == variable || inputs[1].variable == variable;
}

} // namespace

HRESULT STDMETHODCALLTYPE PropertyPackage::CheckEquilibriumSpec(VARIANT specification1, VARIANT specification2,
                                                                BSTR solutionType, VARIANT_BOOL *supported)
{
    return GuardedCall([&]() -> HRESULT {
        if (!supported)
            return E_POINTER;
        FlashInput inputs[2];
        SolutionType type = SolutionType::unspecified;
        const bool good = readFlashInputs(specification1, specification2, inputs).isGood() &&
                          readSolutionType(solutionType, type).isGood();
        *supported = good ? VARIANT_TRUE : VARIANT_FALSE;
        return S_OK;
    });
}

HRESULT STDMETHODCALLTYPE PropertyPackage::CalcEquilibrium(VARIANT specification1, VARIANT specification2,
                                                           BSTR solutionType)
{
    const Call call{*this, interfaceName, OLESTR("CalcEquilibrium")};
    return GuardedCall([&]() -> HRESULT {
        if (const HRESULT result = needMaterial(call); FAILED(result))
            return result;
        const Calculation calculation(*this, call);
        FlashInput inputs[2];
        FlashRequest request{};
        if (FlashVerdict verdict = readFlashInputs(specification1, specification2, inputs); !verdict.isGood())
            return call.refuse(*verdict.kind, std::move(verdict.description), verdict.position);
        if (FlashVerdict verdict = readSolutionType(solutionType, request.solution); !verdict.isGood())
            return call.refuse(*verdict.kind, std::move(verdict.description), verdict.position);
        AllowedPhases allowed;
        if (const HRESULT result = readAllowedPhases(call, allowed); FAILED(result))
            return result;
        request.phases = allowed.kinds();
        const FlashInput *fraction = std::ranges::find_if(inputs, &FlashInput::isPhaseFraction);
        const bool fractionGiven = fraction != std::end(inputs);
        if (fractionGiven && (!allowsBoiling(request.phases) || (fraction->ofLiquid && !allowed.is[liquidPhase])))
            return call.refuse(errors::invalidArgument,
                               OLESTR("A flash can be given the fraction of a phase only where it may use that phase, "
                                      "and vapor as well as liquid"),
                               fraction == inputs ? 1 : 2);
        CompoundArray feed;
        if (const HRESULT result = readFlashConditions(call, inputs, request, feed); FAILED(result))
            return result;

        FlashResult result;
        FlashReason reason;
        const std::span<const double> fractions(feed.data(), static_cast<std::size_t>(model.size));
        const FlashStatus status = flash(model, request, fractions, result, reason);
        if (status != FlashStatus::solved)
            return refuseFlash(call, status, inputs, request, reason);
        if (fractionGiven && fraction->ofLiquid && result.liquid2Present)
            return call.refuse(
                errors::solvingError,
                OLESTR("Where the liquid has that fraction there are two liquids: give the fraction of the "
                       "vapor, or allow one liquid"));
        return writeEquilibrium(
            call, result, allowed,
            {isGiven(inputs, FlashVariable::temperature), isGiven(inputs, FlashVariable::pressure)});
    });
}

HRESULT PropertyPackage::readFlashConditions(const Call &call, const FlashInput (&inputs)[2], FlashRequest &request,
                                             CompoundArray &feed) const
{
    const auto refuse = [&](HRESULT read) {
        return call.refuseFor(errors::failedInitialization,
                              OLESTR("The material does not give the overall conditions: "), material.get(), read);
    };
    FlashSpecification *const targets[] = {&request.first, &request.second};
    Value composition;
    if (isGiven(inputs, FlashVariable::temperature) && isGiven(inputs, FlashVariable::pressure)) {
        double temperature = notSet;
        double pressure = notSet;
        const HRESULT read = material->GetOverallTPFraction(&temperature, &pressure, composition.out());
        if (FAILED(read))
            return refuse(read);
        for (int i = 0; i < 2; ++i)
            *targets[i] = {inputs[i].variable,
                           inputs[i].variable == FlashVariable::temperature ? temperature : pressure};
    } else {
        const HRESULT read = material->GetOverallProp(words.fraction.get(), words.mole.get(), composition.out());
        if (FAILED(read))
            return refuse(read);
        for (int i = 0; i < 2; ++i)
            if (const HRESULT result = readFlashValue(call, inputs[i], *targets[i]); FAILED(result))
                return result;
    }
    for (int i = 0; i < 2; ++i) {
        const auto [variable, value] = *targets[i];
        if (!isCondition(variable))
            continue;
        if (const HRESULT result = checkCondition(call, variable, value, {i + 1, true}); FAILED(result))
            return result;
    }
    if (const HRESULT result = readComposition(call, composition.get(), {noArgument, true}, feed); FAILED(result))
        return result;
    for (int i = 0; i < 2; ++i)
        if (const HRESULT result = leaveOutFormation(call, inputs[i], feed, targets[i]->value); FAILED(result))
            return result;
    return S_OK;
}

HRESULT PropertyPackage::leaveOutFormation(const Call &call, const FlashInput &input, const CompoundArray &feed,
                                           double &value) const
{
    if (!input.property->formation)
        return S_OK;
    const bool isEnthalpy = input.variable == FlashVariable::enthalpy;
    const PhaseQuantity with = isEnthalpy ? PhaseQuantity::enthalpyF : PhaseQuantity::entropyF;
    const PhaseQuantity without = isEnthalpy ? PhaseQuantity::enthalpyNF : PhaseQuantity::entropyNF;
    // The difference is the same at all conditions.
    const PhasePoint whole(model, 298.15, 1e5, {feed.data(), static_cast<std::size_t>(model.size)}, Root::vapor);
    const PhaseOfKnown known(whole, with);
    const PhasePoint point = known.point(Root::vapor);
    double withFormation = 0.0;
    double withoutFormation = 0.0;
    if (!calculate(point, with, Differential::none, {&withFormation, 1}) ||
        !calculate(point, without, Differential::none, {&withoutFormation, 1}))
        return call.refuse(errors::propertyNotAvailable, OLESTR("A flash can't be given the ") +
                                                             wide(input.property->name) +
                                                             OLESTR(" where the formation of a compound is not known"));
    value -= withFormation - withoutFormation;
    return S_OK;
}

HRESULT PropertyPackage::readFlashValue(const Call &call, const FlashInput &input, FlashSpecification &target) const
{
    const Bstr name(input.property->name);
    const bool byMass = input.variable == FlashVariable::vaporMassFraction;
    Value value;
    const HRESULT read =
        input.isPhaseFraction
            ? material->GetSinglePhaseProp(name.get(),
                                           Bstr(phaseTable()[input.ofLiquid ? liquidPhase : vaporPhase].label).get(),
                                           byMass ? words.mass.get() : words.mole.get(), value.out())
            : material->GetOverallProp(name.get(), input.property->molar ? words.mole.get() : nullptr, value.out());
    if (FAILED(read))
        return call.refuseFor(errors::failedInitialization,
                              (OLESTR("The material does not give the ") + wide(input.property->name) +
                               OLESTR(" that the flash is given: "))
                                  .c_str(),
                              material.get(), read);
    NumberView numbers;
    if (!numbers.open(value.get()) || numbers.size() != 1 || std::isnan(numbers[0]))
        return call.refuse(errors::failedInitialization, OLESTR("The ") + wide(input.property->name) +
                                                             OLESTR(" that the flash is given is not a number"));
    target = {input.variable, input.ofLiquid ? 1.0 - numbers[0] : numbers[0]};
    return S_OK;
}

HRESULT PropertyPackage::readAllowedPhases(const Call &call, AllowedPhases &allowed) const
{
    Value labels;
    Value statuses;
    const HRESULT read = material->GetPresentPhases(labels.out(), statuses.out());
    if (FAILED(read))
        return call.refuseFor(errors::failedInitialization, OLESTR("The material does not tell its phases: "),
                              material.get(), read);
    TextView names;
    if (!names.open(labels.get()) || names.size() == 0)
        return call.refuse(errors::failedInitialization, OLESTR("The material lists no phase that the flash may use"));
    for (const BSTR name : names) {
        const PhaseRow *phase = findPhase(name);
        if (!phase)
            return call.refuse(errors::failedInitialization, OLESTR("There is no phase ") + quoted(name));
        allowed.is[phase->index] = true;
    }
    return S_OK;
}

HRESULT PropertyPackage::writeEquilibrium(const Call &call, const FlashResult &result, const AllowedPhases &allowed,
                                          const GivenConditions &given) const
{
    const struct {
        PhaseIndex index;
        bool present;
        const double &amount;
        const CompoundArray &fractions;
    } phases[] = {{vaporPhase, result.vaporPresent, result.vaporFraction, result.vapor},
                  {allowed.firstLiquid(), result.liquidPresent, result.liquidFraction, result.liquid},
                  {liquid2Phase, result.liquid2Present, result.liquid2Fraction, result.liquid2}};

    const auto refuse = [&](HRESULT written) {
        return call.refuseFor(errors::unknown, OLESTR("The material does not take the equilibrium: "), material.get(),
                              written);
    };
    const int count = result.phaseCount();
    Value labels;
    Value statuses;
    BSTR *const presentLabels = labels.makeTexts(count);
    LONG *status = statuses.makeIntegers(count);
    if (!presentLabels || !status)
        return E_OUTOFMEMORY;
    BSTR *label = presentLabels;
    for (const auto &phase : phases) {
        if (!phase.present)
            continue;
        *label++ = Bstr(phaseTable()[phase.index].label).detach();
        *status++ = atEquilibrium;
    }
    if (const HRESULT written = material->SetPresentPhases(labels.get(), statuses.get()); FAILED(written))
        return refuse(written);

    int present = 0;
    for (const auto &phase : phases) {
        if (!phase.present)
            continue;
        const struct {
            const Bstr &property;
            const Bstr *basis;
            const double *values;
            int count;
        } settings[] = {{words.temperature, nullptr, &result.temperature, 1},
                        {words.pressure, nullptr, &result.pressure, 1},
                        {words.fraction, &words.mole, phase.fractions.data(), model.size},
                        {words.phaseFraction, &words.mole, &phase.amount, 1}};
        for (const auto &setting : settings) {
            Value list;
            if (!list.setNumbers(setting.values, setting.count))
                return E_OUTOFMEMORY;
            const HRESULT written =
                material->SetSinglePhaseProp(setting.property.get(), presentLabels[present],
                                             setting.basis ? setting.basis->get() : nullptr, list.get());
            if (FAILED(written))
                return refuse(written);
        }
        ++present;
    }

    const struct {
        bool given;
        const Bstr &property;
        const double &value;
    } found[] = {{given.temperature, words.temperature, result.temperature},
                 {given.pressure, words.pressure, result.pressure}};
    for (const auto &condition : found) {
        Value list;
        if (condition.given)
            continue;
        if (!list.setNumbers(&condition.value, 1))
            return E_OUTOFMEMORY;
        const HRESULT written = material->SetOverallProp(condition.property.get(), nullptr, list.get());
        if (FAILED(written))
            return refuse(written);
    }
    return S_OK;
}

} // namespace reference
