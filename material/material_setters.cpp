// The methods by which a package writes results. A value is stored as it is given, together with
// its basis; whoever reads it converts.
#include "cape/list_access.h"
#include "material/property_place.h"
#include "material/reserved_property.h"
#include "properties/property_name.h"

#include <algorithm>

namespace {

// Values as a package hands them in; the array stays the package's.
struct GivenValues {
    const double *data = nullptr;
    std::int32_t count = 0;

    // S_OK or the refusal.
    HRESULT take(const PropertyPlace &place, const VARIANT &values)
    {
        return ListElements(values, VT_R8, data, count) ? S_OK : takeOther(place, values);
    }

private:
    HRESULT takeOther(const PropertyPlace &place, const VARIANT &values)
    {
        WideString text;
        if (TakeDoubles(values, data, count, text))
            return S_OK;
        return place.refuse(OLESTR("Invalid values"), OLESTR("Invalid values: ") + text);
    }
};

std::int32_t massTag(BasisCode basis) { return basis == MassBasis ? 1 : 0; }

// One number into a field. It stays there also when it is refused: it tests as not set.
HRESULT writeScalar(const PropertyPlace &place, const GivenValues &given, LPCWSTR notScalar, LPCWSTR missingValue,
                    double &field)
{
    if (given.count != 1)
        return place.refuse(OLESTR("Invalid values"), notScalar);
    field = given.data[0];
    return IsMissing(field) ? place.refuse(OLESTR("Invalid values"), missingValue) : S_OK;
}

HRESULT writeCondition(const PropertyPlace &place, BasisCode basis, const GivenValues &given,
                       const ConditionTexts &texts, double &field)
{
    if (basis != NoBasis)
        return place.refuse(OLESTR("Invalid basis"), texts.unwantedBasis);
    return writeScalar(place, given, texts.notScalar, texts.missingValue, field);
}

// The entries before a missing one stay written.
HRESULT writeFraction(const PropertyPlace &place, BasisCode basis, const GivenValues &given)
{
    if (basis == NoBasis)
        return place.refuse(OLESTR("Invalid basis"), fractionBasisText);
    if (given.count != place.material.compoundCount())
        return place.refuse(OLESTR("Invalid values"),
                            OLESTR("Invalid number of values for fraction: expected one value for each compound"));
    double *composition = place.composition();
    for (std::int32_t i = 0; i < given.count; ++i) {
        composition[i] = given.data[i];
        if (IsMissing(composition[i]))
            return place.refuse(OLESTR("Invalid values"), OLESTR("Invalid values, one or more missing values"));
    }
    place.compositionBasis() = massTag(basis);
    return S_OK;
}

HRESULT writePhaseFraction(const PropertyPlace &place, BasisCode basis, const GivenValues &given)
{
    if (place.isOverall())
        return place.refuse(OLESTR("Not supported"), overallPhaseFractionText);
    if (basis == NoBasis)
        return place.refuse(OLESTR("Invalid basis"),
                            OLESTR("Invalid basis for phase fraction; mole or mass basis expected"));
    CMaterialObject &material = place.material;
    const HRESULT hr =
        writeScalar(place, given, OLESTR("Invalid number of values for phase fraction: scalar expected"),
                    OLESTR("Invalid value for phase fraction, NaN"), material.phaseFraction[place.phase]);
    if (FAILED(hr))
        return hr;
    material.phaseFractionBasis[place.phase] = massTag(basis);
    return S_OK;
}

// An array of the same size is kept.
HRESULT storeIn(PropertyValues &entry, const GivenValues &given, std::int32_t basisBit)
{
    if (!entry.resize(static_cast<std::uint32_t>(given.count)))
        return E_OUTOFMEMORY;
    if (given.count == 1) // nearly always, and then cheaper than a call
        entry.values[0] = given.data[0];
    else
        std::copy_n(given.data, given.count, entry.values);
    entry.basis = basisBit;
    return S_OK;
}

// Refuses any number of values but `parts` times nC to the power of the property's dimensions.
HRESULT requireCount(const PropertyPlace &place, const GivenValues &given, const ParsedProperty &parsed,
                     std::int32_t parts)
{
    std::int64_t expected = parts;
    for (std::int32_t i = 0; i < parsed.dimensions; ++i)
        expected *= place.material.compoundCount();
    return given.count == expected ? S_OK
                                   : place.refuse(OLESTR("Invalid values"), OLESTR("Unexpected number of values"));
}

HRESULT writeStored(const PropertyPlace &place, const WSTRMapKey &key, LPCWSTR property, BasisCode basis,
                    const GivenValues &given)
{
    WideString text;
    ParsedProperty parsed;
    if (!ParsePropertyName(parsed, singlePhaseProperties, key, property, text))
        return place.refuse(OLESTR("Invalid property"), text);
    const bool basisExpected = parsed.basisPower != 0;
    if (basisExpected != (basis != NoBasis))
        return place.refuse(OLESTR("Invalid basis"), basisExpected
                                                         ? OLESTR("Invalid basis; expected mole or mass basis")
                                                         : OLESTR("Invalid basis; expected no basis"));
    const HRESULT hr = requireCount(place, given, parsed, 1);
    return FAILED(hr) ? hr : storeIn(place.properties().entry(property), given, massTag(basis));
}

// Only for the names that are reserved.
HRESULT writeReserved(const PropertyPlace &place, ReservedProperty property, BasisCode basis, const GivenValues &given)
{
    CMaterialObject &material = place.material;
    switch (property) {
    case ReservedProperty::Temperature:
        return writeCondition(place, basis, given, temperatureTexts, material.temperature);
    case ReservedProperty::Pressure:
        return writeCondition(place, basis, given, pressureTexts, material.pressure);
    case ReservedProperty::Flow:
        return place.refuse(OLESTR("Not supported"), flowText);
    case ReservedProperty::TotalFlow:
        return place.refuse(OLESTR("Not supported"), totalFlowText);
    case ReservedProperty::Fraction:
        return writeFraction(place, basis, given);
    case ReservedProperty::PhaseFraction:
        return writePhaseFraction(place, basis, given);
    case ReservedProperty::None:
        break;
    }
    return E_UNEXPECTED;
}

HRESULT writeProperty(const PropertyPlace &place, LPCWSTR property, BasisCode basis, const VARIANT &values,
                      ReservedProperty &reserved)
{
    LowerName stem(property);
    stem.cutSuffix();
    const WSTRMapKeyPtr key(stem.text());
    GivenValues given;
    const HRESULT hr = given.take(place, values);
    if (FAILED(hr))
        return hr;
    reserved = ReservedPropertyOf(HashName(key.GetKeyText()), property);
    return reserved == ReservedProperty::None ? writeStored(place, key, property, basis, given)
                                              : writeReserved(place, reserved, basis, given);
}

// A write whose words were judged before: only the values can be refused.
HRESULT writeAgain(const PropertyPlace &place, const RecentWrites::Write &write, const VARIANT &values)
{
    GivenValues given;
    const HRESULT hr = given.take(place, values);
    if (FAILED(hr))
        return hr;
    if (write.reserved != ReservedProperty::None)
        return writeReserved(place, write.reserved, write.basis, given);
    if (static_cast<std::uint32_t>(given.count) != write.count)
        return place.refuse(OLESTR("Invalid values"), OLESTR("Unexpected number of values"));
    return storeIn(*write.values, given, massTag(write.basis));
}

LPCWSTR orEmpty(LPCWSTR text) { return text ? text : OLESTR(""); }

// After a write that succeeded.
void rememberWrite(const PropertyPlace &place, LPCWSTR property, LPCWSTR phaseLabel, LPCWSTR basisText, BasisCode basis,
                   ReservedProperty reserved)
{
    PropertyValues *entry = nullptr;
    if (reserved == ReservedProperty::None)
        place.properties().find(property, entry);
    place.material.recentWrites.remember({property, phaseLabel, orEmpty(basisText)},
                                         {basis, place.phase, reserved, entry, entry ? entry->count : 0});
}

// Two-phase values whose words have to be judged.
HRESULT writeTwoPhase(const PropertyPlace &place, const PhaseLabels &labels, LPCWSTR property, bool basisGiven,
                      const VARIANT &values)
{
    PhasePair pair;
    HRESULT hr = TakePhasePair(place, labels, property, pair);
    if (FAILED(hr))
        return hr;
    if (basisGiven)
        return place.refuse(OLESTR("Invalid basis"), OLESTR("Expected no basis"));
    WideString text;
    ParsedProperty parsed;
    if (!ParsePropertyName(parsed, twoPhaseProperties, property, text))
        return place.refuse(OLESTR("Invalid property"), text);
    GivenValues given;
    hr = given.take(place, values);
    if (FAILED(hr))
        return hr;
    // The derivatives with respect to the first phase's composition, then to the second's.
    const bool ofBothCompositions = parsed.derivative == MolesDerivative || parsed.derivative == MolFractionDerivative;
    hr = requireCount(place, given, parsed, ofBothCompositions ? 2 : 1);
    if (FAILED(hr))
        return hr;
    CMaterialObject &material = place.material;
    PropertyValues &entry = material.phaseProps[pair.first].entry(pair.key);
    hr = storeIn(entry, given, massTag(NoBasis));
    if (SUCCEEDED(hr))
        material.recentTwoPhaseWrites.remember({property, labels.first, labels.second},
                                               {NoBasis, pair.first, ReservedProperty::None, &entry, entry.count});
    return hr;
}

} // namespace

HRESULT STDMETHODCALLTYPE CMaterialObject::SetOverallProp(BSTR property, BSTR basis, VARIANT values) noexcept
{
    const PropertyPlace place{*this, OLESTR("SetOverallProp")};
    return withRecord(propertyInterface, place.scope, [&] {
        BasisCode code = NoBasis;
        const HRESULT hr = place.takeBasis(basis, code);
        ReservedProperty reserved = ReservedProperty::None;
        return FAILED(hr) ? hr : writeProperty(place, property, code, values, reserved);
    });
}

// A package that writes a value to a phase declares the phase present.
HRESULT STDMETHODCALLTYPE CMaterialObject::SetSinglePhaseProp(BSTR property, BSTR phaseLabel, BSTR basis,
                                                              VARIANT values) noexcept
{
    PropertyPlace place{*this, OLESTR("SetSinglePhaseProp")};
    return withRecord(propertyInterface, place.scope, [&] {
        HRESULT hr = S_OK;
        // A null label names no phase, not even one without a name.
        if (const RecentWrites::Write *write = phaseLabel ? recentWrites.find(property, phaseLabel, basis) : nullptr) {
            place.phase = write->phase;
            hr = writeAgain(place, *write, values);
        } else {
            BasisCode code = NoBasis;
            ReservedProperty reserved = ReservedProperty::None;
            hr = place.takeBasis(basis, code);
            if (SUCCEEDED(hr))
                hr = place.takePhase(phaseLabel);
            if (SUCCEEDED(hr))
                hr = writeProperty(place, property, code, values, reserved);
            if (SUCCEEDED(hr))
                rememberWrite(place, property, phaseLabel, basis, code, reserved);
        }
        if (SUCCEEDED(hr))
            phasePresent[place.phase] = 1;
        return hr;
    });
}

HRESULT STDMETHODCALLTYPE CMaterialObject::SetTwoPhaseProp(BSTR property, VARIANT phaseLabels, BSTR basis,
                                                           VARIANT values) noexcept
{
    PropertyPlace place{*this, OLESTR("SetTwoPhaseProp")};
    return withRecord(propertyInterface, place.scope, [&] {
        PhaseLabels labels;
        HRESULT hr = TakePhaseLabels(place, phaseLabels, labels);
        if (FAILED(hr))
            return hr;
        const bool basisGiven = basis && *basis;
        if (labels.first && labels.second && !basisGiven) {
            if (const RecentWrites::Write *write = recentTwoPhaseWrites.find(property, labels.first, labels.second)) {
                place.phase = write->phase;
                return writeAgain(place, *write, values);
            }
        }
        return writeTwoPhase(place, labels, property, basisGiven, values);
    });
}

HRESULT STDMETHODCALLTYPE CMaterialObject::SetPresentPhases(VARIANT phaseLabels, VARIANT) noexcept
{
    constexpr LPCWSTR interfaceName = OLESTR("ICapeThermoMaterial");
    constexpr LPCWSTR scope = OLESTR("SetPresentPhases");
    const auto refuse = [this](const WideString &description) {
        return SetMaterialError(OLESTR("Invalid phase labels"), description, interfaceName, scope);
    };
    return withRecord(interfaceName, scope, [&] {
        for (std::int32_t phase = 0; phase < phaseCount(); ++phase)
            phasePresent[phase] = 0;
        const BSTR *labels = nullptr;
        std::int32_t count = 0;
        WideString reason;
        if (!TakeTexts(phaseLabels, labels, count, reason))
            return refuse(OLESTR("Invalid phase labels: ") + reason);
        for (std::int32_t i = 0; i < count; ++i) {
            const LPCWSTR label = labels[i];
            const std::int32_t phase = PhaseIndex(label);
            if (phase < 0)
                return refuse(InvalidPhaseText(label));
            phasePresent[phase] = 1;
        }
        return S_OK;
    });
}
