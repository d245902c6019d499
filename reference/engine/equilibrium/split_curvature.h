// How the fugacities answer when compounds move between phases.
#pragma once

#include "reference/engine/equilibrium/phase_amounts.h"
#include "reference/engine/numerics/symmetric_solve.h"
#include "reference/engine/phase/isotherm.h"
#include "reference/engine/phase/phase_state.h"

namespace reference {

// A phase of a split, wherever its parts stand.
struct PhaseView {
    double amount; // moles in one mole of feed, above zero
    const CompoundArray *x;
    const PhaseState *state;
};

inline constexpr int maximumMoves = maximumCompounds * (maximumPhases - 1);
using MoveArray = std::array<double, maximumMoves>;

// The second derivatives of the Gibbs energy over R T in the moles that move. A compound moves between its home, the
// phase with most of it, and each of the others: that is one move, (number of compounds) * (phases - 1) in all. Scaled
// by the square root of what the two phases have of it, as in Michelsen, Mollerup, Thermodynamic Models, 2nd ed.
// (2007), chapter 10: of near ones on the diagonal where the phases are nearly ideal.
class SplitCurvature {
public:
    struct Move {
        int compound;
        int to;
        int from; // home
        double scale;
    };

    SplitCurvature(const MixtureModel &model, const Isotherm &isotherm, int count, const PhaseView *phases);

    int size() const { return matrix.size; }
    const Move &move(int index) const { return moves[static_cast<std::size_t>(index)]; }

    // Solves matrix * solution = right side in place, both scaled; a direction of descent even where the phases are not
    // at a minimum. The first call takes the matrix apart.
    void solve(MoveArray &rightSide);

private:
    std::array<Move, maximumMoves> moves;
    LowerTriangle<maximumMoves> matrix;
    bool factored = false;
};

} // namespace reference
