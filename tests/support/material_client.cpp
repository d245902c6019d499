#include "tests/support/material_client.h"

#include "cape/com/com_pointer.h"

#include <algorithm>

namespace support {

namespace {

constexpr LONG atEquilibrium = 1; // CAPE_ATEQUILIBRIUM

HRESULT takeNumbers(HRESULT hr, const Variant &result, std::vector<double> &values)
{
    values = SUCCEEDED(hr) ? NumbersOf(result.value) : std::vector<double>();
    return hr;
}

} // namespace

RefusedCall LastRefusal(IUnknown *object)
{
    RefusedCall refusal;
    ComPointer<ECapeRoot> root;
    if (SUCCEEDED(root.queryFrom(object))) {
        OwnedBstr name;
        root->get_name(name.out());
        refusal.name = name.wide();
    }
    ComPointer<ECapeUser> user;
    if (SUCCEEDED(user.queryFrom(object))) {
        OwnedBstr description, interfaceName, scope;
        user->get_description(description.out());
        user->get_interfaceName(interfaceName.out());
        user->get_scope(scope.out());
        refusal.description = description.wide();
        refusal.interfaceName = interfaceName.wide();
        refusal.scope = scope.wide();
    }
    return refusal;
}

HRESULT MaterialClient::setSinglePhase(const OptionalText &property, const OptionalText &phase,
                                       const OptionalText &basis, const std::vector<double> &values) const
{
    const Variant array = NumberArray(values);
    return material->SetSinglePhaseProp(property, phase, basis, array.value);
}

HRESULT MaterialClient::setTwoPhase(const OptionalText &property, std::initializer_list<AnyText> phases,
                                    const OptionalText &basis, const std::vector<double> &values) const
{
    return setTwoPhase(property, Names(phases), basis, values);
}

HRESULT MaterialClient::setTwoPhase(const OptionalText &property, const std::vector<WideString> &phases,
                                    const OptionalText &basis, const std::vector<double> &values) const
{
    const Variant labels = TextArray(phases);
    const Variant array = NumberArray(values);
    return material->SetTwoPhaseProp(property, labels.value, basis, array.value);
}

HRESULT MaterialClient::setOverall(const OptionalText &property, const OptionalText &basis,
                                   const std::vector<double> &values) const
{
    const Variant array = NumberArray(values);
    return material->SetOverallProp(property, basis, array.value);
}

HRESULT MaterialClient::setPresentPhases(std::initializer_list<AnyText> phases) const
{
    const Variant labels = TextArray(phases);
    const Variant status = LongArray(std::vector<LONG>(phases.size(), atEquilibrium));
    return material->SetPresentPhases(labels.value, status.value);
}

HRESULT MaterialClient::setEquilibrium(const std::vector<Phase> &phases, double temperature, double pressure,
                                       const char *basis) const
{
    std::vector<WideString> labels;
    for (const Phase &phase : phases)
        labels.push_back(phase.label.wide);
    const Variant labelArray = TextArray(labels);
    const Variant status = LongArray(std::vector<LONG>(phases.size(), atEquilibrium));
    std::vector<HRESULT> results = {material->SetPresentPhases(labelArray.value, status.value)};
    for (const Phase &phase : phases) {
        const WideString &label = phase.label.wide;
        results.push_back(setSinglePhase("phaseFraction", label, basis, {phase.fraction}));
        results.push_back(setSinglePhase("fraction", label, basis, phase.composition));
        results.push_back(setSinglePhase("temperature", label, "", {temperature}));
        results.push_back(setSinglePhase("pressure", label, "", {pressure}));
    }
    results.push_back(setOverall("temperature", "", {temperature}));
    results.push_back(setOverall("pressure", "", {pressure}));
    const auto failed = std::find_if(results.begin(), results.end(), [](HRESULT hr) { return FAILED(hr); });
    return failed == results.end() ? S_OK : *failed;
}

HRESULT MaterialClient::getSinglePhase(const OptionalText &property, const OptionalText &phase,
                                       const OptionalText &basis, std::vector<double> &values) const
{
    Variant result;
    return takeNumbers(material->GetSinglePhaseProp(property, phase, basis, &result.value), result, values);
}

HRESULT MaterialClient::getTwoPhase(const OptionalText &property, std::initializer_list<AnyText> phases,
                                    const OptionalText &basis, std::vector<double> &values) const
{
    Variant result;
    const Variant labels = TextArray(phases);
    return takeNumbers(material->GetTwoPhaseProp(property, labels.value, basis, &result.value), result, values);
}

HRESULT MaterialClient::getOverall(const OptionalText &property, const OptionalText &basis,
                                   std::vector<double> &values) const
{
    Variant result;
    return takeNumbers(material->GetOverallProp(property, basis, &result.value), result, values);
}

HRESULT MaterialClient::getConditions(const OptionalText &phase, Conditions &conditions) const
{
    Variant composition;
    const HRESULT hr =
        material->GetTPFraction(phase, &conditions.temperature, &conditions.pressure, &composition.value);
    return takeNumbers(hr, composition, conditions.composition);
}

HRESULT MaterialClient::getOverallConditions(Conditions &conditions) const
{
    Variant composition;
    const HRESULT hr =
        material->GetOverallTPFraction(&conditions.temperature, &conditions.pressure, &composition.value);
    return takeNumbers(hr, composition, conditions.composition);
}

HRESULT MaterialClient::getPresentPhases(std::vector<WideString> &labels, std::vector<LONG> &status) const
{
    Variant labelArray, statusArray;
    const HRESULT hr = material->GetPresentPhases(&labelArray.value, &statusArray.value);
    if (SUCCEEDED(hr)) {
        labels = TextsOf(labelArray.value);
        status = LongsOf(statusArray.value);
    }
    return hr;
}

} // namespace support
