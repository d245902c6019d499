#include "reference/package/phase_property_table.h"
#include "reference/package/phase_table.h"
#include "reference/package/property_package.h"

#include <algorithm>
#include <limits>

namespace reference {

namespace {

constexpr auto interfaceName = OLESTR("ICapeThermoPropertyRoutine");
constexpr double notSet = std::numeric_limits<double>::quiet_NaN();

// The parts of CalcAndGetLnPhi that its flags ask for.
enum LnPhiFlag : INT { lnPhiFlag = 1, byTemperatureFlag = 2, byPressureFlag = 4, byMolesFlag = 8 };

HRESULT refusePhase(const Component::Call &call, BSTR label)
{
    return call.refuse(errors::invalidArgument, OLESTR("There is no phase ") + quoted(label));
}

HRESULT giveNumbers(const double *values, int count, VARIANT *argument)
{
    Value list;
    return list.setNumbers(values, count) ? list.replace(argument) : E_OUTOFMEMORY;
}

} // namespace

HRESULT STDMETHODCALLTYPE PropertyPackage::CalcAndGetLnPhi(BSTR phaseLabel, double temperature, double pressure,
                                                           VARIANT moleNumbers, INT flags, VARIANT *lnPhi,
                                                           VARIANT *lnPhiDT, VARIANT *lnPhiDP, VARIANT *lnPhiDn)
{
    const Call call{*this, interfaceName, OLESTR("CalcAndGetLnPhi")};
    const struct {
        LnPhiFlag flag;
        VARIANT *argument;
    } parts[] = {{lnPhiFlag, lnPhi}, {byTemperatureFlag, lnPhiDT}, {byPressureFlag, lnPhiDP}, {byMolesFlag, lnPhiDn}};
    for (const auto &part : parts)
        if ((flags & part.flag) && !part.argument)
            return E_POINTER;
    if (const HRESULT result = needMaterial(call); FAILED(result))
        return result;
    const PhaseRow *phase = findPhase(phaseLabel);
    if (!phase)
        return refusePhase(call, phaseLabel);
    CompoundArray fractions;
    if (const HRESULT result = readMixture(call, temperature, pressure, moleNumbers, fractions); FAILED(result))
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
        if (const HRESULT result = giveNumbers(values[i], count, parts[i].argument); FAILED(result))
            return result;
    }
    return S_OK;
}

HRESULT STDMETHODCALLTYPE PropertyPackage::CalcSinglePhaseProp(VARIANT properties, BSTR phaseLabel)
{
    const Call call{*this, interfaceName, OLESTR("CalcSinglePhaseProp")};
    if (const HRESULT result = needMaterial(call); FAILED(result))
        return result;
    const PhaseRow *phaseRow = findPhase(phaseLabel);
    if (!phaseRow)
        return refusePhase(call, phaseLabel);
    TextView names;
    if (!names.open(properties) || names.size() == 0)
        return call.refuse(errors::invalidArgument, OLESTR("The properties must be an array of one name or more"));
    bool derivatives = false;
    for (const BSTR name : names) {
        const PropertyRequest request = parsePropertyName(name);
        if (!request.property)
            return call.refuse(errors::limitedImplementation,
                               OLESTR("Phases have no property ") + quoted(name) + OLESTR(" here"));
        derivatives |= request.variation != Variation::value;
    }

    double temperature = notSet;
    double pressure = notSet;
    Value composition;
    const HRESULT read = material->GetTPFraction(phaseLabel, &temperature, &pressure, composition.out());
    if (FAILED(read))
        return call.refuseFor(errors::failedInitialisation,
                              OLESTR("The material does not give the conditions of the phase: "), material.get(), read);
    CompoundArray fractions;
    if (const HRESULT result = readMixture(call, temperature, pressure, composition.get(), fractions); FAILED(result))
        return result;

    const Isotherm isotherm(model, temperature);
    PhaseProperties phase;
    evaluateProperties(model, isotherm, pressure, fractions.data(), phaseRow->root, phase);
    if (derivatives)
        addDerivatives(model, isotherm, phase);
    return writeProperties(call, names, phaseLabel, phase);
}

HRESULT PropertyPackage::writeProperties(const Call &call, const TextView &names, BSTR phaseLabel,
                                         const PhaseProperties &phase) const
{
    for (const BSTR name : names) {
        const PropertyRequest request = parsePropertyName(name);
        const PhaseProperty &property = *request.property;
        Value list;
        double *values = list.makeNumbers(property.perCompound ? model.size : 1);
        if (!values)
            return E_OUTOFMEMORY;
        property.calculations[static_cast<int>(request.variation)](phase, model.size, values);
        const HRESULT written =
            material->SetSinglePhaseProp(name, phaseLabel, property.molar ? words.mole.get() : nullptr, list.get());
        if (FAILED(written))
            return call.refuseFor(errors::unknown, OLESTR("The material does not take a property: "), material.get(),
                                  written);
    }
    return S_OK;
}

HRESULT STDMETHODCALLTYPE PropertyPackage::CalcTwoPhaseProp(VARIANT, VARIANT)
{
    const Call call{*this, interfaceName, OLESTR("CalcTwoPhaseProp")};
    return call.refuse(errors::limitedImplementation, OLESTR("There are no two-phase properties"));
}

HRESULT STDMETHODCALLTYPE PropertyPackage::CheckSinglePhasePropSpec(BSTR property, BSTR phaseLabel, VARIANT_BOOL *valid)
{
    if (!valid)
        return E_POINTER;
    *valid = findPhase(phaseLabel) && parsePropertyName(property).property ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE PropertyPackage::CheckTwoPhasePropSpec(BSTR, VARIANT, VARIANT_BOOL *valid)
{
    if (!valid)
        return E_POINTER;
    *valid = VARIANT_FALSE;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE PropertyPackage::GetSinglePhasePropList(VARIANT *properties)
{
    if (!properties)
        return E_POINTER;
    std::vector<std::string> list;
    for (const PhaseProperty &property : phaseProperties())
        for (const std::string_view suffix : variationSuffixes)
            list.push_back(std::string(property.name).append(suffix));
    Value names;
    VariantInit(properties);
    if (!names.setTexts(list, [](const std::string &name) { return std::string_view(name); }))
        return E_OUTOFMEMORY;
    return names.give(properties);
}

HRESULT STDMETHODCALLTYPE PropertyPackage::GetTwoPhasePropList(VARIANT *properties)
{
    if (!properties)
        return E_POINTER;
    VariantInit(properties);
    return S_OK;
}

} // namespace reference
