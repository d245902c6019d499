#include "reference/package/property_package.h"

#include "cape/com/guarded_call.h"
#include "reference/engine/compounds/nrtl.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace reference {

namespace {

// Scales amounts, which may not be below zero, to sum to one.
bool normalize(const NumberView &amounts, CompoundArray &fractions)
{
    double sum = 0.0;
    for (const double amount : amounts) {
        if (!(amount >= 0.0))
            return false;
        sum += amount;
    }
    if (!(sum > 0.0) || std::isinf(sum))
        return false;
    std::ranges::transform(amounts, fractions.begin(), [&](double amount) { return amount / sum; });
    return true;
}

// Without parameters a mixture would be calculated as an ideal one, which alcohols nearly are with each other and never
// with water.
std::vector<std::pair<int, int>> pairsWithoutParameters(std::span<const CompoundData *const> compounds,
                                                        EquationOfState equation)
{
    std::vector<std::pair<int, int>> pairs;
    if (equation != EquationOfState::nrtl)
        return pairs;
    for (int i = 0; i < static_cast<int>(compounds.size()); ++i)
        for (int j = 0; j < i; ++j) {
            const std::string_view first = compounds[i]->id;
            const std::string_view second = compounds[j]->id;
            if ((first == "water" || second == "water") && !nrtlParameters(first, second).known)
                pairs.emplace_back(i, j);
        }
    return pairs;
}

} // namespace

PropertyPackage::PropertyPackage(const ComponentDescription &description, const PackageDefinition &definition)
    : Component(description), equation(definition.equation)
{
    std::ranges::transform(definition.compounds, std::back_inserter(compounds), reference::findCompound);
    if (compounds.empty())
        for (const CompoundData &compound : compoundTable())
            compounds.push_back(&compound);
}

HRESULT STDMETHODCALLTYPE PropertyPackage::QueryInterface(REFIID iid, void **object)
{
    return Component::QueryInterface(iid, object);
}

void *PropertyPackage::findInterface(REFIID iid)
{
    if (iid == InterfaceId<ICapeThermoMaterialContext>)
        return static_cast<ICapeThermoMaterialContext *>(this);
    if (iid == InterfaceId<ICapeThermoCompounds>)
        return static_cast<ICapeThermoCompounds *>(this);
    if (iid == InterfaceId<ICapeThermoPhases>)
        return static_cast<ICapeThermoPhases *>(this);
    if (iid == InterfaceId<ICapeThermoPropertyRoutine>)
        return static_cast<ICapeThermoPropertyRoutine *>(this);
    if (iid == InterfaceId<ICapeThermoEquilibriumRoutine>)
        return static_cast<ICapeThermoEquilibriumRoutine *>(this);
    if (iid == InterfaceId<ICapeThermoUniversalConstant>)
        return static_cast<ICapeThermoUniversalConstant *>(this);
    return nullptr;
}

HRESULT STDMETHODCALLTYPE PropertyPackage::SetMaterial(IDispatch *object)
{
    const Call call{*this, OLESTR("ICapeThermoMaterialContext"), OLESTR("SetMaterial")};
    return GuardedCall([&]() -> HRESULT {
        if (const HRESULT result = needNoCalculation(call); FAILED(result))
            return result;
        ComPointer<ICapeThermoMaterial> newMaterial;
        ComPointer<ICapeThermoCompounds> list;
        if (FAILED(newMaterial.queryFrom(object)) || FAILED(list.queryFrom(object)))
            return call.refuse(errors::invalidArgument, OLESTR("The object is no material with a list of compounds"),
                               1);

        std::vector<const CompoundData *> chosen;
        if (const HRESULT result = readMaterialCompounds(call, *list.get(), chosen); FAILED(result))
            return result;
        unknownPairs = pairsWithoutParameters(chosen, equation);
        model = MixtureModel::of(chosen, equation);
        material = std::move(newMaterial);
        return S_OK;
    });
}

HRESULT PropertyPackage::readMaterialCompounds(const Call &call, ICapeThermoCompounds &list,
                                               std::vector<const CompoundData *> &chosen) const
{
    Value ids;
    Value casNumbers;
    Value others[4];
    const HRESULT result = list.GetCompoundList(ids.out(), others[0].out(), others[1].out(), others[2].out(),
                                                others[3].out(), casNumbers.out());
    if (FAILED(result))
        return call.refuseFor(errors::failedInitialization, OLESTR("The material does not tell its compounds: "), &list,
                              result);
    TextView names;
    if (!names.open(ids.get()) || names.size() == 0)
        return call.refuse(errors::failedInitialization, OLESTR("The material has no compounds"));
    TextView numbers;
    const bool numbered = numbers.open(casNumbers.get()) && numbers.size() == names.size();
    for (int i = 0; i < names.size(); ++i) {
        const CompoundData *compound = findCompound(names[i], &CompoundData::id);
        if (!compound && numbered)
            compound = findCompound(numbers[i], &CompoundData::casNumber);
        if (!compound)
            return call.refuse(errors::failedInitialization, OLESTR("The package has no compound ") + quoted(names[i]) +
                                                                 OLESTR(", which the material has"));
        if (std::ranges::count(chosen, compound) > 0)
            return call.refuse(errors::failedInitialization,
                               OLESTR("The material has the compound ") + quoted(names[i]) + OLESTR(" twice"));
        chosen.push_back(compound);
    }
    return S_OK;
}

const CompoundData *PropertyPackage::findCompound(BSTR text, std::string_view CompoundData::*column) const
{
    const auto found =
        std::ranges::find_if(compounds, [&](const CompoundData *each) { return sameWord(text, each->*column); });
    return found == compounds.end() ? nullptr : *found;
}

HRESULT STDMETHODCALLTYPE PropertyPackage::UnsetMaterial()
{
    return releaseMaterial({*this, OLESTR("ICapeThermoMaterialContext"), OLESTR("UnsetMaterial")});
}

HRESULT STDMETHODCALLTYPE PropertyPackage::Terminate()
{
    return releaseMaterial({*this, OLESTR("ICapeUtilities"), OLESTR("Terminate")});
}

HRESULT PropertyPackage::releaseMaterial(const Call &call)
{
    return GuardedCall([&]() -> HRESULT {
        const HRESULT result = needNoCalculation(call);
        if (SUCCEEDED(result))
            material.reset();
        return result;
    });
}

HRESULT PropertyPackage::needNoCalculation(const Call &call) const
{
    return calculating ? call.refuseOrder(calculating, OLESTR("A calculation with the material is going on")) : S_OK;
}

HRESULT PropertyPackage::needMaterial(const Call &call) const
{
    return material ? S_OK : call.refuseOrder(OLESTR("SetMaterial"), OLESTR("No material is set"));
}

HRESULT PropertyPackage::ValueSource::refuse(const Call &call, WideString description) const
{
    return isMaterial ? call.refuse(errors::failedInitialization, std::move(description))
                      : call.refuse(errors::invalidArgument, std::move(description), position);
}

HRESULT PropertyPackage::checkCondition(const Call &call, FlashVariable condition, double value,
                                        ValueSource source) const
{
    const FlashLimits limits = flashLimitsOf(condition);
    if (limits.contain(value))
        return S_OK;
    const char *const type = flashVariableName(condition);
    const WideString name = OLESTR("The ") + wide(type);
    if (std::isnan(value))
        return source.refuse(call, name + OLESTR(" is not a number"));
    const LimitsText words(condition, LimitsText::Form::brief);
    return call.refuseBounds({limits.lowest, limits.highest, value, type}, source.position,
                             name + OLESTR(" must be ") + wide(words.text.data()));
}

HRESULT PropertyPackage::readComposition(const Call &call, const VARIANT &amounts, ValueSource source,
                                         CompoundArray &fractions) const
{
    NumberView values;
    if (!values.open(amounts) || values.size() != model.size)
        return source.refuse(
            call, OLESTR("The composition must be an array of one number for each compound of the material"));
    if (!normalize(values, fractions))
        return source.refuse(call, OLESTR("The composition must be numbers that are not negative and not all zero"));
    for (const auto &[first, second] : unknownPairs)
        if (fractions[first] > 0.0 && fractions[second] > 0.0)
            return call.refuse(errors::limitedImplementation,
                               OLESTR("The package has no parameters for ") + wide(model.compounds[first].data->id) +
                                   OLESTR(" together with ") + wide(model.compounds[second].data->id));
    return S_OK;
}

} // namespace reference
