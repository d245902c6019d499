// Discovery in a registry of any contents, given as the text of a registration file or key by key, against the same
// search in the tree behind it.
#include "packages/discovery.h"
#include "fuzz/input.h"
#include "gateway/state/global_lists.h"
#include "platform/native/registry_text.h"
#include "platform/native/seam.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <vector>

namespace {

using Key = native::RegistryKey;

constexpr LPCWSTR views[] = {OLESTR("CLSID"), OLESTR("WOW6432Node\\CLSID")};
constexpr LPCWSTR managerCategory = OLESTR("Implemented Categories\\{CF51E383-0110-4ed8-ACB7-B50CFDE6908E}");
constexpr LPCWSTR packageCategory = OLESTR("Implemented Categories\\{CF51E384-0110-4ed8-ACB7-B50CFDE6908E}");
constexpr std::size_t longestName = 1023;       // of a key, in characters
constexpr std::size_t longestValueBytes = 1024; // of a display name

bool sameFolded(const WideString &a, const WideString &b) { return native::compareFolded(a, b) == 0; }

WideString displayName(const Key &classKey, const WideString &classId)
{
    const auto description = classKey.find(OLESTR("CapeDescription"));
    if (!description)
        return classId;
    const auto value = description->values.find(OLESTR("Name"));
    if (value == description->values.end() || value->second.type != REG_SZ ||
        value->second.data.size() > longestValueBytes)
        return classId;
    return native::textOfBytes(value->second.data);
}

std::vector<PackageSource> expectedSources()
{
    std::vector<PackageSource> sources;
    std::size_t nativeCount = 0;
    for (const LPCWSTR view : views) {
        const auto root = native::classesRoot()->find(view);
        if (!root)
            continue;
        const auto end = sources.begin() + static_cast<std::ptrdiff_t>(nativeCount);
        const std::vector<PackageSource> before(sources.begin(), end);
        for (const auto &[classId, classKey] : root->keys) {
            if (classId.size() > longestName)
                continue;
            const bool isManager = classKey->find(managerCategory) != nullptr;
            const bool isPackage = classKey->find(packageCategory) != nullptr;
            const WideString &id = classId;
            if ((!isManager && !isPackage) ||
                std::any_of(before.begin(), before.end(),
                            [&](const PackageSource &other) { return sameFolded(other.clsid, id); }))
                continue;
            sources.push_back({displayName(*classKey, classId), isManager ? ManagerSource : StandAloneSource, classId});
        }
        nativeCount = sources.size();
    }
    return sources;
}

WideString anyClassId(FuzzedDataProvider &input)
{
    static constexpr LPCWSTR ids[] = {OLESTR("{00000000-0000-0000-0000-000000000001}"),
                                      OLESTR("{ABCDEF00-0000-0000-0000-000000000002}"),
                                      OLESTR("{abcdef00-0000-0000-0000-000000000002}"),
                                      OLESTR("{\u00e4}"),
                                      OLESTR("{\u00c4}"),
                                      OLESTR("CLSID")};
    switch (input.ConsumeIntegralInRange(0, 31)) {
    case 0: {
        WideString text = AnyText(input, 60);
        std::replace(text.begin(), text.end(), OLESTR('\\'), OLESTR('/'));
        return text;
    }
    case 1: // about as long as what is read
        return WideString(input.ConsumeIntegralInRange<std::size_t>(longestName - 2, longestName + 2), OLESTR('x'));
    default:
        return input.PickValueInArray(ids);
    }
}

std::vector<BYTE> anyValue(FuzzedDataProvider &input)
{
    std::vector<BYTE> bytes;
    switch (input.ConsumeIntegralInRange(0, 3)) {
    case 0:
        return input.ConsumeBytes<BYTE>(input.ConsumeIntegralInRange<std::size_t>(0, 9));
    case 1: // about as long as what is read
        bytes.assign(input.ConsumeIntegralInRange<std::size_t>(longestValueBytes - 3, longestValueBytes + 3), 'n');
        return bytes;
    default: {
        const WideString text = AnyText(input, 40);
        bytes.resize((text.size() + (input.ConsumeBool() ? 1 : 0)) * sizeof(WCHAR));
        if (!bytes.empty())
            std::memcpy(bytes.data(), text.c_str(), bytes.size());
        return bytes;
    }
    }
}

void makeClass(FuzzedDataProvider &input)
{
    WideString path = input.PickValueInArray(views);
    path += OLESTR('\\') + anyClassId(input);
    const auto make = [&](const WideString &subkey) {
        HKEY key = nullptr;
        const LSTATUS status = RegCreateKeyExW(HKEY_CLASSES_ROOT, (path + subkey).c_str(), 0, nullptr, 0, KEY_WRITE,
                                               nullptr, &key, nullptr);
        FUZZ_CHECK(status == ERROR_SUCCESS);
        return key;
    };
    RegCloseKey(make(OLESTR("")));
    for (const LPCWSTR category : {managerCategory, packageCategory})
        if (input.ConsumeBool())
            RegCloseKey(make(WideString(OLESTR("\\")) + category));
    if (!input.ConsumeBool())
        return;
    HKEY description = make(OLESTR("\\CapeDescription"));
    if (input.ConsumeIntegralInRange(0, 7) != 0) {
        static constexpr DWORD types[] = {REG_SZ,       REG_SZ,    REG_SZ,     REG_SZ,  REG_EXPAND_SZ,
                                          REG_MULTI_SZ, REG_DWORD, REG_BINARY, REG_NONE};
        const DWORD type = input.PickValueInArray(types);
        const std::vector<BYTE> value = anyValue(input);
        const LPCWSTR name = input.ConsumeBool() ? OLESTR("Name") : OLESTR("NAME");
        RegSetValueExW(description, name, 0, type, value.data(), static_cast<DWORD>(value.size()));
    }
    RegCloseKey(description);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzedDataProvider input(data, size);
    native::classesRoot()->clear();
    if (input.ConsumeBool()) {
        for (int i = input.ConsumeIntegralInRange(0, 20); i > 0; --i)
            makeClass(input);
    } else {
        WideString text = native::decodeRegistryFile(input.ConsumeRemainingBytesAsString());
        std::erase(text, WCHAR{0}); // which no name of a key can have
        native::readRegistryText(text, OLESTR("C:\\beside"), native::classesRoot());
    }

    ScanRegistryAnew();
    const std::vector<PackageSource> expected = expectedSources();
    FUZZ_CHECK(PackageSourceList.size() == expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const PackageSource &source = PackageSourceList[i];
        FUZZ_CHECK(source.name == expected[i].name);
        FUZZ_CHECK(source.kind == expected[i].kind);
        FUZZ_CHECK(source.clsid == expected[i].clsid);
        const std::size_t first = FindPackageSource(source.name.c_str());
        FUZZ_CHECK(first <= i && expected[first].name == source.name);
    }
    FUZZ_CHECK(seam::openRegistryKeys == 0);
    return 0;
}
