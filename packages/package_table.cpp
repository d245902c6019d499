#include "packages/package_table.h"

#include "cape/same_name.h"
#include "gateway/state/global_lists.h"

#include <algorithm>
#include <cstdlib>
#include <unordered_map>
#include <utility>

namespace {

using Table = std::unordered_map<std::int32_t, std::shared_ptr<OpenPackage>>;

Table OpenPackageTable; // without a record where a package is being closed

bool closingAll = false;

constexpr int handleMask = 0x7FFF;

} // namespace

std::shared_ptr<OpenPackage> PackageInUse;

OpenPackage *FindPackage(std::int32_t handle)
{
    const auto found = OpenPackageTable.find(handle);
    return found == OpenPackageTable.end() ? nullptr : found->second.get();
}

OpenPackage *UsePackage(std::int32_t handle)
{
    const auto found = OpenPackageTable.find(handle);
    if (found == OpenPackageTable.end())
        return nullptr;
    PackageInUse = found->second;
    return PackageInUse.get();
}

bool FindPackageByKey(const WideString &key, std::int32_t &handle)
{
    for (const auto &[openHandle, package] : OpenPackageTable) {
        if (package && SameName(package->name.c_str(), key.c_str())) {
            handle = openHandle;
            return true;
        }
    }
    return false;
}

bool HasFreeHandle() { return OpenPackageTable.size() <= handleMask; }

std::int32_t AddPackage(std::unique_ptr<OpenPackage> package)
{
    std::int32_t handle = 0;
    do {
        handle = std::rand() & handleMask;
    } while (OpenPackageTable.contains(handle));
    OpenPackageTable.emplace(handle, std::move(package));
    return handle;
}

bool ClosePackage(std::int32_t handle)
{
    const auto found = OpenPackageTable.find(handle);
    if (found == OpenPackageTable.end() || !found->second)
        return false;
    // The record goes while its entry still stands. The package may call commands meanwhile, which change the table.
    std::exchange(found->second, nullptr).reset();
    OpenPackageTable.erase(handle);
    return true;
}

void ListPackageHandles()
{
    HandleList.clear();
    for (const auto &entry : OpenPackageTable)
        HandleList.push_back(entry.first);
}

void CloseAllPackages()
{
    closingAll = true;
    const auto nextOpen = [] {
        return std::find_if(OpenPackageTable.begin(), OpenPackageTable.end(),
                            [](const Table::value_type &entry) { return entry.second != nullptr; });
    };
    for (auto open = nextOpen(); open != OpenPackageTable.end(); open = nextOpen())
        std::exchange(open->second, nullptr).reset();
    OpenPackageTable.clear();
    closingAll = false;
}

bool IsClosingAllPackages() { return closingAll; }
