#include "tests/mex/failures/surroundings.h"

#include "tests/mex/support/library_call.h"
#include "tests/support/component_world.h"

#include <cstdlib>

namespace support {

LSTATUS WINAPI EnumerateTestClasses(HKEY key, DWORD index, LPWSTR name, DWORD capacity)
{
    constexpr unsigned mostClasses = 8;
    for (unsigned n = 1; n <= mostClasses; ++n) {
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

HMODULE WINAPI LoadTestViewer(LPCSTR) { return LoadLibraryA("help_viewer.dll"); }

std::shared_ptr<void> Surround(const std::string &exceptFor)
{
    auto all = std::make_shared<std::vector<std::shared_ptr<void>>>();
    if (exceptFor != "RegEnumKeyW")
        all->push_back(
            std::make_shared<LibraryCall<"RegEnumKeyW", decltype(RegEnumKeyW)>>(RegEnumKeyW, EnumerateTestClasses));
    if (exceptFor != "LoadLibraryA")
        all->push_back(
            std::make_shared<LibraryCall<"LoadLibraryA", decltype(LoadLibraryA)>>(LoadLibraryA, LoadTestViewer));
    all->push_back(std::make_shared<LibraryCall<"rand", decltype(std::rand)>>(std::rand, [] { return 0x1234; }));
    return all;
}

} // namespace support
