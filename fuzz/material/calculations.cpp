#include "fuzz/material/calculations.h"

#include "cape/com/bstr.h"

namespace fuzz {

namespace {

void storeInPhase(Client &client, const WideString &property, const MaybeText &label, const MaybeText &basis,
                  model::Numbers numbers)
{
    const ListArgument values(NumberList(std::move(numbers)));
    const HRESULT hr =
        client.material->SetSinglePhaseProp(Bstr(property).get(), Bstr(label ? label->c_str() : nullptr).get(),
                                            Bstr(basis ? basis->c_str() : nullptr).get(), values.get());
    if (client.expected)
        Expect(client, hr, client.expected->setPhase(property, label, basis, values.account));
}

void storeOverall(Client &client, const WideString &property, const MaybeText &basis, model::Numbers numbers)
{
    const ListArgument values(NumberList(std::move(numbers)));
    const HRESULT hr = client.material->SetOverallProp(Bstr(property).get(),
                                                       Bstr(basis ? basis->c_str() : nullptr).get(), values.get());
    if (client.expected)
        Expect(client, hr, client.expected->setOverall(property, basis, values.account));
}

model::Numbers someNumbers(Input &input, std::size_t count)
{
    model::Numbers numbers;
    const bool anyWill = input.chance(24);
    for (std::size_t i = 0; i < count; ++i)
        numbers.push_back(anyWill ? Number(input) : PlainNumber(input));
    return numbers;
}

LPCWSTR basisOf(bool perMass) { return perMass ? u"mass" : u"mole"; }

// As many as the property has, or now and then one more, which the material does not take.
std::size_t countOf(Input &input, const Client &client, const model::Property &property, std::size_t parts)
{
    const std::size_t count = parts * property.count(client.package->compounds.size());
    return input.chance(4) ? count + 1 : count;
}

} // namespace

void StoreSinglePhase(Input &input, Client &client, const std::vector<WideString> &properties, const MaybeText &label)
{
    const bool perMass = input.chance(96);
    for (const WideString &name : properties) {
        model::Property property;
        if (!model::Parse(model::Kind::singlePhase, name, property).empty() || input.chance(8))
            continue;
        const bool isOther = input.chance(12);
        const std::size_t count = countOf(input, client, property, 1);
        storeInPhase(client, name, label,
                     property.basisPower == 0 ? MaybeText() : MaybeText(basisOf(perMass != isOther)),
                     someNumbers(input, count));
    }
}

void StoreTwoPhase(Input &input, Client &client, const std::vector<WideString> &properties,
                   const std::vector<WideString> &labels)
{
    const ListArgument pair(TextList(labels));
    for (const WideString &name : properties) {
        model::Property property;
        if (!model::Parse(model::Kind::twoPhase, name, property).empty() || input.chance(8))
            continue;
        const std::size_t count = countOf(input, client, property, property.isCompositionDerivative() ? 2 : 1);
        const ListArgument values(NumberList(someNumbers(input, count)));
        const HRESULT hr = client.material->SetTwoPhaseProp(Bstr(name).get(), pair.get(), nullptr, values.get());
        if (client.expected)
            Expect(client, hr, client.expected->setTwoPhase(name, pair.account, {}, values.account));
    }
}

void StoreEquilibrium(Input &input, Client &client)
{
    const std::vector<WideString> &labels = client.package->labels;
    const unsigned which = input.byte();
    std::vector<WideString> found;
    for (std::size_t i = 0; i < labels.size(); ++i)
        if (!(which >> i & 1))
            found.push_back(labels[i]);
    const ListArgument present(TextList(found));
    const HRESULT hr = client.material->SetPresentPhases(present.get(), VARIANT{});
    if (client.expected)
        Expect(client, hr, client.expected->setPresent(present.account));

    const bool perMass = input.chance(96);
    for (const WideString &label : found) {
        const unsigned what = input.byte(); // a careless package leaves something out or mixes the bases
        if (what < 248)
            storeInPhase(client, u"fraction", label, WideString(basisOf(perMass != (what < 8))),
                         someNumbers(input, client.package->compounds.size()));
        if (what % 16 != 15)
            storeInPhase(client, u"phaseFraction", label, WideString(basisOf(perMass != (what % 16 == 14))),
                         someNumbers(input, 1));
    }
    const unsigned conditions = input.byte();
    if (conditions % 8 != 7)
        storeOverall(client, u"temperature", {}, someNumbers(input, 1));
    if (conditions < 224)
        storeOverall(client, u"pressure", {}, someNumbers(input, 1));
}

} // namespace fuzz
