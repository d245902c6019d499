// A host that stops in the middle of a message, or does not read one.
#include "tests/client/client_folder.h"
#include "tests/client/interrupts.h"

using namespace support;

namespace {

class ClientStalls : public ClientFolder {
protected:
    void SetUp() override
    {
        ClientFolder::SetUp();
        for (const char *file : {"VerdanthClient.mexw64", "Verdanth.mexw64", "libmx.dll", "libmex.dll"})
            put(file, "one");
        put("other_host.exe", "one", "VerdanthHost64.exe");
        set(L"OTHER_HOST_GREETS", L"1");
    }
    void TearDown() override
    {
        for (const LPCWSTR variable : {L"OTHER_HOST_GREETS", L"OTHER_HOST_BEGINS"})
            set(variable, nullptr);
        ClientFolder::TearDown();
    }

    // The next call has another host, which answers.
    void expectANewHost(const Client &client) const
    {
        EXPECT_EQ(HostsOf(GetCurrentProcessId()), std::vector<DWORD>());
        put("VerdanthHost64.exe", "one");
        const CallResult version = client.call({Scalar(26)});
        ASSERT_TRUE(version.returned) << version.error;
        EXPECT_EQ(version[0].text(), Wide("Verdanth.DLL version: 2.0.0.4"));
    }
    static void start(const Client &client)
    {
        const CallResult where = client.call({Text("back end")});
        EXPECT_TRUE(where.returned) << where.error;
        Sleep(500); // it has said what it says
    }

    const std::vector<Array> ofLittle = {Scalar(26)};
    const std::vector<Array> moreThanAPipeHolds = {Scalar(26), Column(std::vector<double>(1 << 20, 1))};
};

constexpr char late[] =
    "The property package did not answer within 0.3 s, and its process was ended, in capeOpenVersion";

} // namespace

TEST_F(ClientStalls, InTheMiddleOfAnAnswerLastNoLongerThanTheyMay)
{
    set(L"OTHER_HOST_BEGINS", L"1");
    const Client client(root / "one");
    start(client);
    set(L"VERDANTH_TIME_LIMIT", L"0.3");
    EXPECT_EQ(client.call(ofLittle).error, late);
    set(L"VERDANTH_TIME_LIMIT", nullptr);
    expectANewHost(client);
}

TEST_F(ClientStalls, OfAHostThatDoesNotReadLastNoLongerThanTheyMay)
{
    const Client client(root / "one");
    start(client);
    set(L"VERDANTH_TIME_LIMIT", L"0.3");
    EXPECT_EQ(client.call(moreThanAPipeHolds).error, late);
    set(L"VERDANTH_TIME_LIMIT", nullptr);
    expectANewHost(client);
}

TEST_F(ClientStalls, InTheMiddleOfAnAnswerEndWithAnInterrupt)
{
    set(L"OTHER_HOST_BEGINS", L"1");
    const Interrupts matlabs;
    const Client client(root / "one");
    start(client);
    matlabs.set(2);
    EXPECT_EQ(client.call(ofLittle).error, "Stopped by Ctrl-C");
    matlabs.set(-1);
    expectANewHost(client);
}

TEST_F(ClientStalls, OfAHostThatDoesNotReadEndWithAnInterrupt)
{
    const Interrupts matlabs;
    const Client client(root / "one");
    start(client);
    matlabs.set(2);
    EXPECT_EQ(client.call(moreThanAPipeHolds).error, "Stopped by Ctrl-C");
    matlabs.set(-1);
    expectANewHost(client);
}
