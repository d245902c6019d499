// Registering and unregistering where a call of the system fails.
#include "tests/mex/support/failing_call.h"
#include "tests/reference/com/host.h"
#include "tests/support/registered_text.h"

#include <gtest/gtest.h>

using seam::NthCall;
using support::FailsToGetMemory;
using support::Gives;
using support::Lead;

namespace {

// Leaves the registry as it was found.
class RegistrationFailures : public testing::Test {
protected:
    void SetUp() override
    {
        support::ImportSlot::library = "VerdanthReference.dll";
        wasRegistered = support::keyExists(0, managerKey);
    }
    void TearDown() override { EXPECT_EQ(wasRegistered ? library.registerServer() : library.unregisterServer(), S_OK); }

    // Each n-th call in turn: the result says so, and the next time it is done.
    void failEach(HRESULT (Library::*task)() const, const Lead &lead, HRESULT expected)
    {
        for (int n = 1;; ++n) {
            SCOPED_TRACE("call " + std::to_string(n));
            NthCall calls;
            HRESULT result = S_OK;
            {
                const auto led = lead(calls);
                calls.failAt(n);
                result = (library.*task)();
            }
            EXPECT_EQ((library.*task)(), S_OK);
            EXPECT_EQ(support::keyExists(0, managerKey), task == &Library::registerServer);
            if (!calls.struck()) {
                EXPECT_EQ(result, S_OK);
                EXPECT_GT(n, 1) << "nothing was struck";
                return;
            }
            EXPECT_EQ(result, expected);
        }
    }

    Library library;
    bool wasRegistered = false;
};

constexpr HRESULT ofWindows(unsigned code) { return static_cast<HRESULT>(0x80070000u | code); }

} // namespace

TEST_F(RegistrationFailures, OfRegisteringAreTold)
{
    const auto task = &Library::registerServer;
    failEach(task, FailsToGetMemory(), E_OUTOFMEMORY);
    failEach(task, Gives<"RegCreateKeyExW">(RegCreateKeyExW, ERROR_ACCESS_DENIED), ofWindows(ERROR_ACCESS_DENIED));
    failEach(task, Gives<"RegSetValueExW">(RegSetValueExW, ERROR_NOT_ENOUGH_MEMORY),
             ofWindows(ERROR_NOT_ENOUGH_MEMORY));
    failEach(task, Gives<"LoadLibraryW">(LoadLibraryW, nullptr), ofWindows(ERROR_MOD_NOT_FOUND));
    failEach(task, Gives<"GetModuleFileNameW">(GetModuleFileNameW, 0), ofWindows(ERROR_MOD_NOT_FOUND));
}

TEST_F(RegistrationFailures, OfUnregisteringAreTold)
{
    const auto task = &Library::unregisterServer;
    failEach(task, FailsToGetMemory(), E_OUTOFMEMORY);
    failEach(task, Gives<"RegDeleteTreeW">(RegDeleteTreeW, ERROR_ACCESS_DENIED), ofWindows(ERROR_ACCESS_DENIED));
}
