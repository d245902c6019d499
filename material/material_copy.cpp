// New materials of the same package, and copies between them.
#include "cape/com/com_pointer.h"
#include "material/material_object.h"
#include "material/property_place.h"

#include <algorithm>
#include <cstring>

namespace {

// A material may be told to copy itself: the blocks may be one.
template <class Value> void copyBlock(Value *target, const Value *source, std::int32_t count)
{
    std::memmove(target, source, static_cast<std::size_t>(count) * sizeof(Value));
}

bool copyProperties(PropertyMap &target, const PropertyMap &source)
{
    for (const auto &[key, values] : source.all()) {
        if (!values || (values->count != 0 && !values->values)) // there was no memory for them
            continue;
        PropertyValues &copy = target.entry(key.GetKeyText());
        copy.basis = values->basis;
        if (!copy.resize(values->count))
            return false;
        std::copy_n(values->values, values->count, copy.values);
    }
    return true;
}

bool copyMaterial(CMaterialObject &target, const CMaterialObject &source)
{
    const std::int32_t compounds = target.compoundCount();
    const std::int32_t phases = target.phaseCount();
    target.temperature = source.temperature;
    target.pressure = source.pressure;
    copyBlock(target.overallComposition.get(), source.overallComposition.get(), compounds);
    target.overallCompositionBasis = source.overallCompositionBasis;
    copyBlock(target.phaseCompositionBasis.get(), source.phaseCompositionBasis.get(), phases);
    copyBlock(target.phaseFraction.get(), source.phaseFraction.get(), phases);
    copyBlock(target.phaseFractionBasis.get(), source.phaseFractionBasis.get(), phases);
    copyBlock(target.phasePresent.get(), source.phasePresent.get(), phases);
    if (!copyProperties(target.overallProps, source.overallProps))
        return false;
    for (std::int32_t phase = 0; phase < phases; ++phase) {
        copyBlock(target.phaseComposition[phase].get(), source.phaseComposition[phase].get(), compounds);
        if (!copyProperties(target.phaseProps[phase], source.phaseProps[phase]))
            return false;
    }
    return true;
}

// The material that a foreign pointer stands for, or null. It is the caller's.
const CMaterialObject *materialBehind(IDispatch *source)
{
    ComPointer<IMaterial> identity;
    CMaterialObject *material = nullptr;
    if (FAILED(identity.queryFrom(source)) || FAILED(identity->GetMaterialObject(&material)))
        return nullptr;
    return material;
}

} // namespace

CMaterialObject *NewMaterial(OpenPackage &package)
{
    auto *material = new CComObject<CMaterialObject>;
    material->AddRef();
    ComPointer<ICapeThermoMaterial> owner(material);
    material->InitMaterial(&package);
    owner.detach();
    return material;
}

HRESULT STDMETHODCALLTYPE CMaterialObject::CreateMaterial(IDispatch **material) noexcept
{
    if (!material)
        return E_POINTER;
    *material = nullptr;
    return withRecord(OLESTR("ICapeThermoMaterial"), OLESTR("CreateMaterial"), [&] {
        *material = static_cast<ICapeThermoMaterial *>(NewMaterial(*openPackage));
        return S_OK;
    });
}

HRESULT STDMETHODCALLTYPE CMaterialObject::CopyFromMaterial(IDispatch **source) noexcept
{
    constexpr LPCWSTR interfaceName = OLESTR("ICapeThermoMaterial");
    constexpr LPCWSTR scope = OLESTR("CopyFromMaterial");
    return withRecord(interfaceName, scope, [&] {
        const CMaterialObject *const original = materialBehind(source ? *source : nullptr);
        if (!original)
            return SetMaterialError(
                OLESTR("Not a Matlab material"),
                OLESTR("Cannot copy from the specified material object: not a Matlab thermo material object"),
                interfaceName, scope);
        if (original->openPackage != openPackage)
            return SetMaterialError(OLESTR("Invalid copy"), OLESTR("Source material is not of same type"),
                                    interfaceName, scope);
        clear();
        return copyMaterial(*this, *original) ? S_OK : E_OUTOFMEMORY;
    });
}
