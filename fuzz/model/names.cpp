#include "fuzz/model/names.h"

#include <map>

namespace fuzz::model {

namespace {

struct Row {
    int dimensions;
    int basisPower;
    bool isMixable;
    std::initializer_list<LPCWSTR> names;
};

const Row singlePhaseRows[] = {
    {1,
     0,
     false,
     {u"activity", u"activityCoefficient", u"fugacityCoefficient", u"logFugacity", u"logFugacityCoefficient"}},
    {0, 0, false, {u"compressibility"}},
    {0,
     0,
     false,
     {u"compressibilityFactor", u"dissociationConstant", u"meanActivityCoefficient", u"osmoticCoefficient", u"pH",
      u"pOH"}},
    {0, 1, false, {u"density"}},
    {2, 0, false, {u"diffusionCoefficient"}},
    {0, -1, true, {u"enthalpy", u"enthalpyF", u"enthalpyNF", u"gibbsEnergy", u"helmholtzEnergy", u"internalEnergy"}},
    {0, -1, true, {u"entropy", u"entropyF", u"entropyNF"}},
    {0, -1, false, {u"excessEnthalpy", u"excessGibbsEnergy", u"excessHelmholtzEnergy", u"excessInternalEnergy"}},
    {0, -1, false, {u"excessEntropy", u"heatCapacityCp", u"heatCapacityCv", u"excessVolume"}},
    {1, 0, false, {u"fugacity"}},
    {0,
     0,
     false,
     {u"jouleThomsonCoefficient", u"molecularWeight", u"speedOfSound", u"thermalConductivity", u"viscosity"}},
    {0, -1, true, {u"volume"}},
};

const Row twoPhaseRows[] = {
    {1, 0, false, {u"kvalue", u"logKvalue"}},
    {0, 0, false, {u"surfaceTension"}},
};

using Table = std::map<WideString, Property>; // by lower-case name

template <std::size_t Count> Table tableOf(const Row (&rows)[Count])
{
    Table table;
    for (const Row &row : rows)
        for (LPCWSTR name : row.names)
            table[Lower(name)] = {name, row.dimensions, row.basisPower, row.isMixable, Derivative::none};
    return table;
}

struct Suffix {
    LPCWSTR text;
    Derivative derivative;
};

constexpr Suffix suffixes[] = {
    {u"Dtemperature", Derivative::temperature},
    {u"Dpressure", Derivative::pressure},
    {u"Dmoles", Derivative::moles},
    {u"DmolFraction", Derivative::molFraction},
};

bool findSuffix(const WideString &text, Derivative &derivative)
{
    for (const Suffix &suffix : suffixes)
        if (Same(text, suffix.text)) {
            derivative = suffix.derivative;
            return true;
        }
    return false;
}

} // namespace

WideString Lower(WideString text)
{
    for (WCHAR &c : text)
        if (c >= u'A' && c <= u'Z')
            c = static_cast<WCHAR>(c - u'A' + u'a');
    return text;
}

bool Same(const MaybeText &a, const MaybeText &b)
{
    if (!a || !b)
        return (!a || a->empty()) && (!b || b->empty());
    return lstrcmpiW(a->c_str(), b->c_str()) == 0;
}

std::size_t Property::count(std::size_t compounds) const
{
    std::size_t values = 1;
    for (int i = 0; i < dimensions; ++i)
        values *= compounds;
    return values;
}

WideString Parse(Kind kind, const MaybeText &name, Property &property)
{
    static const Table singlePhase = tableOf(singlePhaseRows);
    static const Table twoPhase = tableOf(twoPhaseRows);
    if (!name)
        return u"Property name is empty";
    const std::size_t dot = name->find(u'.');
    const WideString stem = Lower(name->substr(0, dot));
    Derivative derivative = Derivative::none;
    if (dot != WideString::npos) {
        const WideString suffix = name->substr(dot + 1);
        if (!findSuffix(suffix, derivative))
            return u"Invalid or unsuppored derivative \"" + suffix + u"\"";
    }
    const Table &table = kind == Kind::singlePhase ? singlePhase : twoPhase;
    const auto found = table.find(stem);
    if (found == table.end())
        return (kind == Kind::singlePhase ? u"Invalid or unsupported single phase property: "
                                          : u"Invalid or unsupported two-phase property: ") +
               stem;
    property = found->second;
    property.derivative = derivative;
    if (property.isCompositionDerivative() && ++property.dimensions > 2)
        return u"composition derivatives of matrix properties not supported";
    return {};
}

bool IsFlashProperty(const WideString &name, Property &property)
{
    return Parse(Kind::singlePhase, name, property).empty() && property.isMixable &&
           property.derivative == Derivative::none;
}

} // namespace fuzz::model
