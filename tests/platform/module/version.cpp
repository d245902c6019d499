// The version block of the native test module.
#include "platform/platform.h"

extern "C" const VS_FIXEDFILEINFO VersionResource;
const VS_FIXEDFILEINFO VersionResource = {
    .dwSignature = 0xFEEF04BDu,
    .dwStrucVersion = 0x00010000u,
    .dwFileVersionMS = (3u << 16) | 1u,
    .dwFileVersionLS = (4u << 16) | 15u,
    .dwProductVersionMS = (2u << 16) | 7u,
    .dwProductVersionLS = (1u << 16) | 8u,
    .dwFileFlagsMask = 0,
    .dwFileFlags = 0,
    .dwFileOS = 4,
    .dwFileType = 2,
    .dwFileSubtype = 0,
    .dwFileDateMS = 0,
    .dwFileDateLS = 0,
};
