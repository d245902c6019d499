#include "packages/package_manager.h"

#include "cape/com/variant.h"
#include "cape/error_text.h"
#include "cape/variant_array.h"
#include "gateway/state/global_lists.h"
#include "gateway/state/global_text.h"
#include "packages/component.h"

#include <utility>

const PackageSource *RequirePackageSource(const WideString &name)
{
    ScanRegistry();
    const std::size_t index = FindPackageSource(name.c_str());
    if (index < PackageSourceList.size())
        return &PackageSourceList[index];
    LastError = OLESTR("no such package manager: \"") + name + OLESTR("\"");
    return nullptr;
}

bool ClassIdOf(const PackageSource &source, CLSID &classId)
{
    if (SUCCEEDED(CLSIDFromString(source.clsid.c_str(), &classId)))
        return true;
    LastError = OLESTR("Failed to convert CLSID");
    return false;
}

bool Manager::open(const PackageSource &source)
{
    if (source.kind != ManagerSource) {
        LastError = OLESTR("internal error: unknown ppm type");
        return false;
    }
    CLSID classId;
    if (!ClassIdOf(source, classId))
        return false;
    ComPointer<ICapeThermoPropertyPackageManager> created;
    const HRESULT hr = CreateComObject(classId, InterfaceId<ICapeThermoPropertyPackageManager>, created.outVoid());
    if (FAILED(hr)) {
        created.detach();
        LastError = OLESTR("creation of package manager failed: ") + HResultText(hr);
        return false;
    }
    if (!InitializeComponent(created.get())) {
        LastError.insert(0, OLESTR("PPM "));
        return false;
    }
    manager = std::move(created);
    return true;
}

Manager::~Manager()
{
    if (manager)
        TerminateComponent(manager.get());
}

namespace {

bool fetchPackageNames(ICapeThermoPropertyPackageManager *manager)
{
    Variant names;
    const HRESULT hr = CallComponent([&] { return manager->GetPropertyPackageList(names.out()); });
    if (FAILED(hr)) {
        LastError = OLESTR("failed to get list of packages from ppm: ") + CapeErrorText(manager, hr);
        return false;
    }
    VariantArray list;
    list.Attach(names.release(), 1);
    WideString reason;
    if (!list.Validate(VT_BSTR, reason)) {
        LastError = OLESTR("Invalid list of packages from ppm: ") + reason;
        return false;
    }
    NameList.resize(static_cast<std::size_t>(list.count));
    for (std::int32_t i = 0; i < list.count; ++i)
        NameList[i] = list.TextAt(i);
    return true;
}

} // namespace

bool ListPackages(const WideString &sourceName)
{
    const PackageSource *source = RequirePackageSource(sourceName);
    if (!source)
        return false;
    if (source->kind == StandAloneSource) {
        NameList.assign(1, OLESTR("(stand-alone)"));
        return true;
    }
    Manager manager;
    return manager.open(*source) && fetchPackageNames(manager.get());
}
