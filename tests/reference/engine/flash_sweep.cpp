#include "tests/reference/engine/flash_sweep.h"

#include "reference/engine/flash_reason.h"
#include "tests/reference/engine/mixtures.h"

#include <random>

namespace reference {

namespace {

constexpr double lowestT = 80.0;
constexpr double highestT = 700.0;
constexpr double lowestP = 1e3;
constexpr double highestP = 3e7;

bool isFraction(FlashVariable variable)
{
    return variable == FlashVariable::vaporFraction || variable == FlashVariable::vaporMassFraction;
}

class Generator {
public:
    Generator(std::uint64_t seed, Sweep &into) : random(seed), sweep(into) {}

    void run()
    {
        const MixtureModel model = randomModel();
        const std::vector<double> z = randomComposition(model.size);
        const double T = lowestT + (highestT - lowestT) * uniform();
        const double P = lowestP * std::pow(highestP / lowestP, uniform());
        FlashResult state;
        if (flashTP(model, T, P, z, state) != FlashStatus::solved) {
            fault({model, z, {{FlashVariable::temperature, T}, {FlashVariable::pressure, P}}}, "TP flash failed");
            return;
        }
        int first = static_cast<int>(random() % flashVariableCount);
        int second = static_cast<int>(random() % (flashVariableCount - 1));
        second += second >= first;
        judge(model, z, state, static_cast<FlashVariable>(first), static_cast<FlashVariable>(second));
    }

private:
    std::mt19937_64 random;
    Sweep &sweep;

    double uniform() { return std::uniform_real_distribution<double>(0.0, 1.0)(random); }

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
        return MixtureModel::of(list);
    }

    std::vector<double> randomComposition(int size) { return randomFractions(random, size); }

    SweepCount &countOf(const FlashCase &problem)
    {
        const int first = static_cast<int>(problem.request.first.variable);
        const int second = static_cast<int>(problem.request.second.variable);
        return sweep.counts[std::min(first, second)][std::max(first, second)];
    }

    void fault(const FlashCase &problem, const std::string &what)
    {
        ++countOf(problem).faults;
        sweep.faults.push_back(what + " | " + describe(problem));
    }

    void judge(const MixtureModel &model, const std::vector<double> &z, const FlashResult &state, FlashVariable first,
               FlashVariable second)
    {
        FlashCase problem{model,
                          z,
                          {{first, valueOf(model, z, state, first)}, {second, valueOf(model, z, state, second)}}};
        ++countOf(problem).problems;
        FlashResult result;
        FlashReason reason;
        const FlashStatus status = flash(model, problem.request, z, result, reason);
        if (status == FlashStatus::solved) {
            if (const std::string what = faultOf(problem, result); !what.empty())
                return fault(problem, what);
            ++countOf(problem).solved;
            return;
        }
        if (status == FlashStatus::undetermined && isFraction(first) && isFraction(second)) {
            ++countOf(problem).refused;
            return;
        }
        fault(problem, std::string("refused: ") + reason.data());
    }
};

} // namespace

SweepCount Sweep::total() const
{
    SweepCount sum;
    for (const auto &row : counts)
        for (const SweepCount &count : row) {
            sum.problems += count.problems;
            sum.solved += count.solved;
            sum.refused += count.refused;
            sum.faults += count.faults;
        }
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
