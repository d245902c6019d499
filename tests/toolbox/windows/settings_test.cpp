#include "tests/toolbox/windows/workplace.h"
#include "toolbox/octave/windows/settings.h"

namespace {

class SettingsOfTheUser : public Workplace {
protected:
    Settings read()
    {
        Settings settings;
        std::string error;
        EXPECT_TRUE(ReadSettings(settings, error)) << error;
        return settings;
    }
    std::string refusal()
    {
        Settings settings;
        std::string error;
        EXPECT_FALSE(ReadSettings(settings, error));
        return error;
    }
};

} // namespace

TEST_F(SettingsOfTheUser, PrefixLiesWithTheUsersData)
{
    set("HOME", "/home/someone");
    EXPECT_EQ(read().prefix, "/home/someone/.local/share/verdanth/wine");
    set("XDG_DATA_HOME", "/data");
    EXPECT_EQ(read().prefix, "/data/verdanth/wine");
    set("XDG_DATA_HOME", "data"); // has to be absolute, else it does not count
    EXPECT_EQ(read().prefix, "/home/someone/.local/share/verdanth/wine");
}

TEST_F(SettingsOfTheUser, PrefixIsTheOneThatIsNamed)
{
    set("HOME", "/home/someone");
    for (const auto &[named, meant] : {std::pair("/a b/./c/", "/a b/c"), {"~/w", "/home/someone/w"}, {"/é", "/é"}}) {
        set("VERDANTH_WINEPREFIX", named);
        EXPECT_EQ(read().prefix, meant);
    }
    set("VERDANTH_WINEPREFIX", "here");
    EXPECT_EQ(read().prefix[0], '/');
}

TEST_F(SettingsOfTheUser, LimitsAreSeconds)
{
    EXPECT_EQ(read().limits.call, 0);
    EXPECT_EQ(read().limits.start, 60);
    set("VERDANTH_TIME_LIMIT", "2.5");
    set("VERDANTH_START_LIMIT", "100");
    EXPECT_EQ(read().limits.call, 2.5);
    EXPECT_EQ(read().limits.start, 100);
    for (const char *wrong : {"soon", "-1", "0", "nan", "5s"}) {
        set("VERDANTH_TIME_LIMIT", wrong);
        EXPECT_EQ(refusal(), std::string("VERDANTH_TIME_LIMIT is a number of seconds, not '") + wrong + "'");
    }
}
