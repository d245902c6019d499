#include "reference/package/compound_constants.h"
#include "reference/package/property_package.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace reference {

namespace {

constexpr auto interfaceName = OLESTR("ICapeThermoCompounds");

// The rows of a table that an argument names.
template <class Row> HRESULT readRows(const Component::Call &call, std::span<const Row> table, const VARIANT &argument,
                                      std::vector<const Row *> &chosen)
{
    TextView names;
    if (!names.open(argument) || names.size() == 0)
        return call.refuse(errors::invalidArgument, OLESTR("The properties must be an array of one name or more"));
    for (const BSTR name : names) {
        const auto row = std::ranges::find_if(table, [&](const Row &each) { return sameWord(name, each.name); });
        if (row == table.end())
            return call.refuse(errors::limitedImplementation,
                               OLESTR("Compounds have no property ") + quoted(name) + OLESTR(" here"));
        chosen.push_back(&*row);
    }
    return S_OK;
}

// One element of a list of constants: undefined stays empty.
void putConstant(const CompoundConstant &constant, const CompoundData &compound, VARIANT &element)
{
    Value value;
    if (constant.text)
        value.setText(constant.text(compound));
    else if (const double number = constant.number(compound); !std::isnan(number))
        value.setNumber(number);
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

} // namespace

HRESULT PropertyPackage::readCompounds(const Call &call, const VARIANT &argument,
                                       std::vector<const CompoundData *> &chosen) const
{
    if (argument.vt == VT_EMPTY) {
        chosen = compounds;
        return S_OK;
    }
    TextView ids;
    if (!ids.open(argument))
        return call.refuse(errors::invalidArgument, OLESTR("The compounds must be an array of ids, or empty for all"));
    for (const BSTR id : ids) {
        const CompoundData *compound = findCompound(id, &CompoundData::id);
        if (!compound)
            return call.refuse(errors::invalidArgument, OLESTR("There is no compound ") + quoted(id));
        chosen.push_back(compound);
    }
    return S_OK;
}

HRESULT STDMETHODCALLTYPE PropertyPackage::GetCompoundConstant(VARIANT properties, VARIANT compoundIds, VARIANT *values)
{
    const Call call{*this, interfaceName, OLESTR("GetCompoundConstant")};
    if (!values)
        return E_POINTER;
    VariantInit(values);
    std::vector<const CompoundConstant *> constants;
    std::vector<const CompoundData *> chosen;
    if (const HRESULT result = readRows(call, compoundConstants(), properties, constants); FAILED(result))
        return result;
    if (const HRESULT result = readCompounds(call, compoundIds, chosen); FAILED(result))
        return result;

    Value list;
    VARIANT *element = list.makeVariants(static_cast<int>(constants.size() * chosen.size()));
    if (!element)
        return E_OUTOFMEMORY;
    for (const CompoundConstant *constant : constants)
        for (const CompoundData *compound : chosen)
            putConstant(*constant, *compound, *element++);
    return list.give(values);
}

HRESULT STDMETHODCALLTYPE PropertyPackage::GetCompoundList(VARIANT *compoundIds, VARIANT *formulae, VARIANT *names,
                                                           VARIANT *boilingTemperatures, VARIANT *molecularWeights,
                                                           VARIANT *casNumbers)
{
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
}

HRESULT STDMETHODCALLTYPE PropertyPackage::GetConstPropList(VARIANT *properties)
{
    return giveNames(compoundConstants(), properties);
}

HRESULT STDMETHODCALLTYPE PropertyPackage::GetNumCompounds(LONG *count)
{
    if (!count)
        return E_POINTER;
    *count = static_cast<LONG>(compounds.size());
    return S_OK;
}

HRESULT STDMETHODCALLTYPE PropertyPackage::GetPDependentProperty(VARIANT, double, VARIANT, VARIANT *values)
{
    const Call call{*this, interfaceName, OLESTR("GetPDependentProperty")};
    if (!values)
        return E_POINTER;
    return call.refuse(errors::noImplementation, OLESTR("There are no pressure-dependent properties"));
}

HRESULT STDMETHODCALLTYPE PropertyPackage::GetPDependentPropList(VARIANT *properties)
{
    if (!properties)
        return E_POINTER;
    VariantInit(properties);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE PropertyPackage::GetTDependentProperty(VARIANT properties, double temperature,
                                                                 VARIANT compoundIds, VARIANT *values)
{
    const Call call{*this, interfaceName, OLESTR("GetTDependentProperty")};
    if (!values)
        return E_POINTER;
    std::vector<const TemperatureDependentProperty *> rows;
    std::vector<const CompoundData *> chosen;
    if (const HRESULT result = readRows(call, temperatureDependentProperties(), properties, rows); FAILED(result))
        return result;
    if (const HRESULT result = readCompounds(call, compoundIds, chosen); FAILED(result))
        return result;
    if (const HRESULT result = checkTemperature(call, temperature); FAILED(result))
        return result;

    Value list;
    double *number = list.makeNumbers(static_cast<int>(rows.size() * chosen.size()));
    if (!number)
        return E_OUTOFMEMORY;
    for (const TemperatureDependentProperty *row : rows)
        for (const CompoundData *compound : chosen)
            *number++ = row->value(*compound, temperature);
    return list.replace(values);
}

HRESULT STDMETHODCALLTYPE PropertyPackage::GetTDependentPropList(VARIANT *properties)
{
    return giveNames(temperatureDependentProperties(), properties);
}

} // namespace reference
