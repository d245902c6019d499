// What a property of a phase is differentiated by.
#pragma once

namespace reference {

// The value itself, or its derivative
// - by temperature at constant pressure and composition, or by pressure at constant temperature;
// - by the mole numbers of one mole in all, at constant temperature and pressure: of the amount itself
//   where the quantity is extensive (the partial molar quantity), otherwise of the quantity;
// - by the mole fractions, each independent of the others: of the molar quantity, where what is done to
//   the fractions is taken relative to their sum. Sums over a change that leaves the total at one are
//   the same for every such convention.
// Of a pair of phases, the derivative by temperature or pressure is that of both phases at once with
// their compositions fixed; the one by moles or fractions is for the first phase, then for the second.
enum class Differential { none, byTemperature, byPressure, byMoles, byFractions };
inline constexpr int differentialCount = 5;

inline bool isByComposition(Differential differential)
{
    return differential == Differential::byMoles || differential == Differential::byFractions;
}

// A direction in which the conditions change: temperature, pressure, or the moles of one compound, of
// one mole in all.
struct Direction {
    Differential differential = Differential::none; // byFractions is the same as byMoles here
    int compound = -1;

    double ofTemperature() const { return differential == Differential::byTemperature ? 1.0 : 0.0; }
    double ofPressure() const { return differential == Differential::byPressure ? 1.0 : 0.0; }
    // The mean of a property of the compounds, of which one has `own`, in this direction.
    double ofMean(double own, double mean) const { return compound < 0 ? 0.0 : own - mean; }
};

} // namespace reference
