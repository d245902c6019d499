#include "tests/relay/room_registry.h"

#include <gtest/gtest.h>

namespace room_failures {

void cleanRegistry()
{
    for (const std::string &path :
         {relayClass, relayInterface, relayLibrary, installation::standardLibraryKey, firstInterface, secondInterface})
        for (const REGSAM view : views) {
            HKEY parent = nullptr;
            const std::size_t last = path.find('\\');
            ASSERT_EQ(RegOpenKeyExA(HKEY_CLASSES_ROOT, path.substr(0, last).c_str(), 0,
                                    KEY_READ | KEY_WRITE | DELETE | view, &parent),
                      ERROR_SUCCESS);
            RegDeleteTreeA(parent, path.substr(last + 1).c_str());
            RegCloseKey(parent);
            ASSERT_FALSE(installation::keyExists(view, path)) << path;
        }
}

} // namespace room_failures
