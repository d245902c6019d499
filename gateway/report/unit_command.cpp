// Command 19: the unit of a property in the current basis, from the vocabulary alone.
#include "cape/same_name.h"
#include "gateway/call/marshalling.h"
#include "gateway/report/report_commands.h"
#include "gateway/state/global_text.h"
#include "gateway/state/settings.h"
#include "properties/property_name.h"

namespace {

struct FixedUnit {
    LPCWSTR name;
    LPCWSTR moleUnit;
    LPCWSTR massUnit;
};

// Conditions and fractions are not in the vocabulary.
constexpr FixedUnit fixedUnits[] = {
    {OLESTR("temperature"), OLESTR("K"), OLESTR("K")},
    {OLESTR("pressure"), OLESTR("Pa"), OLESTR("Pa")},
    {OLESTR("fraction"), OLESTR("mole fraction"), OLESTR("mass fraction")},
    {OLESTR("phasefraction"), OLESTR("mole fraction"), OLESTR("mass fraction")},
    {OLESTR("vaporfraction"), OLESTR("mole fraction"), OLESTR("mass fraction")},
};

LPCWSTR findFixedUnit(LPCWSTR name)
{
    for (const FixedUnit &row : fixedUnits)
        if (SameName(name, row.name))
            return GlobalSettings.defaultBasis ? row.massUnit : row.moleUnit;
    return nullptr;
}

bool parseInAnyTable(LPCWSTR name, ParsedProperty &property)
{
    for (const PropertyTable *table : {&constantProperties, &tDependentProperties, &pDependentProperties,
                                       &singlePhaseProperties, &twoPhaseProperties})
        if (ParsePropertyName(property, *table, name, LastError))
            return true;
    return false;
}

void divideUnitBy(LPCWSTR divisor)
{
    if (ScratchText.empty())
        ScratchText = OLESTR("1");
    ScratchText += divisor;
}

Verdict unitOfProperty(const mxArray *argument)
{
    StringArg name;
    if (Verdict verdict = name.read(argument, "Expected string value for property name"); !verdict.isDone())
        return verdict;
    BuildPropertyTables();
    if (LPCWSTR unit = findFixedUnit(name.get())) {
        ScratchText = unit;
        return Verdict::done();
    }
    ParsedProperty property;
    if (!parseInAnyTable(name.get(), property))
        return Verdict::refuse("unknown / unsupported property");
    const bool massBasis = GlobalSettings.defaultBasis != 0;
    const LPCWSTR unit = massBasis ? property.massUnit : property.moleUnit;
    ScratchText = unit ? unit : OLESTR("");
    switch (property.derivative) {
    case TemperatureDerivative:
        divideUnitBy(OLESTR(" / K"));
        break;
    case PressureDerivative:
        divideUnitBy(OLESTR(" / Pa"));
        break;
    case MolesDerivative:
        if (!property.specific)
            divideUnitBy(OLESTR(" / mol"));
        else if (massBasis)
            return Verdict::refuse("Do not use mole number derivatives of extensive property in mass basis");
        break;
    case NoDerivative:
    case MolFractionDerivative:
        break;
    }
    return Verdict::done();
}

} // namespace

Verdict PropertyUnitCommand(const CommandCall &call)
{
    if (Verdict verdict = unitOfProperty(call.arguments[1]); !verdict.isDone())
        return verdict;
    PutRowString(ScratchText, &call.results[0]);
    return Verdict::done();
}
