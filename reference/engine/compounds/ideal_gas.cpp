#include "reference/engine/compounds/ideal_gas.h"

#include "reference/engine/eos/gas_constant.h"

#include <cmath>

namespace reference {

namespace {

// The integral of Cp / R over T, without its constant.
double enthalpyIntegral(const HeatCapacityPolynomial &c, double T)
{
    return ((((c[4] / 5.0 * T + c[3] / 4.0) * T + c[2] / 3.0) * T + c[1] / 2.0) * T + c[0]) * T;
}

// The integral of Cp / (R T) over T, without its constant.
double entropyIntegral(const HeatCapacityPolynomial &c, double T)
{
    return (((c[4] / 4.0 * T + c[3] / 3.0) * T + c[2] / 2.0) * T + c[1]) * T + c[0] * std::log(T);
}

} // namespace

double idealGasHeatCapacity(const HeatCapacityPolynomial &c, double T)
{
    return gasConstant * ((((c[4] * T + c[3]) * T + c[2]) * T + c[1]) * T + c[0]);
}

double idealGasHeatCapacitySlope(const HeatCapacityPolynomial &c, double T)
{
    return gasConstant * (((4.0 * c[4] * T + 3.0 * c[3]) * T + 2.0 * c[2]) * T + c[1]);
}

double idealGasEnthalpy(const HeatCapacityPolynomial &c, double T)
{
    return gasConstant * (enthalpyIntegral(c, T) - enthalpyIntegral(c, referenceTemperature));
}

double idealGasEntropy(const HeatCapacityPolynomial &c, double T)
{
    return gasConstant * (entropyIntegral(c, T) - entropyIntegral(c, referenceTemperature));
}

} // namespace reference
