// The classes that the test module has, and one that it has not.
#pragma once

#include "platform/platform.h"

constexpr CLSID moduleClass = {0x2F0E6C11, 0x8B4D, 0x4C0A, {0x8E, 0x35, 0x71, 0xD2, 0x46, 0x90, 0xAB, 0x01}};
#define MODULE_CLASS_TEXT OLESTR("{2F0E6C11-8B4D-4C0A-8E35-71D24690AB01}")

// The same under another identifier, which native builds find in a registry file.
constexpr CLSID filedClass = {0x2F0E6C11, 0x8B4D, 0x4C0A, {0x8E, 0x35, 0x71, 0xD2, 0x46, 0x90, 0xAB, 0x04}};
#define FILED_CLASS_TEXT OLESTR("{2F0E6C11-8B4D-4C0A-8E35-71D24690AB04}")

constexpr CLSID foreignClass = {0x2F0E6C11, 0x8B4D, 0x4C0A, {0x8E, 0x35, 0x71, 0xD2, 0x46, 0x90, 0xAB, 0x02}};
#define FOREIGN_CLASS_TEXT OLESTR("{2F0E6C11-8B4D-4C0A-8E35-71D24690AB02}")
