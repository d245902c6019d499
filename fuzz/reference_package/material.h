// A material that answers what the input says and, in the midst of its answers, calls the package back.
#pragma once

#include "cape/com/cape_open.h"
#include "fuzz/input.h"
#include "reference/com/component.h"

#include <functional>
#include <vector>

namespace fuzz {

class Material final : public reference::WithoutDispatch<ICapeThermoMaterial>,
                       public reference::WithoutDispatch<ICapeThermoCompounds>,
                       public reference::WithoutDispatch<ECapeUser> {
public:
    // `callBack` calls something of the package in the midst of a call of its own.
    Material(FuzzedDataProvider &data, std::function<void()> call);

    // What the last equilibrium was written as.
    struct Phase {
        WideString label;
        std::vector<double> fractions;
        double temperature = 0;
        double pressure = 0;
        double amount = 0;
    };
    std::vector<Phase> phases;
    std::vector<double> feed; // the last composition that was given
    ULONG references = 1;
    std::vector<WideString> ids;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE ClearAllProps() override { return result(); }
    HRESULT STDMETHODCALLTYPE CopyFromMaterial(IDispatch **) override { return result(); }
    HRESULT STDMETHODCALLTYPE CreateMaterial(IDispatch **) override { return result(); }
    HRESULT STDMETHODCALLTYPE GetOverallProp(BSTR property, BSTR, VARIANT *results) override;
    HRESULT STDMETHODCALLTYPE GetOverallTPFraction(double *t, double *p, VARIANT *fractions) override;
    HRESULT STDMETHODCALLTYPE GetPresentPhases(VARIANT *labels, VARIANT *statuses) override;
    HRESULT STDMETHODCALLTYPE GetSinglePhaseProp(BSTR property, BSTR label, BSTR, VARIANT *results) override;
    HRESULT STDMETHODCALLTYPE GetTPFraction(BSTR, double *t, double *p, VARIANT *fractions) override;
    HRESULT STDMETHODCALLTYPE GetTwoPhaseProp(BSTR, VARIANT, BSTR, VARIANT *) override { return result(); }
    HRESULT STDMETHODCALLTYPE SetOverallProp(BSTR property, BSTR, VARIANT values) override;
    HRESULT STDMETHODCALLTYPE SetPresentPhases(VARIANT labels, VARIANT statuses) override;
    HRESULT STDMETHODCALLTYPE SetSinglePhaseProp(BSTR property, BSTR label, BSTR, VARIANT values) override;
    HRESULT STDMETHODCALLTYPE SetTwoPhaseProp(BSTR property, VARIANT labels, BSTR, VARIANT values) override;

    HRESULT STDMETHODCALLTYPE GetCompoundList(VARIANT *idList, VARIANT *formulae, VARIANT *names,
                                              VARIANT *boilingTemperatures, VARIANT *molecularWeights,
                                              VARIANT *casTexts) override;
    HRESULT STDMETHODCALLTYPE GetCompoundConstant(VARIANT, VARIANT, VARIANT *) override { return result(); }
    HRESULT STDMETHODCALLTYPE GetConstPropList(VARIANT *) override { return result(); }
    HRESULT STDMETHODCALLTYPE GetNumCompounds(LONG *) override { return result(); }
    HRESULT STDMETHODCALLTYPE GetPDependentProperty(VARIANT, double, VARIANT, VARIANT *) override { return result(); }
    HRESULT STDMETHODCALLTYPE GetPDependentPropList(VARIANT *) override { return result(); }
    HRESULT STDMETHODCALLTYPE GetTDependentProperty(VARIANT, double, VARIANT, VARIANT *) override { return result(); }
    HRESULT STDMETHODCALLTYPE GetTDependentPropList(VARIANT *) override { return result(); }

    HRESULT STDMETHODCALLTYPE get_code(LONG *code) override;
    HRESULT STDMETHODCALLTYPE get_description(BSTR *text) override { return words(text); }
    HRESULT STDMETHODCALLTYPE get_scope(BSTR *text) override { return words(text); }
    HRESULT STDMETHODCALLTYPE get_interfaceName(BSTR *text) override { return words(text); }
    HRESULT STDMETHODCALLTYPE get_operation(BSTR *text) override { return words(text); }
    HRESULT STDMETHODCALLTYPE get_moreInfo(BSTR *text) override { return words(text); }

private:
    HRESULT result();
    HRESULT words(BSTR *text);
    VARIANT composition();
    VARIANT oneNumber(BSTR property);
    HRESULT conditions(double *t, double *p, VARIANT *fractions);

    FuzzedDataProvider &input;
    std::function<void()> callBack;
    std::vector<WideString> casNumbers;
    std::vector<double> amounts;
    double temperature;
    double pressure;
};

} // namespace fuzz
