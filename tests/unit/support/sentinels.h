// Numbers that tests put in or look for.
#pragma once

// The number by which a package may say that it has none.
inline constexpr double undefinedValue = -1.7976931348623157e308;

// What stands where nothing is to be written.
inline constexpr double untouched = -77;
