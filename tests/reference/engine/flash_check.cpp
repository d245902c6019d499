#include "tests/reference/engine/flash_check.h"

#include "reference/engine/eos/gas_constant.h"
#include "reference/engine/flash/flash_reason.h"
#include "reference/engine/phase/phase_evaluation.h"

#include <cmath>
#include <sstream>

namespace reference {

namespace {

struct Part {
    bool isVapor;
    double amount;
    const CompoundArray *fractions;
    PhaseProperties properties;
};

std::vector<Part> partsOf(const MixtureModel &model, const FlashResult &result)
{
    std::vector<Part> parts;
    const Isotherm isotherm(model, result.temperature);
    const auto take = [&](bool present, bool isVapor, double amount, const CompoundArray &fractions) {
        if (!present)
            return;
        parts.push_back({isVapor, amount, &fractions, {}});
        evaluateProperties(model, isotherm, result.pressure, fractions.data(), isVapor ? Root::vapor : Root::liquid,
                           parts.back().properties);
    };
    take(result.vaporPresent, true, result.vaporFraction, result.vapor);
    take(result.liquidPresent, false, result.liquidFraction, result.liquid);
    take(result.liquid2Present, false, result.liquid2Fraction, result.liquid2);
    return parts;
}

// Sum of x_i (ln x_i + ln phi_i)
double gibbs(const MixtureModel &model, const double *x, const PhaseState &state)
{
    double sum = 0.0;
    for (int i = 0; i < model.size; ++i)
        if (x[i] > 0.0)
            sum += x[i] * (std::log(x[i]) + state.lnPhi[i]);
    return sum;
}

double gibbsOf(const MixtureModel &model, const std::vector<Part> &parts)
{
    double sum = 0.0;
    for (const Part &part : parts)
        sum += part.amount * gibbs(model, part.fractions->data(), part.properties.state);
    return sum;
}

double meanWeight(const MixtureModel &model, const CompoundArray &x)
{
    double sum = 0.0;
    for (int i = 0; i < model.size; ++i)
        sum += x[i] * model.compounds[i].molecularWeight;
    return sum;
}

double covolume(const MixtureModel &model, const CompoundArray &x)
{
    double sum = 0.0;
    for (int i = 0; i < model.size; ++i)
        sum += x[i] * model.compounds[i].covolume;
    return sum;
}

} // namespace

double valueOf(const MixtureModel &model, const std::vector<double> &z, const FlashResult &result,
               FlashVariable variable)
{
    double enthalpy = 0.0;
    double entropy = 0.0;
    double volume = 0.0;
    for (const Part &part : partsOf(model, result)) {
        enthalpy += part.amount * part.properties.enthalpy;
        entropy += part.amount * part.properties.entropy;
        volume += part.amount * part.properties.volume;
    }
    const double T = result.temperature;
    const double P = result.pressure;
    switch (variable) {
    case FlashVariable::temperature:
        return T;
    case FlashVariable::pressure:
        return P;
    case FlashVariable::vaporFraction:
        return result.vaporFraction;
    case FlashVariable::vaporMassFraction: {
        if (!result.vaporPresent)
            return 0.0;
        CompoundArray feed{};
        std::copy(z.begin(), z.end(), feed.begin());
        return result.vaporFraction * meanWeight(model, result.vapor) / meanWeight(model, feed);
    }
    case FlashVariable::enthalpy:
        return enthalpy;
    case FlashVariable::entropy:
        return entropy;
    case FlashVariable::volume:
        return volume;
    case FlashVariable::internalEnergy:
        return enthalpy - P * volume;
    case FlashVariable::gibbsEnergy:
        return enthalpy - T * entropy;
    case FlashVariable::helmholtzEnergy:
        return enthalpy - P * volume - T * entropy;
    }
    return 0.0;
}

double gibbsOf(const MixtureModel &model, const FlashResult &result) { return gibbsOf(model, partsOf(model, result)); }

double distanceOf(const MixtureModel &model, const FlashResult &result, const FlashResult &other)
{
    const Part plane = partsOf(model, result).front();
    double least = 0.0;
    for (const Part &part : partsOf(model, other)) {
        double distance = 0.0;
        for (int i = 0; i < model.size; ++i) {
            const double x = (*part.fractions)[i];
            if (x > 0.0)
                distance += x * (std::log(x) + part.properties.state.lnPhi[i] - std::log((*plane.fractions)[i]) -
                                 plane.properties.state.lnPhi[i]);
        }
        least = std::min(least, distance);
    }
    return least;
}

double sizeOf(FlashVariable variable, double value, double temperature)
{
    switch (variable) {
    case FlashVariable::vaporFraction:
    case FlashVariable::vaporMassFraction:
        return 1.0;
    case FlashVariable::temperature:
    case FlashVariable::pressure:
    case FlashVariable::volume:
        return std::fabs(value);
    case FlashVariable::entropy:
        return std::max(std::fabs(value), gasConstant);
    default:
        return std::max(std::fabs(value), gasConstant * temperature);
    }
}

std::string describe(const FlashCase &problem)
{
    std::ostringstream text;
    text.precision(17);
    for (const FlashSpecification &given : {problem.request.first, problem.request.second})
        text << flashVariableName(given.variable) << ' ' << given.value << ", ";
    text << "equation " << static_cast<int>(problem.model.equation) << ", type "
         << static_cast<int>(problem.request.solution) << ", z";
    for (int i = 0; i < problem.model.size; ++i)
        text << ' ' << problem.z[static_cast<std::size_t>(i)] << " (Tc "
             << problem.model.compounds[i].criticalTemperature << ')';
    return text.str();
}

std::string faultOf(const FlashCase &problem, const FlashResult &result)
{
    const MixtureModel &model = problem.model;
    const int n = model.size;
    std::ostringstream fault;
    fault.precision(6);
    if (!(result.temperature > 0.0) || !(result.pressure > 0.0))
        fault << "no conditions; ";
    if (result.phaseCount() == 0)
        return "no phases";
    const std::vector<Part> parts = partsOf(model, result);
    double amounts = 0.0;
    std::vector<double> balance = problem.z;
    for (const Part &part : parts) {
        amounts += part.amount;
        if (!(part.amount >= 0.0 && part.amount <= 1.0))
            fault << "amount " << part.amount << "; ";
        double sum = 0.0;
        for (int i = 0; i < n; ++i) {
            const double x = (*part.fractions)[i];
            sum += x;
            balance[static_cast<std::size_t>(i)] -= part.amount * x;
            if (!(x >= 0.0) || (problem.z[static_cast<std::size_t>(i)] == 0.0 && x != 0.0))
                fault << "fraction " << i << " is " << x << "; ";
        }
        if (!(std::fabs(sum - 1.0) < 1e-12))
            fault << "fractions miss one by " << sum - 1.0 << "; ";
    }
    if (!(std::fabs(amounts - 1.0) < 1e-14))
        fault << "amounts miss one by " << amounts - 1.0 << "; ";
    for (const double rest : balance)
        if (!(std::fabs(rest) < 1e-12))
            fault << "balance " << rest << "; ";

    for (const Part &part : parts)
        for (int i = 0; i < n; ++i) {
            if (problem.z[static_cast<std::size_t>(i)] <= 1e-100)
                continue;
            const double lnRatio = std::log((*part.fractions)[i]) + part.properties.state.lnPhi[i] -
                                   std::log((*parts[0].fractions)[i]) - parts[0].properties.state.lnPhi[i];
            if (!(std::fabs(lnRatio) < 1e-9))
                fault << "fugacity " << i << " by " << lnRatio << "; ";
        }

    // With one root each, the names are a matter of density.
    const auto relativeVolume = [&](const Part &part) {
        return part.properties.volume / covolume(model, *part.fractions);
    };
    for (const Part &part : parts)
        if (parts[0].isVapor && !part.isVapor && !parts[0].properties.state.severalRoots &&
            !part.properties.state.severalRoots && !(relativeVolume(parts[0]) > relativeVolume(part)))
            fault << "the vapor is the denser phase; ";

    const double together = gibbsOf(model, parts);
    if (!allowsOneOnly(problem.request.phases)) {
        PhaseState alone;
        const Isotherm isotherm(model, result.temperature);
        evaluatePhase(model, isotherm, result.pressure, problem.z.data(), Root::stable, alone);
        const double single = gibbs(model, problem.z.data(), alone);
        if (!(together < single + 1e-9 * (1.0 + 1e-2 * std::fabs(single))))
            fault << "Gibbs energy above one phase's by " << together - single << "; ";
    }

    for (const FlashSpecification &given : {problem.request.first, problem.request.second}) {
        const double difference = valueOf(model, problem.z, result, given.variable) - given.value;
        const double relative = difference / sizeOf(given.variable, given.value, result.temperature);
        if (!(std::fabs(relative) < 1e-9))
            fault << flashVariableName(given.variable) << " missed by " << relative << "; ";
    }
    return fault.str();
}

} // namespace reference
