// How the client finds and starts its host, in folders of a test's own.
#include "tests/client/client_folder.h"

using namespace support;

namespace {

constexpr const char *hostFiles[] = {"VerdanthHost64.exe", "libmx.dll", "libmex.dll"};

class ClientStart : public ClientFolder {
protected:
    // From the client in that folder, which is unloaded afterwards.
    std::string versionOrError(const fs::path &folder) const
    {
        const Client client(root / folder);
        const CallResult result = client.call({Scalar(26)});
        return result.returned ? Narrow(result[0].text()) : result.error;
    }
};

} // namespace

TEST_F(ClientStart, FindsTheHostBesideIt)
{
    for (const char *file : {"VerdanthClient.mexw64", "Verdanth.mexw64"})
        put(file, "one");
    for (const char *file : hostFiles)
        put(file, "one");
    EXPECT_EQ(versionOrError("one"), "Verdanth.DLL version: 2.0.0.4");
}

TEST_F(ClientStart, FindsTheHostWhereItIsInstalled)
{
    put("VerdanthClient.mexw64", "isolated");
    put("Verdanth.mexw64", "toolbox");
    for (const char *file : hostFiles)
        put(file, "host");
    EXPECT_EQ(versionOrError("isolated"), "Verdanth.DLL version: 2.0.0.4");
}

// What MATLAB has open for others to inherit would stay open, and a file locked, as long as the host runs.
TEST_F(ClientStart, LeavesWhatMatlabHasOpenToMatlab)
{
    constexpr WCHAR name[] = L"verdanth client test";
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    HANDLE event = CreateEventW(&inherited, TRUE, FALSE, name);
    ASSERT_TRUE(event);
    mustReturn(1, {Scalar(26)});
    EXPECT_EQ(HostsOf(GetCurrentProcessId()).size(), 1u);
    HANDLE again = OpenEventW(SYNCHRONIZE, FALSE, name);
    EXPECT_TRUE(again);
    for (HANDLE handle : {event, again})
        CloseHandle(handle);
    EXPECT_FALSE(OpenEventW(SYNCHRONIZE, FALSE, name)) << "the host has it";
}

TEST_F(ClientStart, TellsThatThereIsNoHost)
{
    put("VerdanthClient.mexw64", "alone");
    const std::string error = versionOrError("alone");
    EXPECT_EQ(error.substr(0, 51), "VerdanthHost64.exe was not found: it is neither in ") << error;
    EXPECT_EQ(error.substr(error.rfind("\\alone\\")), "\\alone\\ nor in the folder host beside that");
}

TEST_F(ClientStart, TellsWhyTheHostDoesNotStart)
{
    put("VerdanthClient.mexw64", "parts");
    put("libmx.dll", "parts", "VerdanthHost64.exe"); // which is no program
    const std::string error = versionOrError("parts");
    EXPECT_NE(error.find("\\VerdanthHost64.exe did not start: "), std::string::npos) << error;
    EXPECT_EQ(error.substr(error.rfind(". ")), ". If files of Verdanth are missing, install it again");
}

TEST_F(ClientStart, BelievesNoOtherProgram)
{
    put("VerdanthClient.mexw64", "other");
    put("other_host.exe", "other", "VerdanthHost64.exe");
    set(L"OTHER_HOST_SAYS", L"I am a host, too, and I speak at some length");
    EXPECT_NE(versionOrError("other").find(" did not start: it did not greet as a host of Verdanth does. If"),
              std::string::npos);
    set(L"OTHER_HOST_SAYS", nullptr);
    EXPECT_EQ(HostsOf(GetCurrentProcessId()), std::vector<DWORD>());
}

TEST_F(ClientStart, WaitsNoLongerThanItMay)
{
    put("VerdanthClient.mexw64", "silent");
    put("other_host.exe", "silent", "VerdanthHost64.exe");
    set(L"VERDANTH_START_LIMIT", L"0.2");
    for (const LPCWSTR words : {static_cast<LPCWSTR>(nullptr), L"I am"}) { // none, or too few for a greeting
        set(L"OTHER_HOST_SAYS", words);
        const DWORD begun = GetTickCount();
        const std::string error = versionOrError("silent");
        EXPECT_LT(GetTickCount() - begun, 30000u) << "sooner than the program ends by itself";
        EXPECT_EQ(error.substr(error.find(" did not")),
                  " did not start within 0.2 s. VERDANTH_START_LIMIT, in the environment, gives it more");
    }
    set(L"OTHER_HOST_SAYS", nullptr);
    EXPECT_EQ(HostsOf(GetCurrentProcessId()), std::vector<DWORD>());
}
