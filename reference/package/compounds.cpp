#include "cape/com/guarded_call.h"
#include "reference/package/compound_constants.h"
#include "reference/package/property_package.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

namespace reference {

namespace {

constexpr auto interfaceName = OLESTR("ICapeThermoCompounds");
constexpr double notKnown = std::numeric_limits<double>::quiet_NaN();
constexpr int conditionPosition = 2; // among the arguments

// The rows of a table that an argument names.
template <class Row> HRESULT readRows(const Component::Call &call, std::span<const Row> table, const VARIANT &argument,
                                      std::vector<const Row *> &chosen)
{
    TextView names;
    if (!names.open(argument) || names.size() == 0)
        return call.refuse(errors::invalidArgument, OLESTR("The properties must be an array of one name or more"), 1);
    for (const BSTR name : names) {
        const auto row = std::ranges::find_if(table, [&](const Row &each) { return sameWord(name, each.name); });
        if (row == table.end())
            return call.refuse(errors::limitedImplementation,
                               OLESTR("Compounds have no property ") + quoted(name) + OLESTR(" here"));
        chosen.push_back(&*row);
    }
    return S_OK;
}

// Writes one element of a list of constants; an undefined one stays empty.
void putConstant(const CompoundConstant &constant, const PureCompound &compound, VARIANT &element)
{
    Value value;
    if (constant.text) {
        if (const std::string_view text = constant.text(compound); !text.empty())
            value.setText(text);
    } else if (const double number = constant.number(compound); !std::isnan(number)) {
        value.setNumber(number);
    }
    value.give(&element);
}

HRESULT giveNames(const auto &table, VARIANT *properties)
{
    if (!properties)
        return E_POINTER;
    Value names;
    VariantInit(properties);
    if (!names.setTexts(table, [](const auto &row) { return row.name; }))
        return E_OUTOFMEMORY;
    return names.give(properties);
}

// Refuses a call none of whose values is known; this property and compound are the first.
HRESULT refuseUnknown(const Component::Call &call, const ConditionedProperties &table, double condition,
                      const ConditionedProperty &property, const CompoundData &compound)
{
    const WideString what = wide(property.name) + OLESTR(" of ") + wide(compound.id);
    const KnownRange range = property.range(compound);
    if (std::isnan(range.lowest))
        return call.refuse(errors::propertyNotAvailable, OLESTR("There is no ") + what);
    char numbers[64];
    if (range.contains(condition)) {
        std::snprintf(numbers, sizeof numbers, " at %.6g ", condition);
        return call.refuse(errors::propertyNotAvailable,
                           OLESTR("There is no ") + what + wide(numbers) + wide(table.unit));
    }
    std::snprintf(numbers, sizeof numbers, " from %.6g to %.6g ", range.lowest, range.highest);
    return call.refuseBounds({range.lowest, range.highest, condition, table.condition}, conditionPosition,
                             OLESTR("The ") + wide(table.condition) + OLESTR(" must be") + wide(numbers) +
                                 wide(table.unit) + OLESTR(" for ") + what);
}

} // namespace

HRESULT PropertyPackage::readCompounds(const Call &call, const VARIANT &argument, int position,
                                       std::vector<const CompoundData *> &chosen) const
{
    if (argument.vt == VT_EMPTY) {
        chosen = compounds;
        return S_OK;
    }
    TextView ids;
    if (!ids.open(argument) || ids.size() == 0)
        return call.refuse(errors::invalidArgument, OLESTR("The compounds must be an array of ids, or empty for all"),
                           position);
    for (const BSTR id : ids) {
        const CompoundData *compound = findCompound(id, &CompoundData::id);
        if (!compound)
            return call.refuse(errors::invalidArgument, OLESTR("There is no compound ") + quoted(id), position);
        chosen.push_back(compound);
    }
    return S_OK;
}

HRESULT STDMETHODCALLTYPE PropertyPackage::GetCompoundConstant(VARIANT properties, VARIANT compoundIds, VARIANT *values)
{
    const Call call{*this, interfaceName, OLESTR("GetCompoundConstant")};
    return GuardedCall([&]() -> HRESULT {
        if (!values)
            return E_POINTER;
        VariantInit(values);
        std::vector<const CompoundConstant *> constants;
        std::vector<const CompoundData *> chosen;
        if (const HRESULT result = readRows(call, compoundConstants(), properties, constants); FAILED(result))
            return result;
        if (const HRESULT result = readCompounds(call, compoundIds, 2, chosen); FAILED(result))
            return result;

        Value list;
        VARIANT *element = list.makeVariants(static_cast<int>(constants.size() * chosen.size()));
        if (!element)
            return E_OUTOFMEMORY;
        for (const CompoundConstant *constant : constants)
            for (const CompoundData *compound : chosen)
                putConstant(*constant, {*compound, equation}, *element++);
        return list.give(values);
    });
}

HRESULT STDMETHODCALLTYPE PropertyPackage::GetCompoundList(VARIANT *compoundIds, VARIANT *formulae, VARIANT *names,
                                                           VARIANT *boilingTemperatures, VARIANT *molecularWeights,
                                                           VARIANT *casNumbers)
{
    return GuardedCall([&]() -> HRESULT {
        if (!compoundIds || !formulae || !names || !boilingTemperatures || !molecularWeights || !casNumbers)
            return E_POINTER;
        Value ids;
        Value formulaTexts;
        Value nameTexts;
        Value casTexts;
        Value boilingNumbers;
        Value weightNumbers;
        double *boiling = boilingNumbers.makeNumbers(static_cast<int>(compounds.size()));
        double *weights = weightNumbers.makeNumbers(static_cast<int>(compounds.size()));
        if (!boiling || !weights || !ids.setTexts(compounds, &CompoundData::id) ||
            !formulaTexts.setTexts(compounds, &CompoundData::formula) ||
            !nameTexts.setTexts(compounds, &CompoundData::iupacName) ||
            !casTexts.setTexts(compounds, &CompoundData::casNumber))
            return E_OUTOFMEMORY;
        for (const CompoundData *compound : compounds) {
            *boiling++ = compound->normalBoilingPoint;
            *weights++ = compound->molecularWeight;
        }
        ids.replace(compoundIds);
        formulaTexts.replace(formulae);
        nameTexts.replace(names);
        boilingNumbers.replace(boilingTemperatures);
        weightNumbers.replace(molecularWeights);
        return casTexts.replace(casNumbers);
    });
}

HRESULT STDMETHODCALLTYPE PropertyPackage::GetConstPropList(VARIANT *properties)
{
    return GuardedCall([&]() -> HRESULT { return giveNames(compoundConstants(), properties); });
}

HRESULT STDMETHODCALLTYPE PropertyPackage::GetNumCompounds(LONG *count)
{
    if (!count)
        return E_POINTER;
    *count = static_cast<LONG>(compounds.size());
    return S_OK;
}

HRESULT PropertyPackage::giveConditioned(const Call &call, const ConditionedProperties &table, double condition,
                                         const VARIANT &properties, const VARIANT &compoundIds, VARIANT *values) const
{
    std::vector<const ConditionedProperty *> rows;
    std::vector<const CompoundData *> chosen;
    if (const HRESULT result = readRows(call, table.rows, properties, rows); FAILED(result))
        return result;
    if (const HRESULT result = readCompounds(call, compoundIds, 3, chosen); FAILED(result))
        return result;
    if (std::isnan(condition))
        return call.refuse(errors::invalidArgument, OLESTR("The ") + wide(table.condition) + OLESTR(" is not a number"),
                           conditionPosition);
    if (!(condition > 0.0) || std::isinf(condition))
        return call.refuseBounds({smallestPositive, largestNumber, condition, table.condition}, conditionPosition,
                                 OLESTR("The ") + wide(table.condition) +
                                     OLESTR(" must be a finite number above zero"));

    Value list;
    double *number = list.makeNumbers(static_cast<int>(rows.size() * chosen.size()));
    if (!number)
        return E_OUTOFMEMORY;
    bool anyKnown = false;
    for (const ConditionedProperty *row : rows)
        for (const CompoundData *compound : chosen) {
            *number =
                row->range(*compound).contains(condition) ? row->value({*compound, equation}, condition) : notKnown;
            anyKnown |= !std::isnan(*number++);
        }
    return anyKnown ? list.replace(values) : refuseUnknown(call, table, condition, *rows[0], *chosen[0]);
}

HRESULT STDMETHODCALLTYPE PropertyPackage::GetPDependentProperty(VARIANT properties, double pressure,
                                                                 VARIANT compoundIds, VARIANT *values)
{
    const Call call{*this, interfaceName, OLESTR("GetPDependentProperty")};
    return GuardedCall([&]() -> HRESULT {
        return values ? giveConditioned(call, pressureDependentProperties(), pressure, properties, compoundIds, values)
                      : E_POINTER;
    });
}

HRESULT STDMETHODCALLTYPE PropertyPackage::GetPDependentPropList(VARIANT *properties)
{
    return GuardedCall([&]() -> HRESULT { return giveNames(pressureDependentProperties().rows, properties); });
}

HRESULT STDMETHODCALLTYPE PropertyPackage::GetTDependentProperty(VARIANT properties, double temperature,
                                                                 VARIANT compoundIds, VARIANT *values)
{
    const Call call{*this, interfaceName, OLESTR("GetTDependentProperty")};
    return GuardedCall([&]() -> HRESULT {
        return values ? giveConditioned(call, temperatureDependentProperties(), temperature, properties, compoundIds,
                                        values)
                      : E_POINTER;
    });
}

HRESULT STDMETHODCALLTYPE PropertyPackage::GetTDependentPropList(VARIANT *properties)
{
    return GuardedCall([&]() -> HRESULT { return giveNames(temperatureDependentProperties().rows, properties); });
}

} // namespace reference
