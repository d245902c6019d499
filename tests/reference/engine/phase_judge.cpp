#include "tests/reference/engine/phase_judge.h"

#include "reference/engine/phase/phase_evaluation.h"
#include "tests/reference/engine/minimizer.h"

#include <optional>
#include <random>

namespace reference {

namespace {

constexpr double unstable = -1e-10; // a distance from the tangent plane that is no round-off
constexpr std::size_t mostPhases = 5;

struct Trial {
    Numbers lnW;
    double distance;
};

class Judge {
public:
    Judge(const MixtureModel &few, double temperature, double pressure, Numbers amounts)
        : model(few), isotherm(few, temperature), P(pressure), z(std::move(amounts)), n(z.size())
    {
    }

    JudgedState find()
    {
        std::vector<Numbers> moles = {z};
        double gibbs = gibbsOf(moles);
        double distance = 0.0;
        for (int round = 0; round < 12; ++round) {
            const std::vector<Trial> trials = lowest(moles);
            distance = trials.empty() ? 0.0 : trials.front().distance;
            if (distance > unstable)
                break;
            bool fell = false;
            for (const Trial &trial : trials) {
                std::vector<Numbers> next = moles;
                if (!add(trial, next))
                    continue;
                const double nextGibbs = settle(next);
                if (nextGibbs < gibbs - 1e-14 * (1.0 + std::fabs(gibbs))) {
                    moles = next;
                    gibbs = nextGibbs;
                    fell = true;
                    break;
                }
            }
            if (!fell)
                break;
        }
        return stateOf(moles, gibbs, distance);
    }

private:
    const MixtureModel &model;
    const Isotherm isotherm;
    const double P;
    const Numbers z;
    const std::size_t n;

    PhaseState phaseOf(const Numbers &x, Root root) const
    {
        PhaseState state;
        evaluatePhase(model, isotherm, P, x.data(), root, state);
        return state;
    }

    static double sumOf(const Numbers &values) { return std::accumulate(values.begin(), values.end(), 0.0); }

    Numbers fractionsOf(const Numbers &moles) const
    {
        Numbers x = moles;
        const double sum = sumOf(moles);
        for (double &fraction : x)
            fraction /= sum;
        return x;
    }

    // ln x_i + ln phi_i of a phase.
    Numbers potentialOf(const Numbers &moles) const
    {
        Numbers x = fractionsOf(moles);
        const PhaseState state = phaseOf(x, Root::stable);
        for (std::size_t i = 0; i < n; ++i)
            x[i] = std::log(x[i]) + state.lnPhi[i];
        return x;
    }

    double gibbsOf(const std::vector<Numbers> &phases) const
    {
        double sum = 0.0;
        for (const Numbers &moles : phases)
            sum += dot(moles, potentialOf(moles));
        return sum;
    }

    // Each compound's potential in the phase that has most of it.
    Numbers tangentPlane(const std::vector<Numbers> &phases) const
    {
        Numbers plane(n);
        Numbers most(n, -1.0);
        for (const Numbers &moles : phases) {
            const Numbers potential = potentialOf(moles);
            for (std::size_t i = 0; i < n; ++i)
                if (moles[i] > most[i]) {
                    most[i] = moles[i];
                    plane[i] = potential[i];
                }
        }
        return plane;
    }

    std::vector<Numbers> starts(const std::vector<Numbers> &phases) const
    {
        std::vector<Numbers> list;
        const auto richIn = [&](std::size_t main, double share) {
            Numbers start(n);
            for (std::size_t i = 0; i < n; ++i)
                start[i] = (1.0 - share) * z[i] + (i == main ? share : 0.0);
            list.push_back(start);
        };
        for (std::size_t i = 0; i < n; ++i)
            for (const double share : {0.6, 0.95, 0.9999})
                richIn(i, share);
        for (const double power : {1.0, -1.0, 1.0 / 3.0, -1.0 / 3.0, 2.0, -2.0}) {
            Numbers start(n);
            for (std::size_t i = 0; i < n; ++i) {
                const CompoundTerms &compound = model.compounds[i];
                const double volatility = std::log(compound.criticalPressure / P) +
                                          5.37 * (1.0 + compound.acentricFactor) *
                                              (1.0 - compound.criticalTemperature / isotherm.temperature);
                start[i] = z[i] * std::exp(std::clamp(power * volatility, -200.0, 200.0));
            }
            list.push_back(start);
        }
        for (const Numbers &one : phases)
            for (const Numbers &other : phases) {
                const Numbers x = fractionsOf(one);
                const Numbers y = fractionsOf(other);
                Numbers start(n);
                for (std::size_t i = 0; i < n; ++i)
                    start[i] = 0.5 * (x[i] + y[i]);
                list.push_back(start);
            }
        list.push_back(Numbers(n, 1.0));
        std::mt19937_64 random(7);
        std::uniform_real_distribution<double> uniform(0.0, 1.0);
        for (int draw = 0; draw < 12; ++draw) { // pairs of compounds
            Numbers start = z;
            for (double &amount : start)
                amount *= 0.05;
            start[random() % n] += uniform(random);
            start[random() % n] += uniform(random);
            list.push_back(start);
        }
        for (int draw = 0; draw < 12; ++draw) {
            Numbers start(n);
            for (double &amount : start)
                amount = std::pow(uniform(random), 4.0);
            list.push_back(start);
        }
        return list;
    }

    // The stationary points of the distance from the tangent plane that lie below it, the lowest first.
    std::vector<Trial> lowest(const std::vector<Numbers> &phases) const
    {
        const Numbers plane = tangentPlane(phases);
        std::vector<Trial> found;
        for (const Numbers &start : starts(phases))
            for (const Root root : {Root::vapor, Root::liquid})
                if (std::optional<Trial> trial = descend(start, root, plane, phases)) {
                    const auto same = [&](const Trial &other) {
                        return std::fabs(other.distance - trial->distance) < 1e-6 * std::fabs(trial->distance);
                    };
                    if (std::ranges::none_of(found, same))
                        found.push_back(*trial);
                }
        std::ranges::sort(found, {}, &Trial::distance);
        return found;
    }

    double distanceOf(const Numbers &lnW, Root root, const Numbers &plane, Numbers &slope) const
    {
        Numbers W(n);
        for (std::size_t i = 0; i < n; ++i)
            W[i] = std::exp(std::clamp(lnW[i], -600.0, 300.0));
        const PhaseState state = phaseOf(fractionsOf(W), root);
        double distance = 1.0;
        for (std::size_t i = 0; i < n; ++i) {
            slope[i] = lnW[i] + state.lnPhi[i] - plane[i];
            distance += W[i] * (slope[i] - 1.0);
        }
        return distance;
    }

    bool isOneOf(const std::vector<Numbers> &phases, const Numbers &lnW, double within) const
    {
        return std::ranges::any_of(phases, [&](const Numbers &moles) {
            const Numbers x = fractionsOf(moles);
            double away = 0.0;
            for (std::size_t i = 0; i < n; ++i)
                away = std::max(away, std::fabs(std::exp(lnW[i]) - x[i]));
            return away < within;
        });
    }

    std::optional<Trial> descend(const Numbers &start, Root root, const Numbers &plane,
                                 const std::vector<Numbers> &phases) const
    {
        Numbers lnW = fractionsOf(start);
        for (double &value : lnW)
            value = std::log(std::max(value, 1e-250));
        Numbers slope(n);
        double distance = distanceOf(lnW, root, plane, slope);
        double length = 1.0;
        for (int step = 0; step < 60 && length > 1e-3; ++step) {
            Numbers next = lnW;
            for (std::size_t i = 0; i < n; ++i)
                next[i] -= length * slope[i];
            Numbers nextSlope(n);
            const double nextDistance = distanceOf(next, root, plane, nextSlope);
            if (!(nextDistance < distance + 1e-14) && step > 0) {
                length *= 0.5;
                continue;
            }
            const double change = distance - nextDistance;
            lnW = next;
            slope = nextSlope;
            distance = nextDistance;
            if (isOneOf(phases, lnW, 1e-7))
                return std::nullopt;
            if (step > 0 && change < 1e-13 * (1.0 + std::fabs(distance)))
                break;
        }
        if (distance < 0.5) { // otherwise nothing is near
            Numbers root2(n); // 2 sqrt(W): there the second derivatives of an ideal mixture are one
            for (std::size_t i = 0; i < n; ++i)
                root2[i] = 2.0 * std::exp(0.5 * lnW[i]);
            const auto function = [&](const Numbers &at, Numbers &gradient) {
                Numbers logarithm(n);
                for (std::size_t i = 0; i < n; ++i)
                    logarithm[i] = 2.0 * std::log(std::max(0.5 * std::fabs(at[i]), 1e-150));
                const double value = distanceOf(logarithm, root, plane, gradient);
                for (std::size_t i = 0; i < n; ++i)
                    gradient[i] *= 0.5 * at[i];
                return value;
            };
            distance = minimize(function, root2, 60);
            for (std::size_t i = 0; i < n; ++i)
                lnW[i] = 2.0 * std::log(std::max(0.5 * std::fabs(root2[i]), 1e-150));
        }
        if (!(distance < unstable) || isOneOf(phases, lnW, 1e-6))
            return std::nullopt;
        return Trial{lnW, distance};
    }

    // Takes some of a trial phase out of the phases there are: as much as lowers the Gibbs energy most.
    bool add(const Trial &trial, std::vector<Numbers> &phases) const
    {
        if (phases.size() == mostPhases)
            return false;
        Numbers w(n);
        for (std::size_t i = 0; i < n; ++i)
            w[i] = std::exp(trial.lnW[i]);
        w = fractionsOf(w);
        double amount = 1.0;
        for (std::size_t i = 0; i < n; ++i)
            amount = std::min(amount, 0.95 * z[i] / w[i]);
        double best = gibbsOf(phases);
        std::optional<std::vector<Numbers>> chosen;
        for (int halving = 0; halving < 60; ++halving, amount *= 0.5) {
            std::vector<Numbers> next = phases;
            for (Numbers &moles : next)
                for (std::size_t i = 0; i < n; ++i)
                    moles[i] *= 1.0 - amount * w[i] / z[i];
            Numbers added = w;
            for (double &moles : added)
                moles *= amount;
            next.push_back(added);
            const double gibbs = gibbsOf(next);
            if (gibbs < best) {
                best = gibbs;
                chosen = next;
            }
        }
        if (chosen)
            phases = *chosen;
        return chosen.has_value();
    }

    // Moves the compounds between the phases to the least Gibbs energy, which is returned; phases that vanish or become
    // one with another go.
    double settle(std::vector<Numbers> &phases) const
    {
        double gibbs = distribute(phases);
        for (std::size_t k = 0; phases.size() > 1 && k < phases.size();) {
            std::vector<Numbers> fewer = without(phases, k);
            const bool isLittle = sumOf(phases[k]) < 1e-3 || isTwice(phases, k);
            const double fewerGibbs = isLittle ? distribute(fewer) : 0.0;
            if (isLittle && fewerGibbs <= gibbs + 1e-13) {
                phases = fewer;
                gibbs = fewerGibbs;
                k = 0;
            } else {
                ++k;
            }
        }
        return gibbs;
    }

    bool isTwice(const std::vector<Numbers> &phases, std::size_t k) const
    {
        Numbers logarithm = fractionsOf(phases[k]);
        for (double &value : logarithm)
            value = std::log(value);
        return isOneOf(without(phases, k, false), logarithm, 1e-3);
    }

    // The phases but one, which the others share out among them.
    std::vector<Numbers> without(const std::vector<Numbers> &phases, std::size_t k, bool share = true) const
    {
        std::vector<Numbers> fewer = phases;
        fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(k));
        if (share)
            for (std::size_t i = 0; i < n; ++i) {
                double rest = 0.0;
                for (const Numbers &moles : fewer)
                    rest += moles[i];
                for (Numbers &moles : fewer)
                    moles[i] *= z[i] / rest;
            }
        return fewer;
    }

    // A compound's moles in phase k are z_i exp(t_ik) / sum over m of exp(t_im): no bound is met whatever the t.
    double distribute(std::vector<Numbers> &phases) const
    {
        double gibbs = gibbsOf(phases);
        if (phases.size() == 1)
            return gibbs;
        for (int round = 0; round < 60; ++round) {
            gibbs = exchange(phases, gibbs);
            const std::size_t count = n * phases.size();
            Numbers start(count);
            Numbers scale(count);
            for (std::size_t k = 0; k < phases.size(); ++k)
                for (std::size_t i = 0; i < n; ++i) {
                    const double share = std::clamp(phases[k][i] / z[i], 1e-200, 1.0);
                    start[k * n + i] = std::log(share);
                    scale[k * n + i] = 1.0 / std::sqrt(std::max(z[i] * share * (1.0 - share), 1e-30));
                }
            const auto molesAt = [&](const Numbers &at) {
                std::vector<Numbers> moles(phases.size(), Numbers(n));
                for (std::size_t i = 0; i < n; ++i) {
                    double highest = -1e300;
                    for (std::size_t k = 0; k < phases.size(); ++k)
                        highest = std::max(highest, start[k * n + i] + scale[k * n + i] * at[k * n + i]);
                    double sum = 0.0;
                    for (std::size_t k = 0; k < phases.size(); ++k) {
                        const double t = start[k * n + i] + scale[k * n + i] * at[k * n + i] - highest;
                        moles[k][i] = std::exp(std::max(t, -500.0));
                        sum += moles[k][i];
                    }
                    for (std::size_t k = 0; k < phases.size(); ++k)
                        moles[k][i] *= z[i] / sum;
                }
                return moles;
            };
            const auto function = [&](const Numbers &at, Numbers &gradient) {
                const std::vector<Numbers> moles = molesAt(at);
                double value = 0.0;
                Numbers mean(n);
                for (std::size_t k = 0; k < phases.size(); ++k) {
                    const Numbers potential = potentialOf(moles[k]);
                    value += dot(moles[k], potential);
                    for (std::size_t i = 0; i < n; ++i) {
                        gradient[k * n + i] = potential[i];
                        mean[i] += moles[k][i] / z[i] * potential[i];
                    }
                }
                for (std::size_t k = 0; k < phases.size(); ++k)
                    for (std::size_t i = 0; i < n; ++i)
                        gradient[k * n + i] = scale[k * n + i] * moles[k][i] * (gradient[k * n + i] - mean[i]);
                return value;
            };
            Numbers at(count);
            const double next = minimize(function, at, 150);
            phases = molesAt(at);
            const double fall = gibbs - next;
            gibbs = next;
            if (fall < 1e-14)
                break;
        }
        return gibbs;
    }

    // Lets every compound divide between the phases as its fugacity coefficients there ask, while that helps: traces
    // move by powers of ten.
    double exchange(std::vector<Numbers> &phases, double gibbs) const
    {
        double length = 1.0;
        for (int step = 0; step < 40 && length > 0.1; ++step) {
            std::vector<Numbers> next = phases;
            for (Numbers &moles : next) {
                const Numbers potential = potentialOf(moles);
                for (std::size_t i = 0; i < n; ++i)
                    moles[i] = std::log(moles[i]) - length * potential[i];
            }
            for (std::size_t i = 0; i < n; ++i) {
                double highest = -1e300;
                for (const Numbers &logarithm : next)
                    highest = std::max(highest, logarithm[i]);
                double sum = 0.0;
                for (Numbers &moles : next)
                    sum += moles[i] = std::exp(std::max(moles[i] - highest, -500.0));
                for (Numbers &moles : next)
                    moles[i] *= z[i] / sum;
            }
            const double nextGibbs = gibbsOf(next);
            if (!(nextGibbs < gibbs)) {
                length *= 0.5;
                continue;
            }
            phases = next;
            gibbs = nextGibbs;
        }
        return gibbs;
    }

    JudgedState stateOf(const std::vector<Numbers> &phases, double gibbs, double distance) const
    {
        JudgedState state{{}, gibbs, distance};
        for (const Numbers &moles : phases) {
            const Numbers x = fractionsOf(moles);
            const PhaseState phase = phaseOf(x, Root::stable);
            state.phases.push_back({x, sumOf(moles), phase.severalRoots, phase.vaporRoot});
        }
        return state;
    }
};

} // namespace

bool JudgedState::canBeNamed() const
{
    const auto vapors =
        std::ranges::count_if(phases, [](const JudgedPhase &phase) { return phase.severalRoots && phase.vaporRoot; });
    const auto liquids =
        std::ranges::count_if(phases, [](const JudgedPhase &phase) { return phase.severalRoots && !phase.vaporRoot; });
    return distance > unstable && phases.size() <= 3 && vapors <= 1 && liquids <= 2;
}

JudgedState judge(const MixtureModel &model, double temperature, double pressure, const std::vector<double> &z)
{
    std::vector<int> present;
    Numbers amounts;
    for (int i = 0; i < model.size; ++i)
        if (z[static_cast<std::size_t>(i)] > 1e-100) {
            present.push_back(i);
            amounts.push_back(z[static_cast<std::size_t>(i)]);
        }
    const MixtureModel few = model.subset(present);
    return Judge(few, temperature, pressure, amounts).find();
}

} // namespace reference
