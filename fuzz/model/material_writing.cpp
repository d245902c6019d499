// What a material takes and keeps when it is written.
#include "fuzz/model/material_methods.h"

namespace fuzz::model {

Answer Material::writeFractions(const Place &place, const Numbers &values)
{
    if (values.size() != compoundCount())
        return no(place.scope, u"Invalid values",
                  u"Invalid number of values for fraction: expected one value for each compound");
    Phase &phase = phaseAt(place);
    for (std::size_t i = 0; i < values.size(); ++i) {
        phase.composition[i] = values[i];
        if (IsMissing(values[i]))
            return no(place.scope, u"Invalid values", u"Invalid values, one or more missing values");
    }
    phase.compositionPerMass = place.basis == Basis::mass;
    return {};
}

// A number that is kept even when it is refused.
Answer Material::writeScalar(const Place &place, const WideString &name, const Numbers &values, double &target)
{
    if (values.size() != 1)
        return no(place.scope, u"Invalid values", u"Invalid number of values for " + name + u": scalar expected");
    target = values[0];
    if (IsMissing(target))
        return no(place.scope, u"Invalid values", u"Invalid value for " + name + u", NaN");
    return {};
}

Answer Material::writePhaseFraction(const Place &place, const Numbers &values)
{
    if (place.basis == Basis::none)
        return no(place.scope, u"Invalid basis", u"Invalid basis for phase fraction; mole or mass basis expected");
    Phase &phase = phaseAt(place);
    Answer answer = writeScalar(place, u"phase fraction", values, phase.fraction);
    if (!answer.isRefused())
        phase.fractionPerMass = place.basis == Basis::mass;
    return answer;
}

Answer Material::writeReserved(const Place &place, const WideString &lowerName, const Numbers &values)
{
    if (Answer answer = beginReserved(place, lowerName); answer.isRefused())
        return answer;
    if (lowerName == u"fraction")
        return writeFractions(place, values);
    if (lowerName == u"phasefraction")
        return writePhaseFraction(place, values);
    return writeScalar(place, lowerName, values, lowerName == u"temperature" ? temperature : pressure);
}

Answer Material::writeStored(const Place &place, const MaybeText &property, const Numbers &values)
{
    Property parsed;
    const WideString reason = Parse(Kind::singlePhase, property, parsed);
    if (!reason.empty())
        return no(place.scope, u"Invalid property", reason);
    if (parsed.basisPower != 0 && place.basis == Basis::none)
        return no(place.scope, u"Invalid basis", u"Invalid basis; expected mole or mass basis");
    if (parsed.basisPower == 0 && place.basis != Basis::none)
        return no(place.scope, u"Invalid basis", u"Invalid basis; expected no basis");
    if (values.size() != parsed.count(compoundCount()))
        return no(place.scope, u"Invalid values", u"Unexpected number of values");
    storeAt(place)[Lower(*property)] = {values, place.basis == Basis::mass};
    return {};
}

Answer Material::write(const Place &place, const MaybeText &property, const ListAccount &list)
{
    Numbers values;
    const WideString reason = TakeNumbers(list, values);
    if (!reason.empty())
        return no(place.scope, u"Invalid values", u"Invalid values: " + reason);
    const WideString reserved = ReservedName(property);
    return reserved.empty() ? writeStored(place, property, values) : writeReserved(place, reserved, values);
}

Answer Material::setOverall(const MaybeText &property, const MaybeText &basis, const ListAccount &values)
{
    Place place{u"SetOverallProp"};
    Answer answer = begin(place, basis);
    return answer.isRefused() ? answer : write(place, property, values);
}

Answer Material::setPhase(const MaybeText &property, const MaybeText &label, const MaybeText &basis,
                          const ListAccount &values)
{
    Place place{u"SetSinglePhaseProp"};
    if (Answer answer = beginPhase(place, label, basis); answer.isRefused())
        return answer;
    Answer answer = write(place, property, values);
    if (!answer.isRefused())
        phaseAt(place).isPresent = true;
    return answer;
}

Answer Material::setTwoPhase(const MaybeText &property, const ListAccount &labels, const MaybeText &basis,
                             const ListAccount &list)
{
    constexpr LPCWSTR scope = u"SetTwoPhaseProp";
    Slot slot;
    if (Answer answer = beginTwoPhase(scope, property, labels, slot); answer.isRefused())
        return answer;
    if (basis && !basis->empty())
        return no(scope, u"Invalid basis", u"Expected no basis");
    Property parsed;
    WideString reason = Parse(Kind::twoPhase, property, parsed);
    if (!reason.empty())
        return no(scope, u"Invalid property", reason);
    Numbers values;
    reason = TakeNumbers(list, values);
    if (!reason.empty())
        return no(scope, u"Invalid values", u"Invalid values: " + reason);
    if (values.size() != parsed.count(compoundCount()) * (parsed.isCompositionDerivative() ? 2 : 1))
        return no(scope, u"Invalid values", u"Unexpected number of values");
    (*slot.store)[slot.key] = {values, false};
    return {};
}

Answer Material::setPresent(const ListAccount &labels)
{
    constexpr LPCWSTR scope = u"SetPresentPhases";
    if (Answer refusal; isClosed(u"ICapeThermoMaterial", scope, refusal))
        return refusal;
    for (Phase &phase : phases)
        phase.isPresent = false;
    const auto refuseLabels = [&](const WideString &description) {
        return refuse(u"Invalid phase labels", description, u"ICapeThermoMaterial", scope);
    };
    std::vector<MaybeText> texts;
    const WideString reason = TakeTexts(labels, texts);
    if (!reason.empty())
        return refuseLabels(u"Invalid phase labels: " + reason);
    for (const MaybeText &label : texts) {
        const int index = phaseIndex(label);
        if (index < 0)
            return refuseLabels(InvalidPhase(label));
        phases[static_cast<std::size_t>(index)].isPresent = true;
    }
    return {};
}

} // namespace fuzz::model
