#include "reference/engine/flash/two_phase_point.h"

#include "reference/engine/eos/gas_constant.h"
#include "reference/engine/equilibrium/rachford_rice.h"
#include "reference/engine/flash/near_phases.h"
#include "reference/engine/phase/phase_evaluation.h"

#include <algorithm>
#include <cmath>

namespace reference {

namespace {

constexpr int mostSteps = 30;
constexpr double solved = 1e-12;     // largest residual aimed at
constexpr double goodEnough = 1e-11; // where round-off lets no more
constexpr double smallStep = 0.01;   // of the difference of phases that are nearly one

double sumOf(int n, const CompoundArray &values)
{
    double sum = 0.0;
    for (int i = 0; i < n; ++i)
        sum += values[i];
    return sum;
}

void evaluatePart(const Feed &feed, const Isotherm &isotherm, double pressure, const CompoundArray &amounts, Root root,
                  PhaseProperties &properties)
{
    const int n = feed.size();
    const double sum = sumOf(n, amounts);
    CompoundArray fractions;
    for (int i = 0; i < n; ++i)
        fractions[i] = amounts[i] / sum;
    evaluateProperties(feed.model, isotherm, pressure, fractions.data(), root, properties);
    addDerivatives(feed.model, isotherm, properties);
}

// By how much one mole of a compound changes a total when it passes into the vapor.
double changeByTransfer(FlashVariable variable, double enthalpy, double volume, double potential, const Totals &at)
{
    switch (variable) {
    case FlashVariable::enthalpy:
        return enthalpy;
    case FlashVariable::entropy:
        return (enthalpy - potential) / at.temperature;
    case FlashVariable::volume:
        return volume;
    case FlashVariable::internalEnergy:
        return enthalpy - at.pressure * volume;
    case FlashVariable::gibbsEnergy:
        return potential;
    default:
        return potential - at.pressure * volume; // Helmholtz energy
    }
}

// One row of the equations: that a variable of the whole mixture has its value.
void closeByVariable(const Feed &feed, const TwoPhasePoint &point, const FlashSpecification &given, int row,
                     TwoPhaseEquations &equations)
{
    const int n = feed.size();
    const int amount = TwoPhasePoint::amountAt(n);
    const double T = point.totals.temperature;
    const double P = point.totals.pressure;
    SquareMatrix &slopes = equations.slopes;
    double &residual = equations.residuals[row];
    switch (given.variable) {
    case FlashVariable::temperature:
        residual = point.unknowns[TwoPhasePoint::temperatureAt(n)] - std::log(given.value);
        slopes.at(row, TwoPhasePoint::temperatureAt(n)) = 1.0;
        return;
    case FlashVariable::pressure:
        residual = point.unknowns[TwoPhasePoint::pressureAt(n)] - std::log(given.value);
        slopes.at(row, TwoPhasePoint::pressureAt(n)) = 1.0;
        return;
    case FlashVariable::vaporFraction:
        residual = point.unknowns[amount] - (point.countsLiquid ? 1.0 - given.value : given.value);
        slopes.at(row, amount) = 1.0;
        return;
    default:
        break;
    }

    const double vaporAmount = point.vaporAmount(n);
    const double liquidAmount = point.liquidAmount(n);
    const double sign = point.countsLiquid ? -1.0 : 1.0; // of what a change of the amount is for the vapor
    const bool mass = given.variable == FlashVariable::vaporMassFraction;
    double scale = 0.0;
    if (mass) {
        scale = 1.0 / (vaporAmount * feed.model.molecularWeight(point.y.data()) +
                       liquidAmount * feed.model.molecularWeight(point.x.data()));
        residual =
            point.countsLiquid ? (1.0 - given.value) - point.liquidMassFraction : point.vaporMassFraction - given.value;
    } else {
        scale = 1.0 / scaleOf(given, T);
        residual = (point.value(n, given.variable) - given.value) * scale;
    }
    for (int i = 0; i < n; ++i) {
        double change = 0.0;
        if (mass) {
            change = scale * feed.model.compounds[i].molecularWeight;
        } else {
            const double enthalpy =
                -gasConstant * T * T * (point.vapor.slopes.lnPhiByT[i] - point.liquid.slopes.lnPhiByT[i]);
            const double volume = gasConstant * T * (point.vapor.slopes.lnPhiByP[i] - point.liquid.slopes.lnPhiByP[i]);
            const double potential = gasConstant * T * equations.residuals[i];
            change = scale * changeByTransfer(given.variable, enthalpy, volume, potential, point.totals);
        }
        // Moles of vapor: z_i amount K_i / (liquid + amount K_i).
        const double ratio = point.x[i] * point.y[i] / feed.z[i];
        slopes.at(row, i) = change * vaporAmount * liquidAmount * ratio;
        slopes.at(row, amount) += sign * change * ratio;
    }
    if (mass)
        return;
    slopes.at(row, TwoPhasePoint::temperatureAt(n)) = scale * T * point.totals.byTemperature(given.variable);
    slopes.at(row, TwoPhasePoint::pressureAt(n)) = scale * P * point.totals.byPressure(given.variable);
}

void close(const Feed &feed, const TwoPhasePoint &point, const Closing &closing, int row, TwoPhaseEquations &equations)
{
    if (closing.kind == Closing::Kind::variable) {
        closeByVariable(feed, point, closing.given, row, equations);
        return;
    }
    equations.residuals[row] = point.unknowns[closing.unknown] - closing.value;
    equations.slopes.at(row, closing.unknown) = 1.0;
}

} // namespace

void TwoPhasePoint::setAmounts(int size, double vapor, double liquid)
{
    countsLiquid = liquid < vapor;
    unknowns[amountAt(size)] = countsLiquid ? liquid : vapor;
}

void TwoPhasePoint::setPhases(int size, const FlashResult &phases)
{
    for (int i = 0; i < size; ++i)
        unknowns[i] = size == 1 ? 0.0 : std::log(phases.vapor[i] / phases.liquid[i]);
    unknowns[temperatureAt(size)] = std::log(phases.temperature);
    unknowns[pressureAt(size)] = std::log(phases.pressure);
}

bool TwoPhasePoint::evaluate(const Feed &feed)
{
    const int n = feed.size();
    const double T = std::exp(unknowns[temperatureAt(n)]);
    const double P = std::exp(unknowns[pressureAt(n)]);
    const double amount = vaporAmount(n);
    const double rest = liquidAmount(n);
    if (!(T > 0.5 * lowestFlashTemperature && T < 2.0 * highestFlashTemperature))
        return false;
    if (!(P > 0.01 * lowestFlashPressure && P < 100.0 * highestFlashPressure))
        return false;
    for (int i = 0; i < n; ++i) {
        if (!(std::fabs(unknowns[i]) <= limitOfLnK))
            return false;
        const double K = std::exp(unknowns[i]);
        x[i] = feed.z[i] / (rest + amount * K);
        y[i] = K * x[i];
        if (!(x[i] > 0.0 && y[i] > 0.0))
            return false;
    }
    const Isotherm isotherm(feed.model, T);
    evaluatePart(feed, isotherm, P, y, Root::vapor, vapor);
    evaluatePart(feed, isotherm, P, x, Root::liquid, liquid);
    totals = Totals{};
    totals.temperature = T;
    totals.pressure = P;
    totals.add(amount * sumOf(n, y), Totals::of(vapor));
    totals.add(rest * sumOf(n, x), Totals::of(liquid));
    const double vaporMass = amount * feed.model.molecularWeight(y.data());
    const double liquidMass = rest * feed.model.molecularWeight(x.data());
    vaporMassFraction = vaporMass / (vaporMass + liquidMass);
    liquidMassFraction = liquidMass / (vaporMass + liquidMass);
    return true;
}

double TwoPhasePoint::value(int size, FlashVariable variable) const
{
    if (variable == FlashVariable::vaporFraction)
        return vaporAmount(size);
    return variable == FlashVariable::vaporMassFraction ? vaporMassFraction : totals.value(variable);
}

double TwoPhasePoint::largestLnK(int size) const
{
    double largest = 0.0;
    for (int i = 0; i < size; ++i)
        largest = std::max(largest, std::fabs(unknowns[i]));
    return largest;
}

void TwoPhaseEquations::build(const Feed &feed, const TwoPhasePoint &point, const Closing &first, const Closing &second)
{
    const int n = feed.size();
    const int amount = TwoPhasePoint::amountAt(n);
    const double vaporAmount = point.vaporAmount(n);
    const double liquidAmount = point.liquidAmount(n);
    const double sign = point.countsLiquid ? -1.0 : 1.0;
    const double T = point.totals.temperature;
    const double P = point.totals.pressure;
    slopes.size = n + 3;
    std::fill_n(slopes.elements.begin(), slopes.size * slopes.size, 0.0);

    PairArray vaporMatrix;
    PairArray liquidMatrix;
    const Isotherm isotherm(feed.model, T);
    lnPhiByMoles(feed.model, isotherm, point.vapor.state, vaporMatrix);
    lnPhiByMoles(feed.model, isotherm, point.liquid.state, liquidMatrix);
    const double vaporSum = sumOf(n, point.y);
    const double liquidSum = sumOf(n, point.x);

    CompoundArray difference;
    for (int i = 0; i < n; ++i)
        difference[i] = point.vapor.state.lnPhi[i] - point.liquid.state.lnPhi[i];
    areNear = differenceOfNearPhases(feed, point, difference);
    residuals[n] = 0.0;
    for (int i = 0; i < n; ++i) {
        residuals[i] = point.unknowns[i] + difference[i];
        residuals[n] += point.x[i] * std::expm1(point.unknowns[i]);
        slopes.at(i, TwoPhasePoint::temperatureAt(n)) =
            T * (point.vapor.slopes.lnPhiByT[i] - point.liquid.slopes.lnPhiByT[i]);
        slopes.at(i, TwoPhasePoint::pressureAt(n)) =
            P * (point.vapor.slopes.lnPhiByP[i] - point.liquid.slopes.lnPhiByP[i]);
    }
    for (int j = 0; j < n; ++j) {
        const double ratio = point.x[j] * point.y[j] / feed.z[j];
        const double difference = (point.y[j] - point.x[j]) / feed.z[j];
        const double yByK = liquidAmount * ratio / vaporSum;
        const double xByK = -vaporAmount * ratio / liquidSum;
        const double yByAmount = -sign * point.y[j] * difference / vaporSum;
        const double xByAmount = -sign * point.x[j] * difference / liquidSum;
        const double *vaporColumn = columnOf(vaporMatrix, n, j);
        const double *liquidColumn = columnOf(liquidMatrix, n, j);
        for (int i = 0; i < n; ++i) {
            slopes.at(i, j) = vaporColumn[i] * yByK - liquidColumn[i] * xByK;
            slopes.at(i, amount) += vaporColumn[i] * yByAmount - liquidColumn[i] * xByAmount;
        }
        slopes.at(j, j) += 1.0;
        slopes.at(n, j) = ratio;
        slopes.at(n, amount) -= sign * (point.y[j] - point.x[j]) * difference;
    }
    close(feed, point, first, n + 1, *this);
    close(feed, point, second, n + 2, *this);
}

double TwoPhaseEquations::largest() const
{
    double largest = 0.0;
    for (int i = 0; i < slopes.size; ++i)
        largest = std::max(largest, std::fabs(residuals[i]));
    return largest;
}

namespace {

bool approach(const Feed &feed, TwoPhasePoint &point, const Closing &first, const Closing &second)
{
    const int n = feed.size();
    TwoPhaseEquations equations;
    Elimination elimination;
    UnknownArray best;
    double least = 1e300;
    int failures = 0;
    double lastStep = limitOfLnK; // largest change of an ln K
    for (int step = 0; step < mostSteps; ++step) {
        if (!point.evaluate(feed))
            return false;
        equations.build(feed, point, first, second);
        // The balance is promised more digits than the fugacities, and does not suffer from round-off as these do.
        const double residual = std::max(equations.largest(), 20.0 * std::fabs(equations.residuals[n]));
        if (!std::isfinite(residual))
            return false;
        // Fugacities of any phases that are nearly one differ by little: there the last step tells.
        if (residual < solved && (!equations.areNear || lastStep < smallStep * point.largestLnK(n)))
            return true;
        if (residual < least) {
            least = residual;
            best = point.unknowns;
        } else if (!equations.areNear && least < goodEnough && ++failures == 3) {
            point.unknowns = best; // round-off: it gets no better
            return point.evaluate(feed);
        }
        if (!elimination.factor(equations.slopes))
            return false;
        UnknownArray change = equations.residuals;
        elimination.solve(change);
        double length = 1.0;
        for (int i = 0; i < n; ++i)
            length = std::min(length, 2.0 / std::max(1e-300, std::fabs(change[i])));
        length = std::min(length, 0.5 / std::max(1e-300, std::fabs(change[TwoPhasePoint::amountAt(n)])));
        length = std::min(length, 0.1 / std::max(1e-300, std::fabs(change[TwoPhasePoint::temperatureAt(n)])));
        length = std::min(length, 1.0 / std::max(1e-300, std::fabs(change[TwoPhasePoint::pressureAt(n)])));
        if (!(length > 1e-6))
            return false;
        lastStep = 0.0;
        for (int i = 0; i < n; ++i)
            lastStep = std::max(lastStep, length * std::fabs(change[i]));
        for (int i = 0; i < n + 3; ++i)
            point.unknowns[i] -= length * change[i];
    }
    return false;
}

} // namespace

bool solvePoint(const Feed &feed, TwoPhasePoint &point, const Closing &first, const Closing &second)
{
    if (!approach(feed, point, first, second))
        return false;
    if (!areNearPhases(feed, point))
        return true;
    // Where a phase is about to split by itself, next to a critical point, the equations nearly hold for any phases
    // that are nearly one. Those that are a solution are found again from further apart.
    const int n = feed.size();
    const double difference = point.largestLnK(n);
    TwoPhasePoint again = point;
    for (int i = 0; i < n; ++i)
        again.unknowns[i] *= 1.5;
    return approach(feed, again, first, second) && std::fabs(again.largestLnK(n) - difference) < 0.1 * difference;
}

} // namespace reference
