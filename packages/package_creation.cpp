#include "packages/package_creation.h"

#include "cape/com/bstr.h"
#include "cape/error_text.h"
#include "gateway/state/global_text.h"
#include "packages/component.h"
#include "packages/package_manager.h"
#include "packages/package_table.h"
#include "platform/keep_reachable.h"

#include <memory>

namespace {

bool createStandAlone(const PackageSource &source, ComPointer<IDispatch> &package)
{
    CLSID classId;
    if (!ClassIdOf(source, classId))
        return false;
    const HRESULT hr = CreateComObject(classId, InterfaceId<IDispatch>, package.outVoid());
    if (SUCCEEDED(hr))
        return true;
    package.detach();
    LastError = OLESTR("creation of package failed: ") + HResultText(hr);
    return false;
}

// A package name is never freed once a manager has it: managers keep the pointer they are given.
BSTR lendForGood(const WideString &packageName)
{
    Bstr name(packageName);
    keepReachable(name.get());
    return name.detach();
}

bool createThroughManager(const PackageSource &source, const WideString &packageName, ComPointer<IDispatch> &package)
{
    Manager manager;
    if (!manager.open(source))
        return false;
    const BSTR name = lendForGood(packageName);
    HRESULT hr = CallComponent([&] { return manager.get()->GetPropertyPackage(name, package.out()); });
    if (SUCCEEDED(hr) && !package)
        hr = E_POINTER; // a success without a package
    if (SUCCEEDED(hr))
        return true;
    package.detach();
    LastError = OLESTR("package creation failed: ") + CapeErrorText(manager.get(), hr);
    return false;
}

} // namespace

bool CreatePackageObject(IDispatch *&package, const WideString &managerName, const WideString &packageName)
{
    package = nullptr;
    const PackageSource *source = RequirePackageSource(managerName);
    if (!source)
        return false;
    ComPointer<IDispatch> created;
    const bool made = source->kind == StandAloneSource ? createStandAlone(*source, created)
                                                       : createThroughManager(*source, packageName, created);
    if (!made)
        return false;
    if (!InitializeComponent(created.get())) {
        LastError.insert(0, OLESTR("PP "));
        return false;
    }
    package = created.detach();
    return true;
}

bool CreatePackage(const WideString &managerName, const WideString &packageName, std::int32_t &handle)
{
    ScanRegistry();
    const std::size_t index = FindPackageSource(managerName.c_str());
    const bool standAlone = index < PackageSourceList.size() && PackageSourceList[index].kind == StandAloneSource;
    const WideString key = standAlone ? managerName : managerName + OLESTR(":") + packageName;
    if (FindPackageByKey(key, handle))
        return true;
    if (IsClosingAllPackages()) {
        LastError = OLESTR("no package can be opened while all packages are being closed");
        return false;
    }
    if (!HasFreeHandle()) {
        LastError = OLESTR("no more packages can be open at one time");
        return false;
    }
    auto record = std::make_unique<OpenPackage>();
    record->name = key;
    if (!CreatePackageObject(record->package, managerName, packageName))
        return false;
    if (FindPackageByKey(key, handle)) // opened meanwhile by a command that the package called: one record for a key
        return true;
    handle = AddPackage(std::move(record));
    return true;
}
