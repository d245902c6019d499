#include "fuzz/reference_package/choices.h"

#include "fuzz/automation.h"
#include "reference/engine/compounds/compound_data.h"
#include "reference/engine/equilibrium/flash_types.h"
#include "reference/package/compound_constants.h"
#include "reference/package/property_name.h"

#include <cmath>
#include <string>
#include <utility>
#include <vector>

using namespace reference;

namespace fuzz {

namespace {

// Every name of a property that a package has.
const std::vector<std::string> &propertyNames()
{
    static const std::vector<std::string> names = [] {
        std::vector<std::string> list;
        for (const QuantityShape &shape : phaseQuantities())
            addNames(shape, list);
        for (const QuantityShape &shape : pairQuantities())
            addNames(shape, list);
        for (const CompoundConstant &row : compoundConstants())
            list.emplace_back(row.name);
        for (const ConditionedProperties *table : {&temperatureDependentProperties(), &pressureDependentProperties()})
            for (const ConditionedProperty &row : table->rows)
                list.emplace_back(row.name);
        return list;
    }();
    return names;
}

} // namespace

WideString Wide(std::string_view ascii) { return WideString(ascii.begin(), ascii.end()); }

bool Seldom(FuzzedDataProvider &input) { return input.ConsumeIntegralInRange(0, 15) == 0; }

WideString AnyWord(FuzzedDataProvider &input, std::initializer_list<const char *> words)
{
    if (Seldom(input))
        return AnyText(input, 12);
    return Wide(words.begin()[input.ConsumeIntegralInRange<std::size_t>(0, words.size() - 1)]);
}

WideString AnyPropertyName(FuzzedDataProvider &input)
{
    const std::vector<std::string> &names = propertyNames();
    return Seldom(input) ? AnyText(input, 12)
                         : Wide(names[input.ConsumeIntegralInRange<std::size_t>(0, names.size() - 1)]);
}

WideString AnyLabel(FuzzedDataProvider &input)
{
    return AnyWord(input, {"Vapor", "Liquid", "Liquid2", "vapor", "Overall", ""});
}

WideString AnySolutionType(FuzzedDataProvider &input)
{
    return AnyWord(input, {"", "Unspecified", "Normal", "Retrograde"});
}

double AnyTemperature(FuzzedDataProvider &input)
{
    switch (input.ConsumeIntegralInRange(0, 5)) {
    case 0:
        return AnyNumber(input);
    case 1:
        return input.ConsumeBool() ? lowestFlashTemperature : highestFlashTemperature;
    default:
        return input.ConsumeIntegralInRange<int>(200, 15000) / 10.0;
    }
}

double AnyPressure(FuzzedDataProvider &input)
{
    switch (input.ConsumeIntegralInRange(0, 5)) {
    case 0:
        return AnyNumber(input);
    case 1:
        return input.ConsumeBool() ? lowestFlashPressure : highestFlashPressure;
    default:
        return std::exp(input.ConsumeIntegralInRange<int>(-460, 1842) / 100.0); // 0.01 to 1e8 Pa
    }
}

double AnyAmount(FuzzedDataProvider &input)
{
    return Seldom(input) ? AnyNumber(input) : input.ConsumeIntegral<std::uint8_t>() / 255.0;
}

VARIANT AnyPropertyList(FuzzedDataProvider &input)
{
    if (Seldom(input))
        return OddValue(input);
    std::vector<WideString> names(input.ConsumeIntegralInRange<std::size_t>(1, 3));
    for (WideString &name : names)
        name = AnyPropertyName(input);
    return NewTexts(input, names);
}

VARIANT AnyCompoundList(FuzzedDataProvider &input)
{
    if (Seldom(input))
        return OddValue(input);
    if (input.ConsumeBool())
        return VARIANT{};
    std::vector<WideString> ids(input.ConsumeIntegralInRange<std::size_t>(1, 3));
    for (WideString &id : ids)
        id = Wide(compoundTable()[input.ConsumeIntegralInRange<std::size_t>(0, compoundTable().size() - 1)].id);
    return NewTexts(input, ids);
}

VARIANT AnyLabelPair(FuzzedDataProvider &input)
{
    if (Seldom(input))
        return OddValue(input);
    std::vector<WideString> labels = {OLESTR("Vapor"), OLESTR("Liquid"), OLESTR("Liquid2")};
    std::swap(labels[0], labels[input.ConsumeIntegralInRange<std::size_t>(0, 2)]);
    labels.pop_back();
    if (Seldom(input))
        labels[0] = AnyLabel(input);
    return NewTexts(input, labels);
}

VARIANT AnySpecification(FuzzedDataProvider &input)
{
    if (Seldom(input))
        return OddValue(input);
    std::vector<WideString> parts = {
        AnyWord(input, {"temperature", "pressure", "phaseFraction", "enthalpy", "enthalpyF", "enthalpyNF", "entropy",
                        "entropyF", "volume", "internalEnergy", "gibbsEnergy", "helmholtzEnergy"}),
        AnyWord(input, {"", "mole", "mass"}),
    };
    parts.push_back(
        AnyWord(input, {parts[0] == OLESTR("phaseFraction") ? "Vapor" : "Overall", "Overall", "Liquid", "Liquid2"}));
    if (Seldom(input))
        parts.pop_back();
    else if (Seldom(input))
        parts.emplace_back(OLESTR("methane"));
    return NewTexts(input, parts);
}

} // namespace fuzz
