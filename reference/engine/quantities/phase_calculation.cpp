#include "reference/engine/quantities/phase_calculation.h"

#include "reference/engine/eos/gas_constant.h"
#include "reference/engine/transport/diffusion.h"

#include <cmath>
#include <limits>

namespace reference {

namespace {

constexpr double R = gasConstant;
constexpr double infinite = std::numeric_limits<double>::infinity();

Dual volume(const Bulk &bulk) { return bulk.residual.volume; }
Dual density(const Bulk &bulk) { return 1.0 / volume(bulk); }
Dual compressibilityFactor(const Bulk &bulk) { return bulk.P * volume(bulk) / (R * bulk.T); }
Dual compressibility(const Bulk &bulk) { return -bulk.residual.volumeByP / volume(bulk); }
Dual enthalpy(const Bulk &bulk) { return bulk.idealEnthalpy + bulk.residual.enthalpy; }
Dual enthalpyF(const Bulk &bulk) { return enthalpy(bulk) + bulk.formationEnthalpy; }
Dual entropy(const Bulk &bulk) { return bulk.idealEntropy + bulk.residual.entropy; }
Dual entropyF(const Bulk &bulk) { return entropy(bulk) + bulk.formationEntropy; }
Dual gibbsEnergy(const Bulk &bulk) { return enthalpy(bulk) - bulk.T * entropy(bulk); }
Dual helmholtzEnergy(const Bulk &bulk) { return gibbsEnergy(bulk) - bulk.P * volume(bulk); }
Dual internalEnergy(const Bulk &bulk) { return enthalpy(bulk) - bulk.P * volume(bulk); }
Dual heatCapacityP(const Bulk &bulk) { return bulk.idealHeatCapacity + bulk.residual.heatCapacityP; }
Dual heatCapacityV(const Bulk &bulk) { return bulk.idealHeatCapacity - R + bulk.residual.heatCapacityV; }
Dual molecularWeight(const Bulk &bulk) { return bulk.molecularWeight; }

// w^2 = (dP/d rho) at constant entropy = -v^2 cp / (cv M dv/dP)
Dual speedOfSound(const Bulk &bulk)
{
    const Dual mass = 1e-3 * bulk.molecularWeight; // kg/mol
    return volume(bulk) * sqrt(-heatCapacityP(bulk) / (heatCapacityV(bulk) * bulk.residual.volumeByP * mass));
}

// dT/dP at constant enthalpy = (T dv/dT - v) / cp
Dual jouleThomsonCoefficient(const Bulk &bulk)
{
    const Residual &residual = bulk.residual;
    const Dual difference = residual.gasLike() ? bulk.T * residual.residualVolumeByT - residual.residualVolume
                                               : bulk.T * residual.volumeByT - residual.volume;
    return difference / heatCapacityP(bulk);
}

Dual excessVolume(const Bulk &bulk) { return bulk.pureVolumeDifference; }
Dual excessEnthalpy(const Bulk &bulk) { return bulk.pureEnthalpyDifference; }
Dual excessEntropy(const Bulk &bulk) { return bulk.pureEntropyDifference; }
Dual excessGibbsEnergy(const Bulk &bulk) { return excessEnthalpy(bulk) - bulk.T * excessEntropy(bulk); }
Dual excessHelmholtzEnergy(const Bulk &bulk) { return excessGibbsEnergy(bulk) - bulk.P * excessVolume(bulk); }
Dual excessInternalEnergy(const Bulk &bulk) { return excessEnthalpy(bulk) - bulk.P * excessVolume(bulk); }

struct BulkFunction {
    PhaseQuantity quantity;
    Dual (*function)(const Bulk &bulk);
    bool needsPure = false;
};
constexpr BulkFunction bulkFunctions[] = {
    {PhaseQuantity::volume, volume},
    {PhaseQuantity::density, density},
    {PhaseQuantity::compressibilityFactor, compressibilityFactor},
    {PhaseQuantity::compressibility, compressibility},
    {PhaseQuantity::enthalpy, enthalpy},
    {PhaseQuantity::enthalpyF, enthalpyF},
    {PhaseQuantity::enthalpyNF, enthalpy},
    {PhaseQuantity::entropy, entropy},
    {PhaseQuantity::entropyF, entropyF},
    {PhaseQuantity::entropyNF, entropy},
    {PhaseQuantity::gibbsEnergy, gibbsEnergy},
    {PhaseQuantity::helmholtzEnergy, helmholtzEnergy},
    {PhaseQuantity::internalEnergy, internalEnergy},
    {PhaseQuantity::heatCapacityCp, heatCapacityP},
    {PhaseQuantity::heatCapacityCv, heatCapacityV},
    {PhaseQuantity::speedOfSound, speedOfSound},
    {PhaseQuantity::jouleThomsonCoefficient, jouleThomsonCoefficient},
    {PhaseQuantity::molecularWeight, molecularWeight},
    {PhaseQuantity::excessEnthalpy, excessEnthalpy, true},
    {PhaseQuantity::excessEntropy, excessEntropy, true},
    {PhaseQuantity::excessGibbsEnergy, excessGibbsEnergy, true},
    {PhaseQuantity::excessHelmholtzEnergy, excessHelmholtzEnergy, true},
    {PhaseQuantity::excessInternalEnergy, excessInternalEnergy, true},
    {PhaseQuantity::excessVolume, excessVolume, true},
};

const BulkFunction *findBulkFunction(PhaseQuantity quantity)
{
    for (const BulkFunction &row : bulkFunctions)
        if (row.quantity == quantity)
            return &row;
    return nullptr;
}

// What the fugacity of one compound is made of.
struct FugacityParts {
    Dual x;
    Dual lnX;
    Dual lnPhi;
    Dual lnPurePhi;
    Dual P;
};
struct FugacityFunction {
    PhaseQuantity quantity;
    Dual (*function)(const FugacityParts &parts);
    bool needsPure = false;
};
constexpr FugacityFunction fugacityFunctions[] = {
    {PhaseQuantity::fugacity, [](const FugacityParts &parts) { return parts.x * exp(parts.lnPhi) * parts.P; }},
    {PhaseQuantity::fugacityCoefficient, [](const FugacityParts &parts) { return exp(parts.lnPhi); }},
    {PhaseQuantity::logFugacity, [](const FugacityParts &parts) { return parts.lnX + parts.lnPhi + log(parts.P); }},
    {PhaseQuantity::logFugacityCoefficient, [](const FugacityParts &parts) { return parts.lnPhi; }},
    {PhaseQuantity::activity, [](const FugacityParts &parts) { return parts.x * exp(parts.lnPhi - parts.lnPurePhi); },
     true},
    {PhaseQuantity::activityCoefficient, [](const FugacityParts &parts) { return exp(parts.lnPhi - parts.lnPurePhi); },
     true},
};

const FugacityFunction *findFugacityFunction(PhaseQuantity quantity)
{
    for (const FugacityFunction &row : fugacityFunctions)
        if (row.quantity == quantity)
            return &row;
    return nullptr;
}

// ln x_i, where the direction adds moles of one compound to one mole in all.
Dual logFraction(double x, int i, const Direction &direction)
{
    if (direction.compound < 0)
        return std::log(x);
    return {std::log(x), i == direction.compound ? (x > 0.0 ? 1.0 / x - 1.0 : infinite) : -1.0};
}

void calculateScalar(const PhasePoint &point, PhaseQuantity quantity, Differential differential, double *values)
{
    const BulkFunction &row = *findBulkFunction(quantity);
    if (!isByComposition(differential)) {
        const Dual result = row.function(point.bulk({differential}, row.needsPure));
        *values = differential == Differential::none ? result.value : result.slope;
        return;
    }
    const bool ofAmount = differential == Differential::byMoles && shapeOf(quantity).extensive;
    for (int j = 0; j < point.model().size; ++j) {
        const Dual result = row.function(point.bulk({differential, j}, row.needsPure));
        values[j] = result.slope + (ofAmount ? result.value : 0.0);
    }
}

void calculateVector(const PhasePoint &point, PhaseQuantity quantity, Differential differential, double *values)
{
    const FugacityFunction &row = *findFugacityFunction(quantity);
    const int n = point.model().size;
    const bool columns = isByComposition(differential);
    const bool ideal = point.model().isIdeal(); // no compound notices the others
    const CompoundArray &x = point.fractions();
    PairArray byMoles;
    PhaseSlopes slopes;
    if (columns)
        point.lnPhiByComposition(byMoles);
    else if (differential != Differential::none)
        point.lnPhiSlopes(slopes);

    for (int j = 0; j < (columns ? n : 1); ++j) {
        const Direction direction{differential, columns ? j : -1};
        const double *lnPhiSlope = columns                                       ? columnOf(byMoles, n, j)
                                   : differential == Differential::byTemperature ? slopes.lnPhiByT.data()
                                   : differential == Differential::byPressure    ? slopes.lnPhiByP.data()
                                                                                 : nullptr;
        for (int i = 0; i < n; ++i) {
            const Dual lnPhi(point.state().lnPhi[i], lnPhiSlope ? lnPhiSlope[i] : 0.0);
            const FugacityParts parts{
                .x = {x[i], direction.ofMean(i == j ? 1.0 : 0.0, x[i])},
                .lnX = logFraction(x[i], i, direction),
                .lnPhi = lnPhi,
                .lnPurePhi = row.needsPure && !ideal ? point.pureLnPhi(i, direction) : lnPhi,
                .P = {point.pressure(), direction.ofPressure()},
            };
            const Dual result = row.function(parts);
            values[i + n * j] = differential == Differential::none ? result.value : result.slope;
        }
    }
}

void calculateTransport(const PhasePoint &point, PhaseQuantity quantity, Differential differential, double *values)
{
    const TransportMixture mixture(point);
    const int n = point.model().size;
    const int block = valueCount(quantity, Differential::none, n);
    std::array<Dual, std::size_t{maximumCompounds} * maximumCompounds> results;
    for (int j = 0; j < (isByComposition(differential) ? n : 1); ++j) {
        const Direction direction{differential, isByComposition(differential) ? j : -1};
        if (quantity == PhaseQuantity::diffusionCoefficient)
            diffusionCoefficients(point, mixture, direction, results.data());
        else
            results[0] = quantity == PhaseQuantity::viscosity ? mixture.viscosity(direction)
                                                              : mixture.thermalConductivity(direction);
        for (int k = 0; k < block; ++k)
            values[block * j + k] = differential == Differential::none ? results[k].value : results[k].slope;
    }
}

} // namespace

bool calculate(const PhasePoint &point, PhaseQuantity quantity, Differential differential, std::span<double> values)
{
    if (!isAvailable(point.model(), point.state().vaporRoot ? Root::vapor : Root::liquid, quantity))
        return false;
    if (findBulkFunction(quantity))
        calculateScalar(point, quantity, differential, values.data());
    else if (findFugacityFunction(quantity))
        calculateVector(point, quantity, differential, values.data());
    else
        calculateTransport(point, quantity, differential, values.data());
    return true;
}

bool isAvailable(const MixtureModel &model, Root root, PhaseQuantity quantity)
{
    if (needsCompressibility(quantity) && !yieldsToPressure(model, root))
        return false;
    for (int i = 0; i < model.size; ++i)
        if (missingConstant(*model.compounds[i].data, quantity))
            return false;
    return true;
}

bool needsCompressibility(PhaseQuantity quantity)
{
    return quantity == PhaseQuantity::heatCapacityCv || quantity == PhaseQuantity::speedOfSound;
}

bool yieldsToPressure(const MixtureModel &model, Root root) { return model.isCubic() || root != Root::liquid; }

const char *missingConstant(const CompoundData &compound, PhaseQuantity quantity)
{
    struct Need {
        PhaseQuantity quantity;
        double CompoundData::*constant;
        const char *name;
    };
    constexpr Need needs[] = {
        {PhaseQuantity::enthalpyF, &CompoundData::formationEnthalpy, "enthalpy of formation"},
        {PhaseQuantity::entropyF, &CompoundData::formationEnthalpy, "enthalpy of formation"},
        {PhaseQuantity::entropyF, &CompoundData::formationGibbsEnergy, "Gibbs energy of formation"},
        {PhaseQuantity::viscosity, &CompoundData::criticalVolume, "critical volume"},
        {PhaseQuantity::thermalConductivity, &CompoundData::criticalVolume, "critical volume"},
        {PhaseQuantity::diffusionCoefficient, &CompoundData::criticalVolume, "critical volume"},
        {PhaseQuantity::diffusionCoefficient, &CompoundData::diffusionVolume, "diffusion volume"},
    };
    for (const Need &need : needs)
        if (need.quantity == quantity && std::isnan(compound.*need.constant))
            return need.name;
    return nullptr;
}

} // namespace reference
