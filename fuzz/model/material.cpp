// The state of a material as a whole, and how methods that read or write begin.
#include "fuzz/model/material_methods.h"

#include <limits>

namespace fuzz::model {

namespace {

constexpr HRESULT refused = static_cast<HRESULT>(0x80040501u);
constexpr double notSet = std::numeric_limits<double>::quiet_NaN();

// A list that is exactly an array of the type, really is one, and has an index behind its last element.
WideString takeArray(const ListAccount &list, VARTYPE type, std::size_t count, LPCWSTR typeName)
{
    if (list.type == VT_EMPTY)
        return {};
    if (list.type != (VT_ARRAY | type))
        return u"Expected an array of type " + WideString(typeName);
    if (list.isNull || list.dimensions != 1)
        return u"unexpected dimension; 1-dimensional array expected";
    const std::int64_t end = list.lowerBound + static_cast<std::int64_t>(count);
    if (list.elementType != type || end > std::numeric_limits<LONG>::max())
        return u"Expected an array of type " + WideString(typeName);
    return {};
}

} // namespace

WideString TakeNumbers(const ListAccount &list, Numbers &numbers)
{
    WideString reason = takeArray(list, VT_R8, list.numbers.size(), u"double precision");
    if (reason.empty() && list.type != VT_EMPTY)
        numbers = list.numbers;
    return reason;
}

WideString TakeTexts(const ListAccount &list, std::vector<MaybeText> &texts)
{
    WideString reason = takeArray(list, VT_BSTR, list.texts.size(), u"string");
    if (reason.empty() && list.type != VT_EMPTY)
        for (const MaybeText &text : list.texts)
            texts.push_back(Terminated(text));
    return reason;
}

WideString ReservedName(const MaybeText &property)
{
    if (!property)
        return {};
    const WideString stem = Lower(property->substr(0, property->find(u'.')));
    for (LPCWSTR name : {u"temperature", u"pressure", u"flow", u"totalflow", u"fraction", u"phasefraction"})
        if (stem == name && Same(property, name))
            return name;
    return {};
}

WideString InvalidPhase(const MaybeText &label) { return u"Invalid phase: " + (label ? *label : WideString(u"NULL")); }

Material::Material(const Package &itsPackage)
    : package(&itsPackage), phases(itsPackage.labels.size()), stores(itsPackage.labels.size())
{
    forget();
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

Answer Material::clear()
{
    if (Answer refusal; isClosed(u"ICapeThermoMaterial", u"ClearAllProps", refusal))
        return refusal;
    forget();
    return {};
}

Answer Material::copyFrom(const Material *source)
{
    constexpr LPCWSTR scope = u"CopyFromMaterial";
    if (Answer refusal; isClosed(u"ICapeThermoMaterial", scope, refusal))
        return refusal;
    if (!source)
        return refuse(u"Not a Matlab material",
                      u"Cannot copy from the specified material object: not a Matlab thermo material object",
                      u"ICapeThermoMaterial", scope);
    if (source->package != package)
        return refuse(u"Invalid copy", u"Source material is not of same type", u"ICapeThermoMaterial", scope);
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

int Material::phaseIndex(const MaybeText &label) const
{
    if (label)
        for (std::size_t i = 0; i < package->labels.size(); ++i)
            if (Same(label, package->labels[i]))
                return static_cast<int>(i);
    return -1;
}

Phase &Material::phaseAt(const Place &place)
{
    return place.index < 0 ? overall : phases[static_cast<std::size_t>(place.index)];
}

Store &Material::storeAt(const Place &place)
{
    return place.index < 0 ? overallStore : stores[static_cast<std::size_t>(place.index)];
}

// --- refusals ---

Answer Material::refuse(const WideString &name, const WideString &description, LPCWSTR interfaceName, LPCWSTR scope)
{
    words = {name, description, interfaceName, scope};
    return {refused};
}

Answer Material::no(LPCWSTR scope, LPCWSTR name, const WideString &description)
{
    return refuse(name, description, materialObject, scope);
}

bool Material::isClosed(LPCWSTR interfaceName, LPCWSTR scope, Answer &refusal)
{
    if (package->isClosed)
        refusal = refuse(u"Invalid material", u"The property package of this material object has been closed",
                         interfaceName, scope);
    return package->isClosed;
}

// --- beginnings ---

Answer Material::begin(Place &place, const MaybeText &basis)
{
    if (Answer refusal; isClosed(materialObject, place.scope, refusal))
        return refusal;
    if (!basis || basis->empty())
        place.basis = Basis::none;
    else if (Same(basis, u"mole"))
        place.basis = Basis::mole;
    else if (Same(basis, u"mass"))
        place.basis = Basis::mass;
    else
        return no(place.scope, u"Invalid basis", u"Invalid or unsupported basis: " + *basis);
    return {};
}

Answer Material::beginPhase(Place &place, const MaybeText &label, const MaybeText &basis)
{
    if (Answer answer = begin(place, basis); answer.isRefused())
        return answer;
    place.index = phaseIndex(label);
    return place.index < 0 ? no(place.scope, u"Invalid phase", InvalidPhase(label)) : Answer{};
}

Answer Material::beginPresentPhase(Place &place, const MaybeText &label, const MaybeText &basis)
{
    if (Answer answer = beginPhase(place, label, basis); answer.isRefused())
        return answer;
    return phaseAt(place).isPresent ? Answer{} : no(place.scope, u"Invalid phase", u"Phase not present");
}

Answer Material::beginTwoPhase(LPCWSTR scope, const MaybeText &property, const ListAccount &labels, Slot &slot)
{
    if (Answer refusal; isClosed(materialObject, scope, refusal))
        return refusal;
    std::vector<MaybeText> texts;
    const WideString reason = TakeTexts(labels, texts);
    if (!reason.empty())
        return no(scope, u"Phase error: ", u"Invalid specification of phases: " + reason);
    if (texts.size() != 2)
        return no(scope, u"Phase error: ", u"Invalid number of phase identifiers");
    for (const MaybeText &label : texts)
        if (phaseIndex(label) < 0)
            return no(scope, u"Invalid phase", InvalidPhase(label));
    if (!property)
        return no(scope, u"Invalid property", u"Invalid property: NULL");
    slot = {&stores[static_cast<std::size_t>(phaseIndex(texts[0]))], Lower(*texts[1] + u":" + *property)};
    return {};
}

// What holds of names that stand for a field, whether it is read or written.
Answer Material::beginReserved(const Place &place, const WideString &lowerName)
{
    if (lowerName == u"temperature" || lowerName == u"pressure") {
        if (place.basis != Basis::none)
            return no(place.scope, u"Invalid basis", u"Invalid basis for " + lowerName + u"; no basis expected");
    } else if (lowerName == u"flow") {
        return no(place.scope, u"Not supported", u"Flow is not supported by this material object");
    } else if (lowerName == u"totalflow") {
        return no(place.scope, u"Not supported", u"Total flow is not supported by this material object");
    } else if (lowerName == u"fraction") {
        if (place.basis == Basis::none)
            return no(place.scope, u"Invalid basis", u"Invalid basis for fraction; expected mole or mass basis");
    } else if (place.index < 0) {
        return no(place.scope, u"Not supported", u"Phase fraction is not supported for the Overall phase");
    }
    return {};
}

} // namespace fuzz::model
