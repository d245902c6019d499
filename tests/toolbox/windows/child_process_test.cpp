#include "tests/toolbox/windows/workplace.h"
#include "toolbox/octave/windows/child_process.h"

#include <fcntl.h>
#include <unistd.h>

#include <thread>

namespace {

class ProcessOfOurs : public Workplace {
protected:
    // Runs a line of the shell; its output is in the file "said".
    bool start(const std::string &line, const std::vector<std::string> &environment = {"PATH=/usr/bin:/bin"})
    {
        const int nothing = open("/dev/null", O_RDWR);
        const int said = open(file("said").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        const bool started = process.start({"/bin/sh", "-c", line}, environment, {nothing, said, said}, error);
        close(nothing);
        close(said);
        return started;
    }
    std::string said(const std::string &line)
    {
        EXPECT_TRUE(start(line)) << error;
        wait();
        return contentOf(file("said"));
    }
    void wait()
    {
        while (process.runs())
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }

    ChildProcess process;
    std::string error;
};

} // namespace

TEST_F(ProcessOfOurs, TellsHowItEnded)
{
    for (const auto &[line, words] :
         {std::pair("exit 0", "exit code 0"), {"exit 3", "exit code 3"}, {"kill -9 $$", "signal 9"}}) {
        ASSERT_TRUE(start(line)) << error;
        wait();
        EXPECT_EQ(process.howItEnded(), words);
        EXPECT_EQ(process.succeeded(), std::string(words) == "exit code 0");
    }
}

TEST_F(ProcessOfOurs, GetsNoDescriptorButThree)
{
    const int ours = open("/dev/null", O_RDONLY); // not closed at exec
    ASSERT_GT(ours, 2);
    EXPECT_EQ(said("cd /proc/self/fd && for f in [0-9]*; do [ ! -e $f ] || echo $f; done"), "0\n1\n2\n");
    close(ours);
}

TEST_F(ProcessOfOurs, HasAGroupOfItsOwnAndNoAddressAtRandom)
{
    EXPECT_EQ(said("[ $(cut -d' ' -f5 /proc/$$/stat) = $$ ] && echo own"), "own\n");
    const std::string personality = said("cat /proc/self/personality");
    EXPECT_EQ(std::stoul(personality, nullptr, 16) & 0x40000, 0x40000u) << personality;
}

TEST_F(ProcessOfOurs, IsGoneWhenKilled)
{
    ASSERT_TRUE(start("exec sleep 100")) << error;
    EXPECT_TRUE(process.runs());
    process.kill();
    EXPECT_FALSE(process.runs());
    EXPECT_EQ(process.howItEnded(), "signal 9");
}

TEST_F(ProcessOfOurs, DoesNotStartWithoutAProgram)
{
    const int nothing = open("/dev/null", O_RDWR);
    EXPECT_FALSE(process.start({file("nothing")}, {}, {nothing, nothing, nothing}, error));
    close(nothing);
    EXPECT_EQ(error, "No such file or directory");
    EXPECT_FALSE(process.runs());
}
