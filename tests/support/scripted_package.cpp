#include "tests/support/scripted_package.h"

#include "tests/support/thermo_facets.h"

namespace support {

namespace {

class PackageObject : public ScriptedComponent {
public:
    explicit PackageObject(PackageScript &script)
        : ScriptedComponent(script), compounds(*this, script), phases(*this, script), propertyRoutine(*this, script),
          equilibriumRoutine(*this, script), materialContext(*this, script)
    {
    }

private:
    CompoundsFacet compounds;
    PhasesFacet phases;
    PropertyRoutineFacet propertyRoutine;
    EquilibriumFacet equilibriumRoutine;
    MaterialContextFacet materialContext;
};

template <class Store> HRESULT storeAll(const std::vector<StoredValue> &values, Store store)
{
    for (const StoredValue &value : values) {
        const HRESULT hr = store(value);
        if (FAILED(hr))
            return hr;
    }
    return S_OK;
}

ComPointer<ICapeDiagnostic> diagnosticOf(const ComponentScript &script)
{
    ComPointer<ICapeDiagnostic> diagnostic;
    diagnostic.queryFrom(script.context.get());
    return diagnostic;
}

} // namespace

PackageScript::PackageScript() { label = "package"; }

PackageScript::~PackageScript() = default;

std::unique_ptr<ScriptedObject> PackageScript::makeObject() { return std::make_unique<PackageObject>(*this); }

void MakeBinaryPackage(PackageScript &script)
{
    script.compoundIds = TextArray({"A", "B"});
    script.formulae = TextArray({"H2O", "C3"});
    script.compoundNames = TextArray({"Compound A", "Compound B"});
    script.boilingTemperatures = NumberArray({373.15, 350});
    script.molecularWeights = NumberArray({18, 36});
    script.casNumbers = TextArray({"7732-18-5", "0-00-0"});
    script.phaseLabels = TextArray({"Vapor", "Liquid"});
    script.statesOfAggregation = TextArray({"Vapor", "Liquid"});
    script.keyCompounds = TextArray({"", ""});
    script.constantProperties = TextArray({"molecularWeight", "criticalTemperature", "casRegistryNumber"});
    script.temperatureDependentProperties = TextArray({"vaporPressure", "idealGasHeatCapacity"});
    script.pressureDependentProperties = TextArray({"boilingPointAtPressure"});
    script.singlePhaseProperties = TextArray({"density", "enthalpy", "fugacityCoefficient", "volume"});
    script.twoPhaseProperties = TextArray({"kvalue", "surfaceTension"});
}

std::function<HRESULT(const SinglePhaseCall &)> StoreSinglePhase(std::vector<StoredValue> values)
{
    return [values = std::move(values)](const SinglePhaseCall &call) {
        return storeAll(values, [&](const StoredValue &value) {
            return call.material.setSinglePhase(value.property.wide, call.phase, value.basis, value.values);
        });
    };
}

std::function<HRESULT(const TwoPhaseCall &)> StoreTwoPhase(std::vector<StoredValue> values)
{
    return [values = std::move(values)](const TwoPhaseCall &call) {
        return storeAll(values, [&](const StoredValue &value) {
            return call.material.setTwoPhase(value.property.wide, call.phases, value.basis, value.values);
        });
    };
}

std::function<HRESULT(const EquilibriumCall &)> StoreEquilibrium(std::vector<MaterialClient::Phase> phases,
                                                                 double temperature, double pressure, const char *basis)
{
    return [phases = std::move(phases), temperature, pressure, basis](const EquilibriumCall &request) {
        return request.material.setEquilibrium(phases, temperature, pressure, basis);
    };
}

std::function<HRESULT(const CompoundCall &, Variant &)> AnswerValues(Variant values)
{
    return [values = std::move(values)](const CompoundCall &, Variant &answered) {
        answered = values;
        return S_OK;
    };
}

HRESULT LogMessage(const ComponentScript &script, AnyText message)
{
    ComPointer<ICapeDiagnostic> diagnostic = diagnosticOf(script);
    return diagnostic ? diagnostic->LogMessage(OwnedBstr(message)) : E_POINTER;
}

HRESULT PopUpMessage(const ComponentScript &script, AnyText message)
{
    ComPointer<ICapeDiagnostic> diagnostic = diagnosticOf(script);
    return diagnostic ? diagnostic->PopUpMessage(OwnedBstr(message)) : E_POINTER;
}

} // namespace support
