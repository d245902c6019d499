#include "properties/property_name.h"

#include "cape/same_name.h"

#include <string_view>

namespace {

struct Derivative {
    DerivativeKind kind;
    LPCWSTR suffix;
    LPCWSTR word;
};

constexpr Derivative derivatives[] = {
    {TemperatureDerivative, OLESTR("Dtemperature"), OLESTR("Temperature")},
    {PressureDerivative, OLESTR("Dpressure"), OLESTR("Pressure")},
    {MolesDerivative, OLESTR("Dmoles"), OLESTR("Mole number")},
    {MolFractionDerivative, OLESTR("DmolFraction"), OLESTR("Mole fraction")},
};

struct WordOfTable {
    const PropertyTable *table;
    LPCWSTR word;
};

constexpr WordOfTable tableWords[] = {
    {&constantProperties, OLESTR("compound constant")},
    {&tDependentProperties, OLESTR("temperature dependent property")},
    {&pDependentProperties, OLESTR("pressure dependent property")},
    {&singlePhaseProperties, OLESTR("single phase property")},
    {&twoPhaseProperties, OLESTR("two-phase property")},
};

// Kinds that have at most one derivative, for what only depends on the compound.
struct CompoundKind {
    PropertyKind kind;
    DerivativeKind allowed;
    LPCWSTR words;
};

constexpr CompoundKind compoundKinds[] = {
    {CompoundConstant, NoDerivative, OLESTR("compound constants")},
    {TemperatureDependent, TemperatureDerivative, OLESTR("temperature dependent properties")},
    {PressureDependent, PressureDerivative, OLESTR("pressure dependent properties")},
};

LPCWSTR wordOf(const PropertyTable &table)
{
    for (const WordOfTable &entry : tableWords)
        if (entry.table == &table)
            return entry.word;
    return OLESTR("property");
}

// `suffix` is the text behind the dot.
const Derivative *derivativeOf(LPCWSTR suffix)
{
    for (const Derivative &derivative : derivatives)
        if (SameName(suffix, derivative.suffix))
            return &derivative;
    return nullptr;
}

void copyRow(ParsedProperty &result, const PropertyInfo &row)
{
    const bool isSinglePhase = row.kind == SinglePhase;
    result.info = &row;
    result.kind = row.kind;
    result.massUnit = row.massUnit;
    result.moleUnit = row.moleUnit;
    result.basisPower = row.basisPower;
    result.dimensions = row.dimensions;
    result.mixable = isSinglePhase ? row.mixable : 0;
    result.specific = isSinglePhase ? row.specific : 0;
}

// Whether the kind of property has this derivative; a composition derivative adds its dimension.
bool applyDerivative(ParsedProperty &result, const Derivative &derivative, WideString &errorText)
{
    for (const CompoundKind &compoundKind : compoundKinds) {
        if (compoundKind.kind != result.kind)
            continue;
        if (compoundKind.allowed == derivative.kind)
            return true;
        errorText = derivative.word;
        errorText += OLESTR(" derivative not supported for ");
        errorText += compoundKind.words;
        return false;
    }
    if (derivative.kind == MolesDerivative || derivative.kind == MolFractionDerivative)
        ++result.dimensions;
    if (result.dimensions <= 2)
        return true;
    errorText = OLESTR("composition derivatives of matrix properties not supported");
    return false;
}

} // namespace

bool ParsePropertyName(ParsedProperty &result, const PropertyTable &table, const WSTRMapKey &key, LPCWSTR name,
                       WideString &errorText)
{
    if (!name) {
        errorText = OLESTR("Property name is empty");
        return false;
    }
    result.derivative = NoDerivative;
    const Derivative *derivative = nullptr;
    const LPCWSTR dot = name + std::basic_string_view<WCHAR>(key.GetKeyText()).size();
    if (*dot) {
        derivative = derivativeOf(dot + 1);
        if (!derivative) {
            errorText = OLESTR("Invalid or unsuppored derivative \"");
            errorText += dot + 1;
            errorText += OLESTR('"');
            return false;
        }
        result.derivative = derivative->kind;
    }
    const auto place = table.find(key);
    if (place == table.end()) {
        errorText = OLESTR("Invalid or unsupported ");
        errorText += wordOf(table);
        errorText += OLESTR(": ");
        errorText += key.GetKeyText();
        return false;
    }
    copyRow(result, *place->second);
    return !derivative || applyDerivative(result, *derivative, errorText);
}

bool ParsePropertyName(ParsedProperty &result, const PropertyTable &table, LPCWSTR name, WideString &errorText)
{
    LowerName stem(name);
    stem.cutSuffix();
    return ParsePropertyName(result, table, WSTRMapKeyPtr(stem.text()), name, errorText);
}
