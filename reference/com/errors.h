// The CAPE-OPEN errors that the packages raise, and what they tell of one.
#pragma once

#include "platform/platform.h"

#include <limits>
#include <string_view>

namespace reference {

struct ErrorKind {
    HRESULT result;
    LPCWSTR name;
    LPCWSTR meaning;
};

namespace errors {

constexpr HRESULT capeResult(unsigned last) { return static_cast<HRESULT>(0x80040500u + last); }

inline constexpr ErrorKind unknown{capeResult(0x01), OLESTR("ECapeUnknown"),
                                   OLESTR("Something went wrong that the standard has no other error for")};
inline constexpr ErrorKind invalidArgument{
    capeResult(0x06), OLESTR("ECapeInvalidArgument"),
    OLESTR("An argument has a value that the method does not take; ECapeBadArgument has its position")};
inline constexpr ErrorKind outOfBounds{capeResult(0x07), OLESTR("ECapeOutOfBounds"),
                                       OLESTR("A value is outside its limits, which ECapeBoundaries has")};
inline constexpr ErrorKind noImplementation{capeResult(0x09), OLESTR("ECapeNoImpl"),
                                            OLESTR("The component has no such feature")};
inline constexpr ErrorKind limitedImplementation{capeResult(0x0A), OLESTR("ECapeLimitedImpl"),
                                                 OLESTR("The component has the feature, but not for what was asked")};
inline constexpr ErrorKind failedInitialization{
    capeResult(0x0F), OLESTR("ECapeFailedInitialisation"),
    OLESTR("What the method starts from is missing or not valid; the material has to have it")};
inline constexpr ErrorKind solvingError{capeResult(0x10), OLESTR("ECapeSolvingError"),
                                        OLESTR("The calculation came to no solution")};
inline constexpr ErrorKind badInvocationOrder{
    capeResult(0x11), OLESTR("ECapeBadInvOrder"),
    OLESTR("Another operation has to come first; ECapeBadInvOrder has its name")};
inline constexpr ErrorKind propertyNotAvailable{
    capeResult(0x1A), OLESTR("ECapeThrmPropertyNotAvailable"),
    OLESTR("The package has the property, but not for these compounds at these conditions")};

} // namespace errors

// Positions of arguments count from 1.
inline constexpr int noArgument = 0;

// A value and the limits that it is outside of; the type is what the value is one of, such as "temperature".
struct Bounds {
    double lower = std::numeric_limits<double>::quiet_NaN();
    double upper = std::numeric_limits<double>::quiet_NaN();
    double value = std::numeric_limits<double>::quiet_NaN();
    std::string_view type;
};

// What ECapeOutOfBounds calls the smallest and the largest of the numbers that have no other limit.
inline constexpr double smallestPositive = std::numeric_limits<double>::min();
inline constexpr double largestNumber = std::numeric_limits<double>::max();

// One error. What its kind does not have is undefined in the sense of the standard: no argument, no number, no text.
struct ErrorReport {
    ErrorKind kind{S_OK, OLESTR(""), OLESTR("")};
    WideString description = {};
    int position = noArgument;
    Bounds bounds = {};
    LPCWSTR requestedOperation = OLESTR("");
    HRESULT ofOther = S_OK; // of another object's method, whose failure this is
    LPCWSTR interfaceName = OLESTR("");
    LPCWSTR operation = OLESTR("");
};

} // namespace reference
