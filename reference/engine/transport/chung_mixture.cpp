#include "reference/engine/transport/chung_mixture.h"

#include "reference/engine/transport/transport_density.h"

#include <cmath>

namespace reference {

ChungMixture::ChungMixture(const PhasePoint &of) : point(of)
{
    const MixtureModel &model = point.model();
    const int n = model.size;
    struct Compound {
        double rootVolume, diameter, rootEnergy, mass, acentric, dipole2, rootAssociation;
    };
    std::array<Compound, maximumCompounds> compounds;
    for (int i = 0; i < n; ++i) {
        const CompoundData &data = *model.compounds[i].data;
        const double volume = chungVolume(data);
        const double dipole = chungDipole(data);
        compounds[i] = {.rootVolume = std::sqrt(volume),
                        .diameter = std::cbrt(volume),
                        .rootEnergy = std::sqrt(data.criticalTemperature),
                        .mass = data.molecularWeight,
                        .acentric = data.acentricFactor,
                        .dipole2 = dipole * dipole,
                        .rootAssociation = std::sqrt(chungAssociation(data))};
    }
    // In units where sigma^3 is the critical volume and epsilon the critical temperature.
    for (auto &row : rows)
        row.fill(0.0);
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j) {
            const Compound &a = compounds[i];
            const Compound &b = compounds[j];
            const double x = point.fractions()[j];
            const double volumeOfPair = a.rootVolume * b.rootVolume;
            const double energyOfPair = a.rootEnergy * b.rootEnergy;
            const double massOfPair = 2.0 * a.mass * b.mass / (a.mass + b.mass);
            rows[volume][i] += x * volumeOfPair;
            rows[energy][i] += x * energyOfPair * volumeOfPair;
            rows[mass][i] += x * energyOfPair * a.diameter * b.diameter * std::sqrt(massOfPair);
            rows[acentric][i] += x * 0.5 * (a.acentric + b.acentric) * volumeOfPair;
            rows[dipole][i] += x * a.dipole2 * b.dipole2 / volumeOfPair;
            rows[association][i] += x * a.rootAssociation * b.rootAssociation;
        }
    for (int kind = 0; kind < pairKinds; ++kind) {
        totals[kind] = 0.0;
        for (int i = 0; i < n; ++i)
            totals[kind] += point.fractions()[i] * rows[kind][i];
    }
}

ChungFluid ChungMixture::fluid(const Direction &direction) const
{
    const auto sum = [&](Pair kind) {
        return Dual(totals[kind], direction.compound < 0 ? 0.0 : 2.0 * (rows[kind][direction.compound] - totals[kind]));
    };
    ChungFluid result;
    result.T = {point.temperature(), direction.ofTemperature()};
    result.criticalVolume = sum(volume);
    result.criticalTemperature = sum(energy) / result.criticalVolume;
    const Dual rootMass = sum(mass) / (result.criticalTemperature * pow(result.criticalVolume, 2.0 / 3.0));
    result.mass = rootMass * rootMass;
    result.acentricFactor = sum(acentric) / result.criticalVolume;
    // mu_r = 131.3 mu / sqrt(Vc Tc), and mu^4 = Vc times the sum over the pairs.
    const Dual scale = 131.3 * 131.3 / result.criticalTemperature;
    result.reducedDipole4 = scale * scale * sum(dipole) / result.criticalVolume;
    result.association = sum(association);
    result.setDensity(transportDensity(point, direction));
    return result;
}

} // namespace reference
