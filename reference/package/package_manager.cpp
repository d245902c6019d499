#include "reference/package/package_manager.h"

#include "cape/com/guarded_call.h"

#include "reference/package/package_table.h"
#include "reference/package/property_package.h"

namespace reference {

void *PackageManager::findInterface(REFIID iid)
{
    if (iid == InterfaceId<ICapeThermoPropertyPackageManager>)
        return static_cast<ICapeThermoPropertyPackageManager *>(this);
    return nullptr;
}

HRESULT STDMETHODCALLTYPE PackageManager::GetPropertyPackageList(VARIANT *names)
{
    return GuardedCall([&]() -> HRESULT {
        if (!names)
            return E_POINTER;
        VariantInit(names);
        Value list;
        if (!list.setTexts(packageTable(), &PackageDefinition::name))
            return E_OUTOFMEMORY;
        return list.give(names);
    });
}

HRESULT STDMETHODCALLTYPE PackageManager::GetPropertyPackage(BSTR name, IDispatch **package)
{
    const Call call{*this, OLESTR("ICapeThermoPropertyPackageManager"), OLESTR("GetPropertyPackage")};
    return GuardedCall([&]() -> HRESULT {
        if (!package)
            return E_POINTER;
        *package = nullptr;
        for (const PackageDefinition &definition : packageTable()) {
            if (!sameWord(name, definition.name))
                continue;
            auto *made = new PropertyPackage({&ownClass(), definition.name, definition.description}, definition);
            *package = static_cast<ICapeIdentification *>(made); // with the reference that it starts with
            return S_OK;
        }
        return call.refuse(errors::invalidArgument, OLESTR("There is no package ") + quoted(name), 1);
    });
}

} // namespace reference
