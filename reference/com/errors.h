// The CAPE-OPEN errors that the packages return: result code and name.
#pragma once

#include "platform/platform.h"

namespace reference {

struct ErrorKind {
    HRESULT result;
    LPCWSTR name;
};

namespace errors {

constexpr HRESULT capeResult(unsigned last) { return static_cast<HRESULT>(0x80040500u + last); }

inline constexpr ErrorKind unknown{capeResult(0x01), OLESTR("ECapeUnknown")};
inline constexpr ErrorKind invalidArgument{capeResult(0x06), OLESTR("ECapeInvalidArgument")};
inline constexpr ErrorKind outOfBounds{capeResult(0x07), OLESTR("ECapeOutOfBounds")};
inline constexpr ErrorKind noImplementation{capeResult(0x09), OLESTR("ECapeNoImpl")};
inline constexpr ErrorKind limitedImplementation{capeResult(0x0A), OLESTR("ECapeLimitedImpl")};
inline constexpr ErrorKind failedInitialization{capeResult(0x0F), OLESTR("ECapeFailedInitialization")};
inline constexpr ErrorKind solvingError{capeResult(0x10), OLESTR("ECapeSolvingError")};
inline constexpr ErrorKind badInvocationOrder{capeResult(0x11), OLESTR("ECapeBadInvOrder")};
inline constexpr ErrorKind propertyNotAvailable{capeResult(0x1A), OLESTR("ECapeThrmPropertyNotAvailable")};

} // namespace errors

} // namespace reference
