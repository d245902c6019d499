#include "reference/engine/equilibrium/stability.h"

#include "reference/engine/numerics/symmetric_solve.h"
#include "reference/engine/phase/phase_evaluation.h"

#include <algorithm>
#include <cmath>

namespace reference {

namespace {

constexpr double unstable = -1e-11; // a distance below this is no round-off
constexpr double converged = 1e-9;  // largest scaled gradient
constexpr double trivial = 1e-10;   // squared distance from the feed in ln W
constexpr int substitutions = 8;
constexpr int newtonSteps = 40;

// A trial composition with the modified tangent plane distance of Michelsen's eq. 17,
// 1 + sum W_i (ln W_i + ln phi_i(W) - d_i - 1), and its gradient.
struct Trial {
    CompoundArray lnW;
    CompoundArray W;
    CompoundArray w;        // normalized
    CompoundArray gradient; // ln W_i + ln phi_i - d_i
    PhaseState state;
    double total;
    double distance;
    double fromFeed; // squared

    void evaluate(const FlashProblem &problem, Root root)
    {
        const int n = problem.model.size;
        total = 0.0;
        fromFeed = 0.0;
        for (int i = 0; i < n; ++i) {
            W[i] = std::exp(lnW[i]);
            total += W[i];
            fromFeed += (lnW[i] - problem.lnZ[i]) * (lnW[i] - problem.lnZ[i]);
        }
        for (int i = 0; i < n; ++i)
            w[i] = W[i] / total;
        evaluatePhase(problem.model, problem.isotherm, problem.pressure, w.data(), root, state);
        distance = 1.0;
        for (int i = 0; i < n; ++i) {
            gradient[i] = lnW[i] + state.lnPhi[i] - problem.potential[i];
            distance += W[i] * (gradient[i] - 1.0);
        }
    }
    double largestGradient(int n) const
    {
        double largest = 0.0;
        for (int i = 0; i < n; ++i)
            largest = std::max(largest, std::sqrt(W[i]) * std::fabs(gradient[i]));
        return largest;
    }
};

// One step of Newton's method in 2 sqrt(W_i), shortened until the distance falls.
bool newtonStep(const FlashProblem &problem, Root root, Trial &trial)
{
    const int n = problem.model.size;
    PairArray matrix;
    CompoundArray step;
    CompoundArray rootW;
    lnPhiByMoles(problem.model, problem.isotherm, trial.state, matrix);
    for (int i = 0; i < n; ++i) {
        rootW[i] = std::sqrt(trial.W[i]);
        step[i] = -rootW[i] * trial.gradient[i];
    }
    for (int j = 0; j < n; ++j)
        for (int i = 0; i < n; ++i)
            matrix[i + n * j] = (i == j ? 1.0 : 0.0) + rootW[i] * rootW[j] / trial.total * matrix[i + n * j];
    solveDescent(n, matrix, step);

    const Trial before = trial;
    double length = 1.0;
    for (int i = 0; i < n; ++i) // no mole number shall fall to less than a tenth at once
        if (rootW[i] + 0.5 * length * step[i] < 0.3 * rootW[i])
            length = -1.4 * rootW[i] / step[i];
    for (int halving = 0; halving < 12; ++halving, length *= 0.5) {
        for (int i = 0; i < n; ++i)
            trial.lnW[i] = 2.0 * std::log(rootW[i] + 0.5 * length * step[i]);
        trial.evaluate(problem, root);
        if (trial.distance < before.distance)
            return true;
    }
    trial = before;
    return false;
}

} // namespace

FlashProblem::FlashProblem(const MixtureModel &mixture, double temperature, double pascal, const double *fractions)
    : model(mixture), isotherm(mixture, temperature), pressure(pascal), z(fractions)
{
    evaluatePhase(model, isotherm, pressure, z, Root::stable, feed);
    gibbs = 0.0;
    for (int i = 0; i < model.size; ++i) {
        lnZ[i] = std::log(z[i]);
        potential[i] = lnZ[i] + feed.lnPhi[i];
        gibbs += z[i] * potential[i];
    }
}

double wilsonLogRatio(const CompoundTerms &compound, double temperature, double pressure)
{
    const double ratio = std::log(compound.criticalPressure / pressure) +
                         5.373 * (1.0 + compound.acentricFactor) * (1.0 - compound.criticalTemperature / temperature);
    return std::clamp(ratio, -300.0, 300.0);
}

bool splitsOff(const FlashProblem &problem, Root root, CompoundArray &lnW)
{
    const int n = problem.model.size;
    const double direction = root == Root::vapor ? 1.0 : -1.0;
    Trial trial;
    for (int i = 0; i < n; ++i)
        trial.lnW[i] = problem.lnZ[i] + direction * wilsonLogRatio(problem.model.compounds[i],
                                                                   problem.isotherm.temperature, problem.pressure);
    // Only the composition matters at first: start with one mole.
    double largest = *std::max_element(trial.lnW.begin(), trial.lnW.begin() + n);
    double sum = 0.0;
    for (int i = 0; i < n; ++i)
        sum += std::exp(trial.lnW[i] - largest);
    for (int i = 0; i < n; ++i)
        trial.lnW[i] -= largest + std::log(sum);

    trial.evaluate(problem, root);
    for (int step = 0; step < substitutions + newtonSteps; ++step) {
        // A few steps more than the first proof of instability take make a better start for the split.
        if (step >= substitutions / 2 && trial.distance < -1e-4)
            break;
        if (trial.fromFeed < trivial || trial.largestGradient(n) < converged)
            break;
        if (step < substitutions || !newtonStep(problem, root, trial)) {
            if (step >= substitutions && trial.largestGradient(n) < 1e-6)
                break; // the distance cannot fall any more: round-off
            for (int i = 0; i < n; ++i)
                trial.lnW[i] = problem.potential[i] - trial.state.lnPhi[i];
            trial.evaluate(problem, root);
        }
    }
    lnW = trial.lnW;
    return trial.fromFeed >= trivial && trial.distance < unstable;
}

} // namespace reference
