#include "tests/mex/failures/busy_package.h"

#include "tests/support/failures.h"

#include <gtest/gtest.h>

namespace support {

namespace {

// Runs the calls one after the other until one fails, whose result it gives.
using Calls = std::initializer_list<std::function<HRESULT()>>;
HRESULT firstFailure(const Calls &calls)
{
    try {
        for (const auto &call : calls)
            if (const HRESULT hr = call(); FAILED(hr))
                return hr;
    } catch (...) {
        ADD_FAILURE() << "an exception came out of the system into a package";
        return E_UNEXPECTED;
    }
    return S_OK;
}

// What succeeded is whole.
template <class Complete> HRESULT whole(HRESULT hr, Complete complete, const char *method)
{
    EXPECT_TRUE(FAILED(hr) || complete()) << method << " succeeded and did not give what it should";
    return hr;
}

HRESULT readConditions(const MaterialClient &material, const WideString &phase)
{
    Conditions read;
    const HRESULT hr = material.getConditions(phase, read);
    return whole(
        hr, [&] { return read.composition.size() == 2; }, "GetTPFraction");
}

HRESULT readOverall(const MaterialClient &material)
{
    std::vector<double> fractions;
    const HRESULT hr = material.getOverall("fraction", "mass", fractions);
    return whole(
        hr, [&] { return fractions.size() == 2; }, "GetOverallProp");
}

HRESULT readFractions(const MaterialClient &material, const WideString &phase)
{
    std::vector<double> fractions;
    const HRESULT hr = material.getSinglePhase("fraction", phase, "mass", fractions);
    return whole(
        hr, [&] { return fractions.size() == 2; }, "GetSinglePhaseProp");
}

HRESULT readPresentPhases(const MaterialClient &material)
{
    std::vector<WideString> labels;
    std::vector<LONG> status;
    const HRESULT hr = material.getPresentPhases(labels, status);
    const bool named = std::find(labels.begin(), labels.end(), WideString()) == labels.end();
    return whole(
        hr, [&] { return !labels.empty() && named && labels.size() == status.size(); }, "GetPresentPhases");
}

HRESULT readCompounds(const MaterialClient &material)
{
    ComPointer<ICapeThermoCompounds> compounds;
    if (const HRESULT hr = compounds.queryFrom(material.get()); FAILED(hr))
        return hr;
    Variant ids, formulae, names, boiling, weights, numbers;
    const HRESULT hr = compounds->GetCompoundList(&ids.value, &formulae.value, &names.value, &boiling.value,
                                                  &weights.value, &numbers.value);
    return whole(
        hr,
        [&] {
            return TextsOf(ids.value).size() == 2 && TextsOf(formulae.value).size() == 2 &&
                   TextsOf(names.value).size() == 2 && NumbersOf(boiling.value).size() == 2 &&
                   NumbersOf(weights.value).size() == 2 && TextsOf(numbers.value).size() == 2;
        },
        "GetCompoundList");
}

HRESULT readPhases(const MaterialClient &material)
{
    ComPointer<ICapeThermoPhases> phases;
    if (const HRESULT hr = phases.queryFrom(material.get()); FAILED(hr))
        return hr;
    Variant labels, states, keys;
    const HRESULT hr = phases->GetPhaseList(&labels.value, &states.value, &keys.value);
    return whole(
        hr,
        [&] {
            return TextsOf(labels.value).size() == 2 && TextsOf(states.value).size() == 2 &&
                   TextsOf(keys.value).size() == 2;
        },
        "GetPhaseList");
}

HRESULT readName(IUnknown *object, const char *expected)
{
    ComPointer<ICapeIdentification> identification;
    if (const HRESULT hr = identification.queryFrom(object); FAILED(hr))
        return hr;
    OwnedBstr name, description;
    if (const HRESULT hr = identification->get_ComponentName(name.out()); FAILED(hr))
        return hr;
    const HRESULT hr = identification->get_ComponentDescription(description.out());
    return whole(
        hr, [&] { return name.wide() == Wide(expected) && description.wide() == Wide(expected); }, "get_ComponentName");
}

// The words behind a call that is refused: a value that is not there.
HRESULT readRefusal(const MaterialClient &material)
{
    std::vector<double> values;
    const HRESULT refused = material.getOverall("viscosity", "", values);
    if (refused == E_OUTOFMEMORY)
        return refused;
    EXPECT_EQ(refused, CapeFailure(1));
    ComPointer<ECapeUser> user;
    if (const HRESULT hr = user.queryFrom(material.get()); FAILED(hr))
        return hr;
    OwnedBstr description;
    const HRESULT hr = user->get_description(description.out());
    return whole(
        hr, [&] { return description.wide() == Wide("Values not set for property viscosity"); }, "get_description");
}

// A material of the package's own, of the same values.
HRESULT copyMaterial(const MaterialClient &material)
{
    ComPointer<IDispatch> created;
    if (const HRESULT hr = material.get()->CreateMaterial(created.out()); FAILED(hr))
        return hr;
    ComPointer<ICapeThermoMaterial> copy;
    if (const HRESULT hr = copy.queryFrom(created.get()); FAILED(hr))
        return hr;
    IDispatch *source = nullptr;
    if (const HRESULT hr = material.get()->QueryInterface(InterfaceId<IDispatch>, reinterpret_cast<void **>(&source));
        FAILED(hr))
        return hr;
    const HRESULT hr = copy->CopyFromMaterial(&source);
    source->Release();
    if (FAILED(hr))
        return hr;
    std::vector<double> fractions;
    const HRESULT read = MaterialClient(copy.get()).getOverall("fraction", "mole", fractions);
    return whole(
        read, [&] { return fractions.size() == 2; }, "GetOverallProp of a copy");
}

HRESULT storeSinglePhase(const MaterialClient &material, const WideString &phase)
{
    const std::vector<StoredValue> values = {{"volume", "mole", {0.025}},
                                             {"fugacityCoefficient", "", {1.5, 2.5}},
                                             {"enthalpy", "mole", {-250}},
                                             {"enthalpy.Dmolfraction", "mole", {3, 4}}};
    return StoreSinglePhase(values)({material, {}, phase});
}

HRESULT useAll(const PackageScript &script, const MaterialClient &material)
{
    return firstFailure({[&] { return LogMessage(script, "calculating"); },
                         [&] { return readName(script.context.get(), "Matlab Simulation Context"); },
                         [&] { return readName(material.get(), "Matlab Material Object"); },
                         [&] { return readCompounds(material); }, [&] { return readPhases(material); },
                         [&] { return readPresentPhases(material); }, [&] { return readRefusal(material); }});
}

} // namespace

void MakeBusyPackage(PackageScript &script)
{
    MakeBinaryPackage(script);
    script.compoundIds = TextArray({"the first compound", "the second compound"}); // no small strings
    script.persistent = true;
    script.constants = [](const CompoundCall &call, Variant &values) {
        values = call.properties == Names({"molecularWeight"})
                     ? ArrayOfVariants({RealVariant(18), RealVariant(36)})
                     : ArrayOfVariants({TextVariant("7732-18-5"), TextVariant("0-00-0")});
        return S_OK;
    };
    script.temperatureDependent = AnswerValues(NumberArray({1, 2, 3, 4}));
    script.pressureDependent = AnswerValues(NumberArray({350, 360}));
    script.calcSinglePhase = [&script](const SinglePhaseCall &call) {
        return firstFailure({[&] { return useAll(script, call.material); },
                             [&] { return readConditions(call.material, call.phase); },
                             [&] { return readFractions(call.material, call.phase); },
                             [&] { return storeSinglePhase(call.material, call.phase); }});
    };
    script.calcTwoPhase = [&script](const TwoPhaseCall &call) {
        const auto store = StoreTwoPhase({{"surfaceTension", "", {0.02}},
                                          {"kvalue", "", {1.25, 0.75}},
                                          {"surfaceTension.Dmoles", "", {1, 2, 3, 4}}});
        return firstFailure({[&] { return useAll(script, call.material); }, [&] { return store(call); }});
    };
    script.calcEquilibrium = [&script](const EquilibriumCall &call) {
        const auto store = StoreEquilibrium({{"Vapor", 0.25, {0.75, 0.25}}, {"Liquid", 0.75, {0.4, 0.6}}}, 340, 101325);
        return firstFailure({[&] { return useAll(script, call.material); }, [&] { return readOverall(call.material); },
                             [&] { return copyMaterial(call.material); }, [&] { return store(call); }});
    };
}

} // namespace support
