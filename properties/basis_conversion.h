// Mole and mass basis of compositions and phase fractions: exact formulas on the molecular weights. A basis is 0 mole
// or 1 mass. False with the reason in `errorText`; the target may then be partly written, and scratch may be
// overwritten.
#pragma once

#include "platform/platform.h"

#include <cstdint>
#include <memory>
#include <span>

// g/mol of each of the nC compounds; NaN where it is missing.
using MolecularWeights = std::span<const double>;

// nC fractions with what a conversion of them needs.
struct MixtureComposition {
    MolecularWeights weights;
    const double *fractions;
    std::int32_t basis;
    double *scratch; // nC elements to work in, not those of `fractions`
};

// The nP phases of a mixture, an element for each in every list; compositions and fractions of a phase that is not
// present mean nothing.
struct PhaseAmounts {
    MolecularWeights weights;
    std::span<const std::int32_t> present; // non-zero: present
    const std::unique_ptr<double[]> *compositions;
    const std::int32_t *compositionBases;
    const double *fractions; // of the total
    const std::int32_t *fractionBases;
    double *scratch; // nC elements to work in
};

// False when the molecular weight of a compound is missing.
bool CheckMolecularWeights(MolecularWeights weights, WideString &errorText);

// The sum of MW(i) x(i) over the compounds in order, in g/mol. No weight may be missing.
double MeanMolecularWeight(MolecularWeights weights, const double *moleFractions);

// nC fractions each; the result sums to 1 whatever the source sums to. Source and target may be
// one array when the caller accepts that a failure leaves it half converted.
bool MassToMoleFractions(MolecularWeights weights, const double *source, double *target, WideString &errorText);
bool MoleToMassFractions(MolecularWeights weights, const double *source, double *target, WideString &errorText);

// The fractions of a composition per mole: its own, or converted ones in its scratch. Null on failure.
inline const double *MoleFractionsOf(const MixtureComposition &composition, WideString &errorText)
{
    if (composition.basis == 0)
        return composition.fractions;
    return MassToMoleFractions(composition.weights, composition.fractions, composition.scratch, errorText)
               ? composition.scratch
               : nullptr;
}

// `value` is the fraction of present phase `phase` in the one basis, `result` in the other. All present phases must
// have a fraction in the basis of `value` and a composition.
bool MassToMolePhaseFraction(const PhaseAmounts &phases, std::int32_t phase, double value, double &result,
                             WideString &errorText);
bool MoleToMassPhaseFraction(const PhaseAmounts &phases, std::int32_t phase, double value, double &result,
                             WideString &errorText);
