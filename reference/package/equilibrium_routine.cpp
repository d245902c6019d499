#include "reference/package/phase_table.h"
#include "reference/package/property_package.h"

#include <algorithm>
#include <limits>

namespace reference {

namespace {

constexpr auto interfaceName = OLESTR("ICapeThermoEquilibriumRoutine");
constexpr double notSet = std::numeric_limits<double>::quiet_NaN();
constexpr LONG atEquilibrium = 1; // CAPE_ATEQUILIBRIUM

enum class FlashVariable { temperature, pressure };

// The kinds of flash that are solved at present are those with both of these given.
constexpr std::string_view flashVariableNames[] = {"temperature", "pressure"};

// What is wrong with a flash, in words; null for nothing.
struct FlashVerdict {
    const ErrorKind *kind = nullptr;
    LPCWSTR description = nullptr;
};

// Reads a specification: property, basis, phase label, and for some properties a compound.
FlashVerdict readSpecification(const VARIANT &argument, FlashVariable &variable)
{
    TextView parts;
    if (!parts.open(argument) || parts.size() < 3 || parts.size() > 4)
        return {&errors::invalidArgument,
                OLESTR("A flash specification must be an array of property, basis, phase and perhaps compound")};
    for (const FlashVariable each : {FlashVariable::temperature, FlashVariable::pressure}) {
        if (!sameWord(parts[0], flashVariableNames[static_cast<int>(each)]))
            continue;
        if (!sameWord(parts[2], "Overall"))
            break;
        variable = each;
        return {};
    }
    return {&errors::limitedImplementation,
            OLESTR("Only flashes at given overall temperature and pressure can be calculated")};
}

FlashVerdict readSpecifications(const VARIANT &first, const VARIANT &second, BSTR solutionType)
{
    FlashVariable variables[2];
    if (const FlashVerdict verdict = readSpecification(first, variables[0]); verdict.kind)
        return verdict;
    if (const FlashVerdict verdict = readSpecification(second, variables[1]); verdict.kind)
        return verdict;
    if (variables[0] == variables[1])
        return {&errors::invalidArgument, OLESTR("The two flash specifications are the same")};
    // At given temperature and pressure there is one solution, whatever its type.
    for (const std::string_view known : {"Unspecified", "Normal", "Retrograde", ""})
        if (sameWord(solutionType, known))
            return {};
    return {&errors::invalidArgument, OLESTR("The solution type must be Unspecified, Normal or Retrograde")};
}

void giveWholeFeed(const CompoundArray &feed, FlashResult &result)
{
    result.vaporFraction = result.vaporPresent ? 1.0 : 0.0;
    result.liquidFraction = result.liquidPresent ? 1.0 : 0.0;
    (result.vaporPresent ? result.vapor : result.liquid) = feed;
}

} // namespace

HRESULT STDMETHODCALLTYPE PropertyPackage::CheckEquilibriumSpec(VARIANT specification1, VARIANT specification2,
                                                                BSTR solutionType, VARIANT_BOOL *supported)
{
    if (!supported)
        return E_POINTER;
    const bool refused = readSpecifications(specification1, specification2, solutionType).kind != nullptr;
    *supported = refused ? VARIANT_FALSE : VARIANT_TRUE;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE PropertyPackage::CalcEquilibrium(VARIANT specification1, VARIANT specification2,
                                                           BSTR solutionType)
{
    const Call call{*this, interfaceName, OLESTR("CalcEquilibrium")};
    if (const HRESULT result = needMaterial(call); FAILED(result))
        return result;
    if (const FlashVerdict verdict = readSpecifications(specification1, specification2, solutionType); verdict.kind)
        return call.refuse(*verdict.kind, verdict.description);

    bool allowed[phaseCount] = {};
    if (const HRESULT result = readAllowedPhases(call, allowed); FAILED(result))
        return result;
    double temperature = notSet;
    double pressure = notSet;
    Value composition;
    const HRESULT read = material->GetOverallTPFraction(&temperature, &pressure, composition.out());
    if (FAILED(read))
        return call.refuseFor(errors::failedInitialisation,
                              OLESTR("The material does not give the overall conditions: "), material.get(), read);
    CompoundArray feed;
    if (const HRESULT result = readMixture(call, temperature, pressure, composition.get(), feed); FAILED(result))
        return result;

    FlashResult result;
    if (allowed[vaporPhase] && allowed[liquidPhase]) {
        const std::span<const double> fractions(feed.data(), static_cast<std::size_t>(model.size));
        if (flashTP(model, temperature, pressure, fractions, result) != FlashStatus::solved)
            return call.refuse(errors::solvingError, OLESTR("The flash did not converge"));
    } else {
        result.vaporPresent = allowed[vaporPhase];
        result.liquidPresent = allowed[liquidPhase];
        giveWholeFeed(feed, result);
    }
    return writeEquilibrium(call, result, temperature, pressure);
}

HRESULT PropertyPackage::readAllowedPhases(const Call &call, bool (&allowed)[2]) const
{
    Value labels;
    Value statuses;
    const HRESULT read = material->GetPresentPhases(labels.out(), statuses.out());
    if (FAILED(read))
        return call.refuseFor(errors::failedInitialisation, OLESTR("The material does not tell its phases: "),
                              material.get(), read);
    TextView names;
    if (!names.open(labels.get()) || names.size() == 0)
        return call.refuse(errors::invalidArgument, OLESTR("The material lists no phase that the flash may use"));
    for (const BSTR name : names) {
        const PhaseRow *phase = findPhase(name);
        if (!phase)
            return call.refuse(errors::invalidArgument, OLESTR("There is no phase ") + quoted(name));
        allowed[phase - phaseTable().data()] = true;
    }
    return S_OK;
}

HRESULT PropertyPackage::writeEquilibrium(const Call &call, const FlashResult &result, double temperature,
                                          double pressure) const
{
    const struct {
        bool present;
        double amount;
        const CompoundArray &fractions;
    } phases[phaseCount] = {{result.vaporPresent, result.vaporFraction, result.vapor},
                            {result.liquidPresent, result.liquidFraction, result.liquid}};

    const auto refuse = [&](HRESULT written) {
        return call.refuseFor(errors::unknown, OLESTR("The material does not take the equilibrium: "), material.get(),
                              written);
    };
    const int count = result.vaporPresent + result.liquidPresent;
    Value labels;
    Value statuses;
    BSTR *label = labels.makeTexts(count);
    LONG *status = statuses.makeIntegers(count);
    if (!label || !status)
        return E_OUTOFMEMORY;
    for (int i = 0; i < phaseCount; ++i) {
        if (!phases[i].present)
            continue;
        *label++ = Text(phaseTable()[i].label).detach();
        *status++ = atEquilibrium;
    }
    if (const HRESULT written = material->SetPresentPhases(labels.get(), statuses.get()); FAILED(written))
        return refuse(written);

    TextView presentLabels;
    presentLabels.open(labels.get());
    int present = 0;
    for (const auto &phase : phases) {
        if (!phase.present)
            continue;
        const struct {
            const Text &property;
            const Text *basis;
            const double *values;
            int count;
        } settings[] = {{words.temperature, nullptr, &temperature, 1},
                        {words.pressure, nullptr, &pressure, 1},
                        {words.fraction, &words.mole, phase.fractions.data(), model.size},
                        {words.phaseFraction, &words.mole, &phase.amount, 1}};
        for (const auto &setting : settings) {
            Value list;
            double *values = list.makeNumbers(setting.count);
            if (!values)
                return E_OUTOFMEMORY;
            std::copy_n(setting.values, setting.count, values);
            const HRESULT written =
                material->SetSinglePhaseProp(setting.property.get(), presentLabels[present],
                                             setting.basis ? setting.basis->get() : nullptr, list.get());
            if (FAILED(written))
                return refuse(written);
        }
        ++present;
    }
    return S_OK;
}

} // namespace reference
