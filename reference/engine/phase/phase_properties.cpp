#include "reference/engine/phase/phase_properties.h"

#include "reference/engine/compounds/ideal_gas.h"
#include "reference/engine/eos/gas_constant.h"
#include "reference/engine/phase/mixture_residual.h"
#include "reference/engine/phase/phase_evaluation.h"

#include <algorithm>
#include <cmath>

namespace reference {

void evaluateProperties(const MixtureModel &model, const Isotherm &isotherm, double pressure, const double *fractions,
                        Root root, PhaseProperties &properties)
{
    const double T = isotherm.temperature;
    properties.temperature = T;
    std::copy_n(fractions, model.size, properties.fractions.begin());
    evaluatePhase(model, isotherm, pressure, fractions, root, properties.state);

    double mixing = 0.0;
    for (int i = 0; i < model.size; ++i)
        if (fractions[i] > 0.0)
            mixing -= fractions[i] * std::log(fractions[i]);
    properties.molecularWeight = model.molecularWeight(fractions);

    const IdealGasState ideal = idealGasState(model.heatCapacityTerms(fractions), T);
    const Residual residual =
        residualOf(model, isotherm, fractions, properties.state, PairSums(model, isotherm, fractions));
    properties.enthalpy = ideal.enthalpy + residual.enthalpy.value;
    properties.entropy =
        ideal.entropy + gasConstant * (mixing - std::log(pressure / referencePressure)) + residual.entropy.value;
    properties.volume = residual.volume.value;
    properties.volumeByT = residual.volumeByT.value;
    properties.volumeByP = residual.volumeByP.value;
    properties.heatCapacity = ideal.heatCapacity + residual.heatCapacityP.value;
}

void addDerivatives(const MixtureModel &model, const Isotherm &isotherm, PhaseProperties &properties)
{
    evaluateSlopes(model, isotherm, properties.fractions.data(), properties.state, properties.slopes);
}

} // namespace reference
