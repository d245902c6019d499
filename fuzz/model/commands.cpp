#include "fuzz/model/commands.h"

#include <cstdio>
#include <limits>

namespace fuzz::model {

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

Numbers rowOf(const Matrix &matrix, std::size_t row)
{
    if (matrix.rows == 1)
        row = 0;
    Numbers values;
    for (std::size_t j = 0; j < matrix.columns; ++j)
        values.push_back(matrix.values[row + j * matrix.rows]);
    return values;
}

double elementOf(const Matrix &column, std::size_t row) { return column.values[column.rows == 1 ? 0 : row]; }

int vaporPhaseOf(const Package &package)
{
    for (std::size_t i = 0; i < package.states.size(); ++i)
        if (Same(package.states[i], u"vapor"))
            return static_cast<int>(i);
    return -1;
}

std::vector<MaybeText> specification(MaybeText property, MaybeText basis, MaybeText phase)
{
    return {std::move(property), std::move(basis), std::move(phase)};
}

bool isMarked(const WideString &name)
{
    return Same(name, u"Temperature") || Same(name, u"Pressure") || Same(name, u"vaporFraction");
}

} // namespace

Command::Command(Material &itsMaterial, const CommandSettings &itsSettings, const Request &itsRequest)
    : material(itsMaterial), settings(itsSettings), request(itsRequest)
{
    if (request.code == 22)
        startSinglePhase();
    else if (request.code == 23)
        startTwoPhase();
    else if (request.code == 24)
        startFlash();
    else
        startBatch();
}

bool Command::fail(WideString text)
{
    error = std::move(text);
    return false;
}

// --- arguments ---

bool Command::cutNames()
{
    if (request.outputs > request.names.size())
        return fail(u"Too many output arguments");
    const std::size_t wanted = request.outputs == 0 ? 1 : request.outputs;
    if (wanted < request.names.size())
        request.names.resize(wanted);
    return true;
}

bool Command::readColumn(const Matrix &argument, std::size_t columns, LPCWSTR wrongColumns, LPCWSTR notDouble,
                         LPCWSTR noRows)
{
    if (argument.columns != columns)
        return fail(wrongColumns);
    if (!argument.isDouble)
        return fail(notDouble);
    return argument.rows != 0 || fail(noRows);
}

bool Command::readMixture(bool twoPhases)
{
    const std::size_t nC = material.compoundCount();
    const auto combine = [&](const Matrix &argument, LPCWSTR message) {
        if (count == 1)
            count = argument.rows;
        return argument.rows == 1 || argument.rows == count || fail(message);
    };
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

bool Command::shape(const Property &property, std::size_t &rows, std::size_t &columns)
{
    const std::size_t nC = material.compoundCount();
    rows = property.dimensions < 2 ? 1 : nC;
    columns = property.dimensions < 1 ? 1 : nC;
    if (count > 1) {
        if (property.dimensions > 1)
            return fail(u"Property calculations cannot be performed at multiple conditions if any property has matrix "
                        u"dimensions");
        rows = count;
    }
    return true;
}

// --- single-phase and two-phase properties ---

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
        Property property;
        if (!Parse(Kind::singlePhase, name, property).empty()) {
            fail(u"Invalid / unsupported 1-phase property: " + name);
            return;
        }
        if (property.basisPower != 0 && property.derivative == Derivative::molFraction)
            calculated.push_back(property.name);
        Matrix result;
        if (!shape(property, result.rows, result.columns))
            return;
        result.values.assign(result.rows * result.columns, 0);
        properties.push_back(property);
        cells.push_back({result});
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
    for (const WideString &name : request.names) {
        Property property;
        if (!Parse(Kind::twoPhase, name, property).empty()) {
            fail(u"Invalid / unsupported 2-phase property: " + name);
            return;
        }
        Matrix result;
        if (!shape(property, result.rows, result.columns))
            return;
        result.values.assign(result.rows * result.columns, 0);
        properties.push_back(property);
        cells.emplace_back(property.isCompositionDerivative() ? 2 : 1, result);
    }
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
    material.temperature = elementOf(request.temperatures, current);
    material.pressure = elementOf(request.pressures, current);
    material.phases[phase].composition = rowOf(request.compositions, current);
    if (request.code == 23)
        material.phases[phase2].composition = rowOf(request.compositions2, current);
}

WideString Command::at(const Matrix &column, std::size_t row) const
{
    char text[64];
    std::snprintf(text, sizeof text, "%lg", elementOf(column, row));
    return WideString(text, text + std::char_traits<char>::length(text));
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

// --- flashes ---

// With a value it is written at once; without, a place is made for it.
bool Command::takeConstraint(const WideString &name, std::vector<MaybeText> &constraint, std::optional<double> value)
{
    Property property;
    if (Same(name, u"Temperature")) {
        constraint = specification(u"Temperature", {}, u"Overall");
    } else if (Same(name, u"Pressure")) {
        constraint = specification(u"Pressure", {}, u"Overall");
    } else if (Same(name, u"vaporFraction")) {
        if (vapor < 0)
            return fail(u"Package does not expose vapor phase");
        const std::size_t p = static_cast<std::size_t>(vapor);
        constraint = specification(u"phaseFraction", WideString(settings.perMass ? u"mass" : u"mole"),
                                   material.package->labels[p]);
        material.phases[p].fractionPerMass = settings.perMass;
        vaporPerMass = settings.perMass;
    } else if (IsFlashProperty(name, property)) {
        constraint = specification(name, {}, u"Overall");
        Entry &entry = material.overallStore[Lower(name)];
        entry.perMass = settings.perMass && property.basisPower != 0;
        if (entry.values.size() != 1)
            entry.values.assign(1, notANumber);
    } else {
        return fail(u"Not a valid flash property: " + name +
                    u" (use capeOpenFlashPropList for list of valid properties)");
    }
    if (value)
        writeConstraint(name, *value);
    return true;
}

void Command::writeConstraint(const WideString &name, double value)
{
    Property property;
    if (Same(name, u"Temperature")) {
        material.temperature = value;
    } else if (Same(name, u"Pressure")) {
        material.pressure = value;
    } else if (Same(name, u"vaporFraction")) {
        material.phases[static_cast<std::size_t>(vapor)].fraction = value;
    } else if (IsFlashProperty(name, property)) {
        const auto [entry, isNew] = material.overallStore.try_emplace(Lower(name));
        if (isNew) // the package has cleared the material
            entry->second.perMass = settings.perMass && property.basisPower != 0;
        entry->second.values.assign(1, value);
    }
}

void Command::startFlash()
{
    const auto isScalar = [&](const Matrix &value, LPCWSTR number) {
        if (value.rows * value.columns != 1)
            return fail(u"Invalid number of values for value " + WideString(number) + u": scalar expected");
        return value.isDouble || fail(u"Expected double precision value for value " + WideString(number));
    };
    if (request.compositions.rows * request.compositions.columns != material.compoundCount()) {
        fail(u"Invalid number of values for compositions: must match number of compounds");
        return;
    }
    if (!request.compositions.isDouble) {
        fail(u"Expected double precision values for compositions");
        return;
    }
    if (!isScalar(request.values1, u"1") || !isScalar(request.values2, u"2"))
        return;
    vapor = vaporPhaseOf(*material.package);
    for (Phase &each : material.phases)
        each.isPresent = true;
    material.overall.composition = request.compositions.values;
    material.overall.compositionPerMass = settings.perMass;
    call = {ExpectedCall::Method::equilibrium, {}, {}, {}, {}, request.solutionType};
    if (takeConstraint(request.property1, call.specification1, request.values1.values[0]))
        takeConstraint(request.property2, call.specification2, request.values2.values[0]);
}

void Command::endFlash(HRESULT hr, const WideString &words)
{
    if (FAILED(hr)) {
        fail(u"CalcEquilibrium failed: " + words);
        return;
    }
    std::vector<const Phase *> present;
    for (std::size_t p = 0; p < material.phases.size(); ++p)
        if (material.phases[p].isPresent) {
            present.push_back(&material.phases[p]);
            labels.push_back(material.package->labels[p]);
        }
    const std::size_t nC = material.compoundCount();
    fractions = {present.size(), 1, Numbers(present.size()), true};
    compositions = {present.size(), nC, Numbers(present.size() * nC), true};
    for (std::size_t r = 0; r < present.size(); ++r) {
        fractions.values[r] = present[r]->fraction;
        if (present[r]->compositionPerMass != present[0]->compositionPerMass) {
            fail(u"Equilibrium phases not stored in consistent basis; unable to perform basis conversion");
            return;
        }
        Numbers composition = present[r]->composition;
        if (present[r]->compositionPerMass != settings.perMass) {
            const auto convert = settings.perMass ? FractionsToMass : FractionsToMole;
            const WideString reason = convert(material.package->weights, composition, composition);
            if (!reason.empty()) {
                fail(reason);
                return;
            }
        }
        for (std::size_t j = 0; j < nC; ++j)
            compositions.values[r + j * present.size()] = composition[j];
    }
    if (!present.empty() && present[0]->compositionPerMass != settings.perMass &&
        !repairFractions(present[0]->compositionPerMass))
        return;
    temperature = material.temperature;
    pressure = material.pressure;
    isDone = true;
}

bool Command::repairFractions(bool storedPerMass)
{
    const Numbers &weights = material.package->weights;
    double total = 0;
    std::size_t r = 0;
    for (const Phase &each : material.phases) {
        if (!each.isPresent)
            continue;
        Numbers moles = each.composition;
        if (each.compositionPerMass) {
            const WideString reason = FractionsToMole(weights, moles, moles);
            if (!reason.empty())
                return fail(u"Basis conversion error: " + reason);
        }
        double mean = 0;
        for (std::size_t j = 0; j < weights.size(); ++j) {
            if (IsMissing(weights[j]))
                return fail(u"one or more unknown molecular weights; unable to perform basis conversion");
            if (IsMissing(moles[j]))
                return fail(u"one or more phase compositions missing after flash");
            mean += moles[j] * weights[j];
        }
        if (storedPerMass && mean == 0)
            return fail(u"Phase molecular weight is zero; unable to perform basis conversion");
        double &fraction = fractions.values[r++];
        fraction = storedPerMass ? fraction / mean : mean * fraction;
        total += fraction;
    }
    if (total == 0)
        return fail(storedPerMass ? u"Zero total phase moles after flash calculation"
                                  : u"Zero total phase mass after flash calculation");
    for (double &fraction : fractions.values)
        fraction /= total;
    return true;
}

void Command::startBatch()
{
    constexpr LPCWSTR inconsistent = u"Inconsistent number of rows for compositions and constraint values";
    const auto combine = [&](const Matrix &argument) {
        if (count == 1)
            count = argument.rows;
        return argument.rows == 1 || argument.rows == count || fail(inconsistent);
    };
    if (!readColumn(request.compositions, material.compoundCount(),
                    u"Invalid number of columns for compositions: must match number of compounds",
                    u"Expected double precision values for compositions", u"Zero values specified for compositions"))
        return;
    count = request.compositions.rows;
    if (!readColumn(request.values1, 1, u"Expected column vector for value 1",
                    u"Expected double precision values for value 1", u"Zero values specified for values 1") ||
        !combine(request.values1) ||
        !readColumn(request.values2, 1, u"Expected column vector for value 2",
                    u"Expected double precision values for value 2", u"Zero values specified for values 2") ||
        !combine(request.values2) || !cutNames())
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
    vapor = vaporPhaseOf(*material.package);
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
    material.overall.composition = rowOf(request.compositions, current);
    material.overall.compositionPerMass = settings.perMass;
    if (vapor >= 0)
        material.phases[static_cast<std::size_t>(vapor)].fractionPerMass = vaporPerMass;
    writeConstraint(request.property1, elementOf(request.values1, current));
    writeConstraint(request.property2, elementOf(request.values2, current));
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
    const auto convert = settings.perMass ? PhaseFractionToMass : PhaseFractionToMole;
    const WideString reason = convert(material.package->weights, material.phases, p, value);
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

// --- the package's calls ---

const ExpectedCall *Command::nextCall() { return isOver() ? nullptr : &call; }

void Command::callEnded(HRESULT hr, const WideString &words)
{
    if (request.code < 24)
        endCondition(hr, words);
    else if (request.code == 24)
        endFlash(hr, words);
    else if (isPostFlash)
        endPostFlash(hr, words);
    else
        endRow(hr, words);
}

} // namespace fuzz::model
