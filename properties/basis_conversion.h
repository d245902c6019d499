// Mole and mass basis of compositions and phase fractions. Exact formulas on the molecular weights
// of the material's package. False with the reason in `errorText`; the target may then be partly
// written, and conversionScratch may be overwritten.
#pragma once

#include "platform/platform.h"

#include <cstdint>

class CMaterialObject;
struct OpenPackage;

// False when the molecular weight of a compound is missing.
bool CheckMolecularWeights(const OpenPackage &package, WideString &errorText);

// The sum of MW(i) x(i) over the compounds in order, in g/mol. No weight may be missing.
double MeanMolecularWeight(const OpenPackage &package, const double *moleFractions);

// nC fractions each; the result sums to 1 whatever the source sums to. Source and target may be
// one array when the caller accepts that a failure leaves it half converted.
bool MassToMoleFractions(const CMaterialObject &material, const double *source, double *target, WideString &errorText);
bool MoleToMassFractions(const CMaterialObject &material, const double *source, double *target, WideString &errorText);

// `value` is the fraction of present phase `phase` in the one basis, `result` in the other. All
// present phases must have a fraction in the basis of `value` and a composition; one that is not present needs neither.
bool MassToMolePhaseFraction(const CMaterialObject &material, std::int32_t phase, double value, double &result,
                             WideString &errorText);
bool MoleToMassPhaseFraction(const CMaterialObject &material, std::int32_t phase, double value, double &result,
                             WideString &errorText);
