// A small material: compounds by id, two phases, and a store of what a package writes. It can be told
// to refuse a method, and notes what it was asked.
#pragma once

#include "cape/com/cape_open.h"
#include "platform/nth_call.h"
#include "reference/com/component.h"

#include <functional>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <vector>

// What a package wrote for one property of one phase.
struct WrittenProperty {
    std::string basis; // empty for none
    std::vector<double> values;
};

class TestMaterial final : public reference::WithoutDispatch<ICapeThermoMaterial>,
                           public reference::WithoutDispatch<ICapeThermoCompounds>,
                           public reference::WithoutDispatch<ECapeUser> {
public:
    explicit TestMaterial(std::vector<std::string> ids) : compoundIds(std::move(ids)) {}

    // What a package reads.
    std::vector<std::string> compoundIds;
    std::vector<std::string> casNumbers; // none if it is empty
    double temperature = std::numeric_limits<double>::quiet_NaN();
    double pressure = std::numeric_limits<double>::quiet_NaN();
    std::vector<double> composition;                            // of the feed, and of phases without one of their own
    std::map<std::string, std::vector<double>> ownCompositions; // by phase
    std::map<std::string, double> ownTemperatures;              // by phase
    std::map<std::string, double> given;                        // by phase or "Overall", slash, property, slash, basis
    std::vector<std::string> presentPhases = {"Vapor", "Liquid"};
    std::string refused;          // the method that fails, with "<method> is refused" as its words
    std::function<void()> onCall; // called in the midst of every call of a package

    // The n-th call of whatever method, QueryInterface among them, gives this result and does nothing else.
    seam::NthCall *failing = nullptr;
    HRESULT failure = E_FAIL;
    std::string failed; // that method's name

    // What a package did.
    std::vector<std::string> calls;                 // in order; writes with property and phase
    std::map<std::string, WrittenProperty> written; // by phase, slash, property as they were spelled
    std::vector<LONG> statuses;
    ULONG references = 1; // the test's own

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; } // lives on the test's stack

    HRESULT STDMETHODCALLTYPE ClearAllProps() override;
    HRESULT STDMETHODCALLTYPE CopyFromMaterial(IDispatch **source) override;
    HRESULT STDMETHODCALLTYPE CreateMaterial(IDispatch **material) override;
    HRESULT STDMETHODCALLTYPE GetOverallProp(BSTR property, BSTR basis, VARIANT *results) override;
    HRESULT STDMETHODCALLTYPE GetOverallTPFraction(double *t, double *p, VARIANT *fractions) override;
    HRESULT STDMETHODCALLTYPE GetPresentPhases(VARIANT *phaseLabels, VARIANT *phaseStatus) override;
    HRESULT STDMETHODCALLTYPE GetSinglePhaseProp(BSTR property, BSTR phaseLabel, BSTR basis, VARIANT *results) override;
    HRESULT STDMETHODCALLTYPE GetTPFraction(BSTR phaseLabel, double *t, double *p, VARIANT *fractions) override;
    HRESULT STDMETHODCALLTYPE GetTwoPhaseProp(BSTR property, VARIANT phaseLabels, BSTR basis,
                                              VARIANT *results) override;
    HRESULT STDMETHODCALLTYPE SetOverallProp(BSTR property, BSTR basis, VARIANT values) override;
    HRESULT STDMETHODCALLTYPE SetPresentPhases(VARIANT phaseLabels, VARIANT phaseStatus) override;
    HRESULT STDMETHODCALLTYPE SetSinglePhaseProp(BSTR property, BSTR phaseLabel, BSTR basis, VARIANT values) override;
    HRESULT STDMETHODCALLTYPE SetTwoPhaseProp(BSTR property, VARIANT phaseLabels, BSTR basis, VARIANT values) override;

    HRESULT STDMETHODCALLTYPE GetCompoundConstant(VARIANT properties, VARIANT ids, VARIANT *values) override;
    HRESULT STDMETHODCALLTYPE GetCompoundList(VARIANT *ids, VARIANT *formulae, VARIANT *names,
                                              VARIANT *boilingTemperatures, VARIANT *molecularWeights,
                                              VARIANT *casTexts) override;
    HRESULT STDMETHODCALLTYPE GetConstPropList(VARIANT *properties) override;
    HRESULT STDMETHODCALLTYPE GetNumCompounds(LONG *count) override;
    HRESULT STDMETHODCALLTYPE GetPDependentProperty(VARIANT properties, double p, VARIANT ids,
                                                    VARIANT *values) override;
    HRESULT STDMETHODCALLTYPE GetPDependentPropList(VARIANT *properties) override;
    HRESULT STDMETHODCALLTYPE GetTDependentProperty(VARIANT properties, double t, VARIANT ids,
                                                    VARIANT *values) override;
    HRESULT STDMETHODCALLTYPE GetTDependentPropList(VARIANT *properties) override;

    HRESULT STDMETHODCALLTYPE get_code(LONG *code) override;
    HRESULT STDMETHODCALLTYPE get_description(BSTR *description) override;
    HRESULT STDMETHODCALLTYPE get_scope(BSTR *scope) override;
    HRESULT STDMETHODCALLTYPE get_interfaceName(BSTR *name) override;
    HRESULT STDMETHODCALLTYPE get_operation(BSTR *operation) override;
    HRESULT STDMETHODCALLTYPE get_moreInfo(BSTR *information) override;

private:
    // The result to give at once, if the method is to do nothing.
    std::optional<HRESULT> refuses(const char *method, const std::string &details = {});
    HRESULT giveConditions(const std::vector<double> &fractions, double *t, double *p, VARIANT *list) const;
    HRESULT giveValue(const std::string &phase, BSTR property, BSTR basis, VARIANT *results) const;
};
