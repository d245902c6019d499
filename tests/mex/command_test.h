// What tests of single commands have in common.
#pragma once

#include "tests/support/mex_test.h"

#include <string>
#include <vector>

namespace support {

// A failure that no system has words for, so that its text is the same everywhere.
inline constexpr HRESULT oddFailure = static_cast<HRESULT>(0x8123ABCDu);
inline constexpr const char *oddFailureText = "error code 0x8123ABCD";

// The n-th result of the CAPE-OPEN block, from 1: 0x0B has the text "computation error".
constexpr HRESULT CapeFailure(unsigned n) { return static_cast<HRESULT>(0x80040500u + n); }

// The operating system's words for a result, one line end removed, or its number.
std::string SystemText(HRESULT result);

int ReferencesOn(IUnknown *object);

// Arrays that are no handle, made around one that is.
std::vector<Array> NoHandles(const Array &handle);

// Arrays that stand for no string.
std::vector<Array> NoStrings();

class CommandTest : public MexTest {
protected:
    // The text that a call raises. It warns of nothing, and the library answers the next call.
    std::string refusal(const std::vector<Array> &arguments, int nlhs = 1);

    void TearDown() override;

    Array handle; // of the package that a test is about; given up before arrays are counted
};

} // namespace support
