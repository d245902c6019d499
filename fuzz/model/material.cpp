#include "fuzz/model/material.h"

#include <cmath>
#include <limits>

namespace fuzz::model {

namespace {

constexpr HRESULT refused = static_cast<HRESULT>(0x80040501u);
constexpr double notSet = std::numeric_limits<double>::quiet_NaN();
constexpr LPCWSTR materialObject = u"ICapeThermoMaterialObject";

// The name in lower case when it is one that stands for a field, else empty.
WideString reservedName(const MaybeText &property)
{
    if (!property)
        return {};
    const WideString stem = Lower(property->substr(0, property->find(u'.')));
    for (LPCWSTR name : {u"temperature", u"pressure", u"flow", u"totalflow", u"fraction", u"phasefraction"})
        if (stem == name && Same(property, name))
            return name;
    return {};
}

WideString invalidPhase(const MaybeText &label) { return u"Invalid phase: " + (label ? *label : WideString(u"NULL")); }

// A list that is exactly an array of the type, and really is one.
WideString takeArray(const ListAccount &list, VARTYPE type, LPCWSTR typeName, bool &hasElements)
{
    hasElements = false;
    if (list.type == VT_EMPTY)
        return {};
    if (list.type != (VT_ARRAY | type))
        return u"Expected an array of type " + WideString(typeName);
    if (list.isNull || list.dimensions != 1)
        return u"unexpected dimension; 1-dimensional array expected";
    if (list.elementType != type)
        return u"Expected an array of type " + WideString(typeName);
    hasElements = true;
    return {};
}

} // namespace

struct Material::Place {
    Phase &phase;
    Store &store;
    LPCWSTR scope;
    int index; // -1: Overall
};

WideString TakeNumbers(const ListAccount &list, Numbers &numbers)
{
    bool hasElements = false;
    WideString reason = takeArray(list, VT_R8, u"double precision", hasElements);
    if (hasElements)
        numbers = list.numbers;
    return reason;
}

WideString TakeTexts(const ListAccount &list, std::vector<MaybeText> &texts)
{
    bool hasElements = false;
    WideString reason = takeArray(list, VT_BSTR, u"string", hasElements);
    if (hasElements)
        for (const MaybeText &text : list.texts)
            texts.push_back(Terminated(text));
    return reason;
}

Material::Material(const Package &itsPackage)
    : package(&itsPackage), phases(itsPackage.labels.size()), stores(itsPackage.labels.size())
{
    forget();
}

bool Material::isClosed(LPCWSTR interfaceName, LPCWSTR scope, Answer &refusal)
{
    if (package->isClosed)
        refusal = refuse(u"Invalid material", u"The property package of this material object has been closed",
                         interfaceName, scope);
    return package->isClosed;
}

Answer Material::clear()
{
    if (Answer refusal; isClosed(u"ICapeThermoMaterial", u"ClearAllProps", refusal))
        return refusal;
    forget();
    return {};
}

void Material::forget()
{
    temperature = notSet;
    pressure = notSet;
    overall.composition.assign(compoundCount(), notSet);
    overallStore.clear();
    for (Phase &phase : phases) {
        phase.composition.assign(compoundCount(), notSet);
        phase.fraction = notSet;
        phase.isPresent = false;
    }
    for (Store &store : stores)
        store.clear();
}

Answer Material::copyFrom(const Material *source)
{
    if (Answer refusal; isClosed(u"ICapeThermoMaterial", u"CopyFromMaterial", refusal))
        return refusal;
    if (!source)
        return refuse(u"Not a Matlab material",
                      u"Cannot copy from the specified material object: not a Matlab thermo material object",
                      u"ICapeThermoMaterial", u"CopyFromMaterial");
    if (source->package != package)
        return refuse(u"Invalid copy", u"Source material is not of same type", u"ICapeThermoMaterial",
                      u"CopyFromMaterial");
    if (source == this) { // what is to be copied has been cleared before
        forget();
        return {};
    }
    temperature = source->temperature;
    pressure = source->pressure;
    overall = source->overall;
    phases = source->phases;
    overallStore = source->overallStore;
    stores = source->stores;
    return {};
}

Answer Material::refuse(const WideString &name, const WideString &description, LPCWSTR interfaceName, LPCWSTR scope)
{
    words = {name, description, interfaceName, scope};
    return {refused};
}

int Material::phaseIndex(const MaybeText &label) const
{
    if (label)
        for (std::size_t i = 0; i < package->labels.size(); ++i)
            if (Same(label, package->labels[i]))
                return static_cast<int>(i);
    return -1;
}

bool Material::takeBasis(const Place &place, const MaybeText &text, Basis &basis, Answer &refusal)
{
    if (!text || text->empty())
        basis = Basis::none;
    else if (Same(text, u"mole"))
        basis = Basis::mole;
    else if (Same(text, u"mass"))
        basis = Basis::mass;
    else {
        refusal = refuse(u"Invalid basis", u"Invalid or unsupported basis: " + *text, materialObject, place.scope);
        return false;
    }
    return true;
}

bool Material::takePair(const Place &place, const ListAccount &labels, int (&pair)[2], WideString &second,
                        Answer &refusal)
{
    std::vector<MaybeText> texts;
    const WideString reason = TakeTexts(labels, texts);
    if (!reason.empty()) {
        refusal = refuse(u"Phase error: ", u"Invalid specification of phases: " + reason, materialObject, place.scope);
        return false;
    }
    if (texts.size() != 2) {
        refusal = refuse(u"Phase error: ", u"Invalid number of phase identifiers", materialObject, place.scope);
        return false;
    }
    for (int i = 0; i < 2; ++i) {
        pair[i] = phaseIndex(texts[static_cast<std::size_t>(i)]);
        if (pair[i] < 0) {
            refusal =
                refuse(u"Invalid phase", invalidPhase(texts[static_cast<std::size_t>(i)]), materialObject, place.scope);
            return false;
        }
    }
    second = *texts[1];
    return true;
}

// --- reading ---

Answer Material::readFractions(const Place &place, bool perMass)
{
    Numbers fractions = place.phase.composition;
    if (AnyMissing(fractions))
        return refuse(u"Missing values", u"One or more missing values for composition", materialObject, place.scope);
    if (perMass != place.phase.compositionPerMass) {
        const auto convert = perMass ? FractionsToMass : FractionsToMole;
        const WideString reason = convert(package->weights, fractions, fractions);
        if (!reason.empty())
            return refuse(u"Conversion error", reason, materialObject, place.scope);
    }
    return {S_OK, fractions};
}

Answer Material::readReserved(const Place &place, Basis basis, const WideString &lowerName)
{
    const auto no = [&](LPCWSTR name, const WideString &description) {
        return refuse(name, description, materialObject, place.scope);
    };
    if (lowerName == u"temperature" || lowerName == u"pressure") {
        const bool isTemperature = lowerName == u"temperature";
        if (basis != Basis::none)
            return no(u"Invalid basis", u"Invalid basis for " + lowerName + u"; no basis expected");
        const double value = isTemperature ? temperature : pressure;
        if (IsMissing(value))
            return no(u"Missing value", isTemperature ? u"Temperature is not set" : u"Pressure is not set");
        return {S_OK, {value}};
    }
    if (lowerName == u"flow")
        return no(u"Not supported", u"Flow is not supported by this material object");
    if (lowerName == u"totalflow")
        return no(u"Not supported", u"Total flow is not supported by this material object");
    if (lowerName == u"fraction") {
        if (basis == Basis::none)
            return no(u"Invalid basis", u"Invalid basis for fraction; expected mole or mass basis");
        return readFractions(place, basis == Basis::mass);
    }
    if (place.index < 0)
        return no(u"Not supported", u"Phase fraction is not supported for the Overall phase");
    if (basis == Basis::none)
        return no(u"Invalid basis", u"Invalid basis for phase fraction; expected mole or mass basis");
    double fraction = place.phase.fraction;
    if (IsMissing(fraction))
        return no(u"Missing values", u"phase fraction is not set");
    if ((basis == Basis::mass) != place.phase.fractionPerMass) {
        const auto convert = basis == Basis::mass ? PhaseFractionToMass : PhaseFractionToMole;
        const WideString reason = convert(package->weights, phases, static_cast<std::size_t>(place.index), fraction);
        if (!reason.empty())
            return no(u"Conversion error", reason);
    }
    return {S_OK, {fraction}};
}

Answer Material::readStored(const Place &place, Basis basis, const MaybeText &property)
{
    const auto no = [&](LPCWSTR name, const WideString &description) {
        return refuse(name, description, materialObject, place.scope);
    };
    Property parsed;
    WideString reason = Parse(Kind::singlePhase, property, parsed);
    if (!reason.empty())
        return no(u"Invalid property", reason);
    const auto found = place.store.find(Lower(*property));
    if (found == place.store.end())
        return no(u"No values", u"Values not set for property " + *property);
    const Entry &entry = found->second;
    if (parsed.basisPower == 0) {
        if (basis != Basis::none)
            return no(u"Invalid property", u"Invalid basis for " + *property + u"; expected no basis");
        return {S_OK, entry.values};
    }
    if (basis == Basis::none)
        return no(u"Invalid property", u"Invalid basis for " + *property + u"; expected mole or mass basis");
    Numbers values = entry.values;
    if ((basis == Basis::mass) != entry.perMass) {
        const int power = basis == Basis::mass ? parsed.basisPower : -parsed.basisPower;
        reason =
            ConvertValues(package->weights, place.phase.composition, place.phase.compositionPerMass, power, 0, values);
        if (!reason.empty())
            return no(u"Basis conversion error", reason);
    }
    return {S_OK, values};
}

Answer Material::getOverall(const MaybeText &property, const MaybeText &basisText)
{
    if (Answer refusal; isClosed(materialObject, u"GetOverallProp", refusal))
        return refusal;
    const Place place{overall, overallStore, u"GetOverallProp", -1};
    Basis basis = Basis::none;
    Answer refusal;
    if (!takeBasis(place, basisText, basis, refusal))
        return refusal;
    const WideString reserved = reservedName(property);
    return reserved.empty() ? readStored(place, basis, property) : readReserved(place, basis, reserved);
}

Answer Material::getPhase(const MaybeText &property, const MaybeText &label, const MaybeText &basisText)
{
    if (Answer refusal; isClosed(materialObject, u"GetSingleProp", refusal))
        return refusal;
    const LPCWSTR scope = u"GetSingleProp";
    Basis basis = Basis::none;
    Answer refusal;
    if (!takeBasis({overall, overallStore, scope, -1}, basisText, basis, refusal))
        return refusal;
    const int index = phaseIndex(label);
    if (index < 0)
        return refuse(u"Invalid phase", invalidPhase(label), materialObject, scope);
    const std::size_t i = static_cast<std::size_t>(index);
    if (!phases[i].isPresent)
        return refuse(u"Invalid phase", u"Phase not present", materialObject, scope);
    const Place place{phases[i], stores[i], scope, index};
    const WideString reserved = reservedName(property);
    return reserved.empty() ? readStored(place, basis, property) : readReserved(place, basis, reserved);
}

Answer Material::getTwoPhase(const MaybeText &property, const ListAccount &labels, const MaybeText &basis)
{
    if (Answer refusal; isClosed(materialObject, u"GetTwoPhaseProp", refusal))
        return refusal;
    const LPCWSTR scope = u"GetTwoPhaseProp";
    int pair[2];
    WideString second;
    Answer refusal;
    if (!takePair({overall, overallStore, scope, -1}, labels, pair, second, refusal))
        return refusal;
    if (!property)
        return refuse(u"Invalid property", u"Invalid property: NULL", materialObject, scope);
    const Store &store = stores[static_cast<std::size_t>(pair[0])];
    const auto found = store.find(Lower(second + u":" + *property));
    if (found == store.end())
        return refuse(u"No values", u"No values for property " + *property, materialObject, scope);
    if (basis && !basis->empty())
        return refuse(u"Invalid basis", u"Expected no basis", materialObject, scope);
    return {S_OK, found->second.values};
}

Answer Material::readConditions(const Place &place, LPCWSTR conditionScope)
{
    if (IsMissing(temperature))
        return refuse(u"Missing value", u"Temperature is not set", materialObject, conditionScope);
    if (IsMissing(pressure))
        return refuse(u"Missing value", u"Pressure is not set", materialObject, conditionScope);
    Answer answer = readFractions(place, false);
    if (answer.result == S_OK)
        answer.values.insert(answer.values.begin(), {temperature, pressure});
    return answer;
}

Answer Material::getOverallConditions()
{
    if (Answer refusal; isClosed(materialObject, u"GetOverallTPFraction", refusal))
        return refusal;
    return readConditions({overall, overallStore, u"GetOverallProp", -1}, u"GetOverallTPFraction");
}

Answer Material::getPhaseConditions(const MaybeText &label)
{
    if (Answer refusal; isClosed(materialObject, u"GetTPFraction", refusal))
        return refusal;
    const LPCWSTR scope = u"GetTPFraction";
    const int index = phaseIndex(label);
    if (index < 0)
        return refuse(u"Invalid phase", invalidPhase(label), materialObject, scope);
    const std::size_t i = static_cast<std::size_t>(index);
    if (!phases[i].isPresent)
        return refuse(u"Invalid phase", u"Phase not present", materialObject, scope);
    return readConditions({phases[i], stores[i], scope, index}, scope);
}

Answer Material::getPresent(std::vector<WideString> &labels)
{
    if (Answer refusal; isClosed(u"ICapeThermoMaterial", u"GetPresentPhases", refusal))
        return refusal;
    for (std::size_t i = 0; i < phases.size(); ++i)
        if (phases[i].isPresent)
            labels.push_back(package->labels[i]);
    return {};
}

// --- writing ---

Answer Material::writeReserved(const Place &place, Basis basis, const WideString &lowerName, const Numbers &values)
{
    const auto no = [&](LPCWSTR name, const WideString &description) {
        return refuse(name, description, materialObject, place.scope);
    };
    if (lowerName == u"temperature" || lowerName == u"pressure") {
        if (basis != Basis::none)
            return no(u"Invalid basis", u"Invalid basis for " + lowerName + u"; no basis expected");
        if (values.size() != 1)
            return no(u"Invalid values", u"Invalid number of values for " + lowerName + u": scalar expected");
        (lowerName == u"temperature" ? temperature : pressure) = values[0];
        if (IsMissing(values[0]))
            return no(u"Invalid values", u"Invalid value for " + lowerName + u", NaN");
        return {};
    }
    if (lowerName == u"flow")
        return no(u"Not supported", u"Flow is not supported by this material object");
    if (lowerName == u"totalflow")
        return no(u"Not supported", u"Total flow is not supported by this material object");
    if (lowerName == u"fraction") {
        if (basis == Basis::none)
            return no(u"Invalid basis", u"Invalid basis for fraction; expected mole or mass basis");
        if (values.size() != compoundCount())
            return no(u"Invalid values",
                      u"Invalid number of values for fraction: expected one value for each compound");
        for (std::size_t i = 0; i < values.size(); ++i) {
            place.phase.composition[i] = values[i];
            if (IsMissing(values[i]))
                return no(u"Invalid values", u"Invalid values, one or more missing values");
        }
        place.phase.compositionPerMass = basis == Basis::mass;
        return {};
    }
    if (place.index < 0)
        return no(u"Not supported", u"Phase fraction is not supported for the Overall phase");
    if (basis == Basis::none)
        return no(u"Invalid basis", u"Invalid basis for phase fraction; mole or mass basis expected");
    if (values.size() != 1)
        return no(u"Invalid values", u"Invalid number of values for phase fraction: scalar expected");
    place.phase.fraction = values[0];
    if (IsMissing(values[0]))
        return no(u"Invalid values", u"Invalid value for phase fraction, NaN");
    place.phase.fractionPerMass = basis == Basis::mass;
    return {};
}

Answer Material::writeStored(const Place &place, Basis basis, const MaybeText &property, const Numbers &values)
{
    const auto no = [&](LPCWSTR name, const WideString &description) {
        return refuse(name, description, materialObject, place.scope);
    };
    Property parsed;
    const WideString reason = Parse(Kind::singlePhase, property, parsed);
    if (!reason.empty())
        return no(u"Invalid property", reason);
    if (parsed.basisPower != 0 && basis == Basis::none)
        return no(u"Invalid basis", u"Invalid basis; expected mole or mass basis");
    if (parsed.basisPower == 0 && basis != Basis::none)
        return no(u"Invalid basis", u"Invalid basis; expected no basis");
    std::size_t expected = 1;
    for (int i = 0; i < parsed.dimensions; ++i)
        expected *= compoundCount();
    if (values.size() != expected)
        return no(u"Invalid values", u"Unexpected number of values");
    place.store[Lower(*property)] = {values, basis == Basis::mass};
    return {};
}

Answer Material::write(const Place &place, Basis basis, const MaybeText &property, const ListAccount &list)
{
    Numbers values;
    const WideString reason = TakeNumbers(list, values);
    if (!reason.empty())
        return refuse(u"Invalid values", u"Invalid values: " + reason, materialObject, place.scope);
    const WideString reserved = reservedName(property);
    return reserved.empty() ? writeStored(place, basis, property, values)
                            : writeReserved(place, basis, reserved, values);
}

Answer Material::setOverall(const MaybeText &property, const MaybeText &basisText, const ListAccount &values)
{
    if (Answer refusal; isClosed(materialObject, u"SetOverallProp", refusal))
        return refusal;
    const Place place{overall, overallStore, u"SetOverallProp", -1};
    Basis basis = Basis::none;
    Answer refusal;
    return takeBasis(place, basisText, basis, refusal) ? write(place, basis, property, values) : refusal;
}

Answer Material::setPhase(const MaybeText &property, const MaybeText &label, const MaybeText &basisText,
                          const ListAccount &values)
{
    if (Answer refusal; isClosed(materialObject, u"SetSinglePhaseProp", refusal))
        return refusal;
    const LPCWSTR scope = u"SetSinglePhaseProp";
    Basis basis = Basis::none;
    Answer refusal;
    if (!takeBasis({overall, overallStore, scope, -1}, basisText, basis, refusal))
        return refusal;
    const int index = phaseIndex(label);
    if (index < 0)
        return refuse(u"Invalid phase", invalidPhase(label), materialObject, scope);
    const std::size_t i = static_cast<std::size_t>(index);
    Answer answer = write({phases[i], stores[i], scope, index}, basis, property, values);
    if (answer.result == S_OK)
        phases[i].isPresent = true;
    return answer;
}

Answer Material::setTwoPhase(const MaybeText &property, const ListAccount &labels, const MaybeText &basis,
                             const ListAccount &list)
{
    if (Answer refusal; isClosed(materialObject, u"SetTwoPhaseProp", refusal))
        return refusal;
    const LPCWSTR scope = u"SetTwoPhaseProp";
    int pair[2];
    WideString second;
    Answer refusal;
    if (!takePair({overall, overallStore, scope, -1}, labels, pair, second, refusal))
        return refusal;
    if (!property)
        return refuse(u"Invalid property", u"Invalid property: NULL", materialObject, scope);
    if (basis && !basis->empty())
        return refuse(u"Invalid basis", u"Expected no basis", materialObject, scope);
    Property parsed;
    WideString reason = Parse(Kind::twoPhase, property, parsed);
    if (!reason.empty())
        return refuse(u"Invalid property", reason, materialObject, scope);
    Numbers values;
    reason = TakeNumbers(list, values);
    if (!reason.empty())
        return refuse(u"Invalid values", u"Invalid values: " + reason, materialObject, scope);
    std::size_t expected = parsed.isCompositionDerivative() ? 2 : 1;
    for (int i = 0; i < parsed.dimensions; ++i)
        expected *= compoundCount();
    if (values.size() != expected)
        return refuse(u"Invalid values", u"Unexpected number of values", materialObject, scope);
    stores[static_cast<std::size_t>(pair[0])][Lower(second + u":" + *property)] = {values, false};
    return {};
}

Answer Material::setPresent(const ListAccount &labels)
{
    if (Answer refusal; isClosed(u"ICapeThermoMaterial", u"SetPresentPhases", refusal))
        return refusal;
    for (Phase &phase : phases)
        phase.isPresent = false;
    std::vector<MaybeText> texts;
    const WideString reason = TakeTexts(labels, texts);
    const auto no = [&](const WideString &description) {
        return refuse(u"Invalid phase labels", description, u"ICapeThermoMaterial", u"SetPresentPhases");
    };
    if (!reason.empty())
        return no(u"Invalid phase labels: " + reason);
    for (const MaybeText &label : texts) {
        const int index = phaseIndex(label);
        if (index < 0)
            return no(invalidPhase(label));
        phases[static_cast<std::size_t>(index)].isPresent = true;
    }
    return {};
}

} // namespace fuzz::model
