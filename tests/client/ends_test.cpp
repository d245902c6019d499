// What ends a host, and what is left afterwards.
#include "tests/client/client_test.h"
#include "tests/client/interrupts.h"

using namespace support;

namespace {

class ClientEnds : public ClientTest {
protected:
    static DWORD onlyHost()
    {
        const std::vector<DWORD> hosts = HostsOf(GetCurrentProcessId());
        EXPECT_EQ(hosts.size(), 1u);
        return hosts.empty() ? 0 : hosts[0];
    }
    static std::string lost(const std::string &reason)
    {
        return "Invalid property package handle: its package was lost with its process (" + reason + ")";
    }
};

} // namespace

TEST_F(ClientEnds, ByAPackageAreToldWithTheReason)
{
    const std::pair<const char *, const char *> deeds[] = {
        {"writes to null", "access violation in ill_packages.dll"},
        {"executes a trap", "illegal instruction in ill_packages.dll"},
        {"overflows the stack", "stack overflow in ill_packages.dll"},
        {"throws on another thread", "uncaught C++ exception"},
        {"calls exit", "exit was called"},
        {"aborts", "abort was called"},
        {"ends the process", "exit code 7"},
    };
    for (const auto &[deed, reason] : deeds) {
        const Array air = openAir();
        EXPECT_EQ(refusalOf(deed),
                  std::string("The property package ended its process: ") + reason + ", in capeOpenCreate");
        EXPECT_EQ(refusal({Scalar(7), air}), lost(reason));
    }
    EXPECT_EQ(mustReturn(1, {Scalar(7), openAir()})[0].count(), 8u);
    onlyHost();
}

TEST_F(ClientEnds, OfWhatHangsComeAfterTheTimeLimit)
{
    const Array air = openAir();
    set(L"VERDANTH_TIME_LIMIT", L"2");
    const DWORD begun = GetTickCount();
    EXPECT_EQ(refusalOf("loops"),
              "The property package did not answer within 2 s, and its process was ended, in capeOpenCreate");
    EXPECT_LT(GetTickCount() - begun, 20000u);
    EXPECT_EQ(refusal({Scalar(7), air}), lost("it did not answer within 2 s"));
    set(L"VERDANTH_TIME_LIMIT", L"soon");
    EXPECT_EQ(refusal({Scalar(26)}), "VERDANTH_TIME_LIMIT is a number of seconds, not 'soon'");
}

TEST_F(ClientEnds, ComeWithTheSecondInterrupt)
{
    const Interrupts matlabs;
    const Array air = openAir();
    const DWORD host = onlyHost();
    matlabs.set(2);
    EXPECT_EQ(refusalOf("loops"), "Stopped by Ctrl-C");
    EXPECT_EQ(onlyHost(), host) << "it may come to its end";
    matlabs.set(1);
    EXPECT_EQ(refusal({Scalar(7), air}), "Stopped by Ctrl-C");
    matlabs.set(-1);
    EXPECT_EQ(refusal({Scalar(7), air}), lost("it was ended by Ctrl-C"));
}

TEST_F(ClientEnds, FromOutsideAreNoticedBetweenCalls)
{
    const Array air = openAir();
    HANDLE host = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, onlyHost());
    ASSERT_TRUE(TerminateProcess(host, 9));
    EXPECT_EQ(WaitForSingleObject(host, 10000), WAIT_OBJECT_0);
    CloseHandle(host);
    EXPECT_EQ(refusal({Scalar(7), air}), lost("exit code 9"));
}

TEST_F(ClientEnds, BetweenCallsHaveLastWordsToo)
{
    const Array air = openAir();
    open("crashes after the call");
    HANDLE host = OpenProcess(SYNCHRONIZE, FALSE, onlyHost());
    EXPECT_EQ(WaitForSingleObject(host, 10000), WAIT_OBJECT_0);
    CloseHandle(host);
    EXPECT_EQ(refusal({Scalar(7), air}), lost("access violation in ill_packages.dll"));
}

TEST_F(ClientEnds, ComeWithClearingTheClient)
{
    const Array air = openAir();
    onlyHost();
    EXPECT_TRUE(matlab.clear());
    EXPECT_EQ(HostsOf(GetCurrentProcessId()), std::vector<DWORD>());
    matlab.load();
    EXPECT_EQ(refusal({Scalar(7), air}), "Invalid property package handle");
}

TEST_F(ClientEnds, GiveBackEveryHandle)
{
    const auto endAHost = [this] {
        openAir();
        refusalOf("writes to null");
    };
    const auto handlesOpen = [] { // one by one, for Wine does not count them
        int count = 0;
        DWORD flags = 0;
        for (std::uintptr_t value = 4; value < 0x4000; value += 4)
            count += GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags);
        return count;
    };
    endAHost();
    const int before = handlesOpen();
    constexpr int hosts = 6;
    for (int k = 0; k < hosts; ++k)
        endAHost();
    EXPECT_LT(handlesOpen(), before + hosts) << "one for each is left";
    openAir();
    EXPECT_GT(handlesOpen(), before) << "they are counted";
}

TEST_F(ClientEnds, ComeWithTheDeathOfMatlab)
{
    constexpr WCHAR toBeKilled[] = L"VERDANTH_TEST_TO_BE_KILLED";
    if (GetEnvironmentVariableW(toBeKilled, nullptr, 0) != 0) { // the program that this test starts
        openAir();
        set(L"VERDANTH_TIME_LIMIT", nullptr);
        call(1, {Scalar(3), Text("loops"), Text("")});
        return;
    }
    WCHAR program[1024];
    GetModuleFileNameW(nullptr, program, 1024);
    WideString command = WideString(L"\"") + program + L"\" --gtest_filter=ClientEnds.ComeWithTheDeathOfMatlab";
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION child = {};
    SetEnvironmentVariableW(toBeKilled, L"1");
    const BOOL started =
        CreateProcessW(program, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &child);
    SetEnvironmentVariableW(toBeKilled, nullptr);
    ASSERT_TRUE(started);
    std::vector<DWORD> hosts;
    for (int tries = 0; hosts.empty() && tries < 200; ++tries) {
        Sleep(50);
        hosts = HostsOf(child.dwProcessId);
    }
    EXPECT_EQ(hosts.size(), 1u);
    Sleep(500); // it calculates by now
    HANDLE host = hosts.empty() ? nullptr : OpenProcess(SYNCHRONIZE, FALSE, hosts[0]);
    TerminateProcess(child.hProcess, 1);
    EXPECT_EQ(WaitForSingleObject(host, 3000), WAIT_OBJECT_0) << "sooner than a host that waits for its package";
    for (HANDLE handle : {host, child.hProcess, child.hThread})
        CloseHandle(handle);
}
