// What a material answers when it is read.
#include "fuzz/model/material_methods.h"

namespace fuzz::model {

Answer Material::readFractions(const Place &place, bool perMass)
{
    const Phase &phase = phaseAt(place);
    Numbers fractions = phase.composition;
    if (AnyMissing(fractions))
        return no(place.scope, u"Missing values", u"One or more missing values for composition");
    if (perMass != phase.compositionPerMass) {
        const WideString reason = ConvertFractions(package->weights, perMass, fractions, fractions);
        if (!reason.empty())
            return no(place.scope, u"Conversion error", reason);
    }
    return {S_OK, fractions};
}

Answer Material::readPhaseFraction(const Place &place)
{
    if (place.basis == Basis::none)
        return no(place.scope, u"Invalid basis", u"Invalid basis for phase fraction; expected mole or mass basis");
    double fraction = phaseAt(place).fraction;
    if (IsMissing(fraction))
        return no(place.scope, u"Missing values", u"phase fraction is not set");
    const bool perMass = place.basis == Basis::mass;
    if (perMass != phaseAt(place).fractionPerMass) {
        const std::size_t index = static_cast<std::size_t>(place.index);
        const WideString reason = ConvertPhaseFraction(package->weights, phases, perMass, index, fraction);
        if (!reason.empty())
            return no(place.scope, u"Conversion error", reason);
    }
    return {S_OK, {fraction}};
}

Answer Material::readReserved(const Place &place, const WideString &lowerName)
{
    if (Answer answer = beginReserved(place, lowerName); answer.isRefused())
        return answer;
    if (lowerName == u"fraction")
        return readFractions(place, place.basis == Basis::mass);
    if (lowerName == u"phasefraction")
        return readPhaseFraction(place);
    const bool isTemperature = lowerName == u"temperature";
    const double value = isTemperature ? temperature : pressure;
    if (IsMissing(value))
        return no(place.scope, u"Missing value", isTemperature ? u"Temperature is not set" : u"Pressure is not set");
    return {S_OK, {value}};
}

Answer Material::readStored(const Place &place, const MaybeText &property)
{
    Property parsed;
    WideString reason = Parse(Kind::singlePhase, property, parsed);
    if (!reason.empty())
        return no(place.scope, u"Invalid property", reason);
    const Store &store = storeAt(place);
    const auto found = store.find(Lower(*property));
    if (found == store.end())
        return no(place.scope, u"No values", u"Values not set for property " + *property);
    const Entry &entry = found->second;
    if (parsed.basisPower == 0) {
        if (place.basis != Basis::none)
            return no(place.scope, u"Invalid property", u"Invalid basis for " + *property + u"; expected no basis");
        return {S_OK, entry.values};
    }
    if (place.basis == Basis::none)
        return no(place.scope, u"Invalid property",
                  u"Invalid basis for " + *property + u"; expected mole or mass basis");
    Numbers values = entry.values;
    const bool perMass = place.basis == Basis::mass;
    if (perMass != entry.perMass) {
        const Phase &phase = phaseAt(place);
        reason = ConvertValues(package->weights, phase.composition, phase.compositionPerMass,
                               perMass ? parsed.basisPower : -parsed.basisPower, 0, values);
        if (!reason.empty())
            return no(place.scope, u"Basis conversion error", reason);
    }
    return {S_OK, values};
}

Answer Material::read(const Place &place, const MaybeText &property)
{
    const WideString reserved = ReservedName(property);
    return reserved.empty() ? readStored(place, property) : readReserved(place, reserved);
}

Answer Material::getOverall(const MaybeText &property, const MaybeText &basis)
{
    Place place{u"GetOverallProp"};
    Answer answer = begin(place, basis);
    return answer.isRefused() ? answer : read(place, property);
}

Answer Material::getPhase(const MaybeText &property, const MaybeText &label, const MaybeText &basis)
{
    Place place{u"GetSingleProp"};
    Answer answer = beginPresentPhase(place, label, basis);
    return answer.isRefused() ? answer : read(place, property);
}

Answer Material::getTwoPhase(const MaybeText &property, const ListAccount &labels, const MaybeText &basis)
{
    constexpr LPCWSTR scope = u"GetTwoPhaseProp";
    Slot slot;
    if (Answer answer = beginTwoPhase(scope, property, labels, slot); answer.isRefused())
        return answer;
    const auto found = slot.store->find(slot.key);
    if (found == slot.store->end())
        return no(scope, u"No values", u"No values for property " + *property);
    if (basis && !basis->empty())
        return no(scope, u"Invalid basis", u"Expected no basis");
    return {S_OK, found->second.values};
}

Answer Material::readConditions(const Place &place, LPCWSTR conditionScope)
{
    if (IsMissing(temperature))
        return no(conditionScope, u"Missing value", u"Temperature is not set");
    if (IsMissing(pressure))
        return no(conditionScope, u"Missing value", u"Pressure is not set");
    Answer answer = readFractions(place, false);
    if (!answer.isRefused())
        answer.values.insert(answer.values.begin(), {temperature, pressure});
    return answer;
}

Answer Material::getOverallConditions()
{
    constexpr LPCWSTR scope = u"GetOverallTPFraction";
    if (Answer refusal; isClosed(materialObject, scope, refusal))
        return refusal;
    return readConditions({u"GetOverallProp"}, scope);
}

Answer Material::getPhaseConditions(const MaybeText &label)
{
    Place place{u"GetTPFraction"};
    Answer answer = beginPresentPhase(place, label, {});
    return answer.isRefused() ? answer : readConditions(place, place.scope);
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

} // namespace fuzz::model
