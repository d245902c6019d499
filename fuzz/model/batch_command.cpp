// Command 25: an equilibrium for each row, and properties of what it gives.
#include "fuzz/model/command_parts.h"

namespace fuzz::model {

namespace {

bool isMarked(const WideString &name)
{
    return Same(name, u"Temperature") || Same(name, u"Pressure") || Same(name, u"vaporFraction");
}

} // namespace

void Command::startBatch()
{
    constexpr LPCWSTR inconsistent = u"Inconsistent number of rows for compositions and constraint values";
    if (!readColumn(request.compositions, material.compoundCount(),
                    u"Invalid number of columns for compositions: must match number of compounds",
                    u"Expected double precision values for compositions", u"Zero values specified for compositions"))
        return;
    count = request.compositions.rows;
    if (!readColumn(request.values1, 1, u"Expected column vector for value 1",
                    u"Expected double precision values for value 1", u"Zero values specified for values 1") ||
        !combine(request.values1, inconsistent) ||
        !readColumn(request.values2, 1, u"Expected column vector for value 2",
                    u"Expected double precision values for value 2", u"Zero values specified for values 2") ||
        !combine(request.values2, inconsistent) || !cutNames())
        return;
    for (const WideString &name : request.names) {
        Property property;
        if (!isMarked(name)) {
            if (!IsFlashProperty(name, property)) {
                fail(u"Invalid / unsupported flash property: " + name);
                return;
            }
            calculated.push_back(name);
        }
        properties.push_back(property);
        cells.push_back({{count, 1, Numbers(count, 0), true}});
    }
    vapor = VaporPhaseOf(*material.package);
    call = {ExpectedCall::Method::equilibrium, {}, {}, {}, {}, request.solutionType};
    if (takeConstraint(request.property1, call.specification1, {}) &&
        takeConstraint(request.property2, call.specification2, {}))
        prepareRow();
}

void Command::prepareRow()
{
    call.method = ExpectedCall::Method::equilibrium;
    isPostFlash = false;
    for (Phase &each : material.phases)
        each.isPresent = true;
    material.overall.composition = RowOf(request.compositions, current);
    material.overall.compositionPerMass = settings.perMass;
    if (vapor >= 0)
        material.phases[static_cast<std::size_t>(vapor)].fractionPerMass = vaporPerMass;
    writeConstraint(request.property1, ElementOf(request.values1, current));
    writeConstraint(request.property2, ElementOf(request.values2, current));
}

void Command::warn(const WideString &text)
{
    if (settings.showsWarnings)
        warnings.push_back(u"CAPE-OPEN: " + text);
}

void Command::nextRow()
{
    if (++current == count)
        isDone = true;
    else
        prepareRow();
}

void Command::endRow(HRESULT hr, const WideString &words)
{
    if (SUCCEEDED(hr))
        return goOnWithPhases(0);
    for (std::vector<Matrix> &cell : cells)
        cell[0].values[current] = notANumber;
    warn(u"Flash failed at " + at(request.values1, current) + u", " + at(request.values2, current) + u": " + words);
    nextRow();
}

// The next phase whose properties are to be calculated; behind the last the results of the row.
void Command::goOnWithPhases(std::size_t from)
{
    if (!calculated.empty())
        for (phase = from; phase < material.phases.size(); ++phase)
            if (material.phases[phase].isPresent) {
                isPostFlash = true;
                call.method = ExpectedCall::Method::singlePhase;
                call.names = calculated;
                call.labels = {material.package->labels[phase]};
                return;
            }
    if (storeRow())
        nextRow();
}

void Command::endPostFlash(HRESULT hr, const WideString &words)
{
    if (FAILED(hr))
        warn(u"Failed to calculate post-flash " + material.package->labels[phase] + u" properties: " + words);
    goOnWithPhases(FAILED(hr) ? material.phases.size() : phase + 1);
}

bool Command::storeRow()
{
    for (std::size_t i = 0; i < request.names.size(); ++i) {
        double &value = cells[i][0].values[current];
        const WideString &name = request.names[i];
        if (Same(name, u"Temperature"))
            value = material.temperature;
        else if (Same(name, u"Pressure"))
            value = material.pressure;
        else if (!(Same(name, u"vaporFraction") ? vaporFraction(value) : average(name, properties[i], value)))
            return false;
    }
    return true;
}

bool Command::vaporFraction(double &value)
{
    if (vapor < 0)
        return fail(u"Package does not expose vapor phase");
    const std::size_t p = static_cast<std::size_t>(vapor);
    const Phase &each = material.phases[p];
    value = each.isPresent ? each.fraction : 0;
    if (!each.isPresent || each.fractionPerMass == settings.perMass)
        return true;
    const WideString reason =
        ConvertPhaseFraction(material.package->weights, material.phases, settings.perMass, p, value);
    if (reason.empty())
        return true;
    value = notANumber;
    warn(reason);
    return true;
}

bool Command::average(const WideString &name, const Property &property, double &value)
{
    const Numbers &weights = material.package->weights;
    value = 0;
    std::optional<bool> perMass;
    for (std::size_t p = 0; p < material.phases.size(); ++p) {
        const Phase &each = material.phases[p];
        if (!each.isPresent)
            continue;
        if (!perMass)
            perMass = each.fractionPerMass;
        if (!(each.fraction > 0))
            continue;
        if (each.fractionPerMass != *perMass)
            return fail(u"Inconsistent bases of phase fractions after flash; not supported");
        const auto found = material.stores[p].find(Lower(name));
        if (found == material.stores[p].end())
            return fail(u"Property not set after post-flash property calculation");
        Numbers part = {found->second.values[0]};
        if (found->second.perMass != *perMass) {
            const WideString reason = ConvertValues(weights, each.composition, each.compositionPerMass,
                                                    *perMass ? property.basisPower : -property.basisPower, 0, part);
            if (!reason.empty())
                return fail(u"CAPE-OPEN: " + reason);
        }
        value += part[0] * each.fraction;
    }
    if (!perMass || *perMass == settings.perMass)
        return true;
    Numbers sum = {value};
    const WideString reason = ConvertValues(weights, material.overall.composition, material.overall.compositionPerMass,
                                            settings.perMass ? property.basisPower : -property.basisPower, 0, sum);
    if (!reason.empty())
        return fail(u"CAPE-OPEN: " + reason);
    value = sum[0];
    return true;
}

} // namespace fuzz::model
