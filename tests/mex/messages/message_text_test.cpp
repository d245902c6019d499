// How the words of a message become 8-bit text.
#include "tests/mex/support/library_call.h"
#include "tests/support/mex_test.h"

using namespace support;

namespace {

constexpr DWORD bufferTooSmall = 122;

// An unknown manager's name stands in the message, which has 27 characters beside it.
class MessageText : public MexTest {
protected:
    using Narrowing = LibraryCall<"WideCharToMultiByte", decltype(WideCharToMultiByte)>;

    CallResult refused(AnyText manager) { return call(1, {Scalar(2), Text(manager)}); }
};

} // namespace

TEST_F(MessageText, IsConvertedWholeAndOnceInTheThreadsCodePage)
{
    int conversions = 0;
    Narrowing narrow(WideCharToMultiByte, [&](UINT page, DWORD flags, LPCWSTR text, int length, LPSTR target,
                                              int capacity, auto substitute, auto substituted) {
        ++conversions;
        EXPECT_EQ(page, 3u);
        EXPECT_EQ(flags, 0u);
        EXPECT_EQ(length, 31) << "with its terminator";
        EXPECT_EQ(capacity, 4 * 31);
        EXPECT_EQ(substitute, nullptr);
        EXPECT_EQ(substituted, nullptr);
        return WideCharToMultiByte(page, flags, text, length, target, capacity, substitute, substituted);
    });
    EXPECT_EQ(refused("mgr").error, "no such package manager: \"mgr\"");
    EXPECT_EQ(conversions, 1);
}

TEST_F(MessageText, OfAWarningIsConvertedTheSameWay)
{
    PackageScript &package = world.addPackage("Alone");
    package.onCall = [&](const std::string &method) {
        if (method == "Initialize")
            return;
        if (method == "GetConstPropList") {
            EXPECT_EQ(LogMessage(package, "heard"), S_OK);
        }
    };
    handle = open("Alone");
    std::vector<UINT> pages;
    Narrowing narrow(WideCharToMultiByte, [&](UINT page, DWORD flags, LPCWSTR text, int length, LPSTR target,
                                              int capacity, auto substitute, auto substituted) {
        pages.push_back(page);
        return WideCharToMultiByte(page, flags, text, length, target, capacity, substitute, substituted);
    });
    EXPECT_EQ(mustReturn(1, {Scalar(10), handle}).warnings, std::vector<std::string>{"CAPE-OPEN: heard"});
    EXPECT_EQ(pages, std::vector<UINT>{3});
    package.onCall = nullptr;
}

TEST_F(MessageText, OfUpTo31CharactersNeedsNoBuffer)
{
    const NoMemoryFor buffer(std::size_t{4} * 32);
    EXPECT_EQ(refused("mgr.").error, "no such package manager: \"mgr.\"");
    EXPECT_EQ(buffer.refused(), 0);
}

TEST_F(MessageText, ThatNeedsMoreRoomThanExpectedGetsIt)
{
    int questions = 0;
    Narrowing narrow(WideCharToMultiByte, [&](UINT page, DWORD flags, LPCWSTR text, int length, LPSTR target,
                                              int capacity, auto substitute, auto substituted) {
        if (capacity > 0 && capacity < 1000) {
            SetLastError(bufferTooSmall);
            return 0;
        }
        if (capacity == 0) {
            ++questions;
            EXPECT_EQ(target, nullptr);
            return 1000;
        }
        EXPECT_EQ(capacity, 1000);
        return WideCharToMultiByte(page, flags, text, length, target, capacity, substitute, substituted);
    });
    EXPECT_EQ(refused("mgr").error, "no such package manager: \"mgr\"");
    EXPECT_EQ(questions, 1);
}

// What the system does not catch leaves the call as an exception, and MATLAB's own handler tells of it.

TEST_F(MessageText, ThatCannotBeConvertedEndsTheCallAndTheNextOneWorks)
{
    {
        Narrowing narrow(WideCharToMultiByte, [](UINT, DWORD, LPCWSTR, int, LPSTR, int, auto, auto) {
            SetLastError(5);
            return 0;
        });
        const CallResult result = refused("mgr");
        EXPECT_FALSE(result.returned);
        EXPECT_TRUE(result.error.starts_with("Unexpected exception: ")) << result.error;
    }
    EXPECT_EQ(refused("mgr").error, "no such package manager: \"mgr\"");
}

// A package that logs is told why its message did not get through.
TEST_F(MessageText, OfALogThatCannotBeConvertedIsRefusedWithTheReason)
{
    PackageScript &package = world.addPackage("Alone");
    handle = open("Alone");
    const auto logged = [&](Narrowing::Body narrowing) {
        Narrowing narrow(WideCharToMultiByte, std::move(narrowing));
        HRESULT result = S_OK;
        package.onCall = [&](const std::string &) { result = LogMessage(package, "not heard"); };
        EXPECT_EQ(mustReturn(1, {Scalar(10), handle}).warnings, std::vector<std::string>());
        package.onCall = nullptr;
        return static_cast<std::uint32_t>(result);
    };
    EXPECT_EQ(logged([](UINT, DWORD, LPCWSTR, int, LPSTR, int, auto, auto) {
                  SetLastError(5);
                  return 0;
              }),
              0x80070005u);
    EXPECT_EQ(logged([](UINT, DWORD, LPCWSTR, int, LPSTR, int, auto, auto) {
                  SetLastError(0);
                  return 0;
              }),
              0x8000FFFFu)
        << "a failure without a reason";
    EXPECT_EQ(logged([](UINT, DWORD, LPCWSTR, int, LPSTR target, int, auto, auto) {
                  SetLastError(bufferTooSmall);
                  return target ? 0 : -5; // a size below zero
              }),
              0x80070057u);
    EXPECT_EQ(mustReturn(1, {Scalar(10), handle}).warnings, std::vector<std::string>());
}

TEST_F(MessageText, WithoutMemoryEndsTheCallAndTheNextOneWorks)
{
    {
        const NoMemoryFor buffer(std::size_t{4} * 33);
        const CallResult result = refused("mgr..");
        EXPECT_FALSE(result.returned);
        EXPECT_TRUE(result.error.starts_with("Unexpected exception: ")) << result.error;
        EXPECT_EQ(buffer.refused(), 1);
    }
    EXPECT_EQ(refused("mgr..").error, "no such package manager: \"mgr..\"");
}

TEST_F(MessageText, WithoutMemoryForAnArgumentTheCommandIsRefused)
{
    PackageScript &package = world.addPackage("Alone");
    handle = open("Alone");
    const NoMemoryFor argument(78 * sizeof(WCHAR)); // and its terminator
    const Array text = Text(std::string(77, 'x'));
    const std::vector<std::vector<Array>> commands = {
        {Scalar(2), text},         {Scalar(3), text, Text("")}, {Scalar(3), Text("Alone"), text},
        {Scalar(9), handle, text}, {Scalar(16), handle, text},  {Scalar(19), text},
    };
    int refusals = 0;
    for (const std::vector<Array> &command : commands) {
        EXPECT_EQ(refusal(1, command), "Out of memory") << command[0].number();
        EXPECT_EQ(argument.refused(), ++refusals);
    }
    EXPECT_EQ(refusal(0, {Scalar(18), text}), "Out of memory");
    EXPECT_EQ(package.calls("GetPhaseList"), 0) << "the argument comes first";
}
