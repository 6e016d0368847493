#include <gtest/gtest.h>
#include <string>
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

TEST(Options, AdditionsKeepTheirOrderHoweverTheyAreWritten) {
    const auto options = read({"--add", "A:small", "B:medium", "--if-arranged", "--add=C:large",
                               "D=-:small", "--add", "E:small"});
    Options expected;
    expected.additions = {{"A", kit::Family::small},
                          {"B", kit::Family::medium},
                          {"C", kit::Family::large},
                          {"D=-", kit::Family::small},
                          {"E", kit::Family::small}};
    expected.onlyIfArranged = true;
    EXPECT_EQ(options, (std::variant<Options, ExitStatus>(expected)));
}

TEST(Options, LastOfRepeatedOptionsCounts) {
    const auto options = read({"--scheme", "dark", "--picture", "a.png", "--scheme=light",
                               "--picture", "b.png", "--if-arranged", "--if-arranged"});
    Options expected;
    expected.onlyIfArranged = true;
    expected.pictureFile = "b.png";
    expected.scheme = SchemeChoice::light;
    EXPECT_EQ(options, (std::variant<Options, ExitStatus>(expected)));
}

TEST(Options, NamesOfFilesKeepTheirBytesWhateverTheEncoding) {
    const auto options = read({"--picture", "\xc3\xa4\xff.png", "--extension="});
    Options expected;
    expected.pictureFile = "\xc3\xa4\xff.png";
    EXPECT_EQ(options, (std::variant<Options, ExitStatus>(expected)));
}

TEST(Options, ProgramWithoutEvenItsNameIsTheUsualDesktop) {
    EXPECT_EQ(readOptions(0, nullptr), (std::variant<Options, ExitStatus>(Options{})));
}

class WrongOptions : public testing::TestWithParam<Words> {};

TEST_P(WrongOptions, EndTheProgramWithTheStatusForWrongUsage) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(read(GetParam()), (std::variant<Options, ExitStatus>(ExitStatus{2})));
    EXPECT_FALSE(testing::internal::GetCapturedStderr().empty());
}

INSTANTIATE_TEST_SUITE_P(
    All, WrongOptions,
    testing::Values(
        Words{"--add", "DueToday"}, Words{"--add", "A:huge"}, Words{"--add", ":small"},
        Words{"--add"}, Words{"--add", "A:small", "B"}, Words{"--mode", "sepia"},
        Words{"--scheme", "grey"}, Words{"--picture"}, Words{"--picture", "a.png", "b.png"},
        Words{"stray"}, Words{"--if-arranged", "stray"}, Words{"--if-arranged="},
        Words{"--wallpaper"}, Words{"--system-version", "new"}, Words{"--system-version", "26."},
        Words{"--mode", "--"}, Words{"--system-version", "26..0"}, Words{"--system-version", ".26"},
        Words{"--system-version="}, Words{"--picture", "--if-arranged"}, Words{"--picture", "-"},
        Words{"--add", "--if-arranged", "A:small"}, Words{"A:small", "--add", "B:small"},
        Words{"--add", "A:small", "--if-arranged", "B:small"},
        Words{"--scheme", "grey", "--scheme", "dark"}));

struct Complaint {
    Words words;
    std::string line;
};

class Complaints : public testing::TestWithParam<Complaint> {};

TEST_P(Complaints, NameTheOptionAndWhatIsWrongInOneLine) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(read(GetParam().words), (std::variant<Options, ExitStatus>(ExitStatus{2})));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              GetParam().line + "\nRun with --help for more information.\n");
}

INSTANTIATE_TEST_SUITE_P(
    All, Complaints,
    testing::Values(
        Complaint{{"--mode", "sepia"}, "--mode: \"sepia\" is not fullColor, accented or vibrant"},
        Complaint{{"--add=A:small", "B"},
                  "--add: \"B\" is not of the form KIND:small, KIND:medium or KIND:large"},
        Complaint{{"--picture", "--if-arranged"},
                  "--picture: takes a value, not \"--if-arranged\""},
        Complaint{{"--picture", "a.png", "b.png"}, "b.png: belongs to no option"},
        Complaint{{"--picture"}, "Missing value after '--picture'."},
        Complaint{{"--if-arranged="}, "Unexpected value after '--if-arranged'."},
        Complaint{{"--wallpap\xc3\xa4r"}, "Unknown option 'wallpap\xc3\xa4r'."}));

TEST(Options, HelpEndsWellAndGoesToStandardOutput) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(read({"--help"}), (std::variant<Options, ExitStatus>(ExitStatus{0})));
    EXPECT_NE(testing::internal::GetCapturedStdout().find("--picture"), std::string::npos);
}

TEST(Options, HelpIsGivenAlsoWhereOtherOptionsAreWrong) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(read({"-h", "--wallpaper"}), (std::variant<Options, ExitStatus>(ExitStatus{0})));
    EXPECT_NE(testing::internal::GetCapturedStdout().find("--picture"), std::string::npos);
}

TEST(Options, VersionEndsWellAndNamesTheProgram) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(read({"--version"}), (std::variant<Options, ExitStatus>(ExitStatus{0})));
    EXPECT_TRUE(testing::internal::GetCapturedStdout().starts_with("kelmar-widgets "));
}

}  // namespace
}  // namespace kelmar::desktop
