// Commands 22 and 23: properties of one phase and of two.
#include "fuzz/model/command_parts.h"

namespace fuzz::model {

bool Command::readMixture(bool twoPhases)
{
    const std::size_t nC = material.compoundCount();
    constexpr LPCWSTR inconsistent = u"Inconsistent number of temperatures, pressures and compositions";
    if (!readColumn(request.temperatures, 1, u"Expected column array for temperatures",
                    u"Expected double precision vector for temperatures", u"Zero temperatures specified"))
        return false;
    count = request.temperatures.rows;
    if (!readColumn(request.pressures, 1, u"Expected column array for pressures",
                    u"Expected double precision vector for pressures", u"Zero pressures specified") ||
        !combine(request.pressures, u"Inconsistent number of temperatures and pressures"))
        return false;
    if (!twoPhases)
        return readColumn(request.compositions, nC,
                          u"Invalid number of columns for compositions: must match number of compounds",
                          u"Expected double precision values for compositions", u"Zero compositions specified") &&
               combine(request.compositions, inconsistent);
    return readColumn(request.compositions, nC,
                      u"Invalid number of columns for compositions 1: must match number of compounds",
                      u"Expected double precision values for compositions 1", u"Zero compositions 1 specified") &&
           combine(request.compositions, inconsistent) &&
           readColumn(request.compositions2, nC,
                      u"Invalid number of columns for compositions 2: must match number of compounds",
                      u"Expected double precision values for compositions 2", u"Zero compositions 2 specified") &&
           combine(request.compositions2, inconsistent);
}

// With a place for its values, two of a pair of parts.
bool Command::addProperty(Kind kind, const WideString &name)
{
    Property property;
    if (!Parse(kind, name, property).empty())
        return fail((kind == Kind::singlePhase ? u"Invalid / unsupported 1-phase property: "
                                               : u"Invalid / unsupported 2-phase property: ") +
                    name);
    if (count > 1 && property.dimensions > 1)
        return fail(u"Property calculations cannot be performed at multiple conditions if any property has matrix "
                    u"dimensions");
    const std::size_t nC = material.compoundCount();
    Matrix result;
    result.rows = property.dimensions < 2 ? count : nC;
    result.columns = property.dimensions < 1 ? 1 : nC;
    result.values.assign(result.rows * result.columns, 0);
    properties.push_back(property);
    cells.emplace_back(kind == Kind::twoPhase && property.isCompositionDerivative() ? 2 : 1, result);
    return true;
}

void Command::startSinglePhase()
{
    if (!cutNames() || !readMixture(false))
        return;
    const int index = material.phaseIndex(request.label);
    if (index < 0) {
        fail(u"Invalid phase ID");
        return;
    }
    phase = static_cast<std::size_t>(index);
    calculated = request.names;
    for (const WideString &name : request.names) {
        if (!addProperty(Kind::singlePhase, name))
            return;
        const Property &property = properties.back();
        if (property.basisPower != 0 && property.derivative == Derivative::molFraction)
            calculated.push_back(property.name);
    }
    material.phases[phase].compositionPerMass = settings.perMass;
    material.phases[phase].isPresent = true;
    call = {ExpectedCall::Method::singlePhase, calculated, {request.label}, {}, {}, {}};
    prepareCondition();
}

void Command::startTwoPhase()
{
    if (!cutNames() || !readMixture(true))
        return;
    for (const WideString &name : request.names)
        if (!addProperty(Kind::twoPhase, name))
            return;
    const int first = material.phaseIndex(request.label);
    const int second = material.phaseIndex(request.label2);
    if (first < 0) {
        fail(u"Invalid phase ID 1");
    } else if (second < 0) {
        fail(u"Invalid phase ID 2");
    } else if (first == second) {
        fail(u"Phases for two-phase property cannot be the same");
    } else {
        phase = static_cast<std::size_t>(first);
        phase2 = static_cast<std::size_t>(second);
        for (std::size_t p : {phase, phase2}) {
            material.phases[p].compositionPerMass = settings.perMass;
            material.phases[p].isPresent = true;
        }
        call = {ExpectedCall::Method::twoPhase, request.names, {request.label, request.label2}, {}, {}, {}};
        prepareCondition();
    }
}

void Command::prepareCondition()
{
    material.temperature = ElementOf(request.temperatures, current);
    material.pressure = ElementOf(request.pressures, current);
    material.phases[phase].composition = RowOf(request.compositions, current);
    if (request.code == 23)
        material.phases[phase2].composition = RowOf(request.compositions2, current);
}

void Command::endCondition(HRESULT hr, const WideString &words)
{
    if (FAILED(hr)) {
        WideString text = request.code == 22 ? u"CalcSinglePhaseProp failed" : u"CalcTwoPhaseProp failed";
        if (request.pressures.rows > 1)
            text += u", at " + at(request.pressures, current) + u" Pa";
        if (request.temperatures.rows > 1)
            text += u", at " + at(request.temperatures, current) + u" K";
        fail(text + u": " + words);
        return;
    }
    if (!(request.code == 22 ? readSinglePhase() : readTwoPhase()))
        return;
    if (++current == count)
        isDone = true;
    else
        prepareCondition();
}

bool Command::readSinglePhase()
{
    const Store &store = material.stores[phase];
    for (std::size_t i = 0; i < properties.size(); ++i) {
        const WideString &name = request.names[i];
        const Property &property = properties[i];
        const auto notSet = [&](const WideString &which) {
            return fail(u"Property value for " + which + u" was not set by property package during calculation");
        };
        const auto found = store.find(Lower(name));
        if (found == store.end())
            return notSet(name);
        Numbers values = found->second.values;
        const bool perMass = found->second.perMass;
        if (property.basisPower != 0 && perMass != settings.perMass) {
            double base = 0;
            if (property.derivative == Derivative::moles)
                return fail(u"Mole/mass conversion for " + name + u" is not supported");
            if (property.derivative == Derivative::molFraction) {
                const auto baseFound = store.find(Lower(property.name));
                if (baseFound == store.end())
                    return notSet(property.name);
                if (baseFound->second.perMass != perMass)
                    return fail(u"Property value for " + name +
                                u" cannot be mole/mass supported; the base property was set in a different basis, "
                                u"which is not supported");
                base = baseFound->second.values[0];
            }
            const WideString reason =
                ConvertValues(material.package->weights, material.phases[phase].composition, settings.perMass,
                              settings.perMass ? property.basisPower : -property.basisPower, base, values);
            if (!reason.empty())
                return fail(reason);
        }
        for (std::size_t k = 0; k < values.size(); ++k)
            cells[i][0].values[current + k * count] = values[k];
    }
    return true;
}

bool Command::readTwoPhase()
{
    const Store &store = material.stores[phase];
    for (std::size_t i = 0; i < properties.size(); ++i) {
        const auto found = store.find(Lower(request.label2 + u":" + request.names[i]));
        if (found == store.end())
            return fail(u"Property value was not set by property package during calculation");
        const Numbers &values = found->second.values;
        const std::size_t each = values.size() / cells[i].size();
        for (std::size_t part = 0; part < cells[i].size(); ++part)
            for (std::size_t k = 0; k < each; ++k)
                cells[i][part].values[current + k * count] = values[part * each + k];
    }
    return true;
}

} // namespace fuzz::model
