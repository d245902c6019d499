// The longest flash of each pair of specifications over random states of every package: two values of one state, values
// of two states, and a vapor fraction with a value of another state, as a fraction of one and the enthalpy of what is
// far above its dew point. Ends with 1 if an answer is wrong or a flash takes longer than allowed.
#include "reference/engine/equilibrium/flash_tp.h"
#include "reference/package/package_table.h"
#include "tests/reference/engine/flash_check.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <random>

namespace {

using namespace reference;

MixtureModel modelOf(const PackageDefinition &package)
{
    std::vector<const CompoundData *> list;
    for (const std::string_view id : package.compounds)
        list.push_back(findCompound(id));
    if (list.empty())
        for (const CompoundData &compound : compoundTable())
            list.push_back(&compound);
    return MixtureModel::of(list, package.equation);
}

class Draw {
public:
    explicit Draw(std::uint64_t seed) : random(seed * 2654435761u + 17) {}

    double uniform() { return std::uniform_real_distribution<double>(0.0, 1.0)(random); }

    // Of all compounds, or of a few of them; one of three with equal parts.
    std::vector<double> fractions(int n)
    {
        std::vector<double> z(static_cast<std::size_t>(n));
        const double share = uniform() < 0.5 ? 1.0 : 4.0 / n;
        const bool equal = uniform() < 1.0 / 3.0;
        double sum = 0.0;
        while (sum == 0.0)
            for (double &fraction : z)
                sum += fraction = uniform() >= share ? 0.0 : equal ? 1.0 : -std::log(1.0 - uniform());
        for (double &fraction : z)
            fraction /= sum;
        return z;
    }

private:
    std::mt19937_64 random;
};

// A state between 0.6 and 1.4 of the mean critical temperature, up to twice the mean critical pressure.
bool findState(Draw &draw, const MixtureModel &model, const std::vector<double> &z, FlashResult &state)
{
    double temperature = 0.0;
    double pressure = 0.0;
    for (int i = 0; i < model.size; ++i) {
        temperature += z[static_cast<std::size_t>(i)] * model.compounds[i].criticalTemperature;
        pressure += z[static_cast<std::size_t>(i)] * model.compounds[i].criticalPressure;
    }
    constexpr double lowest = 2e4;
    return flashTP(model, temperature * (0.6 + 0.8 * draw.uniform()),
                   lowest * std::pow(2.0 * pressure / lowest, draw.uniform()), z, FlashPhases::vaporAndTwoLiquids,
                   state) == FlashStatus::solved;
}

struct Longest {
    int flashes = 0;
    double sum = 0.0;  // s
    double most = 0.0; // s
    std::string where;

    void add(double seconds, const std::string &what)
    {
        ++flashes;
        sum += seconds;
        if (seconds <= most)
            return;
        most = seconds;
        where = what;
    }
};

struct PairTimes {
    Longest solved;
    Longest refused;
    int wrong = 0;
};

void time(const FlashCase &problem, PairTimes &times)
{
    FlashResult result;
    FlashReason reason{};
    const std::clock_t start = std::clock();
    const FlashStatus status = flash(problem.model, problem.request, problem.z, result, reason);
    const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    const std::string what = describe(problem);
    if (status != FlashStatus::solved)
        return times.refused.add(seconds, what + ": " + reason.data());
    times.solved.add(seconds, what);
    if (const std::string fault = faultOf(problem, result); !fault.empty()) {
        ++times.wrong;
        std::printf("%s | %s\n", fault.c_str(), what.c_str());
    }
}

} // namespace

// longest_flashes [STATES [FIRST [ALLOWED [PACKAGE]]]]: so many pairs of states of each package, numbered from FIRST;
// ALLOWED in seconds of the processor; a package by its place in the table.
int main(int count, char **arguments)
{
    const int states = count > 1 ? std::atoi(arguments[1]) : 10;
    const std::uint64_t first = count > 2 ? std::strtoull(arguments[2], nullptr, 10) : 1;
    const double allowed = count > 3 ? std::atof(arguments[3]) : 1.0;
    const int only = count > 4 ? std::atoi(arguments[4]) : -1;
    bool good = true;
    for (std::size_t which = 0; which < packageTable().size(); ++which) {
        if (only >= 0 && which != static_cast<std::size_t>(only))
            continue;
        const PackageDefinition &package = packageTable()[which];
        const MixtureModel model = modelOf(package);
        static PairTimes times[flashVariableCount][flashVariableCount];
        for (auto &row : times)
            std::fill(std::begin(row), std::end(row), PairTimes{});
        for (int i = 0; i < states; ++i) {
            Draw draw(first + static_cast<std::uint64_t>(i));
            const std::vector<double> z = draw.fractions(model.size);
            FlashResult one;
            FlashResult other;
            if (!findState(draw, model, z, one) || !findState(draw, model, z, other))
                continue;
            const double ends[] = {0.0, 0.5, 1.0};
            const double part = ends[static_cast<int>(3.0 * draw.uniform())];
            for (int a = 0; a < flashVariableCount; ++a)
                for (int b = a + 1; b < flashVariableCount; ++b) {
                    const auto firstOf = static_cast<FlashVariable>(a);
                    const auto secondOf = static_cast<FlashVariable>(b);
                    if (refusalOf(firstOf, secondOf))
                        continue;
                    const auto given = [&](const FlashResult &state, FlashVariable variable) {
                        return FlashSpecification{variable, valueOf(model, z, state, variable)};
                    };
                    PairTimes &pair = times[a][b];
                    time({model, z, {given(one, firstOf), given(one, secondOf)}}, pair);
                    time({model, z, {given(one, firstOf), given(other, secondOf)}}, pair);
                    if (isFraction(firstOf))
                        time({model, z, {{firstOf, part}, given(other, secondOf)}}, pair);
                    else if (isFraction(secondOf))
                        time({model, z, {given(other, firstOf), {secondOf, part}}}, pair);
                }
        }
        std::printf("%.*s\n%-20s %-20s %7s %9s %9s %7s %9s %9s %6s\n", static_cast<int>(package.name.size()),
                    package.name.data(), "", "", "solved", "ms each", "longest", "refused", "ms each", "longest",
                    "wrong");
        for (int a = 0; a < flashVariableCount; ++a)
            for (int b = a + 1; b < flashVariableCount; ++b) {
                const PairTimes &pair = times[a][b];
                if (pair.solved.flashes + pair.refused.flashes == 0)
                    continue;
                const auto each = [](const Longest &of) { return of.flashes ? 1e3 * of.sum / of.flashes : 0.0; };
                std::printf("%-20s %-20s %7d %9.2f %9.1f %7d %9.2f %9.1f %6d\n",
                            flashVariableName(static_cast<FlashVariable>(a)),
                            flashVariableName(static_cast<FlashVariable>(b)), pair.solved.flashes, each(pair.solved),
                            1e3 * pair.solved.most, pair.refused.flashes, each(pair.refused), 1e3 * pair.refused.most,
                            pair.wrong);
                for (const Longest *of : {&pair.solved, &pair.refused})
                    if (of->most > allowed)
                        std::printf("  %.2f s: %s\n", of->most, of->where.c_str());
                good = good && pair.wrong == 0 && pair.solved.most <= allowed && pair.refused.most <= allowed;
            }
        std::fflush(stdout);
    }
    return good ? 0 : 1;
}
