// The methods by which a package reads conditions, compositions and values. Nothing is computed but
// mole and mass conversions, in our floating-point mode, and a value that is not set is an error.
#include "cape/com/bstr.h"
#include "cape/list_access.h"
#include "gateway/state/host_mode.h"
#include "material/property_place.h"
#include "material/reserved_property.h"
#include "properties/basis_conversion.h"
#include "properties/chain_rule.h"
#include "properties/property_name.h"

#include <algorithm>

namespace {

// An out-parameter is empty nearly always.
void clearResult(VARIANT *target)
{
    if (target->vt != VT_EMPTY)
        VariantClear(target);
}

HRESULT requirePresent(const PropertyPlace &place)
{
    return place.material.phasePresent[place.phase]
               ? S_OK
               : place.refuse(OLESTR("Invalid phase"), OLESTR("Phase not present"));
}

HRESULT requireCondition(const PropertyPlace &place, double value, const ConditionTexts &texts)
{
    return IsMissing(value) ? place.refuse(OLESTR("Missing value"), texts.notSet) : S_OK;
}

HRESULT readCondition(const PropertyPlace &place, BasisCode basis, double value, const ConditionTexts &texts,
                      VARIANT *results)
{
    if (basis != NoBasis)
        return place.refuse(OLESTR("Invalid basis"), texts.unwantedBasis);
    const HRESULT hr = requireCondition(place, value, texts);
    if (FAILED(hr))
        return hr;
    return GiveDoubles(&value, 1, results);
}

// The composition of the place in the basis asked for; `fractions` lies in the material.
HRESULT takeComposition(const PropertyPlace &place, BasisCode basis, const double *&fractions)
{
    CMaterialObject &material = place.material;
    const double *stored = place.composition();
    if (std::any_of(stored, stored + material.compoundCount(), IsMissing))
        return place.refuse(OLESTR("Missing values"), OLESTR("One or more missing values for composition"));
    fractions = stored;
    const bool storedOnMass = place.compositionBasis() != 0;
    const bool massAsked = basis == MassBasis;
    if (storedOnMass == massAsked)
        return S_OK;
    fractions = material.conversionScratch.get();
    WideString text;
    const InFloatingPointMode ourMode(HostFloatingPointMode);
    const auto convert = massAsked ? MoleToMassFractions : MassToMoleFractions;
    const bool converted =
        convert(material.openPackage->molecularWeights, stored, material.conversionScratch.get(), text);
    return converted ? S_OK : place.refuse(OLESTR("Conversion error"), text);
}

HRESULT readFraction(const PropertyPlace &place, BasisCode basis, VARIANT *results)
{
    if (basis == NoBasis)
        return place.refuse(OLESTR("Invalid basis"), fractionBasisText);
    const double *fractions = nullptr;
    const HRESULT hr = takeComposition(place, basis, fractions);
    if (FAILED(hr))
        return hr;
    return GiveDoubles(fractions, place.material.compoundCount(), results);
}

HRESULT readPhaseFraction(const PropertyPlace &place, BasisCode basis, VARIANT *results)
{
    if (place.isOverall())
        return place.refuse(OLESTR("Not supported"), overallPhaseFractionText);
    if (basis == NoBasis)
        return place.refuse(OLESTR("Invalid basis"),
                            OLESTR("Invalid basis for phase fraction; expected mole or mass basis"));
    const CMaterialObject &material = place.material;
    double fraction = material.phaseFraction[place.phase];
    if (IsMissing(fraction))
        return place.refuse(OLESTR("Missing values"), OLESTR("phase fraction is not set"));
    const bool storedOnMass = material.phaseFractionBasis[place.phase] != 0;
    const bool massAsked = basis == MassBasis;
    if (storedOnMass != massAsked) {
        WideString text;
        const InFloatingPointMode ourMode(HostFloatingPointMode);
        const auto convert = massAsked ? MoleToMassPhaseFraction : MassToMolePhaseFraction;
        if (!convert(material.phaseAmounts(), place.phase, fraction, fraction, text))
            return place.refuse(OLESTR("Conversion error"), text);
    }
    return GiveDoubles(&fraction, 1, results);
}

// A value from the map. A composition derivative is scaled like its property, without the chain
// rule's second term, which the commands alone apply.
HRESULT readStored(const PropertyPlace &place, const WSTRMapKey &key, LPCWSTR property, BasisCode basis,
                   VARIANT *results)
{
    CMaterialObject &material = place.material;
    WideString text;
    ParsedProperty parsed;
    if (!ParsePropertyName(parsed, singlePhaseProperties, key, property, text))
        return place.refuse(OLESTR("Invalid property"), text);
    const PropertyValues *stored = place.properties().stored(property);
    if (!stored)
        return place.refuse(OLESTR("No values"), WideString(OLESTR("Values not set for property ")) + property);
    const bool basisExpected = parsed.basisPower != 0;
    if (basisExpected != (basis != NoBasis))
        return place.refuse(OLESTR("Invalid property"), WideString(OLESTR("Invalid basis for ")) + property +
                                                            (basisExpected ? OLESTR("; expected mole or mass basis")
                                                                           : OLESTR("; expected no basis")));
    const double *values = stored->values;
    const std::int32_t power = ConversionPower(parsed.basisPower, (stored->basis & 1) != 0, basis == MassBasis);
    if (power != 0) {
        const InFloatingPointMode ourMode(HostFloatingPointMode);
        const MixtureComposition composition =
            place.isOverall() ? material.compositionOfOverall() : material.compositionOf(place.phase);
        if (!ChainRuleConvert(composition, values, composition.scratch, stored->count, power, text, 1, 0))
            return place.refuse(OLESTR("Basis conversion error"), text);
        values = material.conversionScratch.get();
    }
    return GiveDoubles(values, static_cast<std::int32_t>(stored->count), results);
}

HRESULT readProperty(const PropertyPlace &place, LPCWSTR property, BasisCode basis, VARIANT *results)
{
    LowerName stem(property);
    stem.cutSuffix();
    const WSTRMapKeyPtr key(stem.text());
    switch (ReservedPropertyOf(HashName(key.GetKeyText()), property)) {
    case ReservedProperty::Temperature:
        return readCondition(place, basis, place.material.temperature, temperatureTexts, results);
    case ReservedProperty::Pressure:
        return readCondition(place, basis, place.material.pressure, pressureTexts, results);
    case ReservedProperty::Flow:
        return place.refuse(OLESTR("Not supported"), flowText);
    case ReservedProperty::TotalFlow:
        return place.refuse(OLESTR("Not supported"), totalFlowText);
    case ReservedProperty::Fraction:
        return readFraction(place, basis, results);
    case ReservedProperty::PhaseFraction:
        return readPhaseFraction(place, basis, results);
    case ReservedProperty::None:
        break;
    }
    return readStored(place, key, property, basis, results);
}

// Both conditions and the mole fractions of the place. The refusals of the conditions may carry a
// scope of their own.
HRESULT readTPFraction(const PropertyPlace &place, LPCWSTR conditionScope, double *temperature, double *pressure,
                       VARIANT *composition)
{
    const CMaterialObject &material = place.material;
    const PropertyPlace conditions{place.material, conditionScope};
    HRESULT hr = requireCondition(conditions, material.temperature, temperatureTexts);
    if (FAILED(hr))
        return hr;
    hr = requireCondition(conditions, material.pressure, pressureTexts);
    if (FAILED(hr))
        return hr;
    const double *fractions = nullptr;
    hr = takeComposition(place, MoleBasis, fractions);
    if (FAILED(hr))
        return hr;
    hr = GiveDoubles(fractions, material.compoundCount(), composition);
    if (FAILED(hr))
        return hr;
    *temperature = material.temperature;
    *pressure = material.pressure;
    return S_OK;
}

} // namespace

HRESULT STDMETHODCALLTYPE CMaterialObject::GetOverallProp(BSTR property, BSTR basis, VARIANT *results) noexcept
{
    if (!results)
        return E_POINTER;
    const PropertyPlace place{*this, OLESTR("GetOverallProp")};
    return withRecord(propertyInterface, place.scope, [&] {
        BasisCode code = NoBasis;
        const HRESULT hr = place.takeBasis(basis, code);
        return FAILED(hr) ? hr : readProperty(place, property, code, results);
    });
}

HRESULT STDMETHODCALLTYPE CMaterialObject::GetOverallTPFraction(double *temperature, double *pressure,
                                                                VARIANT *composition) noexcept
{
    if (!temperature || !pressure || !composition)
        return E_POINTER;
    clearResult(composition);
    constexpr LPCWSTR conditionScope = OLESTR("GetOverallTPFraction");
    return withRecord(propertyInterface, conditionScope, [&] {
        return readTPFraction({*this, OLESTR("GetOverallProp")}, conditionScope, temperature, pressure, composition);
    });
}

// The status of every phase is 0, unknown: a material keeps no notion of equilibrium.
HRESULT STDMETHODCALLTYPE CMaterialObject::GetPresentPhases(VARIANT *phaseLabels, VARIANT *phaseStatus) noexcept
{
    if (!phaseLabels || !phaseStatus)
        return E_POINTER;
    VariantClear(phaseLabels);
    VariantClear(phaseStatus);
    return withRecord(OLESTR("ICapeThermoMaterial"), OLESTR("GetPresentPhases"), [&] {
        const auto presentCount = static_cast<std::int32_t>(std::count_if(
            phasePresent.get(), phasePresent.get() + phaseCount(), [](std::int32_t present) { return present != 0; }));
        VariantArray labels;
        labels.Create(presentCount, VT_BSTR);
        VariantArray status;
        status.Create(presentCount, VT_I4); // zeros
        std::int32_t next = 0;
        for (std::int32_t phase = 0; phase < phaseCount(); ++phase) {
            if (!phasePresent[phase])
                continue;
            Bstr label;
            label.take(openPackage->phaseLabelList.GetString(phase));
            labels.PutString(next++, label.get());
        }
        labels.HandOver(phaseLabels);
        status.HandOver(phaseStatus);
        return S_OK;
    });
}

HRESULT STDMETHODCALLTYPE CMaterialObject::GetSinglePhaseProp(BSTR property, BSTR phaseLabel, BSTR basis,
                                                              VARIANT *results) noexcept
{
    if (!results)
        return E_POINTER;
    PropertyPlace place{*this, OLESTR("GetSingleProp")};
    return withRecord(propertyInterface, place.scope, [&] {
        BasisCode code = NoBasis;
        HRESULT hr = place.takeBasis(basis, code);
        if (SUCCEEDED(hr))
            hr = place.takePhase(phaseLabel);
        if (SUCCEEDED(hr))
            hr = requirePresent(place);
        return FAILED(hr) ? hr : readProperty(place, property, code, results);
    });
}

HRESULT STDMETHODCALLTYPE CMaterialObject::GetTPFraction(BSTR phaseLabel, double *temperature, double *pressure,
                                                         VARIANT *composition) noexcept
{
    if (!temperature || !pressure || !composition)
        return E_POINTER;
    clearResult(composition);
    PropertyPlace place{*this, OLESTR("GetTPFraction")};
    return withRecord(propertyInterface, place.scope, [&] {
        HRESULT hr = place.takePhase(phaseLabel);
        if (SUCCEEDED(hr))
            hr = requirePresent(place);
        return FAILED(hr) ? hr : readTPFraction(place, place.scope, temperature, pressure, composition);
    });
}

HRESULT STDMETHODCALLTYPE CMaterialObject::GetTwoPhaseProp(BSTR property, VARIANT phaseLabels, BSTR basis,
                                                           VARIANT *results) noexcept
{
    if (!results)
        return E_POINTER;
    const PropertyPlace place{*this, OLESTR("GetTwoPhaseProp")};
    return withRecord(propertyInterface, place.scope, [&] {
        PhaseLabels labels;
        HRESULT hr = TakePhaseLabels(place, phaseLabels, labels);
        if (FAILED(hr))
            return hr;
        PhasePair pair;
        hr = TakePhasePair(place, labels, property, pair);
        if (FAILED(hr))
            return hr;
        const PropertyValues *stored = phaseProps[pair.first].stored(pair.key);
        if (!stored)
            return place.refuse(OLESTR("No values"), WideString(OLESTR("No values for property ")) + property);
        if (basis && *basis)
            return place.refuse(OLESTR("Invalid basis"), OLESTR("Expected no basis"));
        return GiveDoubles(stored->values, static_cast<std::int32_t>(stored->count), results);
    });
}
