#include "fuzz/material/record.h"

#include "fuzz/support/list_argument.h"
#include "material/ensure_material.h"

#include <limits>
#include <utility>

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

} // namespace

model::Package PackageLists(Input &input)
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

HRESULT PlainPackage::getCompoundList(VARIANT *(&lists)[6])
{
    for (std::size_t i = 0; i < 6; ++i)
        *lists[i] = ListArgument(i == 3 || i == 4 ? NumberList(package.weights) : TextList(package.compounds)).detach();
    return S_OK;
}

HRESULT PlainPackage::getPhaseList(VARIANT *(&lists)[3])
{
    *lists[0] = ListArgument(TextList(package.labels)).detach();
    *lists[1] = ListArgument(TextList(package.states)).detach();
    *lists[2] = ListArgument(TextList(package.states)).detach();
    return S_OK;
}

HRESULT PlainPackage::setMaterial(IDispatch *given)
{
    given->AddRef();
    material.attach(given);
    return S_OK;
}

Record::Record(Input &input) : contents(PackageLists(input)), record(std::make_unique<OpenPackage>())
{
    package.query(InterfaceId<IDispatch>, reinterpret_cast<void **>(&record->package));
    FUZZ_CHECK(EnsureMaterial(*record));
    FUZZ_CHECK(package.material);
}

Record::~Record()
{
    close();
    package.material.reset();
    FUZZ_CHECK(package.references() == 0);
}

void Record::close()
{
    record.reset();
    contents.isClosed = true;
}

} // namespace fuzz
