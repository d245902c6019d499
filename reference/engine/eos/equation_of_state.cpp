#include "reference/engine/eos/equation_of_state.h"

#include <numbers>

namespace reference {

namespace {

// At the critical point the three roots in the volume fall together. That gives, with
// eta = b / vc = 1 / (1 + cbrt(4 - sqrt 8) + cbrt(4 + sqrt 8)) for Peng-Robinson:
// omegaA = (8 + 40 eta) / (49 - 37 eta), omegaB = eta / (3 + eta) (published as 0.45724 and 0.07780);
// and for Soave-Redlich-Kwong: omegaA = 1 / (9 (cbrt 2 - 1)), omegaB = (cbrt 2 - 1) / 3 (published as
// 0.42747 and 0.08664), vc / b = 1 / (cbrt 2 - 1).
constexpr CubicConstants pengRobinson{.d1 = 1.0 + std::numbers::sqrt2,
                                      .d2 = 1.0 - std::numbers::sqrt2,
                                      .omegaA = 0.45723552892138218935,
                                      .omegaB = 0.077796073903888455972,
                                      .criticalVolume = 3.9513730355914414330};
constexpr CubicConstants soaveRedlichKwong{.d1 = 1.0,
                                           .d2 = 0.0,
                                           .omegaA = 0.42748023354034140439,
                                           .omegaB = 0.086640349964957721589,
                                           .criticalVolume = 3.8473221018630726};

} // namespace

const CubicConstants &cubicConstants(EquationOfState equation)
{
    return equation == EquationOfState::soaveRedlichKwong ? soaveRedlichKwong : pengRobinson;
}

double alphaSlope(EquationOfState equation, double omega)
{
    if (equation == EquationOfState::soaveRedlichKwong)
        return 0.480 + (1.574 - 0.176 * omega) * omega;
    if (omega > 0.491)
        return 0.379642 + (1.48503 + (-0.164423 + 0.016666 * omega) * omega) * omega;
    return 0.37464 + (1.54226 - 0.26992 * omega) * omega;
}

} // namespace reference
