#include "material/property_place.h"

#include "cape/list_access.h"
#include "material/two_phase_key.h"

HRESULT PropertyPlace::refuse(LPCWSTR name, LPCWSTR description) const
{
    return material.SetMaterialError(name, description, propertyInterface, scope);
}

HRESULT PropertyPlace::takeBasis(LPCWSTR basisText, BasisCode &basis) const
{
    WideString text;
    return ParseBasis(basisText, basis, text) ? S_OK : refuse(OLESTR("Invalid basis"), text);
}

HRESULT PropertyPlace::takePhase(LPCWSTR label)
{
    const std::int32_t found = material.PhaseIndex(label);
    if (found < 0)
        return refuse(OLESTR("Invalid phase"), InvalidPhaseText(label));
    phase = found;
    return S_OK;
}

HRESULT TakePhaseLabels(const PropertyPlace &place, const VARIANT &phaseLabels, PhaseLabels &labels)
{
    const BSTR *texts = nullptr;
    std::int32_t count = 0;
    if (!ListElements(phaseLabels, VT_BSTR, texts, count)) {
        WideString reason;
        if (!TakeTexts(phaseLabels, texts, count, reason))
            return place.refuse(OLESTR("Phase error: "), OLESTR("Invalid specification of phases: ") + reason);
    }
    if (count != 2)
        return place.refuse(OLESTR("Phase error: "), OLESTR("Invalid number of phase identifiers"));
    labels = {texts[0], texts[1]};
    return S_OK;
}

HRESULT TakePhasePair(const PropertyPlace &place, const PhaseLabels &labels, LPCWSTR property, PhasePair &pair)
{
    PropertyPlace first = place;
    HRESULT hr = first.takePhase(labels.first);
    if (FAILED(hr))
        return hr;
    PropertyPlace second = place;
    hr = second.takePhase(labels.second);
    if (FAILED(hr))
        return hr;

    if (!property)
        return place.refuse(OLESTR("Invalid property"), OLESTR("Invalid property: NULL"));
    pair.first = first.phase;
    AssignTwoPhaseKey(place.material.twoPhaseKeyScratch, labels.second, property);
    pair.key = place.material.twoPhaseKeyScratch.c_str();
    return S_OK;
}

WideString InvalidPhaseText(LPCWSTR label)
{
    WideString text = OLESTR("Invalid phase: ");
    text += label ? label : OLESTR("NULL");
    return text;
}
