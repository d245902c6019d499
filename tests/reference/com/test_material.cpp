#include "tests/reference/com/test_material.h"

#include "tests/reference/com/host.h"

#include <gtest/gtest.h>

using reference::errors::unknown;

namespace {

HRESULT unexpected(const char *method)
{
    ADD_FAILURE() << method << " is not to be called by a package";
    return E_NOTIMPL;
}

} // namespace

std::optional<HRESULT> TestMaterial::refuses(const char *method, const std::string &details)
{
    calls.push_back(details.empty() ? method : method + (" " + details));
    if (onCall)
        onCall();
    if (failing && failing->strikes()) {
        failed = method;
        return failure;
    }
    return refused == method ? std::optional<HRESULT>(unknown.result) : std::nullopt;
}

HRESULT STDMETHODCALLTYPE TestMaterial::QueryInterface(REFIID iid, void **object)
{
    *object = nullptr;
    if (failing && failing->strikes()) {
        failed = "QueryInterface";
        return failure;
    }
    if (iid == InterfaceId<IUnknown> || iid == InterfaceId<IDispatch> || iid == InterfaceId<ICapeThermoMaterial>)
        *object = static_cast<ICapeThermoMaterial *>(this);
    else if (iid == InterfaceId<ICapeThermoCompounds>)
        *object = static_cast<ICapeThermoCompounds *>(this);
    else if (iid == InterfaceId<ECapeUser>)
        *object = static_cast<ECapeUser *>(this);
    else
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

HRESULT TestMaterial::giveConditions(const std::vector<double> &fractions, double *t, double *p, VARIANT *list) const
{
    *t = temperature;
    *p = pressure;
    *list = numbers(fractions).detach();
    return S_OK;
}

HRESULT TestMaterial::giveValue(const std::string &phase, BSTR property, BSTR basis, VARIANT *results) const
{
    const auto found = given.find(phase + "/" + narrow(property) + "/" + narrow(basis));
    if (found == given.end())
        return unknown.result;
    *results = numbers({found->second}).detach();
    return S_OK;
}

HRESULT STDMETHODCALLTYPE TestMaterial::GetOverallTPFraction(double *t, double *p, VARIANT *fractions)
{
    const auto result = refuses("GetOverallTPFraction");
    return result ? *result : giveConditions(composition, t, p, fractions);
}

HRESULT STDMETHODCALLTYPE TestMaterial::GetTPFraction(BSTR phaseLabel, double *t, double *p, VARIANT *fractions)
{
    const auto own = ownCompositions.find(narrow(phaseLabel));
    const auto ownTemperature = ownTemperatures.find(narrow(phaseLabel));
    if (const auto result = refuses("GetTPFraction", narrow(phaseLabel)))
        return *result;
    const HRESULT result = giveConditions(own == ownCompositions.end() ? composition : own->second, t, p, fractions);
    if (ownTemperature != ownTemperatures.end())
        *t = ownTemperature->second;
    return result;
}

HRESULT STDMETHODCALLTYPE TestMaterial::GetOverallProp(BSTR property, BSTR basis, VARIANT *results)
{
    if (const auto result = refuses("GetOverallProp", narrow(property)))
        return *result;
    if (narrow(property) != "fraction")
        return giveValue("Overall", property, basis, results);
    EXPECT_EQ(narrow(basis), "mole");
    *results = numbers(composition).detach();
    return S_OK;
}

HRESULT STDMETHODCALLTYPE TestMaterial::GetSinglePhaseProp(BSTR property, BSTR phaseLabel, BSTR basis, VARIANT *results)
{
    const auto result = refuses("GetSinglePhaseProp", narrow(phaseLabel) + "/" + narrow(property));
    return result ? *result : giveValue(narrow(phaseLabel), property, basis, results);
}

HRESULT STDMETHODCALLTYPE TestMaterial::SetOverallProp(BSTR property, BSTR basis, VARIANT values)
{
    if (const auto result = refuses("SetOverallProp", narrow(property)))
        return *result;
    written["Overall/" + narrow(property)] = {narrow(basis), numbersOf(values)};
    return S_OK;
}

HRESULT STDMETHODCALLTYPE TestMaterial::SetTwoPhaseProp(BSTR property, VARIANT phaseLabels, BSTR basis, VARIANT values)
{
    const std::vector<std::string> labels = textsOf(phaseLabels);
    const std::string key = labels.at(0) + "," + labels.at(1) + "/" + narrow(property);
    if (const auto result = refuses("SetTwoPhaseProp", key))
        return *result;
    written[key] = {narrow(basis), numbersOf(values)};
    return S_OK;
}

HRESULT STDMETHODCALLTYPE TestMaterial::GetPresentPhases(VARIANT *phaseLabels, VARIANT *phaseStatus)
{
    if (const auto result = refuses("GetPresentPhases"))
        return *result;
    *phaseLabels = texts(presentPhases).detach();
    VariantInit(phaseStatus);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE TestMaterial::SetPresentPhases(VARIANT phaseLabels, VARIANT phaseStatus)
{
    if (const auto result = refuses("SetPresentPhases"))
        return *result;
    presentPhases = textsOf(phaseLabels);
    reference::ArrayView<LONG, VT_I4> list;
    EXPECT_TRUE(list.open(phaseStatus));
    statuses.assign(list.begin(), list.end());
    return S_OK;
}

HRESULT STDMETHODCALLTYPE TestMaterial::SetSinglePhaseProp(BSTR property, BSTR phaseLabel, BSTR basis, VARIANT values)
{
    const std::string key = narrow(phaseLabel) + "/" + narrow(property);
    if (const auto result = refuses("SetSinglePhaseProp", key))
        return *result;
    written[key] = {narrow(basis), numbersOf(values)};
    return S_OK;
}

HRESULT STDMETHODCALLTYPE TestMaterial::GetCompoundList(VARIANT *ids, VARIANT *formulae, VARIANT *names,
                                                        VARIANT *boilingTemperatures, VARIANT *molecularWeights,
                                                        VARIANT *casTexts)
{
    if (const auto result = refuses("GetCompoundList"))
        return *result;
    *ids = compoundIds.empty() ? VARIANT{} : texts(compoundIds).detach();
    *casTexts = casNumbers.empty() ? VARIANT{} : texts(casNumbers).detach();
    for (VARIANT *other : {formulae, names, boilingTemperatures, molecularWeights})
        VariantInit(other);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE TestMaterial::get_description(BSTR *description)
{
    *description = Bstr(refused.empty() ? "The value is not set" : refused + " is refused").detach();
    return S_OK;
}

HRESULT STDMETHODCALLTYPE TestMaterial::ClearAllProps() { return unexpected("ClearAllProps"); }
HRESULT STDMETHODCALLTYPE TestMaterial::CopyFromMaterial(IDispatch **) { return unexpected("CopyFromMaterial"); }
HRESULT STDMETHODCALLTYPE TestMaterial::CreateMaterial(IDispatch **) { return unexpected("CreateMaterial"); }
HRESULT STDMETHODCALLTYPE TestMaterial::GetTwoPhaseProp(BSTR, VARIANT, BSTR, VARIANT *)
{
    return unexpected("GetTwoPhaseProp");
}
HRESULT STDMETHODCALLTYPE TestMaterial::GetCompoundConstant(VARIANT, VARIANT, VARIANT *)
{
    return unexpected("GetCompoundConstant");
}
HRESULT STDMETHODCALLTYPE TestMaterial::GetConstPropList(VARIANT *) { return unexpected("GetConstPropList"); }
HRESULT STDMETHODCALLTYPE TestMaterial::GetNumCompounds(LONG *) { return unexpected("GetNumCompounds"); }
HRESULT STDMETHODCALLTYPE TestMaterial::GetPDependentProperty(VARIANT, double, VARIANT, VARIANT *)
{
    return unexpected("GetPDependentProperty");
}
HRESULT STDMETHODCALLTYPE TestMaterial::GetPDependentPropList(VARIANT *) { return unexpected("GetPDependentPropList"); }
HRESULT STDMETHODCALLTYPE TestMaterial::GetTDependentProperty(VARIANT, double, VARIANT, VARIANT *)
{
    return unexpected("GetTDependentProperty");
}
HRESULT STDMETHODCALLTYPE TestMaterial::GetTDependentPropList(VARIANT *) { return unexpected("GetTDependentPropList"); }
HRESULT STDMETHODCALLTYPE TestMaterial::get_code(LONG *) { return unexpected("get_code"); }
HRESULT STDMETHODCALLTYPE TestMaterial::get_scope(BSTR *) { return unexpected("get_scope"); }
HRESULT STDMETHODCALLTYPE TestMaterial::get_interfaceName(BSTR *) { return unexpected("get_interfaceName"); }
HRESULT STDMETHODCALLTYPE TestMaterial::get_operation(BSTR *) { return unexpected("get_operation"); }
HRESULT STDMETHODCALLTYPE TestMaterial::get_moreInfo(BSTR *) { return unexpected("get_moreInfo"); }
