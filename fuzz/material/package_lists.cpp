#include "fuzz/material/package_lists.h"

#include <iterator>
#include <limits>

namespace fuzz {

namespace {

constexpr LPCWSTR labels[] = {u"Vapor", u"Liquid", u"Liquid2", u"vapor", u"", u"Overall", u"VAPOR:x", u"\u00C9"};
constexpr LPCWSTR states[] = {u"Vapor", u"Liquid", u"VAPOR", u"Solid", u""};

double anyWeight(Input &input)
{
    constexpr double odd[] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::denorm_min(), 1e300};
    return input.chance(16) ? input.pick(odd) : PlainNumber(input);
}

ListAccount prefixed(const WideString &prefix, std::vector<WideString> texts)
{
    for (WideString &text : texts)
        text.insert(0, prefix);
    return TextList(texts);
}

ListAccount boilingPoints(std::size_t count)
{
    ListAccount points = NumberList({});
    for (std::size_t i = 0; i < count; ++i)
        points.numbers.push_back(273.15 + static_cast<double>(i));
    return points;
}

template <std::size_t Count> HRESULT giveAll(const std::array<ListAccount, Count> &accounts, VARIANT *(&lists)[Count])
{
    for (std::size_t i = 0; i < Count; ++i)
        *lists[i] = ListArgument(accounts[i]).detach();
    return S_OK;
}

} // namespace

model::Package AnyContents(Input &input)
{
    model::Package package;
    const std::size_t compounds = 1 + (1 + input.below(4)) % 4; // mostly two
    for (std::size_t i = 0; i < compounds; ++i) {
        package.compounds.push_back(WideString(u"C") + static_cast<WCHAR>(u'0' + i));
        package.weights.push_back(anyWeight(input));
    }
    const std::size_t phases = 1 + (1 + input.below(4)) % 4;
    for (std::size_t i = 0; i < phases; ++i) {
        const bool isOdd = input.chance(32);
        package.labels.push_back(isOdd ? input.pick(labels) : labels[i % 3]);
        package.states.push_back(isOdd ? input.pick(states) : states[i % 2]);
    }
    return package;
}

std::array<ListAccount, 6> CompoundLists(const model::Package &package)
{
    const std::vector<WideString> &ids = package.compounds;
    return {TextList(ids),
            prefixed(u"formula of ", ids),
            prefixed(u"name of ", ids),
            boilingPoints(ids.size()),
            NumberList(package.weights),
            prefixed(u"number of ", ids)};
}

std::array<ListAccount, 3> PhaseLists(const model::Package &package)
{
    return {TextList(package.labels), TextList(package.states), prefixed(u"key compound of ", package.labels)};
}

HRESULT ListingPackage::getCompoundList(VARIANT *(&lists)[6]) { return giveAll(CompoundLists(contents), lists); }

HRESULT ListingPackage::getPhaseList(VARIANT *(&lists)[3]) { return giveAll(PhaseLists(contents), lists); }

} // namespace fuzz
