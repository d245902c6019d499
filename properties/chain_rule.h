// Mole and mass basis of property values, derivatives included.
#pragma once

#include "platform/platform.h"
#include "properties/basis_conversion.h"

#include <cstdint>

// The power that brings a stored value to the wanted basis, from the basisPower of its property;
// 0 when there is nothing to convert.
constexpr std::int32_t ConversionPower(std::int32_t basisPower, bool storedPerMass, bool wantedPerMass)
{
    if (storedPerMass == wantedPerMass)
        return 0;
    return wantedPerMass ? basisPower : -basisPower;
}

// The mean molar mass of a composition, in kg/mol. False with the reason in `errorText`.
bool MeanMolarMass(const MixtureComposition &composition, double &molarMass, WideString &errorText);

// The same, worked out once for all values that stand beside one composition.
class KnownMolarMass {
public:
    void forget() { isKnown = false; } // the composition has changed
    bool of(const MixtureComposition &composition, double &molarMass, WideString &errorText)
    {
        isKnown = isKnown || MeanMolarMass(composition, value, errorText);
        molarMass = value;
        return isKnown;
    }

private:
    bool isKnown = false;
    double value = 0;
};

// Converts `count` values of a property of the mixture at positions 0, stride, 2 stride, ...; source and target may be
// one array; the target may be the composition's scratch, which is first worked in, the source may not. With M the mean
// molar mass of the composition in kg/mol: power 1 multiplies by M, power -1 divides by it. A baseValue other than 0 is
// that of the property whose nC mole-fraction derivatives the values are, in the starting basis, and adds the chain
// rule's second term:
//   d(P M)/dx(k) = M dP/dx(k) + P MW(k)/1000,   d(P/M)/dx(k) = (dP/dx(k))/M - P (MW(k)/1000)/M^2.
// False with the reason in `errorText`; target may then be partly written. Does not allocate.
bool ChainRuleConvert(const MixtureComposition &composition, const double *source, double *target, std::uint32_t count,
                      std::int32_t power, WideString &errorText, std::int32_t stride, double baseValue);

// The same with M at hand.
bool ChainRuleConvert(double molarMass, MolecularWeights weights, const double *source, double *target,
                      std::uint32_t count, std::int32_t power, WideString &errorText, std::int32_t stride,
                      double baseValue);

// Converts nC pure-compound values at positions 0, stride, 2 stride, ... in place, each with its own molar mass: power
// 1 multiplies, power -1 divides. Missing values stay as they are and need no molecular weight.
bool ConvertCompoundValues(MolecularWeights weights, std::int32_t power, double *values, WideString &errorText,
                           std::int32_t stride);
