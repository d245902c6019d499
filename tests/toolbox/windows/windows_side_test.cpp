// The library's side under Wine, with a script in the place of Wine and of the program that it runs.
#include "tests/toolbox/windows/workplace.h"
#include "tests/unit/support/allocation_watch.h"
#include "toolbox/octave/windows/windows_side.h"

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <set>
#include <thread>
#include <tuple>

namespace fs = std::filesystem;

namespace {

bool wishesToStop = false;
std::string toldMeanwhile;

using Lines = std::initializer_list<const char *>;

class LibraryUnderWine : public Workplace {
protected:
    LibraryUnderWine()
    {
        wishesToStop = false;
        toldMeanwhile.clear();
        for (const char *name : {"VerdanthHost64.exe", "Verdanth.mexw64", "libmx.dll", "libmex.dll"})
            write(std::string("windows/") + name, "");
        for (const char *name :
             {"system.reg", "drive_c/windows/system32/kernel32.dll", "drive_c/windows/syswow64/kernel32.dll"})
            write(std::string("prefix/") + name, "");
        set("VERDANTH_WINDOWS_FILES", file("windows"));
        set("VERDANTH_WINEPREFIX", file("prefix"));
        set("VERDANTH_WINE_LOADER",
            script("wine", "exec python3 -B " TEST_FOLDER "/program.py '" + file("script") + "' \"$@\""));
        script("wineserver", "");
        side.unload();
    }
    ~LibraryUnderWine() override { side.unload(); }

    // What the next program does: when it starts, and with each call.
    void play(const Lines &lines)
    {
        std::string text;
        for (const char *line : lines)
            text += std::string(line) + "\n";
        write("script", text);
    }

    bool call(double code, std::int32_t handle = 0)
    {
        return side.call(1, {value(wire::Class::Double, &code), value(wire::Class::Int32, &handle)});
    }
    std::string refusal(double code, std::int32_t handle = 0)
    {
        EXPECT_FALSE(call(code, handle));
        EXPECT_FALSE(side.stopped());
        return side.error();
    }
    std::int32_t result() const
    {
        const std::vector<wire::Value> &results = side.results();
        EXPECT_EQ(results.size(), 1u);
        return results.empty() ? -1 : *static_cast<const std::int32_t *>(results[0].real);
    }
    // More than a pipe holds.
    bool callWithMuch(double code)
    {
        static constexpr std::size_t row[] = {1, 1 << 19};
        static const std::vector<double> numbers(row[1]);
        wire::Value much = value(wire::Class::Double, numbers.data());
        much.dimensions = row;
        return side.call(1, {value(wire::Class::Double, &code), much});
    }
    void waitFor(const char *mark) const
    {
        for (int k = 0; k < 500 && !fs::exists(file(mark)); ++k)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        EXPECT_TRUE(fs::exists(file(mark)));
    }
    bool endedByItself() { return fs::exists(file("script.ended")); }

    static wire::Value value(wire::Class type, const void *element)
    {
        static constexpr std::size_t scalar[] = {1, 1};
        wire::Value made;
        made.type = type;
        made.dimensionCount = 2;
        made.dimensions = scalar;
        made.real = element;
        return made;
    }

    Caller octave = {[] { return wishesToStop; }, [](const char *message) { toldMeanwhile += message; }};
    LibrarySide &side = *WindowsSide("/nowhere", octave);
};

constexpr double create = 3, handleList = 5, name = 6, compounds = 7, flash = 24;

} // namespace

TEST_F(LibraryUnderWine, AnswersCallAfterCallInOneProcess)
{
    play({"start", "handle 11", "handle 12", "nothing"});
    ASSERT_TRUE(call(create)) << side.error();
    EXPECT_EQ(result(), 11);
    ASSERT_TRUE(call(create)) << side.error();
    EXPECT_EQ(result(), 12);
    ASSERT_TRUE(call(create)) << side.error();
    EXPECT_TRUE(side.results().empty());
}

TEST_F(LibraryUnderWine, PassesWarningsAndErrorsOnInTheirOrder)
{
    play({"start", "error no such package manager", "handle 11"});
    EXPECT_EQ(refusal(create), "no such package manager");
    EXPECT_EQ(side.warnings(), (std::vector<std::string>{"a warning", "and another: é"}));
    ASSERT_TRUE(call(create));
    EXPECT_TRUE(side.warnings().empty());
    EXPECT_EQ(side.error(), "");
}

TEST_F(LibraryUnderWine, EndsWithItsExitRoutineWhenUnloaded)
{
    play({"start", "handle 11"});
    ASSERT_TRUE(call(create)) << side.error();
    EXPECT_FALSE(endedByItself());
    side.unload();
    EXPECT_TRUE(endedByItself());
}

TEST_F(LibraryUnderWine, TellsWhyTheProcessEnded)
{
    for (const auto &[deed, reason] :
         {std::pair("last_words access violation in Vendor.dll", "access violation in Vendor.dll"),
          {"exit 7", "exit code 7"},
          {"exit 0", "exit code 0"},
          {"die", "signal 9"}}) {
        play({"start", deed});
        EXPECT_EQ(refusal(flash), std::string("The property package ended its process: ") + reason +
                                      ", while calculating capeOpenFlash");
        play({"start", deed});
        EXPECT_EQ(refusal(create),
                  std::string("The property package ended its process: ") + reason + ", in capeOpenCreate");
    }
    play({"start", "half"});
    EXPECT_EQ(refusal(99).substr(0, 40), "The property package ended its process: ");
}

TEST_F(LibraryUnderWine, HearsTheLastWordsOfWhatEndedUnasked)
{
    play({"start", "handle 11", "unasked last_words access violation in Vendor.dll"});
    ASSERT_TRUE(call(create));
    waitFor("script.gone");
    std::this_thread::sleep_for(std::chrono::milliseconds(200)); // from the mark to the end
    play({"start", "error Invalid property package handle"});
    EXPECT_EQ(refusal(compounds, 11), "Invalid property package handle: its package was lost with its process (access "
                                      "violation in Vendor.dll)");
}

TEST_F(LibraryUnderWine, LooksForTheCodeOfACallInANumberAlone)
{
    static constexpr std::size_t row[] = {1, 0};
    constexpr double beyond = flash;
    wire::Value nothing = value(wire::Class::Double, &beyond);
    nothing.dimensions = row;
    play({"start", "nothing", "exit 3"});
    ASSERT_TRUE(side.call(1, {nothing})) << side.error();
    EXPECT_FALSE(side.call(1, {nothing}));
    EXPECT_EQ(side.error(), "The property package ended its process: exit code 3, in command 0");
}

TEST_F(LibraryUnderWine, ServesWhoAskedForItLast)
{
    static bool asked = false;
    asked = false;
    WindowsSide("/nowhere", {[] { return asked = true; }, octave.tell});
    play({"start", "slow 100"});
    EXPECT_FALSE(call(create));
    EXPECT_TRUE(asked);
}

TEST_F(LibraryUnderWine, StartsAnewAndKnowsWhichHandlesAreLost)
{
    play({"start", "handle 11", "handle 12", "nothing", "exit 3"});
    ASSERT_TRUE(call(create));
    ASSERT_TRUE(call(create));
    constexpr double release = 4;
    ASSERT_TRUE(call(release, 12));
    EXPECT_EQ(refusal(compounds, 11), "The property package ended its process: exit code 3, in capeOpenCompoundList");
    constexpr char refused[] = "error Invalid property package handle";
    play({"start", refused, refused, refused, "handle 11", refused});
    EXPECT_EQ(refusal(compounds, 11),
              "Invalid property package handle: its package was lost with its process (exit code 3)");
    EXPECT_EQ(refusal(compounds, 12), "Invalid property package handle");
    EXPECT_EQ(refusal(handleList, 11), "Invalid property package handle");
    ASSERT_TRUE(call(create)); // the number is another package's now
    EXPECT_EQ(refusal(compounds, 11), "Invalid property package handle");
}

TEST_F(LibraryUnderWine, EndsWhatIsTooSlow)
{
    play({"start", "slow 100"});
    set("VERDANTH_TIME_LIMIT", "0.3");
    EXPECT_EQ(refusal(flash), "The property package did not answer within 0.3 s, and its process was ended, while "
                              "calculating capeOpenFlash");
    play({"start", "slow 0.1"});
    EXPECT_TRUE(call(flash)) << side.error();
}

TEST_F(LibraryUnderWine, EndsWhatStopsInTheMiddleOfAnAnswer)
{
    play({"start", "handle 11", "begins", "slow 100"});
    ASSERT_TRUE(call(create)) << side.error();
    set("VERDANTH_TIME_LIMIT", "0.3");
    EXPECT_EQ(refusal(flash, 11), "The property package did not answer within 0.3 s, and its process was ended, while "
                                  "calculating capeOpenFlash");
    play({"start", "error Invalid property package handle"});
    EXPECT_EQ(refusal(name, 11), "Invalid property package handle: its package was lost with its process (it did not "
                                 "answer within 0.3 s)");
}

TEST_F(LibraryUnderWine, EndsWhatAnswersForLongerThanItMay)
{
    play({"start", "trickles"});
    set("VERDANTH_TIME_LIMIT", "0.3");
    EXPECT_EQ(refusal(flash), "The property package did not answer within 0.3 s, and its process was ended, while "
                              "calculating capeOpenFlash");
}

TEST_F(LibraryUnderWine, EndsWhatDoesNotRead)
{
    play({"start", "unasked sleep 100"});
    set("VERDANTH_TIME_LIMIT", "0.3");
    EXPECT_FALSE(callWithMuch(flash));
    EXPECT_EQ(side.error(), "The property package did not answer within 0.3 s, and its process was ended, while "
                            "calculating capeOpenFlash");
    play({"start", "handle 12"});
    ASSERT_TRUE(callWithMuch(create)) << side.error();
    EXPECT_EQ(result(), 12);
}

TEST_F(LibraryUnderWine, EndsWhenTheUserWishesSoInTheMiddleOfAMessage)
{
    play({"start", "handle 11", "unasked begins", "slow 100"});
    ASSERT_TRUE(call(create)) << side.error();
    waitFor("script.begun");
    wishesToStop = true;
    EXPECT_FALSE(call(flash, 11));
    EXPECT_TRUE(side.stopped());
    wishesToStop = false;
    play({"start", "error Invalid property package handle", "unasked sleep 100"});
    EXPECT_EQ(refusal(name, 11),
              "Invalid property package handle: its package was lost with its process (it was ended by Ctrl-C)");
    wishesToStop = true;
    EXPECT_FALSE(callWithMuch(flash));
    EXPECT_TRUE(side.stopped());
    wishesToStop = false;
    play({"start", "handle 12"});
    ASSERT_TRUE(call(create)) << side.error();
    EXPECT_EQ(result(), 12);
}

TEST_F(LibraryUnderWine, IsNotWaitedForInTheMiddleOfItsGreeting)
{
    static std::string mark;
    mark = file("script.begun");
    play({"greets_in_part 100"});
    WindowsSide("/nowhere", {[] { return fs::exists(mark); }, octave.tell});
    EXPECT_FALSE(side.start());
    EXPECT_TRUE(side.stopped());
    fs::remove(mark);
    play({"start", "handle 12"});
    EXPECT_TRUE(call(create)) << side.error();
}

TEST_F(LibraryUnderWine, MayTakeItsTimeWithTheAnswerToACallThatWasStopped)
{
    play({"start", "parts 11", "handle 12"});
    ASSERT_TRUE(side.start()) << side.error();
    wishesToStop = true;
    EXPECT_FALSE(call(create));
    wishesToStop = false;
    ASSERT_TRUE(call(create)) << side.error();
    EXPECT_EQ(result(), 12);
}

// Wherever memory runs out in a call: it says so, and the next one is answered.
TEST_F(LibraryUnderWine, GoesOnWhenMemoryRanOut)
{
    constexpr char kept[] = "Out of memory.";
    constexpr char ended[] = "Out of memory in the middle of an answer, and the process of the packages was ended, in "
                             "capeOpenCreate";
    using Errors = std::set<std::string>;
    for (const auto &[answer, elements, warnings, expected] :
         {std::tuple("warned_handle 12\n", 1u, 1u, Errors{kept, ended}),
          std::tuple("much 400000\n", 400000u, 0u, Errors{kept})}) {
        std::string lines = "start\n";
        for (int k = 0; k < 300; ++k)
            lines += answer;
        play({lines.c_str()});
        side.unload();
        const double code = create;
        const std::vector<wire::Value> arguments = {value(wire::Class::Double, &code)};
        Errors errors;
        bool happened = true;
        for (std::size_t place = 1; happened; ++place) {
            ASSERT_TRUE(side.call(1, arguments)) << side.error() << place;
            ASSERT_EQ(side.warnings().size(), warnings);
            ASSERT_EQ(side.results().size(), 1u);
            ASSERT_EQ(ElementCount(side.results()[0]), elements);
            bool worked = false;
            {
                const FailingAllocation failing(place);
                worked = side.call(1, arguments);
                happened = FailingAllocation::happened();
            }
            if (!worked)
                errors.insert(side.error());
        }
        EXPECT_EQ(errors, expected) << answer;
    }
}

TEST_F(LibraryUnderWine, BelievesNothingThatCanNotBe)
{
    play({"start", "garbage"});
    EXPECT_EQ(refusal(name).substr(0, 42), "The host process sent what can not be read");
    play({"start", "other_kind"});
    EXPECT_NE(refusal(name).find(", in capeOpenName"), std::string::npos);
    play({"start", "handle 5"});
    EXPECT_TRUE(call(create)) << side.error();
}

TEST_F(LibraryUnderWine, HasToStart)
{
    const std::string host = file("windows/VerdanthHost64.exe");
    play({"exit 53"});
    EXPECT_EQ(refusal(name), "The Windows program " + host + " did not start: exit code 53. If the Wine prefix " +
                                 file("prefix") + " is broken, remove it, and it will be made anew");
    play({"garbage"});
    EXPECT_EQ(refusal(name).substr(0, host.size() + 36), "The Windows program " + host + " did not start: ");
    play({"slow 100"});
    set("VERDANTH_START_LIMIT", "0.2");
    EXPECT_EQ(refusal(name), "The Windows program " + host +
                                 " did not start within 0.2 s. VERDANTH_START_LIMIT, in the "
                                 "environment, gives it more");
    set("VERDANTH_WINE_LOADER", file("none"));
    EXPECT_EQ(refusal(name),
              "Wine was not found: VERDANTH_WINE_LOADER names " + file("none") + ", which is no program");
}

TEST_F(LibraryUnderWine, IsNotWaitedForWhenTheUserWishesSo)
{
    play({"start", "slow 0.5", "handle 12"});
    ASSERT_TRUE(side.start()) << side.error();
    wishesToStop = true;
    EXPECT_FALSE(call(create));
    EXPECT_TRUE(side.stopped());
    wishesToStop = false;
    ASSERT_TRUE(call(create)) << side.error(); // of the call that was stopped nothing is left
    EXPECT_EQ(result(), 12);
    EXPECT_FALSE(fs::exists(file("script.interrupted"))) << "the terminal's signal got there";
}

TEST_F(LibraryUnderWine, IsEndedByTheSecondWish)
{
    play({"start", "handle 11", "slow 100"});
    ASSERT_TRUE(call(create)) << side.error();
    wishesToStop = true;
    EXPECT_FALSE(call(flash, 11));
    EXPECT_TRUE(side.stopped());
    EXPECT_FALSE(call(name, 11));
    EXPECT_TRUE(side.stopped());
    wishesToStop = false;
    play({"start", "error Invalid property package handle"});
    EXPECT_EQ(refusal(name, 11),
              "Invalid property package handle: its package was lost with its process (it was ended by Ctrl-C)");
}

TEST_F(LibraryUnderWine, TellsWhatItWaitsFor)
{
    play({"start", "slow 2.5", "handle 12"});
    ASSERT_TRUE(side.start()) << side.error();
    wishesToStop = true;
    EXPECT_FALSE(call(create));
    wishesToStop = false;
    EXPECT_TRUE(call(create)) << side.error();
    EXPECT_EQ(toldMeanwhile, "Verdanth: waiting for the call that was stopped; Ctrl-C ends its process");
}

TEST_F(LibraryUnderWine, IsNotTheOneOfACopyOfThisProcess)
{
    play({"start", "handle 11", "handle 12"});
    ASSERT_TRUE(call(create)) << side.error();
    const pid_t copy = fork();
    if (copy == 0) {
        play({"start", "error Invalid property package handle", "handle 11"});
        const bool good = refusal(name, 11) == "Invalid property package handle: its package was lost with its process "
                                               "(it is open in the process that this one was copied from)" &&
                          call(create) && result() == 11;
        side.unload();
        _exit(good ? 0 : 1);
    }
    int status = -1;
    waitpid(copy, &status, 0);
    EXPECT_EQ(status, 0);
    fs::remove(file("script.ended"));
    ASSERT_TRUE(call(create)) << side.error();
    EXPECT_EQ(result(), 12);
    side.unload();
    EXPECT_TRUE(endedByItself()) << "someone else holds its pipe";
}

TEST_F(LibraryUnderWine, FollowsToAnotherPrefix)
{
    play({"start", "handle 11"});
    ASSERT_TRUE(call(create)) << side.error();
    fs::copy(file("prefix"), file("other"), fs::copy_options::recursive);
    set("VERDANTH_WINEPREFIX", file("other"));
    play({"start", "error Invalid property package handle"});
    EXPECT_EQ(refusal(name, 11),
              "Invalid property package handle: its package was lost with its process (another prefix was chosen)");
    EXPECT_TRUE(endedByItself());
}

TEST_F(LibraryUnderWine, SaysWhatRuns)
{
    set("VERDANTH_WINE_LOADER", script("my wine", "echo wine-99 of mine"));
    EXPECT_EQ(side.description(), "windows: wine-99 of mine, " + file("prefix"));
}
