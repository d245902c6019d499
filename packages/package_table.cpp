#include "packages/package_table.h"

#include "gateway/state/global_lists.h"

#include <cstdlib>
#include <unordered_map>

namespace {

using Table = std::unordered_map<std::int32_t, std::unique_ptr<OpenPackage>>;

Table OpenPackageTable;

} // namespace

OpenPackage *FindPackage(std::int32_t handle)
{
    const auto found = OpenPackageTable.find(handle);
    return found == OpenPackageTable.end() ? nullptr : found->second.get();
}

bool FindPackageByKey(const WideString &key, std::int32_t &handle)
{
    for (const auto &[openHandle, package] : OpenPackageTable) {
        if (lstrcmpiW(package->name.c_str(), key.c_str()) == 0) {
            handle = openHandle;
            return true;
        }
    }
    return false;
}

std::int32_t AddPackage(std::unique_ptr<OpenPackage> package)
{
    constexpr int handleMask = 0x7FFF;
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
    if (found == OpenPackageTable.end())
        return false;
    found->second.reset(); // the record goes while its entry still stands
    OpenPackageTable.erase(found);
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
    for (auto &entry : OpenPackageTable)
        entry.second.reset();
    OpenPackageTable.clear();
}
