// Command 24: one equilibrium; and how the constraints of one are written.
#include "fuzz/model/command_parts.h"

namespace fuzz::model {

namespace {

std::vector<MaybeText> specification(MaybeText property, MaybeText basis, MaybeText phase)
{
    return {std::move(property), std::move(basis), std::move(phase)};
}

} // namespace

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
    vapor = VaporPhaseOf(*material.package);
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
            const WideString reason =
                ConvertFractions(material.package->weights, settings.perMass, composition, composition);
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
            const WideString reason = ConvertFractions(weights, false, moles, moles);
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

} // namespace fuzz::model
