// What the relay enters into the registry in these tests, below HKEY_CLASSES_ROOT.
#pragma once

#include "tests/relay/installation.h"

namespace room_failures {

inline constexpr REGSAM views[] = {KEY_WOW64_32KEY, KEY_WOW64_64KEY};

inline const std::string relayClass = "CLSID\\{E3F8AF5B-DE4E-4FE0-B243-0FDB6173B5E8}";
inline const std::string relayInterface = "Interface\\{E5D29B15-C411-4600-B764-370A604E2C06}";
inline constexpr char relayLibraryId[] = "{9C36D8A1-5F0E-4B7D-8E21-3AD467B01C92}";
inline const std::string relayLibrary = std::string("TypeLib\\") + relayLibraryId;
// What the small library holds.
inline const std::string firstInterface = "Interface\\{7E57B1A1-3B1C-4D0A-9E55-216B0C5FA800}";
inline const std::string secondInterface = "Interface\\{7E57B1A2-3B1C-4D0A-9E55-216B0C5FA800}";

// Removes all that, whatever a test that was cut off, or another program, left of it: COM would start the relay that is
// entered there.
void cleanRegistry();

} // namespace room_failures
