// The scripted property package: what it lists, what it calculates, what it was asked.
#pragma once

#include "tests/support/component_script.h"
#include "tests/support/material_client.h"

#include <functional>
#include <string>
#include <vector>

namespace support {

// Arguments of the calculations, as the package got them. The material is the one that
// SetMaterial gave, and null before that.
struct SinglePhaseCall {
    MaterialClient material;
    std::vector<WideString> properties;
    WideString phase;
};
struct TwoPhaseCall {
    MaterialClient material;
    std::vector<WideString> properties;
    std::vector<WideString> phases;
};
struct EquilibriumCall {
    MaterialClient material;
    std::vector<WideString> specification1; // property, basis, phase label or "Overall"
    std::vector<WideString> specification2;
    WideString solutionType;
    VARIANT givenSpecification1; // the same as the package got it, the caller's
    VARIANT givenSpecification2;
};
struct CompoundCall {
    std::vector<WideString> properties;
    double condition = 0;           // temperature or pressure; 0 for constants
    VARTYPE compoundIds = VT_EMPTY; // the type of the VARIANT that names the compounds
};
struct SpecificationCheck {
    std::vector<WideString> specification1;
    std::vector<WideString> specification2;
    WideString solutionType;
};

class PackageScript : public ComponentScript {
public:
    PackageScript();
    ~PackageScript() override;

    // --- lists; any VARIANT will do, and it is given as it is ---
    Variant compoundIds, formulae, compoundNames, boilingTemperatures, molecularWeights, casNumbers;
    Variant phaseLabels, statesOfAggregation, keyCompounds;
    Variant constantProperties, temperatureDependentProperties, pressureDependentProperties;
    Variant singlePhaseProperties, twoPhaseProperties;

    // --- calculations; without one the call succeeds and does nothing, and values stay VT_EMPTY ---
    std::function<HRESULT(const SinglePhaseCall &)> calcSinglePhase;
    std::function<HRESULT(const TwoPhaseCall &)> calcTwoPhase;
    std::function<HRESULT(const EquilibriumCall &)> calcEquilibrium;
    std::function<HRESULT(const CompoundCall &, Variant &values)> constants;
    std::function<HRESULT(const CompoundCall &, Variant &values)> temperatureDependent;
    std::function<HRESULT(const CompoundCall &, Variant &values)> pressureDependent;

    // Without one every specification is supported.
    std::function<bool(const SpecificationCheck &)> supportsEquilibrium;

    bool keepsMaterial = false; // holds the material until keptMaterial is reset

    // --- what happened ---
    ComPointer<ICapeThermoMaterial> material; // while an object holds it
    ComPointer<IDispatch> keptMaterial;

protected:
    std::unique_ptr<ScriptedObject> makeObject() override;
    void objectReleased() override { material.reset(); }
};

// Two compounds, "A" of 18 and "B" of 36 g/mol, phases "Vapor" and "Liquid", and a few
// properties of each kind; it calculates nothing yet.
void MakeBinaryPackage(PackageScript &script);

// --- calculations ready made ---

struct StoredValue {
    AnyText property;
    std::string basis;
    std::vector<double> values;
};

// Stores all of these on the phase asked for, whether asked for or not. The first call that the
// material refuses gives the result.
std::function<HRESULT(const SinglePhaseCall &)> StoreSinglePhase(std::vector<StoredValue> values);
std::function<HRESULT(const TwoPhaseCall &)> StoreTwoPhase(std::vector<StoredValue> values);

// Finds these phases in every flash.
std::function<HRESULT(const EquilibriumCall &)> StoreEquilibrium(std::vector<MaterialClient::Phase> phases,
                                                                 double temperature, double pressure,
                                                                 const char *basis = "mole");

// Answers the same values to every question.
std::function<HRESULT(const CompoundCall &, Variant &)> AnswerValues(Variant values);

// Says something through the simulation context that the component was given.
HRESULT LogMessage(const ComponentScript &script, AnyText message);
HRESULT PopUpMessage(const ComponentScript &script, AnyText message);

} // namespace support
