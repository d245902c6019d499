#include "material/ensure_material.h"

#include "cape/com/com_pointer.h"
#include "cape/error_text.h"
#include "gateway/state/global_text.h"
#include "material/material_object.h"

bool EnsureMaterial(OpenPackage &package)
{
    if (package.material)
        return true;
    if (!EnsureCompounds(package) || !EnsurePhases(package))
        return false;
    if (package.material) // by a command that the package called
        return true;
    CMaterialObject *const material = NewMaterial(package); // whole before the record has it
    package.material = material;
    package.materialReference = static_cast<ICapeThermoMaterial *>(material);

    ComPointer<ICapeThermoMaterialContext> context;
    HRESULT hr = context.queryFrom(package.package);
    if (FAILED(hr)) {
        LastError = OLESTR("Failed to get ICapeThermoMaterialContext from property package: ") + HResultText(hr);
        return false;
    }
    ComPointer<IDispatch> identity;
    identity.queryFrom(static_cast<ICapeThermoMaterial *>(material));
    hr = CallComponent([&] { return context->SetMaterial(identity.get()); });
    identity.reset();
    if (FAILED(hr)) {
        LastError = OLESTR("Failed to set material object on property package: ") + CapeErrorText(context.get(), hr);
        return false;
    }
    return true;
}
