// The material as a store: its arrays, their life, and how errors are remembered.
#include "cape/same_name.h"
#include "material/material_object.h"
#include "material/reserved_property.h"

#include <algorithm>

void CMaterialObject::InitMaterial(OpenPackage *package)
{
    const std::size_t compounds = package->compoundIds.size();
    const std::size_t phases = package->phaseLabels.size();
    overallComposition = std::make_unique<double[]>(compounds);
    phaseComposition = std::make_unique<std::unique_ptr<double[]>[]>(phases);
    for (std::size_t phase = 0; phase < phases; ++phase)
        phaseComposition[phase] = std::make_unique<double[]>(compounds);
    phaseCompositionBasis = std::make_unique<std::int32_t[]>(phases);
    phaseFraction = std::make_unique<double[]>(phases);
    phaseFractionBasis = std::make_unique<std::int32_t[]>(phases);
    phasePresent = std::make_unique<std::int32_t[]>(phases);
    phaseProps = std::make_unique<PropertyMap[]>(phases);
    conversionScratch = std::make_unique<double[]>(compounds * compounds);
    BuildReservedPropertyHashes();
    use(*package);
    clear();
}

// The basis tags and the error state stay: a tag means something only beside a value that is set,
// and each set operation rewrites it.
void CMaterialObject::clear()
{
    recentWrites.forget();
    recentTwoPhaseWrites.forget();
    temperature = QuietNaN;
    pressure = QuietNaN;
    std::fill_n(overallComposition.get(), compoundCount(), QuietNaN);
    for (std::int32_t phase = 0; phase < phaseCount(); ++phase)
        std::fill_n(phaseComposition[phase].get(), compoundCount(), QuietNaN);
    overallProps.clear();
    for (std::int32_t phase = 0; phase < phaseCount(); ++phase) {
        phaseFraction[phase] = QuietNaN;
        phasePresent[phase] = 0;
        phaseProps[phase].clear();
    }
}

HRESULT STDMETHODCALLTYPE CMaterialObject::ClearAllProps() noexcept
{
    return withRecord(OLESTR("ICapeThermoMaterial"), OLESTR("ClearAllProps"), [this] {
        clear();
        return S_OK;
    });
}

PhaseAmounts CMaterialObject::phaseAmounts() const
{
    return {openPackage->molecularWeights, {phasePresent.get(), openPackage->phaseLabels.size()},
            phaseComposition.get(),        phaseCompositionBasis.get(),
            phaseFraction.get(),           phaseFractionBasis.get(),
            conversionScratch.get()};
}

std::int32_t CMaterialObject::PhaseIndex(LPCWSTR label) const
{
    if (!label)
        return -1;
    for (std::int32_t phase = 0; phase < phaseCount(); ++phase)
        if (SameName(label, openPackage->phaseLabels[static_cast<std::size_t>(phase)].c_str()))
            return phase;
    return -1;
}

HRESULT CMaterialObject::SetMaterialError(LPCWSTR name, LPCWSTR description, LPCWSTR interfaceName, LPCWSTR scope)
{
    setError(name, description, interfaceName, scope);
    return ECapeUnknownHR;
}

HRESULT CMaterialObject::refuseWithoutRecord(LPCWSTR interfaceName, LPCWSTR scope)
{
    return SetMaterialError(OLESTR("Invalid material"),
                            OLESTR("The property package of this material object has been closed"), interfaceName,
                            scope);
}
