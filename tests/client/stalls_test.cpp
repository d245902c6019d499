// A host that stops in the middle of a message, or does not read one.
#include "tests/client/client_folder.h"
#include "tests/client/interrupts.h"

#include <functional>
#include <utility>

using namespace support;

namespace {

class ClientStalls : public ClientFolder {
protected:
    void SetUp() override
    {
        ClientFolder::SetUp();
        for (const char *file : {"VerdanthClient.mexw64", "Verdanth.mexw64", "libmx.dll", "libmex.dll"})
            put(file, "one");
        set(L"OTHER_HOST_GREETS", L"1");
    }
    void TearDown() override
    {
        for (const LPCWSTR variable : {L"OTHER_HOST_GREETS", L"OTHER_HOST_BEGINS"})
            set(variable, nullptr);
        ClientFolder::TearDown();
    }

    // Calls a host that begins an answer and stops, and one that does not read: both times with the same end, after
    // which the next call has another host, which answers.
    void expectEnds(const std::string &end, const std::function<void()> &prepare,
                    const std::function<void()> &restore) const
    {
        const std::pair<LPCWSTR, std::vector<Array>> stalls[] = {
            {L"1", {Scalar(26)}},
            {nullptr, {Scalar(26), Column(std::vector<double>(1 << 20, 1))}}, // more than a pipe holds
        };
        for (const auto &[begins, arguments] : stalls) {
            SCOPED_TRACE(begins ? "in the middle of an answer" : "unread");
            set(L"OTHER_HOST_BEGINS", begins);
            put("other_host.exe", "one", "VerdanthHost64.exe");
            const Client client(root / "one");
            const CallResult where = client.call({Text("back end")});
            ASSERT_TRUE(where.returned) << where.error;
            Sleep(500); // it has said what it says
            prepare();
            EXPECT_EQ(client.call(arguments).error, end);
            restore();
            EXPECT_EQ(HostsOf(GetCurrentProcessId()), std::vector<DWORD>());
            put("VerdanthHost64.exe", "one");
            const CallResult version = client.call({Scalar(26)});
            ASSERT_TRUE(version.returned) << version.error;
            EXPECT_EQ(version[0].text(), Wide("Verdanth.DLL version: 2.0.0.4"));
        }
    }
};

} // namespace

TEST_F(ClientStalls, LastNoLongerThanTheyMay)
{
    expectEnds(
        "The property package did not answer within 0.3 s, and its process was ended, in capeOpenVersion",
        [] { set(L"VERDANTH_TIME_LIMIT", L"0.3"); }, [] { set(L"VERDANTH_TIME_LIMIT", nullptr); });
}

TEST_F(ClientStalls, EndWithAnInterrupt)
{
    const Interrupts matlabs;
    expectEnds(
        "Stopped by Ctrl-C", [&] { matlabs.set(2); }, [&] { matlabs.set(-1); });
}
