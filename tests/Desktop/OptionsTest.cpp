#include <gtest/gtest.h>
#include <vector>

#include "Desktop/Options.h"

namespace kelmar::desktop {
namespace {

using Words = std::vector<const char*>;

std::variant<Options, ExitStatus> read(const Words& words) {
    std::vector<const char*> arguments{"kelmar-widgets"};
    arguments.insert(arguments.end(), words.begin(), words.end());
    return readOptions(static_cast<int>(arguments.size()), arguments.data());
}

TEST(Options, NothingSaidIsTheUsualDesktop) {
    EXPECT_EQ(read({}), (std::variant<Options, ExitStatus>(Options{})));
}

TEST(Options, EverythingSaidIsUnderstood) {
    const auto options = read({"--extension", "/x/planner.extension", "--add", "DueToday:large",
                               "Streak:small", "--if-arranged", "--picture", "desk.png", "--scheme",
                               "dark", "--mode", "vibrant", "--system-version", "25.6"});
    const Options expected{
        .keyFile = "/x/planner.extension",
        .additions = {{"DueToday", kit::Family::large}, {"Streak", kit::Family::small}},
        .onlyIfArranged = true,
        .pictureFile = "desk.png",
        .scheme = SchemeChoice::dark,
        .renderingMode = kit::RenderingMode::vibrant,
        .systemVersion = "25.6"};
    EXPECT_EQ(options, (std::variant<Options, ExitStatus>(expected)));
}

TEST(Options, ValuesMayStandBehindAnEqualsSign) {
    const auto options = read({"--picture=-=.png", "--add=Streak:small", "DueToday:medium"});
    Options expected;
    expected.additions = {{"Streak", kit::Family::small}, {"DueToday", kit::Family::medium}};
    expected.pictureFile = "-=.png";
    EXPECT_EQ(options, (std::variant<Options, ExitStatus>(expected)));
}

TEST(Options, KindMayHoldColonsItself) {
    const auto options = read({"--add", "org:planner:small"});
    ASSERT_TRUE(std::holds_alternative<Options>(options));
    EXPECT_EQ(std::get<Options>(options).additions,
              (std::vector<Addition>{{"org:planner", kit::Family::small}}));
}

class WrongOptions : public testing::TestWithParam<Words> {};

TEST_P(WrongOptions, EndTheProgramWithTheStatusForWrongUsage) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(read(GetParam()), (std::variant<Options, ExitStatus>(ExitStatus{2})));
    EXPECT_FALSE(testing::internal::GetCapturedStderr().empty());
}

INSTANTIATE_TEST_SUITE_P(
    All, WrongOptions,
    testing::Values(Words{"--add", "DueToday"}, Words{"--add", "A:huge"}, Words{"--add", ":small"},
                    Words{"--add"}, Words{"--add", "A:small", "B"}, Words{"--mode", "sepia"},
                    Words{"--scheme", "grey"}, Words{"--picture"},
                    Words{"--picture", "a.png", "b.png"}, Words{"stray"},
                    Words{"--if-arranged", "stray"}, Words{"--if-arranged="}, Words{"--wallpaper"},
                    Words{"--system-version", "new"}, Words{"--system-version", "26."},
                    Words{"--mode", "--"}, Words{"--system-version", "26..0"},
                    Words{"--system-version", ".26"}, Words{"--system-version="}));

TEST(Options, ComplaintsNameTheOptionAndWhatIsWrongInOneLine) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(read({"--mode", "sepia"}), (std::variant<Options, ExitStatus>(ExitStatus{2})));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "--mode: \"sepia\" is not fullColor, accented or vibrant\n"
              "Run with --help for more information.\n");
}

TEST(Options, HelpEndsWellAndGoesToStandardOutput) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(read({"--help"}), (std::variant<Options, ExitStatus>(ExitStatus{0})));
    EXPECT_NE(testing::internal::GetCapturedStdout().find("--picture"), std::string::npos);
}

TEST(Options, VersionEndsWellAndNamesTheProgram) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(read({"--version"}), (std::variant<Options, ExitStatus>(ExitStatus{0})));
    EXPECT_TRUE(testing::internal::GetCapturedStdout().starts_with("kelmar-widgets "));
}

}  // namespace
}  // namespace kelmar::desktop
