#include "cape/com/bstr.h"
#include "fuzz/calculation/play.h"
#include "fuzz/input.h"
#include "fuzz/material/calculations.h"

namespace fuzz {

namespace {

CalculationPackage *present = nullptr;

struct Failure {
    HRESULT result;
    LPCWSTR text; // without words of the package
    bool asks;    // whether the package is asked for its words
};

constexpr Failure failures[] = {
    {static_cast<HRESULT>(0x8004050Bu), u"computation error", true},
    {static_cast<HRESULT>(0x80040501u), u"Failed to get error name for ECapeUnknown", true},
    {static_cast<HRESULT>(0x8004051Au),
     u"One or more of the requested thermodynamic properties are not set on the material", true},
    {static_cast<HRESULT>(0x8004051Bu), u"error code 0x8004051B", false},
    {static_cast<HRESULT>(0x80040500u), u"error code 0x80040500", false},
    {static_cast<HRESULT>(0xA0040001u), u"error code 0xA0040001", false},
};

void expectSpecification(const VARIANT &list, const std::vector<MaybeText> &expected)
{
    const std::vector<WideString> texts = TextsOf(list);
    FUZZ_CHECK(texts.size() == expected.size());
    const BSTR *elements = static_cast<const BSTR *>(list.parray->pvData);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        FUZZ_CHECK(!elements[i] == !expected[i]);
        FUZZ_CHECK(texts[i] == expected[i].value_or(WideString()));
    }
}

} // namespace

CalculationPackage::CalculationPackage(Input &bytes) : ListingPackage(bytes), input(bytes)
{
    client.package = &contents;
    present = this;
}

CalculationPackage::~CalculationPackage()
{
    present = nullptr;
    FUZZ_CHECK(references() == 0);
}

HRESULT CalculationPackage::create(ComponentKind, REFIID iid, void **object) { return present->query(iid, object); }

HRESULT CalculationPackage::setMaterial(IDispatch *material)
{
    FUZZ_CHECK(client.material.queryFrom(material) == S_OK);
    return S_OK;
}

const model::ExpectedCall &CalculationPackage::called(model::ExpectedCall::Method method)
{
    const model::ExpectedCall *call = command->nextCall();
    FUZZ_CHECK(call && call->method == method);
    useMaterial();
    return *call;
}

// Reads tell what the command has written there.
void CalculationPackage::useMaterial()
{
    for (unsigned i = input.chance(64) ? input.below(4) : 0; i > 0; --i)
        CallMaterial(input, client);
}

HRESULT CalculationPackage::ended()
{
    const unsigned choice = input.byte();
    if (choice < 236) {
        const HRESULT hr = choice < 224 ? S_OK : S_FALSE;
        command->callEnded(hr, {});
        return hr;
    }
    const Failure &failure = input.pick(failures);
    description = input.chance(128) ? MaybeText(u"it said why") : MaybeText();
    name = input.chance(128) ? MaybeText(u"Its Name") : MaybeText();
    if (input.chance(32))
        description = WideString();
    WideString words = failure.text;
    if (failure.asks && description && !description->empty())
        words = *description;
    else if (failure.asks && name)
        words = *name;
    command->callEnded(failure.result, words);
    return failure.result;
}

HRESULT CalculationPackage::getText(const char *method, BSTR *text)
{
    const MaybeText &said =
        WideString(method, method + std::char_traits<char>::length(method)) == u"get_description" ? description : name;
    *text = said ? SysAllocString(said->c_str()) : nullptr;
    return S_OK;
}

HRESULT CalculationPackage::calcSinglePhaseProp(const VARIANT &properties, BSTR label)
{
    const model::ExpectedCall &call = called(model::ExpectedCall::Method::singlePhase);
    FUZZ_CHECK(TextsOf(properties) == call.names);
    FUZZ_CHECK(TextOf(label) == call.labels[0]);
    StoreSinglePhase(input, client, call.names, call.labels[0]);
    return ended();
}

HRESULT CalculationPackage::calcTwoPhaseProp(const VARIANT &properties, const VARIANT &labels)
{
    const model::ExpectedCall &call = called(model::ExpectedCall::Method::twoPhase);
    FUZZ_CHECK(TextsOf(properties) == call.names);
    FUZZ_CHECK(TextsOf(labels) == call.labels);
    StoreTwoPhase(input, client, call.names, call.labels);
    return ended();
}

HRESULT CalculationPackage::calcEquilibrium(const VARIANT &specification1, const VARIANT &specification2,
                                            BSTR solutionType)
{
    const model::ExpectedCall &call = called(model::ExpectedCall::Method::equilibrium);
    expectSpecification(specification1, call.specification1);
    expectSpecification(specification2, call.specification2);
    FUZZ_CHECK(TextOf(solutionType) == call.solutionType);
    StoreEquilibrium(input, client);
    return ended();
}

} // namespace fuzz
