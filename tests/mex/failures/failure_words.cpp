#include "tests/mex/failures/failure_words.h"

#include "cape/com/cape_open.h"
#include "cape/com/relay_interface.h"
#include "tests/support/failures.h"

#include <gtest/gtest.h>

#include <set>

namespace support {

namespace {

enum class Words {
    none,        // the failure is passed over
    ofSystem,    // for the result alone
    ofComponent, // the component is asked
};

// Where there are two conditions they are those of the campaign's commands. A beginning with "CAPE-OPEN: " is that of a
// warning.
struct FailedMethod {
    const char *method; // behind the label
    Words words;
    std::vector<const char *> beginnings;
};

const std::vector<FailedMethod> failedMethods = {
    {"manager.created", Words::ofSystem, {"creation of package manager failed: "}},
    {"manager.InitNew", Words::ofSystem, {"PPM InitNew failed: "}},
    {"manager.Initialize", Words::ofComponent, {"PPM Initialize failed: "}},
    {"manager.GetPropertyPackageList", Words::ofComponent, {"failed to get list of packages from ppm: "}},
    {"manager.GetPropertyPackage", Words::ofComponent, {"package creation failed: "}},
    {"inner.created", Words::ofComponent, {"package creation failed: "}},
    {"alone.created", Words::ofSystem, {"creation of package failed: "}},
    {"old.created", Words::ofSystem, {"creation of package failed: "}},
    {"relay.created", Words::ofSystem, {"creation of package failed: "}},
    {"relay.CreateObject32", Words::ofSystem, {"creation of package failed: "}},
    {".get_ComponentName", Words::none, {}},
    {".InitNew", Words::ofSystem, {"PP InitNew failed: "}},
    {".Initialize", Words::ofComponent, {"PP Initialize failed: "}},
    {".put_simulationContext", Words::none, {}},
    {".Terminate", Words::none, {}},
    {".GetCompoundList", Words::ofComponent, {"Failed to get list of compounds from property package: "}},
    {".GetPhaseList", Words::ofComponent, {"Failed to get list of phases from property package: "}},
    {".SetMaterial", Words::ofComponent, {"Failed to set material object on property package: "}},
    {".GetConstPropList", Words::ofComponent, {"GetConstPropList failed: "}},
    {".GetTDependentPropList", Words::ofComponent, {"GetTDependentPropList failed: "}},
    {".GetPDependentPropList", Words::ofComponent, {"GetPDependentPropList failed: "}},
    {".GetSinglePhasePropList", Words::ofComponent, {"GetSinglePhasePropList failed: "}},
    {".GetTwoPhasePropList", Words::ofComponent, {"GetTwoPhasePropList failed: "}},
    {".GetCompoundConstant", Words::ofComponent, {"GetCompoundConstant failed: "}},
    {".GetTDependentProperty",
     Words::ofComponent,
     {"GetTDependentProperty failed at 300 K: ", "GetTDependentProperty failed at 350 K: "}},
    {".GetPDependentProperty",
     Words::ofComponent,
     {"GetPDependentProperty failed at 100000 Pa: ", "GetPDependentProperty failed at 200000 Pa: "}},
    {".CalcSinglePhaseProp",
     Words::ofComponent,
     {"CalcSinglePhaseProp failed: ", "CalcSinglePhaseProp failed, at 100000 Pa, at 300 K: ",
      "CalcSinglePhaseProp failed, at 200000 Pa, at 350 K: ",
      "CAPE-OPEN: Failed to calculate post-flash Vapor properties: ",
      "CAPE-OPEN: Failed to calculate post-flash Liquid properties: "}},
    {".CalcTwoPhaseProp",
     Words::ofComponent,
     {"CalcTwoPhaseProp failed, at 300 K: ", "CalcTwoPhaseProp failed, at 350 K: "}},
    {".CalcEquilibrium",
     Words::ofComponent,
     {"CalcEquilibrium failed: ", "CAPE-OPEN: Flash failed at 300, 100000: ",
      "CAPE-OPEN: Flash failed at 350, 100000: "}},
};

const FailedMethod *findMethod(const std::string &method)
{
    for (const FailedMethod &row : failedMethods)
        if (method.ends_with(row.method))
            return &row;
    return nullptr;
}

std::vector<std::string> behind(const std::vector<const char *> &beginnings, const std::string &words)
{
    std::vector<std::string> texts;
    for (const char *beginning : beginnings)
        texts.push_back(beginning + words);
    return texts;
}

} // namespace

std::string WordsFor(HRESULT result, const ErrorWords &words)
{
    if (result < CapeFailure(1) || result > CapeFailure(0x1A))
        return SystemText(result);
    if (words.user && words.description)
        return Narrow(*words.description);
    if (words.root && words.name)
        return Narrow(*words.name);
    EXPECT_EQ(result, computationFailed);
    return "computation error";
}

std::vector<std::string> TextsOfFailedMethod(const std::string &method, HRESULT result, const ErrorWords &words)
{
    const bool mayBeMissing = method.ends_with(".InitNew") || method.ends_with(".Initialize");
    if (SUCCEEDED(result) || (mayBeMissing && result == E_NOTIMPL))
        return {};
    const FailedMethod *row = findMethod(method);
    EXPECT_NE(row, nullptr) << method;
    if (!row || row->words == Words::none)
        return {};
    std::vector<std::string> texts =
        behind(row->beginnings, row->words == Words::ofComponent ? WordsFor(result, words) : SystemText(result));
    if (method == "relay.created") // the instance that is kept: what it said is in a warning
        texts.push_back(row->beginnings[0] + SystemText(E_UNEXPECTED));
    return texts;
}

std::vector<std::string> MethodsOfNone(const std::vector<std::string> &calls)
{
    std::set<const FailedMethod *> called;
    for (const std::string &call : calls)
        called.insert(findMethod(call));
    std::vector<std::string> others;
    for (const FailedMethod &row : failedMethods)
        if (!called.contains(&row))
            others.push_back(row.method);
    return others;
}

std::vector<std::string> TextsOfFailedQuery(const std::string &label, REFIID wanted, HRESULT result)
{
    struct FailedQuery {
        const IID &wanted;
        const char *beginning; // null: it goes on
    };
    const FailedQuery rows[] = {
        {InterfaceId<IPersistStreamInit>, nullptr},
        {InterfaceId<ICapeUtilities>, nullptr},
        {InterfaceId<ICapeIdentification>, nullptr},
        {InterfaceId<ICapeThermoPropertyPackageManager>, "creation of package manager failed: "},
        {InterfaceId<IVerdanth6432Relay>, "creation of package failed: "},
        {InterfaceId<IUnknown>, "creation of package failed: "},
        {InterfaceId<ICapeThermoCompounds>, "Failed to get ICompounds interface from property package: "},
        {InterfaceId<ICapeThermoPhases>, "Failed to get ICapeThermoPhases interface from property package: "},
        {InterfaceId<ICapeThermoEquilibriumRoutine>,
         "Failed to get ICapeThermoEquilibriumRoutine interface from property package: "},
        {InterfaceId<ICapeThermoPropertyRoutine>,
         "Failed to get ICapeThermoEquilibriumRoutine interface from property package: "},
        {InterfaceId<ICapeThermoMaterialContext>, "Failed to get ICapeThermoMaterialContext from property package: "},
        {InterfaceId<IDispatch>, label == "inner" ? "package creation failed: " : "creation of package failed: "},
    };
    for (const FailedQuery &row : rows) {
        if (row.wanted != wanted)
            continue;
        if (!row.beginning)
            return {};
        if (FAILED(result))
            return {row.beginning + SystemText(result), row.beginning + SystemText(E_UNEXPECTED)};
        return {row.beginning + SystemText(E_NOINTERFACE), row.beginning + SystemText(E_POINTER),
                row.beginning + SystemText(E_UNEXPECTED)};
    }
    ADD_FAILURE() << label << " was asked for another interface";
    return {};
}

std::vector<std::string> TextsOfFailedCalculation(HRESULT result)
{
    std::vector<std::string> texts;
    for (const char *method : {".CalcSinglePhaseProp", ".CalcTwoPhaseProp", ".CalcEquilibrium"})
        for (const char *beginning : findMethod(method)->beginnings)
            texts.push_back(beginning + WordsFor(result, {}));
    return texts;
}

} // namespace support
