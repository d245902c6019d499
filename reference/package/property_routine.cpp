#include "cape/com/guarded_call.h"
#include "reference/engine/phase/phase_evaluation.h"
#include "reference/engine/phase/phase_point.h"
#include "reference/engine/quantities/phase_calculation.h"
#include "reference/engine/quantities/phase_pair.h"
#include "reference/package/phase_of_known.h"
#include "reference/package/phase_table.h"
#include "reference/package/property_name.h"
#include "reference/package/property_package.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace reference {

namespace {

constexpr auto interfaceName = OLESTR("ICapeThermoPropertyRoutine");
constexpr double notSet = std::numeric_limits<double>::quiet_NaN();

// The parts of CalcAndGetLnPhi that its flags ask for.
enum LnPhiFlag : INT { lnPhiFlag = 1, byTemperatureFlag = 2, byPressureFlag = 4, byMolesFlag = 8 };

HRESULT refusePhase(const Component::Call &call, BSTR label, int position)
{
    return call.refuse(errors::invalidArgument, OLESTR("There is no phase ") + quoted(label), position);
}

HRESULT giveNumbers(const double *values, int count, VARIANT *argument)
{
    Value list;
    return list.setNumbers(values, count) ? list.replace(argument) : E_OUTOFMEMORY;
}

HRESULT giveNames(const std::vector<std::string> &list, VARIANT *properties)
{
    Value names;
    VariantInit(properties);
    if (!names.setTexts(list, [](const std::string &name) { return std::string_view(name); }))
        return E_OUTOFMEMORY;
    return names.give(properties);
}

// The values of a phase. They can be had, too, where absent compounds lack a constant that they need: what belongs to
// these is NaN.
bool calculateValues(const PhasePoint &phase, Root root, PhaseQuantity quantity, Differential differential,
                     std::span<double> values)
{
    return calculate(phase, quantity, differential, values) ||
           PhaseOfKnown(phase, quantity).calculate(root, differential, values);
}

// Why a phase has no such property.
WideString reasonOf(const PhasePoint &phase, Root root, PhaseQuantity quantity)
{
    if (needsCompressibility(quantity) && !yieldsToPressure(phase.model(), root))
        return OLESTR("a liquid of this model does not yield to pressure");
    for (int i = 0; i < phase.model().size; ++i) {
        const CompoundData &compound = *phase.model().compounds[i].data;
        const char *missing = phase.fractions()[i] > 0.0 ? missingConstant(compound, quantity) : nullptr;
        if (missing)
            return OLESTR("the ") + wide(missing) + OLESTR(" of ") + wide(compound.id) + OLESTR(" is not known");
    }
    return OLESTR("the model does not have it for this phase");
}

// The properties that a call asks for; the names are those of the argument.
template <class Quantity> struct Requests {
    TextView names;
    std::vector<PropertyRequest<Quantity>> list;

    // `owner` is what the message calls the owner of the properties.
    HRESULT read(const Component::Call &call, std::span<const QuantityShape> quantities, LPCWSTR owner,
                 const VARIANT &properties)
    {
        if (!names.open(properties) || names.size() == 0)
            return call.refuse(errors::invalidArgument, OLESTR("The properties must be an array of one name or more"),
                               1);
        for (const BSTR name : names) {
            const auto request = readPropertyName<Quantity>(quantities, name);
            if (!request)
                return call.refuse(errors::limitedImplementation,
                                   owner + (OLESTR(" have no property ") + quoted(name) + OLESTR(" here")));
            list.push_back(*request);
        }
        return S_OK;
    }

    // Calculates all values before it gives any to `write`, so that the material stays as it is when one
    // of them is not available. `calculate` fills the values of a request, or says why there are none.
    template <class Calculate, class Write>
    HRESULT answer(const Component::Call &call, int compounds, Calculate calculate, Write write) const
    {
        std::vector<Value> values(list.size());
        for (std::size_t i = 0; i < list.size(); ++i) {
            const int count = valueCount(list[i].quantity, list[i].differential, compounds);
            double *elements = values[i].makeNumbers(count);
            if (!elements)
                return E_OUTOFMEMORY;
            const std::span<double> found(elements, static_cast<std::size_t>(count));
            if (const std::optional<WideString> reason = calculate(list[i], found))
                return call.refuse(errors::propertyNotAvailable, OLESTR("There is no ") +
                                                                     quoted(names[static_cast<int>(i)]) +
                                                                     OLESTR(" here: ") + *reason);
        }
        for (std::size_t i = 0; i < list.size(); ++i)
            if (const HRESULT written = write(list[i], names[static_cast<int>(i)], values[i].get()); FAILED(written))
                return written;
        return S_OK;
    }
};

} // namespace

HRESULT STDMETHODCALLTYPE PropertyPackage::CalcAndGetLnPhi(BSTR phaseLabel, double temperature, double pressure,
                                                           VARIANT moleNumbers, INT flags, VARIANT *lnPhi,
                                                           VARIANT *lnPhiDT, VARIANT *lnPhiDP, VARIANT *lnPhiDn)
{
    const Call call{*this, interfaceName, OLESTR("CalcAndGetLnPhi")};
    return GuardedCall([&]() -> HRESULT {
        const struct {
            LnPhiFlag flag;
            VARIANT *argument;
        } parts[] = {
            {lnPhiFlag, lnPhi}, {byTemperatureFlag, lnPhiDT}, {byPressureFlag, lnPhiDP}, {byMolesFlag, lnPhiDn}};
        for (const auto &part : parts)
            if ((flags & part.flag) && !part.argument)
                return E_POINTER;
        if (const HRESULT result = needMaterial(call); FAILED(result))
            return result;
        const PhaseRow *phase = findPhase(phaseLabel);
        if (!phase)
            return refusePhase(call, phaseLabel, 1);
        CompoundArray fractions;
        HRESULT result = checkCondition(call, FlashVariable::temperature, temperature, {2, false});
        if (SUCCEEDED(result))
            result = checkCondition(call, FlashVariable::pressure, pressure, {3, false});
        if (SUCCEEDED(result))
            result = readComposition(call, moleNumbers, {4, false}, fractions);
        if (FAILED(result))
            return result;

        const int n = model.size;
        const Isotherm isotherm(model, temperature);
        PhaseState state;
        PhaseSlopes slopes;
        PairArray byMoles;
        evaluatePhase(model, isotherm, pressure, fractions.data(), phase->root, state);
        if (flags & (byTemperatureFlag | byPressureFlag))
            evaluateSlopes(model, isotherm, fractions.data(), state, slopes);
        if (flags & byMolesFlag)
            lnPhiByMoles(model, isotherm, state, byMoles);

        const double *values[] = {state.lnPhi.data(), slopes.lnPhiByT.data(), slopes.lnPhiByP.data(), byMoles.data()};
        for (std::size_t i = 0; i < std::size(parts); ++i) {
            if (!parts[i].argument)
                continue;
            VariantClear(parts[i].argument);
            if (!(flags & parts[i].flag))
                continue;
            const int count = parts[i].flag == byMolesFlag ? n * n : n;
            result = giveNumbers(values[i], count, parts[i].argument);
            if (FAILED(result))
                return result;
        }
        return S_OK;
    });
}

PhasePoint PropertyPackage::PhaseConditions::point(const MixtureModel &model, Root root) const
{
    return {model, temperature, pressure, {fractions.data(), static_cast<std::size_t>(model.size)}, root};
}

HRESULT PropertyPackage::readPhase(const Call &call, BSTR phaseLabel, int position, PhaseConditions &conditions) const
{
    conditions.temperature = notSet;
    conditions.pressure = notSet;
    Value composition;
    const HRESULT read =
        material->GetTPFraction(phaseLabel, &conditions.temperature, &conditions.pressure, composition.out());
    if (FAILED(read))
        return call.refuseFor(errors::failedInitialization,
                              OLESTR("The material does not give the conditions of the phase: "), material.get(), read);
    const ValueSource source = {position, true};
    HRESULT result = checkCondition(call, FlashVariable::temperature, conditions.temperature, source);
    if (SUCCEEDED(result))
        result = checkCondition(call, FlashVariable::pressure, conditions.pressure, source);
    return FAILED(result) ? result : readComposition(call, composition.get(), source, conditions.fractions);
}

HRESULT PropertyPackage::refuseWrite(const Call &call, HRESULT written) const
{
    return FAILED(written) ? call.refuseFor(errors::unknown, OLESTR("The material does not take a property: "),
                                            material.get(), written)
                           : S_OK;
}

HRESULT STDMETHODCALLTYPE PropertyPackage::CalcSinglePhaseProp(VARIANT properties, BSTR phaseLabel)
{
    const Call call{*this, interfaceName, OLESTR("CalcSinglePhaseProp")};
    return GuardedCall([&]() -> HRESULT {
        if (const HRESULT result = needMaterial(call); FAILED(result))
            return result;
        const Calculation calculation(*this, call);
        const PhaseRow *phaseRow = findPhase(phaseLabel);
        if (!phaseRow)
            return refusePhase(call, phaseLabel, 2);
        Requests<PhaseQuantity> requests;
        if (const HRESULT result = requests.read(call, phaseQuantities(), OLESTR("Phases"), properties); FAILED(result))
            return result;
        PhaseConditions conditions;
        if (const HRESULT result = readPhase(call, phaseLabel, 2, conditions); FAILED(result))
            return result;

        const PhasePoint phase = conditions.point(model, phaseRow->root);
        return requests.answer(
            call, model.size,
            [&](const auto &request, std::span<double> values) -> std::optional<WideString> {
                if (calculateValues(phase, phaseRow->root, request.quantity, request.differential, values))
                    return std::nullopt;
                return reasonOf(phase, phaseRow->root, request.quantity);
            },
            [&](const auto &request, BSTR name, const VARIANT &values) {
                const BSTR basis = shapeOf(request.quantity).molarBasis ? words.mole.get() : nullptr;
                return refuseWrite(call, material->SetSinglePhaseProp(name, phaseLabel, basis, values));
            });
    });
}

HRESULT STDMETHODCALLTYPE PropertyPackage::CalcTwoPhaseProp(VARIANT properties, VARIANT phaseLabels)
{
    const Call call{*this, interfaceName, OLESTR("CalcTwoPhaseProp")};
    return GuardedCall([&]() -> HRESULT {
        if (const HRESULT result = needMaterial(call); FAILED(result))
            return result;
        const Calculation calculation(*this, call);
        TextView labels;
        if (!labels.open(phaseLabels) || labels.size() != 2)
            return call.refuse(errors::invalidArgument, OLESTR("The phases must be an array of two labels"), 2);
        const PhaseRow *const rows[] = {findPhase(labels[0]), findPhase(labels[1])};
        for (int k = 0; k < 2; ++k)
            if (!rows[k])
                return refusePhase(call, labels[k], 2);
        if (rows[0] == rows[1])
            return call.refuse(errors::invalidArgument, OLESTR("The two phases are the same"), 2);
        Requests<PairQuantity> requests;
        if (const HRESULT result = requests.read(call, pairQuantities(), OLESTR("Pairs of phases"), properties);
            FAILED(result))
            return result;
        PhaseConditions conditions[2];
        for (int k = 0; k < 2; ++k)
            if (const HRESULT result = readPhase(call, labels[k], 2, conditions[k]); FAILED(result))
                return result;
        if (conditions[0].temperature != conditions[1].temperature || conditions[0].pressure != conditions[1].pressure)
            return call.refuse(errors::failedInitialization,
                               OLESTR("The two phases differ in temperature or pressure"));

        const PhasePoint first = conditions[0].point(model, rows[0]->root);
        const PhasePoint second = conditions[1].point(model, rows[1]->root);
        return requests.answer(
            call, model.size,
            [&](const auto &request, std::span<double> values) -> std::optional<WideString> {
                if (calculatePair(first, second, request.quantity, request.differential, values))
                    return std::nullopt;
                return WideString(OLESTR("a constant of a compound is not known"));
            },
            [&](const auto &, BSTR name, const VARIANT &values) {
                return refuseWrite(call, material->SetTwoPhaseProp(name, phaseLabels, nullptr, values));
            });
    });
}

// Whether a property is available for at least one compound of the package.
bool PropertyPackage::offers(auto... asked) const
{
    return std::ranges::any_of(compounds, [&](const CompoundData *compound) {
        return isAvailable(MixtureModel::of({&compound, 1}, equation), asked...);
    });
}

HRESULT STDMETHODCALLTYPE PropertyPackage::CheckSinglePhasePropSpec(BSTR property, BSTR phaseLabel, VARIANT_BOOL *valid)
{
    if (!valid)
        return E_POINTER;
    const PhaseRow *phase = findPhase(phaseLabel);
    const auto request = readPropertyName<PhaseQuantity>(phaseQuantities(), property);
    *valid = phase && request && offers(phase->root, request->quantity) ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE PropertyPackage::CheckTwoPhasePropSpec(BSTR property, VARIANT phaseLabels,
                                                                 VARIANT_BOOL *valid)
{
    if (!valid)
        return E_POINTER;
    TextView labels;
    const bool twoPhases = labels.open(phaseLabels) && labels.size() == 2 && findPhase(labels[0]) &&
                           findPhase(labels[1]) && findPhase(labels[0]) != findPhase(labels[1]);
    const auto request = readPropertyName<PairQuantity>(pairQuantities(), property);
    *valid = twoPhases && request && offers(request->quantity) ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE PropertyPackage::GetSinglePhasePropList(VARIANT *properties)
{
    return GuardedCall([&]() -> HRESULT {
        if (!properties)
            return E_POINTER;
        std::vector<std::string> names;
        for (int i = 0; i < phaseQuantityCount; ++i) {
            const auto quantity = static_cast<PhaseQuantity>(i);
            if (std::ranges::any_of(phaseTable(), [&](const PhaseRow &phase) { return offers(phase.root, quantity); }))
                addNames(shapeOf(quantity), names);
        }
        return giveNames(names, properties);
    });
}

HRESULT STDMETHODCALLTYPE PropertyPackage::GetTwoPhasePropList(VARIANT *properties)
{
    return GuardedCall([&]() -> HRESULT {
        if (!properties)
            return E_POINTER;
        std::vector<std::string> names;
        for (int i = 0; i < pairQuantityCount; ++i)
            if (const auto quantity = static_cast<PairQuantity>(i); offers(quantity))
                addNames(shapeOf(quantity), names);
        return giveNames(names, properties);
    });
}

} // namespace reference
