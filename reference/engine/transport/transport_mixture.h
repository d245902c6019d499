// Viscosity and thermal conductivity of one phase: of the thin gas, and what the dense fluid has over it.
#pragma once

#include "reference/engine/transport/chung_mixture.h"
#include "reference/engine/transport/pure_transport.h"
#include "reference/engine/transport/thin_gas.h"

#include <optional>

namespace reference {

// The excess is that of the correlations of Chung et al. with their rules for mixtures, scaled for each
// compound to the published values of its saturated liquid. A mixture has the geometric mean of these
// factors: so the logarithm of a liquid's viscosity follows that of Grunberg, Nissan, Nature 164 (1949) 799.
class TransportMixture {
public:
    explicit TransportMixture(const PhasePoint &point);

    // At the point's conditions, with derivatives in a direction.
    Dual viscosity(const Direction &direction) const;           // Pa s
    Dual thermalConductivity(const Direction &direction) const; // W/m/K

private:
    using DualArray = std::array<Dual, maximumCompounds>;
    Dual geometricMean(const DualArray &factors, const Direction &direction) const;

    const PhasePoint &point;
    ChungMixture chung;
    DualArray gasViscosities, gasConductivities;
    DualArray viscosityFactors, conductivityFactors;
    std::optional<ThinGas> gas;
};

} // namespace reference
