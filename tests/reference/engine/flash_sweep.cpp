#include "tests/reference/engine/flash_sweep.h"

#include "reference/engine/equilibrium/flash_tp.h"
#include "reference/engine/flash/flash_reason.h"
#include "tests/reference/engine/mixtures.h"

#include <cmath>
#include <cstring>
#include <random>

namespace reference {

namespace {

constexpr double lowestT = 80.0;
constexpr double highestT = 700.0;
constexpr double lowestP = 1e3;
constexpr double highestP = 3e7;

// Raoult's law is for low pressures and for liquids well below their critical temperature.
double highestTemperatureOf(const MixtureModel &model)
{
    if (model.equation != EquationOfState::idealMixture)
        return highestFlashTemperature;
    double highest = highestT;
    for (int i = 0; i < model.size; ++i)
        highest = std::min(highest, 0.85 * model.compounds[i].criticalTemperature);
    return highest;
}

double highestPressureOf(const MixtureModel &model)
{
    return model.equation == EquationOfState::idealMixture ? 3e6 : highestFlashPressure;
}

// What a scan by flashes at given temperature and pressure finds along a line of constant temperature or pressure.
class Scan {
public:
    Scan(const FlashCase &of, const FlashSpecification &fixed)
        : problem(of), atTemperature(fixed.variable == FlashVariable::temperature), value(fixed.value)
    {
    }

    // Whether the two-phase region ends somewhere with this vapor fraction, 0 or 1, in a normal or retrograde way.
    bool endsWith(double fraction, SolutionType type) const
    {
        constexpr int steps = 400;
        FlashResult last;
        for (int i = 0; i <= steps; ++i) {
            FlashResult now;
            if (!at(static_cast<double>(i) / steps, now))
                return false;
            if (i > 0 && isTwo(last) != isTwo(now)) {
                // Vapor disappears with rising pressure or falling temperature, in the normal way.
                const bool enters = isTwo(now);
                const SolutionType found = enters == (fraction == (atTemperature ? 1.0 : 0.0))
                                               ? SolutionType::normal
                                               : SolutionType::retrograde;
                const bool wanted = type == SolutionType::unspecified || type == found;
                const FlashResult &outside = enters ? last : now;
                const bool right = fraction == 1.0 ? outside.vaporPresent : outside.liquidPresent;
                if (wanted && right && std::fabs(fractionAtEdge(i, enters) - fraction) < 1e-3)
                    return true;
            }
            last = now;
        }
        return false;
    }

    // Whether a pure compound boils there.
    bool boils() const
    {
        FlashResult first;
        FlashResult last;
        const CompoundTerms &compound = problem.model.compounds[static_cast<std::size_t>(
            std::ranges::find_if(problem.z, [](double z) { return z > 0.0; }) - problem.z.begin())];
        const bool critical = problem.model.equation != EquationOfState::idealMixture &&
                              value > (atTemperature ? compound.criticalTemperature : compound.criticalPressure);
        return !critical && at(0.0, first) && at(1.0, last) && (atTemperature ? first : last).vaporPresent &&
               (atTemperature ? last : first).liquidPresent;
    }

    // Whether a variable passes a value.
    bool passes(const FlashSpecification &wanted) const
    {
        constexpr int steps = 300;
        double before = 0.0;
        for (int i = 0; i <= steps; ++i) {
            FlashResult state;
            if (!at(static_cast<double>(i) / steps, state))
                return false;
            const double now = valueOf(problem.model, problem.z, state, wanted.variable) - wanted.value;
            if (i > 0 && (now < 0.0) != (before < 0.0))
                return true;
            before = now;
        }
        return false;
    }

private:
    const FlashCase &problem;
    bool atTemperature;
    double value;

    static bool isTwo(const FlashResult &state) { return state.vaporPresent && state.liquidPresent; }

    // The vapor fraction where the region begins or ends before this step.
    double fractionAtEdge(int step, bool enters) const
    {
        double one = (step - (enters ? 1 : 0)) / 400.0;
        double two = (step - (enters ? 0 : 1)) / 400.0;
        double fraction = -1.0;
        for (int halving = 0; halving < 45; ++halving) {
            FlashResult state;
            const double middle = 0.5 * (one + two);
            if (!at(middle, state))
                return -1.0;
            (isTwo(state) ? two : one) = middle;
            if (isTwo(state))
                fraction = state.vaporFraction;
        }
        return fraction;
    }

    // `part` of the way from the lowest to the highest of the other condition.
    bool at(double part, FlashResult &state) const
    {
        const double low = atTemperature ? lowestFlashPressure : lowestFlashTemperature;
        const double high = atTemperature ? highestPressureOf(problem.model) : highestTemperatureOf(problem.model);
        const double free = low * std::pow(high / low, part);
        return flashTP(problem.model, atTemperature ? value : free, atTemperature ? free : value, problem.z,
                       FlashPhases::vaporAndTwoLiquids, state) == FlashStatus::solved;
    }
};

class Generator {
public:
    Generator(std::uint64_t seed, Sweep &into) : random(seed), sweep(into) {}

    void run()
    {
        const auto first = static_cast<FlashVariable>(random() % flashVariableCount);
        auto second = first;
        while (second == first)
            second = static_cast<FlashVariable>(random() % flashVariableCount);
        const MixtureModel model = randomModel();
        FlashCase problem{model, randomFractions(random, model.size), {{first, 0.0}, {second, 0.0}}};
        ++countOf(problem).problems;
        if (isFraction(first) && isFraction(second))
            return judgeTwoFractions(problem);
        if (uniform() < 0.1 && !isFraction(first) && !isFraction(second))
            return judgeImpossible(problem);
        if (isFraction(first) || isFraction(second))
            return judgeFraction(problem);
        FlashResult state;
        if (!randomState(problem, state))
            return failedAt(problem, state);
        judgeSolvable(problem, state);
    }

private:
    std::mt19937_64 random;
    Sweep &sweep;

    double uniform() { return std::uniform_real_distribution<double>(0.0, 1.0)(random); }
    double randomTemperature(const MixtureModel &model)
    {
        return lowestT + (std::min(highestT, highestTemperatureOf(model)) - lowestT) * uniform();
    }
    double randomPressure(const MixtureModel &model)
    {
        return lowestP * std::pow(std::min(highestP, highestPressureOf(model)) / lowestP, uniform());
    }

    MixtureModel randomModel()
    {
        std::vector<const CompoundData *> list;
        const std::span<const CompoundData> table = compoundTable();
        const std::size_t wanted = 1 + random() % std::min<std::size_t>(12, table.size());
        while (list.size() < wanted) {
            const CompoundData *chosen = &table[random() % table.size()];
            if (std::ranges::find(list, chosen) == list.end())
                list.push_back(chosen);
        }
        constexpr EquationOfState equations[] = {EquationOfState::pengRobinson, EquationOfState::soaveRedlichKwong,
                                                 EquationOfState::idealMixture};
        const MixtureModel model = MixtureModel::of(list, equations[random() % 3]);
        return highestTemperatureOf(model) > 1.2 * lowestT ? model : MixtureModel::of(list);
    }

    SweepCount &countOf(const FlashCase &problem)
    {
        const int first = static_cast<int>(problem.request.first.variable);
        const int second = static_cast<int>(problem.request.second.variable);
        return sweep.counts[std::min(first, second)][std::max(first, second)];
    }

    void fault(const FlashCase &problem, const std::string &what)
    {
        ++countOf(problem).wrong;
        note(problem, what);
    }

    void miss(const FlashCase &problem, const std::string &what)
    {
        ++countOf(problem).missed;
        note(problem, what);
    }

    void note(const FlashCase &problem, const std::string &what)
    {
        sweep.faults.push_back(what + " | " + describe(problem));
    }

    void failedAt(const FlashCase &problem, const FlashResult &state)
    {
        FlashResult again;
        if (flashTP(problem.model, state.temperature, state.pressure, problem.z, FlashPhases::vaporAndTwoLiquids,
                    again) == FlashStatus::otherPhases) {
            ++countOf(problem).refused;
            return;
        }
        fault(problem, "no phases were found at " + std::to_string(state.temperature) + " K, " +
                           std::to_string(state.pressure) + " Pa");
    }

    bool randomState(const FlashCase &problem, FlashResult &state)
    {
        return flashTP(problem.model, randomTemperature(problem.model), randomPressure(problem.model), problem.z,
                       FlashPhases::vaporAndTwoLiquids, state) == FlashStatus::solved;
    }

    // What is wrong with an answer, and beyond that with its phases beside those that a flash finds at its temperature
    // and pressure: another one would form, or two are nearly one where there are two that are not.
    static std::string faultBesideFlash(const FlashCase &problem, const FlashResult &result)
    {
        if (const std::string what = faultOf(problem, result); !what.empty())
            return what;
        FlashResult there;
        if (flashTP(problem.model, result.temperature, result.pressure, problem.z, problem.request.phases, there) !=
            FlashStatus::solved)
            return "";
        constexpr double noRoundOff = -1e-6;
        if (distanceOf(problem.model, result, there) < noRoundOff)
            return "another phase would form";
        const auto apart = [&](const FlashResult &state) {
            return sumOfDifferences(problem.model.size, state.vapor, state.liquid);
        };
        const auto areTwo = [](const FlashResult &state) {
            return state.vaporPresent && state.liquidPresent && state.phaseCount() == 2;
        };
        const bool nearlyOne = areTwo(result) && areTwo(there) && apart(result) < 0.1 * apart(there);
        return nearlyOne ? "its phases would go further apart" : "";
    }

    void accept(const FlashCase &problem, const FlashResult &result)
    {
        if (const std::string what = faultBesideFlash(problem, result); !what.empty())
            return fault(problem, what);
        ++countOf(problem).solved;
    }

    // The volume of a liquid by activity coefficients, and its Helmholtz energy, are the same at any pressure.
    static bool leavesPressureOpen(const FlashCase &problem, const FlashResult &state)
    {
        const auto isOpen = [](const FlashSpecification &given) {
            return given.variable == FlashVariable::temperature || given.variable == FlashVariable::volume ||
                   given.variable == FlashVariable::helmholtzEnergy;
        };
        return !problem.model.isCubic() && !state.vaporPresent && isOpen(problem.request.first) &&
               isOpen(problem.request.second);
    }

    // Takes the values of a state, and expects one that has them, too.
    void judgeSolvable(FlashCase &problem, const FlashResult &state)
    {
        for (FlashSpecification *given : {&problem.request.first, &problem.request.second})
            given->value = valueOf(problem.model, problem.z, state, given->variable);
        FlashResult result;
        FlashReason reason;
        const FlashStatus status = flash(problem.model, problem.request, problem.z, result, reason);
        if (leavesPressureOpen(problem, state) && !(status == FlashStatus::solved && result.vaporPresent)) {
            ++countOf(problem).refused;
            if (status != FlashStatus::undetermined)
                fault(problem, "a pressure was made up");
            return;
        }
        if (status != FlashStatus::solved)
            return miss(problem, std::string("refused a state that exists, at ") + std::to_string(state.temperature) +
                                     " K, " + std::to_string(state.pressure) + " Pa: " + reason.data());
        accept(problem, result);
    }

    void judgeTwoFractions(FlashCase &problem)
    {
        problem.request.first.value = uniform();
        problem.request.second.value = uniform();
        FlashResult result;
        FlashReason reason;
        if (flash(problem.model, problem.request, problem.z, result, reason) != FlashStatus::undetermined)
            return fault(problem, "two vapor fractions were taken to determine a state");
        ++countOf(problem).refused;
    }

    // A vapor fraction and something else: of two phases, or at a dew or bubble point.
    void judgeFraction(FlashCase &problem)
    {
        const bool firstIsFraction = isFraction(problem.request.first.variable);
        FlashSpecification &fraction = firstIsFraction ? problem.request.first : problem.request.second;
        FlashSpecification &other = firstIsFraction ? problem.request.second : problem.request.first;
        FlashResult state;
        if (uniform() < 0.5)
            for (int attempt = 0; attempt < 100; ++attempt) {
                if (!randomState(problem, state))
                    return failedAt(problem, state);
                if (state.vaporPresent && state.liquidPresent)
                    return judgeSolvable(problem, state);
            }

        // Anything between for a pure compound, of which a flash at given conditions makes no two phases.
        const bool pure = std::ranges::count_if(problem.z, [](double z) { return z > 0.0; }) == 1;
        fraction.value = pure ? uniform() : std::floor(2.0 * uniform());
        const FlashVariable asked = other.variable;
        const bool atTemperature = isCondition(asked) ? asked == FlashVariable::temperature : uniform() < 0.5;
        other = atTemperature ? FlashSpecification{FlashVariable::temperature, randomTemperature(problem.model)}
                              : FlashSpecification{FlashVariable::pressure, randomPressure(problem.model)};
        if (isCondition(asked))
            problem.request.solution = static_cast<SolutionType>(random() % 3);
        FlashResult result;
        FlashReason reason;
        const FlashStatus status = flash(problem.model, problem.request, problem.z, result, reason);
        if (status == FlashStatus::solved) {
            if (isCondition(asked))
                return accept(problem, result);
            if (const std::string what = faultBesideFlash(problem, result); !what.empty()) {
                other.variable = asked;
                return fault(problem, "at the point asked for first: " + what);
            }
            other.variable = asked;
            return judgeSolvable(problem, result);
        }
        const Scan scan(problem, other);
        const bool exists = pure ? scan.boils() && problem.request.solution != SolutionType::retrograde
                                 : scan.endsWith(fraction.value, problem.request.solution);
        const FlashCase judged = problem;
        other.variable = asked;
        if (exists)
            return miss(judged, std::string("there is a solution: ") + reason.data());
        ++countOf(problem).refused;
    }

    // Values that no state has, which a scan or a law tells.
    void judgeImpossible(FlashCase &problem)
    {
        FlashResult state;
        if (!randomState(problem, state))
            return failedAt(problem, state);
        FlashSpecification &first = problem.request.first;
        FlashSpecification &second = problem.request.second;
        for (FlashSpecification *given : {&first, &second})
            given->value = valueOf(problem.model, problem.z, state, given->variable);
        // A condition stays as it is; everything else goes where nothing is, by a random sign.
        FlashSpecification &moved = isCondition(second.variable) ? first : second;
        if (isCondition(moved.variable))
            moved.value = uniform() < 0.5 ? -moved.value : 1e12; // beyond what is a temperature or pressure here
        else if (moved.variable == FlashVariable::volume)
            moved.value = uniform() < 0.5 ? 1e-7 : 1e9; // denser than any liquid, thinner than any gas
        else
            moved.value = (uniform() < 0.5 ? -1.0 : 1.0) * 1e8;
        FlashResult result;
        FlashReason reason;
        const FlashStatus status = flash(problem.model, problem.request, problem.z, result, reason);
        if (status == FlashStatus::solved)
            return accept(problem, result);
        const FlashSpecification &kept = &moved == &first ? second : first;
        if (isCondition(kept.variable) && !isCondition(moved.variable) && Scan(problem, kept).passes(moved))
            return miss(problem, std::string("there is a solution: ") + reason.data());
        if (std::strlen(reason.data()) < 20)
            return fault(problem, "no reason");
        ++countOf(problem).refused;
    }
};

} // namespace

void SweepCount::add(const SweepCount &other)
{
    problems += other.problems;
    solved += other.solved;
    refused += other.refused;
    missed += other.missed;
    wrong += other.wrong;
}

SweepCount Sweep::total() const
{
    SweepCount sum;
    for (const auto &row : counts)
        for (const SweepCount &count : row)
            sum.add(count);
    return sum;
}

Sweep sweepFlashes(std::uint64_t seed, int count)
{
    Sweep sweep;
    for (int i = 0; i < count; ++i)
        Generator(seed + static_cast<std::uint64_t>(i), sweep).run();
    return sweep;
}

} // namespace reference
