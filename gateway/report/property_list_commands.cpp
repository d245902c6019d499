// Commands 10 to 15: the properties that a package supports, as far as the vocabulary knows them,
// so that a script is only told of what the system can handle.
#include "cape/com/component_call.h"
#include "cape/com/variant.h"
#include "cape/error_text.h"
#include "gateway/call/failure_text.h"
#include "gateway/call/marshalling.h"
#include "gateway/report/report_commands.h"
#include "gateway/state/global_lists.h"
#include "gateway/state/global_text.h"
#include "packages/handle_argument.h"
#include "properties/property_name.h"

#include <utility>

namespace {

struct PropertyListRow {
    int code;
    bool (*ensure)(OpenPackage &package);
    HRESULT (*fetch)(OpenPackage &package, VARIANT *names);
    IUnknown *(*source)(OpenPackage &package); // whom a failed call is explained by
    const PropertyTable *table;
    LPCWSTR method;
};

IUnknown *compoundsOf(OpenPackage &package) { return package.compounds; }
IUnknown *routineOf(OpenPackage &package) { return package.propertyRoutine; }

HRESULT fetchConstants(OpenPackage &package, VARIANT *names) { return package.compounds->GetConstPropList(names); }
HRESULT fetchTDependent(OpenPackage &package, VARIANT *names)
{
    return package.compounds->GetTDependentPropList(names);
}
HRESULT fetchPDependent(OpenPackage &package, VARIANT *names)
{
    return package.compounds->GetPDependentPropList(names);
}
HRESULT fetchSinglePhase(OpenPackage &package, VARIANT *names)
{
    return package.propertyRoutine->GetSinglePhasePropList(names);
}
HRESULT fetchTwoPhase(OpenPackage &package, VARIANT *names)
{
    return package.propertyRoutine->GetTwoPhasePropList(names);
}

constexpr int flashSpecificationCode = 15;

const PropertyListRow propertyLists[] = {
    {10, EnsureCompounds, fetchConstants, compoundsOf, &constantProperties, OLESTR("GetConstPropList")},
    {11, EnsureCompounds, fetchTDependent, compoundsOf, &tDependentProperties, OLESTR("GetTDependentPropList")},
    {12, EnsureCompounds, fetchPDependent, compoundsOf, &pDependentProperties, OLESTR("GetPDependentPropList")},
    {13, EnsurePropertyRoutine, fetchSinglePhase, routineOf, &singlePhaseProperties, OLESTR("GetSinglePhasePropList")},
    {14, EnsurePropertyRoutine, fetchTwoPhase, routineOf, &twoPhaseProperties, OLESTR("GetTwoPhasePropList")},
    {flashSpecificationCode, EnsurePropertyRoutine, fetchSinglePhase, routineOf, &singlePhaseProperties,
     OLESTR("GetSinglePhasePropList")},
};

const PropertyListRow &rowOf(int code) { return propertyLists[code - propertyLists[0].code]; }

// What a flash can be specified by, whatever the package supports.
constexpr LPCWSTR alwaysSpecifiable[] = {OLESTR("Temperature"), OLESTR("Pressure"), OLESTR("vaporFraction")};

Verdict fetchList(const PropertyListRow &row, OpenPackage &package)
{
    Variant names;
    const HRESULT hr = CallComponent([&] { return row.fetch(package, names.out()); });
    if (FAILED(hr))
        return FailWith(row.method, OLESTR(" failed: "), CapeErrorText(row.source(package), hr));
    ResultArray.Attach(names.release(), 1);
    if (!ResultArray.Validate(VT_BSTR, LastError)) {
        LastError.insert(0, OLESTR("Invalid result from ") + WideString(row.method) + OLESTR(": "));
        return Verdict::failed();
    }
    return Verdict::done();
}

bool isListed(const PropertyListRow &row, LPCWSTR name)
{
    ParsedProperty property;
    if (!ParsePropertyName(property, *row.table, name, LastError))
        return false;
    return row.code != flashSpecificationCode || (property.derivative == NoDerivative && property.mixable != 0);
}

// The names of ResultArray that the vocabulary knows, in the package's order and spelling.
void filterNames(const PropertyListRow &row)
{
    NameList.clear();
    if (row.code == flashSpecificationCode)
        NameList.assign(std::begin(alwaysSpecifiable), std::end(alwaysSpecifiable));
    for (std::int32_t i = 0; i < ResultArray.count; ++i) {
        WideString name = ResultArray.TextAt(i);
        if (isListed(row, name.c_str()))
            NameList.push_back(std::move(name));
    }
}

} // namespace

Verdict PropertyListCommand(const CommandCall &call)
{
    OpenPackage *package = nullptr;
    if (Verdict verdict = ReadPackage(call.arguments[1], package); !verdict.isDone())
        return verdict;
    const PropertyListRow &row = rowOf(call.code);
    if (!row.ensure(*package))
        return Verdict::failed();
    if (Verdict verdict = fetchList(row, *package); !verdict.isDone())
        return verdict;
    filterNames(row);
    PutStringCell(NameList, &call.results[0]);
    return Verdict::done();
}
