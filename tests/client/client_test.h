// MATLAB with VerdanthClient in the place of the library.
#pragma once

#include "tests/support/mex_host.h"

#include <gtest/gtest.h>

namespace support {

class ClientTest : public testing::Test {
protected:
    static void SetUpTestSuite();
    static void TearDownTestSuite();
    void SetUp() override;
    void TearDown() override;

    CallResult call(int nlhs, const std::vector<Array> &arguments) { return matlab.call(nlhs, arguments); }
    CallResult mustReturn(int nlhs, const std::vector<Array> &arguments);
    std::string refusal(const std::vector<Array> &arguments); // with one result asked for, and no warning

    Array openAir() { return open("Verdanth Reference Packages", "Air"); }
    Array open(const char *manager, const char *package = "");
    std::string refusalOf(const char *package) { return refusal({Scalar(3), Text(package), Text("")}); }

    static void set(LPCWSTR variable, LPCWSTR value) { SetEnvironmentVariableW(variable, value); }

    host::Library matlab{LeaveOfThisRun(), OLESTR("VerdanthClient.mexw64")};

private:
    std::size_t arraysBefore = 0;
};

// The ids of the hosts that process `parent` has started.
std::vector<DWORD> HostsOf(DWORD parent);

WideString FolderOfTests(); // with the stroke behind it

} // namespace support
