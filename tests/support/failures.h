// Results of components that fail, and the words that there are for them.
#pragma once

#include "platform/platform.h"

#include <string>

namespace support {

// The n-th result of the CAPE-OPEN block, from 1.
constexpr HRESULT CapeFailure(unsigned n) { return static_cast<HRESULT>(0x80040500u + n); }

inline constexpr HRESULT computationFailed = CapeFailure(0x0B); // "computation error"

// A failure that no system has words for, so that its text is the same everywhere.
inline constexpr HRESULT oddFailure = static_cast<HRESULT>(0x8123ABCDu);
inline constexpr const char *oddFailureText = "error code 0x8123ABCD";

// "0x8123ABCD"
std::string CodeText(HRESULT result);

// The operating system's words for a result, one line end removed, or its number.
std::string SystemText(HRESULT result);

} // namespace support
