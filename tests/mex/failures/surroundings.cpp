#include "tests/mex/failures/surroundings.h"

#include "tests/mex/support/library_call.h"
#include "tests/support/component_world.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace support {

LSTATUS WINAPI EnumerateTestClasses(HKEY key, DWORD index, LPWSTR name, DWORD capacity)
{
    for (unsigned n = 1; n <= mostTestClasses; ++n) {
        const WideString text = ClassIdText(ComponentWorld::classIdOf(n));
        HKEY found = nullptr;
        if (RegOpenKeyExW(key, text.c_str(), 0, KEY_READ, &found) != ERROR_SUCCESS)
            continue;
        RegCloseKey(found);
        if (index-- > 0)
            continue;
        if (text.size() >= capacity)
            return ERROR_MORE_DATA;
        name[text.copy(name, text.size())] = 0;
        return ERROR_SUCCESS;
    }
    return ERROR_NO_MORE_ITEMS;
}

LSTATUS WINAPI OpenTestViewer(HKEY, LPCSTR, DWORD options, REGSAM access, PHKEY key)
{
    return RegOpenKeyExA(HKEY_CLASSES_ROOT, "CLSID", options, access, key); // a key that every machine has
}

LSTATUS WINAPI QueryTestViewer(HKEY, LPCSTR, LPDWORD, LPDWORD type, LPBYTE data, LPDWORD size)
{
    static constexpr char path[] = "help_viewer.dll";
    *type = REG_SZ;
    *size = sizeof path;
    std::copy(std::begin(path), std::end(path), data);
    return ERROR_SUCCESS;
}

HMODULE WINAPI LoadTestViewer(LPCSTR) { return LoadLibraryA("help_viewer.dll"); }

std::shared_ptr<void> Surround(const std::string &exceptFor)
{
    auto all = std::make_shared<std::vector<std::shared_ptr<void>>>();
    if (exceptFor != "RegEnumKeyW")
        all->push_back(
            std::make_shared<LibraryCall<"RegEnumKeyW", decltype(RegEnumKeyW)>>(RegEnumKeyW, EnumerateTestClasses));
    if (exceptFor != "RegOpenKeyExA")
        all->push_back(
            std::make_shared<LibraryCall<"RegOpenKeyExA", decltype(RegOpenKeyExA)>>(RegOpenKeyExA, OpenTestViewer));
    if (exceptFor != "RegQueryValueExA")
        all->push_back(std::make_shared<LibraryCall<"RegQueryValueExA", decltype(RegQueryValueExA)>>(RegQueryValueExA,
                                                                                                     QueryTestViewer));
    if (exceptFor != "LoadLibraryA")
        all->push_back(
            std::make_shared<LibraryCall<"LoadLibraryA", decltype(LoadLibraryA)>>(LoadLibraryA, LoadTestViewer));
    all->push_back(std::make_shared<LibraryCall<"rand", decltype(std::rand)>>(std::rand, [] { return 0x1234; }));
    return all;
}

} // namespace support
