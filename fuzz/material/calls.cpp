#include "fuzz/material/calls.h"

#include "cape/com/bstr.h"
#include "cape/com/variant.h"
#include "fuzz/input.h"

#include <cmath>

namespace fuzz {

namespace {

class TextArgument {
public:
    explicit TextArgument(const MaybeText &text)
    {
        if (text)
            value.take(SysAllocStringLen(text->c_str(), static_cast<UINT>(text->size())));
        seen = Terminated(text);
    }
    BSTR get() const { return value.get(); }

    MaybeText seen; // as a reader of terminated strings sees it

private:
    Bstr value;
};

// An out-parameter: empty, or with a number in it, which is nobody's.
class Result {
public:
    explicit Result(Input &input)
    {
        if (!input.chance(32))
            return;
        value.vt = VT_R8;
        value.dblVal = 4711;
    }
    ~Result() { VariantClear(&value); }
    Result(const Result &) = delete;
    Result &operator=(const Result &) = delete;

    VARIANT *out() { return &value; }

    void expect(HRESULT result, const model::Numbers &values) const
    {
        if (FAILED(result)) {
            FUZZ_CHECK(value.vt == VT_EMPTY || value.vt == VT_R8);
            return;
        }
        ExpectArray(value, VT_R8, values.size());
        const double *numbers = static_cast<const double *>(value.parray->pvData);
        FUZZ_CHECK(model::Close(model::Numbers(numbers, numbers + values.size()), values));
    }

    void expectTexts(const std::vector<WideString> &texts) const
    {
        ExpectArray(value, VT_BSTR, texts.size());
        FUZZ_CHECK(TextsOf(value) == texts);
    }

    void expectZeros(std::size_t count) const
    {
        ExpectArray(value, VT_I4, count);
        const LONG *elements = static_cast<const LONG *>(value.parray->pvData);
        for (std::size_t i = 0; i < count; ++i)
            FUZZ_CHECK(elements[i] == 0);
    }

private:
    VARIANT value{};
};

// The last property and phase that were written, or others.
MaybeText readProperty(Input &input, const Client &client)
{
    return input.chance(96) ? client.lastProperty : PropertyText(input);
}

MaybeText readLabel(Input &input, const Client &client)
{
    return input.chance(96) ? client.lastLabel : LabelText(input, client.package->labels);
}

MaybeText writtenProperty(Input &input, Client &client) { return client.lastProperty = PropertyText(input); }

MaybeText writtenLabel(Input &input, Client &client)
{
    return client.lastLabel = LabelText(input, client.package->labels);
}

// What a call is about: a property, with the basis and the number of values that it takes, mostly.
struct Subject {
    Subject(Input &input, const Client &client, model::Kind kind, const MaybeText &which) : property(which)
    {
        const std::size_t nC = client.package->compounds.size();
        model::Property parsed;
        std::size_t usual = 1;
        bool takesBasis = false;
        if (model::Parse(kind, property.seen, parsed).empty()) {
            usual = parsed.count(nC);
            if (kind == model::Kind::twoPhase && parsed.isCompositionDerivative())
                usual *= 2;
            takesBasis = parsed.basisPower != 0;
        } else if (property.seen && model::Lower(*property.seen).find(u"fraction") != WideString::npos) {
            usual = model::Same(property.seen, u"fraction") ? nC : 1;
            takesBasis = true;
        }
        counts = {usual, usual, usual, usual, usual, usual, 1, nC, nC * nC, 2 * nC, nC + 1};
        if (input.chance(32))
            basis = BasisText(input);
        else if (takesBasis)
            basis = input.chance(128) ? u"mass" : u"mole";
    }

    TextArgument property;
    MaybeText basis;
    std::vector<std::size_t> counts; // of values, as NumbersAccount takes them
};

void setPhase(Input &input, Client &client)
{
    const Subject subject(input, client, model::Kind::singlePhase, writtenProperty(input, client));
    const TextArgument basis(subject.basis);
    const TextArgument label(writtenLabel(input, client));
    const ListArgument values(FromAnyBound(input, NumbersAccount(input, subject.counts)));
    const HRESULT hr =
        client.material->SetSinglePhaseProp(subject.property.get(), label.get(), basis.get(), values.get());
    if (client.expected)
        Expect(client, hr, client.expected->setPhase(subject.property.seen, label.seen, basis.seen, values.account));
}

void setOverall(Input &input, Client &client)
{
    const Subject subject(input, client, model::Kind::singlePhase, writtenProperty(input, client));
    const TextArgument basis(subject.basis);
    const ListArgument values(FromAnyBound(input, NumbersAccount(input, subject.counts)));
    const HRESULT hr = client.material->SetOverallProp(subject.property.get(), basis.get(), values.get());
    if (client.expected)
        Expect(client, hr, client.expected->setOverall(subject.property.seen, basis.seen, values.account));
}

void setTwoPhase(Input &input, Client &client)
{
    const Subject subject(input, client, model::Kind::twoPhase, writtenProperty(input, client));
    const TextArgument basis(subject.basis);
    const ListArgument labels(FromAnyBound(input, LabelsAccount(input, client.package->labels, 2)));
    const ListArgument values(FromAnyBound(input, NumbersAccount(input, subject.counts)));
    const HRESULT hr =
        client.material->SetTwoPhaseProp(subject.property.get(), labels.get(), basis.get(), values.get());
    if (client.expected)
        Expect(client, hr,
               client.expected->setTwoPhase(subject.property.seen, labels.account, basis.seen, values.account));
}

void setPresent(Input &input, Client &client)
{
    const ListArgument labels(FromAnyBound(input, LabelsAccount(input, client.package->labels, 1 + input.below(2))));
    const ListArgument status(AnyAccount(input));
    const HRESULT hr = client.material->SetPresentPhases(labels.get(), status.get());
    if (client.expected)
        Expect(client, hr, client.expected->setPresent(labels.account));
}

void expectValues(const Client &client, const Result &result, HRESULT hr, const model::Answer &answer)
{
    Expect(client, hr, answer);
    result.expect(hr, answer.values);
}

void getPhase(Input &input, Client &client)
{
    const Subject subject(input, client, model::Kind::singlePhase, readProperty(input, client));
    const TextArgument basis(subject.basis);
    const TextArgument label(readLabel(input, client));
    Result result(input);
    const HRESULT hr =
        client.material->GetSinglePhaseProp(subject.property.get(), label.get(), basis.get(), result.out());
    if (client.expected)
        expectValues(client, result, hr, client.expected->getPhase(subject.property.seen, label.seen, basis.seen));
}

void getOverall(Input &input, Client &client)
{
    const Subject subject(input, client, model::Kind::singlePhase, readProperty(input, client));
    const TextArgument basis(subject.basis);
    Result result(input);
    const HRESULT hr = client.material->GetOverallProp(subject.property.get(), basis.get(), result.out());
    if (client.expected)
        expectValues(client, result, hr, client.expected->getOverall(subject.property.seen, basis.seen));
}

void getTwoPhase(Input &input, Client &client)
{
    const Subject subject(input, client, model::Kind::twoPhase, readProperty(input, client));
    const TextArgument basis(subject.basis);
    const ListArgument labels(FromAnyBound(input, LabelsAccount(input, client.package->labels, 2)));
    Result result(input);
    const HRESULT hr =
        client.material->GetTwoPhaseProp(subject.property.get(), labels.get(), basis.get(), result.out());
    if (client.expected)
        expectValues(client, result, hr,
                     client.expected->getTwoPhase(subject.property.seen, labels.account, basis.seen));
}

void expectConditions(const Client &client, const Result &composition, double temperature, double pressure, HRESULT hr,
                      const model::Answer &answer)
{
    Expect(client, hr, answer);
    if (FAILED(hr)) {
        composition.expect(hr, {});
        return;
    }
    FUZZ_CHECK(model::Close({temperature, pressure}, {answer.values[0], answer.values[1]}));
    composition.expect(hr, {answer.values.begin() + 2, answer.values.end()});
}

void getConditions(Input &input, Client &client)
{
    double temperature = -1;
    double pressure = -1;
    Result composition(input);
    const HRESULT hr = client.material->GetOverallTPFraction(&temperature, &pressure, composition.out());
    if (client.expected)
        expectConditions(client, composition, temperature, pressure, hr, client.expected->getOverallConditions());
}

void getPhaseConditions(Input &input, Client &client)
{
    const TextArgument label(LabelText(input, client.package->labels));
    double temperature = -1;
    double pressure = -1;
    Result composition(input);
    const HRESULT hr = client.material->GetTPFraction(label.get(), &temperature, &pressure, composition.out());
    if (client.expected)
        expectConditions(client, composition, temperature, pressure, hr,
                         client.expected->getPhaseConditions(label.seen));
}

void getPresent(Input &input, Client &client)
{
    Result labels(input);
    Result status(input);
    const HRESULT hr = client.material->GetPresentPhases(labels.out(), status.out());
    if (!client.expected)
        return;
    std::vector<WideString> expected;
    Expect(client, hr, client.expected->getPresent(expected));
    if (FAILED(hr))
        return;
    labels.expectTexts(expected);
    status.expectZeros(expected.size());
}

void clear(Input &, Client &client)
{
    const HRESULT hr = client.material->ClearAllProps();
    if (client.expected)
        Expect(client, hr, client.expected->clear());
}

void withoutResult(Input &input, Client &client)
{
    ICapeThermoMaterial &material = *client.material.get();
    const TextArgument text(PropertyText(input));
    const ListArgument labels(LabelsAccount(input, client.package->labels, 2));
    double number = 0;
    Result result(input);
    HRESULT hr = S_OK;
    switch (input.below(9)) {
    case 0:
        hr = material.GetOverallProp(text.get(), nullptr, nullptr);
        break;
    case 1:
        hr = material.GetSinglePhaseProp(text.get(), text.get(), nullptr, nullptr);
        break;
    case 2:
        hr = material.GetTwoPhaseProp(text.get(), labels.get(), nullptr, nullptr);
        break;
    case 3:
        hr = material.GetOverallTPFraction(&number, &number, nullptr);
        break;
    case 4:
        hr = material.GetTPFraction(text.get(), &number, &number, nullptr);
        break;
    case 5:
        hr = material.GetPresentPhases(nullptr, result.out());
        break;
    case 6:
        hr = material.GetPresentPhases(result.out(), nullptr);
        break;
    case 7:
        hr = material.CreateMaterial(nullptr);
        break;
    default:
        hr = material.QueryInterface(InterfaceId<IDispatch>, nullptr);
        break;
    }
    Expect(client, hr, {E_POINTER});
}

using Call = void (*)(Input &, Client &);

constexpr Call calls[] = {setPhase,    setPhase,      setPhase,    getPhase,      getPhase,
                          setOverall,  getOverall,    setTwoPhase, setTwoPhase,   getTwoPhase,
                          getTwoPhase, setPresent,    getPresent,  getConditions, getPhaseConditions,
                          clear,       withoutResult, getOverall,  setOverall,    getPhase};

void print(const char *what, const WideString &text)
{
    std::fprintf(stderr, "%s: ", what);
    for (const WCHAR c : text)
        std::fprintf(stderr, c >= 0x20 && c < 0x7F ? "%c" : "\\x%04X", static_cast<unsigned>(c));
    std::fprintf(stderr, "\n");
}

void expectText(HRESULT hr, const Bstr &text, const WideString &expected)
{
    FUZZ_CHECK(hr == S_OK && text.get());
    const WideString said = TextOf(text.get());
    if (said == expected)
        return;
    print("said", said);
    print("expected", expected);
    std::abort();
}

} // namespace

void Expect(const Client &client, HRESULT result, const model::Answer &answer)
{
    FUZZ_CHECK(result == answer.result);
    if (!client.expected)
        return;
    ComPointer<ECapeRoot> root;
    ComPointer<ECapeUser> user;
    FUZZ_CHECK(root.queryFrom(client.material.get()) == S_OK && user.queryFrom(client.material.get()) == S_OK);
    const model::ErrorWords &words = client.expected->words;
    Bstr text;
    expectText(root->get_name(text.out()), text, words.name);
    expectText(user->get_description(text.out()), text, words.description);
    expectText(user->get_interfaceName(text.out()), text, words.interfaceName);
    expectText(user->get_scope(text.out()), text, words.scope);
}

void ExpectArray(const VARIANT &list, VARTYPE type, std::size_t count)
{
    FUZZ_CHECK(list.vt == (VT_ARRAY | type));
    VARTYPE elementType = VT_EMPTY;
    FUZZ_CHECK(list.parray && SafeArrayGetVartype(list.parray, &elementType) == S_OK && elementType == type);
    FUZZ_CHECK(list.parray->cDims == 1 && list.parray->cLocks == 0);
    FUZZ_CHECK(list.parray->rgsabound[0].lLbound == 0 && list.parray->rgsabound[0].cElements == count);
}

void CallMaterial(Input &input, Client &client) { input.pick(calls)(input, client); }

void CopyMaterial(Client &target, IUnknown *source, const model::Material *expectedSource)
{
    IDispatch *given = static_cast<IDispatch *>(source);
    const HRESULT hr = target.material->CopyFromMaterial(&given);
    if (!target.expected)
        return;
    Expect(target, hr, target.expected->copyFrom(expectedSource));
}

} // namespace fuzz
