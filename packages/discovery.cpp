#include "packages/discovery.h"

#include "cape/com/registry_key.h"
#include "gateway/state/global_lists.h"

#include <memory>
#include <new>

std::vector<PackageSource> PackageSourceList;

namespace {

constexpr std::size_t bufferCharacters = 1024;
constexpr DWORD nameBytes = 1024; // longest value of "Name", in bytes

// More unreadable keys side by side are a registry that never says that it is at its end.
constexpr DWORD mostFailures = 0x10000;

struct Category {
    LPCWSTR path;
    SourceKind kind;
};

// A class that has both is a manager.
constexpr Category categories[] = {
    {OLESTR("\\Implemented Categories\\{CF51E383-0110-4ed8-ACB7-B50CFDE6908E}"), ManagerSource},
    {OLESTR("\\Implemented Categories\\{CF51E384-0110-4ed8-ACB7-B50CFDE6908E}"), StandAloneSource},
};

bool findKind(HKEY root, const WideString &classId, std::int32_t &kind)
{
    for (const Category &category : categories) {
        if (RegistryKey(root, (classId + category.path).c_str())) {
            kind = category.kind;
            return true;
        }
    }
    return false;
}

WideString displayName(HKEY root, const WideString &classId, WCHAR *buffer)
{
    const RegistryKey key(root, (classId + OLESTR("\\CapeDescription")).c_str());
    if (!key)
        return classId;
    DWORD type = 0;
    DWORD size = nameBytes;
    if (RegQueryValueExW(key.get(), OLESTR("Name"), nullptr, &type, reinterpret_cast<LPBYTE>(buffer), &size) !=
            ERROR_SUCCESS ||
        type != REG_SZ)
        return classId;
    // A value need not be stored with its terminator.
    buffer[size / sizeof(WCHAR)] = 0;
    return buffer;
}

bool isListed(const WideString &classId, std::size_t nativeCount)
{
    for (std::size_t i = 0; i < nativeCount; ++i)
        if (lstrcmpiW(PackageSourceList[i].clsid.c_str(), classId.c_str()) == 0)
            return true;
    return false;
}

// Appends the classes of one view, but for those among the first `nativeCount` of the list.
void scanView(LPCWSTR path, WCHAR *buffer, std::size_t nativeCount)
{
    const RegistryKey root(HKEY_CLASSES_ROOT, path);
    if (!root)
        return;
    DWORD failures = 0; // in a row
    for (DWORD index = 0; failures < mostFailures; ++index) {
        const LSTATUS status = RegEnumKeyW(root.get(), index, buffer, bufferCharacters);
        if (status == ERROR_NO_MORE_ITEMS)
            return;
        failures = status == ERROR_SUCCESS ? 0 : failures + 1;
        if (status != ERROR_SUCCESS)
            continue;
        const WideString classId(buffer);
        std::int32_t kind = 0;
        if (!findKind(root.get(), classId, kind) || isListed(classId, nativeCount))
            continue;
        PackageSourceList.push_back({displayName(root.get(), classId, buffer), kind, classId});
    }
}

} // namespace

void ScanRegistry()
{
    static bool begun = false;
    if (begun)
        return;
    begun = true;
    ScanRegistryAnew();
}

void ScanRegistryAnew()
{
    PackageSourceList.clear();
    const std::unique_ptr<WCHAR[]> buffer(new (std::nothrow) WCHAR[bufferCharacters]);
    if (!buffer)
        return;
    scanView(OLESTR("CLSID"), buffer.get(), 0);
    scanView(OLESTR("WOW6432Node\\CLSID"), buffer.get(), PackageSourceList.size());
}

std::size_t FindPackageSource(LPCWSTR name)
{
    std::size_t index = 0;
    while (index < PackageSourceList.size() && lstrcmpW(PackageSourceList[index].name.c_str(), name) != 0)
        ++index;
    return index;
}

void ListPackageManagers()
{
    ScanRegistry();
    NameList.resize(PackageSourceList.size());
    for (std::size_t i = 0; i < PackageSourceList.size(); ++i)
        NameList[i] = PackageSourceList[i].name;
}
