// Two phases in equilibrium at any two conditions, by Newton's method in all unknowns at once: Michelsen,
// Fluid Phase Equilibria 33 (1987) 13.
#pragma once

#include "reference/engine/equilibrium/equilibrium.h"
#include "reference/engine/numerics/linear_solve.h"

namespace reference {

// What closes the equations: a flash variable has its value, or an unknown has.
struct Closing {
    enum class Kind { variable, unknown } kind;
    FlashSpecification given; // for a variable
    int unknown;              // otherwise, with the value it has
    double value;

    static Closing of(const FlashSpecification &given) { return {Kind::variable, given, 0, 0.0}; }
    static Closing ofUnknown(int unknown, double value) { return {Kind::unknown, {}, unknown, value}; }
};

struct TwoPhasePoint {
    // The unknowns: ln(y_i / x_i) of each compound, and after these the moles of one phase in one mole of
    // feed, ln T and ln P. The phase should be the lesser one, so that its amount keeps its digits near zero.
    UnknownArray unknowns;
    bool countsLiquid = false; // rather than vapor

    // Filled by evaluate.
    CompoundArray y; // vapor, summing to one when solved
    CompoundArray x;
    PhaseProperties vapor;
    PhaseProperties liquid;
    Totals totals; // slopes are those of phases that exchange nothing
    double vaporMassFraction;
    double liquidMassFraction;

    static int amountAt(int size) { return size; }
    static int temperatureAt(int size) { return size + 1; }
    static int pressureAt(int size) { return size + 2; }

    void setAmounts(int size, double vapor, double liquid);
    // All unknowns but the amount, from a vapor and a liquid.
    void setPhases(int size, const FlashResult &phases);
    double vaporAmount(int size) const { return countsLiquid ? 1.0 - unknowns[size] : unknowns[size]; }
    double liquidAmount(int size) const { return countsLiquid ? unknowns[size] : 1.0 - unknowns[size]; }

    // Makes all from the unknowns. False when they are outside of what the model can be asked.
    bool evaluate(const Feed &feed);

    // The value of a flash variable; the point must have been evaluated.
    double value(int size, FlashVariable variable) const;

    // The largest |ln K|: how far the phases are from being the same.
    double largestLnK(int size) const;
};

// The equations of a point: fugacities, balance and two closings, as residuals and their slopes.
struct TwoPhaseEquations {
    UnknownArray residuals;
    SquareMatrix slopes;
    bool areNear; // the phases, next to a critical point: the fugacities have the digits of their difference

    void build(const Feed &feed, const TwoPhasePoint &point, const Closing &first, const Closing &second);
    double largest() const; // residual
};

// Moves the point to where the equations hold. Its unknowns are the start; it has been evaluated when this
// succeeds. False when it does not get there in a few steps, without going far.
bool solvePoint(const Feed &feed, TwoPhasePoint &point, const Closing &first, const Closing &second);

} // namespace reference
