#include "tests/reference/engine/feed_families.h"

#include "reference/engine/equilibrium/flash_tp.h"
#include "tests/reference/engine/mixtures.h"

#include <sstream>

namespace reference {

namespace {

using Names = std::vector<std::string_view>;

const Names refinery = {"hydrogen", "nitrogen",  "carbon monoxide", "carbon dioxide",   "hydrogen sulfide", "methane",
                        "ethane",   "ethylene",  "propane",         "propylene",        "n-butane",         "isobutane",
                        "1-butene", "isobutene", "n-pentane",       "carbonyl sulfide", "n-hexane"};
const Names aromatics = {"benzene",           "toluene",  "ethylbenzene", "o-xylene", "p-xylene", "cyclohexane",
                         "methylcyclohexane", "n-hexane", "n-heptane",    "n-octane", "methane",  "hydrogen"};
const Names wetHydrocarbons = {"water",    "methane",  "ethane",   "propane", "n-butane", "n-pentane",
                               "n-hexane", "n-octane", "n-decane", "benzene", "nitrogen", "carbon dioxide"};
const Names sour = {"hydrogen sulfide", "carbon dioxide", "methane", "ethane", "propane", "n-butane", "nitrogen"};
const Names alcohols = {"water",     "methanol", "ethanol",  "1-propanol", "2-propanol",
                        "1-butanol", "acetone",  "n-hexane", "benzene",    "methane"};

const Names hotWet = {"water",   "n-hexane", "n-heptane", "n-octane", "n-decane", "n-undecane",
                      "benzene", "toluene",  "m-xylene",  "hydrogen", "methane",  "carbon dioxide"};
const Names coldGases = {"nitrogen", "ethane",   "methane", "propane", "carbon monoxide",
                         "ethylene", "hydrogen", "oxygen",  "argon"};
const Names ammoniacal = {"water",     "ammonia",       "n-hexane",       "n-octane", "n-decane", "1-propanol",
                          "1-butanol", "nitrous oxide", "carbon dioxide", "R-125",    "argon",    "helium",
                          "methane",   "propane",       "toluene",        "hydrogen"};

// What a feed is drawn from: some of the compounds, of which the first ones are always there.
struct FeedRange {
    const Names *from;
    std::size_t always, fewest, most;
    double shareOfTraces, trace;
    double coldest, hottest; // K
    double lowest, highest;  // Pa
};

constexpr FeedRange naturalGasRange{&naturalGasCompounds, 1, 3, 11, 0.2, 1e-3, 100.0, 350.0, 1e5, 2e7};
constexpr FeedRange refineryRange{&refinery, 0, 3, 12, 0.2, 1e-3, 90.0, 450.0, 1e5, 3e7};
constexpr FeedRange aromaticRange{&aromatics, 0, 2, 10, 0.2, 1e-3, 250.0, 650.0, 1e4, 1e7};
constexpr FeedRange traceRange{&naturalGasCompounds, 1, 3, 10, 0.6, 1e-8, 150.0, 450.0, 1e4, 2e7};
constexpr FeedRange wetTraceRange{&wetHydrocarbons, 1, 3, 10, 0.6, 1e-8, 150.0, 450.0, 1e4, 2e7};
constexpr FeedRange wetRange{&wetHydrocarbons, 1, 2, 10, 0.15, 1e-4, 250.0, 550.0, 1e5, 3e7};
constexpr FeedRange coldSourRange{&sour, 2, 3, 7, 0.1, 1e-3, 130.0, 280.0, 1e5, 2e7};
constexpr FeedRange alcoholRange{&alcohols, 0, 2, 7, 0.1, 1e-3, 270.0, 500.0, 1e4, 1e7};
constexpr FeedRange hotWetRange{&hotWet, 1, 2, 5, 0.05, 1e-5, 430.0, 600.0, 5e5, 2e7};
constexpr FeedRange coldGasRange{&coldGases, 1, 2, 4, 0.05, 1e-4, 110.0, 150.0, 1e6, 1e7};
constexpr FeedRange ammoniacalRange{&ammoniacal, 2, 3, 6, 0.1, 1e-6, 230.0, 420.0, 1e5, 3e7};

class Draw {
public:
    explicit Draw(std::uint64_t seed) : random(seed * 2654435761u + 17) {}

    double uniform() { return std::uniform_real_distribution<double>(0.0, 1.0)(random); }
    double between(double low, double high) { return low + (high - low) * uniform(); }
    double logBetween(double low, double high) { return low * std::pow(high / low, uniform()); }

    // Some of the compounds, `always` the first ones of them.
    Names some(const Names &from, std::size_t always, std::size_t fewest, std::size_t most)
    {
        Names names = from;
        std::shuffle(names.begin() + static_cast<std::ptrdiff_t>(always), names.end(), random);
        names.resize(std::min<std::size_t>(names.size(), fewest + random() % (most - fewest + 1)));
        return names;
    }

    EquationOfState cubic()
    {
        return uniform() < 0.7 ? EquationOfState::pengRobinson : EquationOfState::soaveRedlichKwong;
    }

    // Mole fractions of which a part are traces.
    std::vector<double> fractions(std::size_t count, double shareOfTraces, double trace)
    {
        std::vector<double> z(count);
        double sum = 0.0;
        while (!(sum > 0.01)) {
            sum = 0.0;
            for (double &fraction : z) {
                const double size = uniform() < shareOfTraces ? trace : 1.0;
                fraction = -size * std::log(1.0 - uniform());
                sum += fraction;
            }
        }
        for (double &fraction : z)
            fraction /= sum;
        return z;
    }

    // In this order, so that every compiler draws the same.
    FeedCase feed(const FeedRange &range)
    {
        const Names names = some(*range.from, range.always, range.fewest, range.most);
        const double temperature = between(range.coldest, range.hottest);
        const double pressure = logBetween(range.lowest, range.highest);
        const auto model = std::make_shared<MixtureModel>(modelOf(names, cubic()));
        return {model, fractions(names.size(), range.shareOfTraces, range.trace), temperature, pressure};
    }

private:
    std::mt19937_64 random;
};

template <const FeedRange &range> FeedCase drawn(std::uint64_t seed) { return Draw(seed).feed(range); }

FeedCase naturalGas(std::uint64_t seed)
{
    FeedCase made = Draw(seed).feed(naturalGasRange);
    made.z[0] += 2.0; // mostly methane
    for (double &fraction : made.z)
        fraction /= 3.0;
    return made;
}

FeedCase traces(std::uint64_t seed)
{
    Draw draw(seed);
    const bool wet = draw.uniform() < 0.5;
    return draw.feed(wet ? wetTraceRange : traceRange);
}

FeedCase anyFeed(Draw &draw)
{
    const Names *const lists[] = {&naturalGasCompounds, &refinery, &wetHydrocarbons, &sour, &aromatics};
    const Names &list = *lists[static_cast<int>(5.0 * draw.uniform())];
    return draw.feed({&list, 1, 2, 9, 0.1, 1e-3, 150.0, 500.0, 1e5, 1e7});
}

int phaseCountOf(const FeedCase &feed)
{
    FlashResult result;
    if (flashTP(*feed.model, feed.temperature, feed.pressure, feed.z, FlashPhases::vaporAndTwoLiquids, result) !=
        FlashStatus::solved)
        return -1;
    return result.phaseCount();
}

// Where the number of phases changes with the pressure, to one part of a hundred to ten million.
FeedCase nearBoundary(std::uint64_t seed)
{
    Draw draw(seed);
    FeedCase made = anyFeed(draw);
    for (int attempt = 0; attempt < 20; ++attempt) {
        made.temperature = draw.between(150.0, 500.0);
        double low = 1e5;
        double high = draw.logBetween(5e5, 3e7);
        const auto countAt = [&](double pressure) {
            made.pressure = pressure;
            return phaseCountOf(made);
        };
        const int atLow = countAt(low);
        if (atLow == countAt(high))
            continue;
        for (int halving = 0; halving < 50; ++halving) {
            const double middle = std::sqrt(low * high);
            (countAt(middle) == atLow ? low : high) = middle;
        }
        const double sign = draw.uniform() < 0.5 ? -1.0 : 1.0;
        made.pressure = low * (1.0 + sign * draw.logBetween(1e-7, 1e-2));
        break;
    }
    return made;
}

// Binaries and ternaries around the mean of their critical temperatures: the phases are nearly alike.
FeedCase nearCritical(std::uint64_t seed)
{
    Draw draw(seed);
    const Names light = {"methane", "ethane", "propane", "carbon dioxide", "hydrogen sulfide", "nitrogen", "n-butane"};
    FeedCase made = draw.feed({&light, 0, 2, 5, 0.0, 1.0, 200.0, 200.0, 1e5, 1e5}); // at conditions that follow
    double temperature = 0.0;
    double pressure = 0.0;
    for (std::size_t i = 0; i < made.z.size(); ++i) {
        temperature += made.z[i] * made.model->compounds[i].criticalTemperature;
        pressure += made.z[i] * made.model->compounds[i].criticalPressure;
    }
    made.temperature = temperature * draw.between(0.95, 1.15);
    // The highest pressure with two phases at this temperature is the place to be near to.
    double top = pressure;
    for (double at = 0.6 * pressure; at < 4.0 * pressure; at *= 1.05) {
        made.pressure = at;
        if (phaseCountOf(made) == 2)
            top = at;
    }
    double none = 1.06 * top;
    for (int halving = 0; halving < 30; ++halving) {
        made.pressure = 0.5 * (top + none);
        (phaseCountOf(made) == 2 ? top : none) = made.pressure;
    }
    made.pressure = top * (1.0 - draw.logBetween(1e-8, 3e-2));
    return made;
}

constexpr FeedFamily families[] = {{"natural gas", naturalGas},          {"refinery", drawn<refineryRange>},
                                   {"aromatics", drawn<aromaticRange>},  {"traces", traces},
                                   {"water", drawn<wetRange>},           {"sour, cold", drawn<coldSourRange>},
                                   {"boundaries", nearBoundary},         {"critical", nearCritical},
                                   {"alcohols", drawn<alcoholRange>},    {"water, hot", drawn<hotWetRange>},
                                   {"gases, cold", drawn<coldGasRange>}, {"ammonia", drawn<ammoniacalRange>}};

} // namespace

std::span<const FeedFamily> feedFamilies() { return families; }

std::string FeedCase::describe() const
{
    std::ostringstream text;
    text.precision(17);
    text << temperature << " K, " << pressure << " Pa, "
         << (model->equation == EquationOfState::pengRobinson ? "Peng-Robinson" : "Soave-Redlich-Kwong");
    for (int i = 0; i < model->size; ++i)
        text << ", " << model->compounds[i].data->id << ' ' << z[static_cast<std::size_t>(i)];
    return text.str();
}

} // namespace reference
