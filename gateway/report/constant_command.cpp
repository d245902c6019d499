// Command 16: a compound constant of all compounds.
#include "cape/com/bstr.h"
#include "cape/com/component_call.h"
#include "cape/com/variant.h"
#include "cape/error_text.h"
#include "cape/missing_value.h"
#include "gateway/call/failure_text.h"
#include "gateway/call/marshalling.h"
#include "gateway/report/report_commands.h"
#include "gateway/state/global_lists.h"
#include "gateway/state/global_text.h"
#include "gateway/state/settings.h"
#include "packages/handle_argument.h"
#include "properties/chain_rule.h"
#include "properties/property_name.h"

#include <algorithm>

namespace {

// The values of the constant that the argument names, into ResultArray; its name stays in
// ScratchText.
Verdict fetchConstant(OpenPackage &package, const mxArray *argument)
{
    StringArg name;
    if (Verdict verdict = name.read(argument, "Expected a string value for property name"); !verdict.isDone())
        return verdict;
    ScratchText = name.get();
    name.free();
    NameArray.Create(1, VT_BSTR);
    NameArray.PutString(0, Bstr(ScratchText).get());
    Variant values;
    const HRESULT hr = CallComponent(
        [&] { return package.compounds->GetCompoundConstant(NameArray.value, EmptyVariant, values.out()); });
    if (FAILED(hr))
        return FailWith(OLESTR("GetCompoundConstant failed: "), CapeErrorText(package.compounds, hr));
    ResultArray.Attach(values.release(), 1);
    if (!ResultArray.Validate(VT_VARIANT, LastError)) {
        LastError.insert(0, OLESTR("Invalid return values from GetCompoundConstant: "));
        return Verdict::failed();
    }
    if (static_cast<std::size_t>(ResultArray.count) != package.compoundIds.size())
        return Verdict::refuse("Invalid return values from GetCompoundConstant: unexpected number of values");
    return Verdict::done();
}

// Element i goes to NameList or ConstantValues. False when it is of the other kind than those
// before, or of no kind that a constant can have.
bool takeElement(std::size_t i, const VARIANT &element, bool &textSeen, bool &numberSeen)
{
    switch (element.vt) {
    case VT_BSTR:
        textSeen = true;
        if (!numberSeen)
            NameList[i] = TextOf(element.bstrVal);
        return !numberSeen;
    case VT_R8:
        numberSeen = true;
        if (!textSeen)
            ConstantValues[i] = element.dblVal;
        return !textSeen;
    case VT_EMPTY: // no value: a text keeps what stands in the list
        if (!textSeen)
            ConstantValues[i] = QuietNaN;
        return true;
    default:
        return false;
    }
}

// Spreads ResultArray over NameList or ConstantValues.
Verdict readElements(bool &textSeen)
{
    const std::size_t count = static_cast<std::size_t>(ResultArray.count);
    ConstantValues.resize(count);
    NameList.resize(count);
    textSeen = false;
    bool numberSeen = false;
    for (std::size_t i = 0; i < count; ++i) {
        Variant element;
        ResultArray.GetVariant(static_cast<std::int32_t>(i), *element.out());
        if (!takeElement(i, element.get(), textSeen, numberSeen))
            return Verdict::refuse("Inconsistent return data type from GetCompoundConstant");
    }
    return Verdict::done();
}

// Packages give constants on a mole basis. The vocabulary is needed for a conversion only.
Verdict convertToMassBasis(const OpenPackage &package, double *values)
{
    ParsedProperty property;
    if (!ParsePropertyName(property, constantProperties, ScratchText.c_str(), LastError))
        return Verdict::failed();
    if (property.basisPower == 0)
        return Verdict::done();
    return Verdict::of(ConvertCompoundValues(package.molecularWeights, property.basisPower, values, LastError, 1));
}

} // namespace

Verdict ConstantCommand(const CommandCall &call)
{
    OpenPackage *package = nullptr;
    if (Verdict verdict = ReadPackage(call.arguments[1], package); !verdict.isDone())
        return verdict;
    if (!EnsureCompounds(*package))
        return Verdict::failed();
    if (Verdict verdict = fetchConstant(*package, call.arguments[2]); !verdict.isDone())
        return verdict;
    bool isText = false;
    if (Verdict verdict = readElements(isText); !verdict.isDone())
        return verdict;
    if (isText) {
        PutStringCell(NameList, &call.results[0]);
        return Verdict::done();
    }
    call.results[0] = mxCreateDoubleMatrix_730(1, ConstantValues.size(), mxREAL);
    double *const values = mxGetPr(call.results[0]);
    std::copy(ConstantValues.begin(), ConstantValues.end(), values);
    return GlobalSettings.defaultBasis == 0 ? Verdict::done() : convertToMassBasis(*package, values);
}
