#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Host/HostParts.h"
#include "Host/ProcessLauncher.h"
#include "Host/WidgetHost.h"
#include "tests/Host/Contents.h"
#include "tests/Host/EventLoop.h"
#include "tests/Host/Fakes.h"
#include "tests/Host/TemporaryFolder.h"

namespace kelmar::host {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;

const kit::Environment small{
    .family = kit::Family::small, .contentSize = {138, 138}, .renderingMode = {}};

std::string copiedProgram(const std::filesystem::path& path) {
    std::filesystem::copy_file(TEST_EXTENSION, path);
    return path;
}

std::string setDiary(const std::string& path) {
    qputenv("TEST_EXTENSION_DIARY", QByteArray::fromStdString(path));
    return path;
}

/// A host with a real process. The limits are such that a test can wait for them, but an answer may
/// take its time where the machine is busy with other things.
class SupervisionTest : public testing::Test {
public:
    ~SupervisionTest() override {
        qunsetenv("TEST_EXTENSION_DIARY");
        qunsetenv("TEST_EXTENSION_STAYS");
    }
    SupervisionTest(const SupervisionTest&) = delete;
    SupervisionTest& operator=(const SupervisionTest&) = delete;

protected:
    explicit SupervisionTest(std::chrono::milliseconds answerLimit = 30s,
                             std::chrono::milliseconds idleLimit = 50ms)
        : limits_{.answer = answerLimit,
                  .idle = idleLimit,
                  .ending = 500ms,
                  .firstRetry = 20ms,
                  .longestRetry = 200ms} {
        QObject::connect(&host_, &WidgetHost::entryChanged, &host_,
                         [this](WidgetId id) { changed_.push_back(id); });
    }

    [[nodiscard]] std::vector<std::string> diary() const {
        std::vector<std::string> lines;
        std::ifstream file(diaryPath_);
        for (std::string line; std::getline(file, line);) {
            lines.push_back(line);
        }
        return lines;
    }
    [[nodiscard]] bool shows(WidgetId id, const std::string& text) const {
        const auto* const entry = host_.shownEntry(id);
        return entry != nullptr && textOf(*entry) == text && !host_.showsPlaceholder(id);
    }
    [[nodiscard]] bool logged(const std::string& words) const {
        return testing::Value(log_.lines, Contains(HasSubstr(words)));
    }
    /// The good widget shows its content, whatever else there is.
    [[nodiscard]] bool survives(const std::string& kind, const std::string& words) {
        host_.add(kind, small);
        const auto good = host_.add("Good", small);
        return waitUntil([&] { return shows(good, "Good") && logged(words); });
    }

    TemporaryFolder folder_;
    std::string diaryPath_ = setDiary(folder_ / "diary");
    RecordingUrlOpener opener_;
    system::ManualClock clock_{at(1'000)};
    ManualWallClockTimer wallClockTimer_;
    QtTimers timers_;
    ManualFileWatch fileWatch_;
    RecordingLog log_;
    HostLimits limits_;
    std::string program_ = copiedProgram(folder_ / "extension");
    ProcessLauncher launcher_{program_, limits_, timers_, log_};
    WidgetHost host_{
        {.executable = program_, .urlScheme = "clock", .reloadOnChange = {}},
        HostParts{opener_, clock_, wallClockTimer_, timers_, launcher_, fileWatch_, log_, limits_}};
    std::vector<WidgetId> changed_;
};

TEST_F(SupervisionTest, GetsContentFromARealProcess) {
    const auto id = host_.add("Good", small);
    EXPECT_TRUE(waitUntil([&] { return shows(id, "Good"); }));
    ASSERT_TRUE(host_.bundle());
    EXPECT_EQ(host_.bundle()->widgets[0].kind, "Good");
    EXPECT_THAT(changed_, Not(testing::IsEmpty()));
    EXPECT_THAT(log_.lines, testing::IsEmpty());
}

TEST_F(SupervisionTest, EndsTheIdleProcessThroughItsInputAndStartsItAgain) {
    const auto id = host_.add("Good", small);
    EXPECT_TRUE(waitUntil([&] { return shows(id, "Good"); }));
    EXPECT_TRUE(waitUntil([&] { return diary().size() == 2; }));
    EXPECT_THAT(diary(), ElementsAre("started", "input ended"));
    host_.add("Good", small);
    EXPECT_TRUE(waitUntil([&] { return diary().size() == 4; }));
    EXPECT_THAT(log_.lines, testing::IsEmpty());
}

TEST_F(SupervisionTest, KillsAnIdleProcessThatStays) {
    EXPECT_TRUE(waitUntil([&] { return diary().size() == 2; }));
    qputenv("TEST_EXTENSION_STAYS", "1");
    host_.add("Good", small);
    EXPECT_TRUE(waitUntil([&] { return logged("stayed 500 ms after the end of its input"); }));
}

TEST_F(SupervisionTest, SurvivesAnExtensionThatIsKilled) {
    EXPECT_TRUE(survives("Dies", "was ended by signal 9"));
}

TEST_F(SupervisionTest, SurvivesAnExtensionThatEndsWithAFatalFault) {
    EXPECT_TRUE(survives("Exits", "ended with exit status 70"));
}

class ImpatientSupervisionTest : public SupervisionTest {
protected:
    ImpatientSupervisionTest() : SupervisionTest(1s) {}
};

TEST_F(ImpatientSupervisionTest, SurvivesAnExtensionThatHangs) {
    EXPECT_TRUE(survives("Hangs", "did not answer for the placeholder of Hangs within 1 s"));
}

TEST_F(SupervisionTest, SurvivesALineThatIsTooLong) {
    EXPECT_TRUE(survives("Overlong", "printed a line of more than 8 MiB"));
}

TEST_F(SupervisionTest, SurvivesALineWithoutEnd) {
    EXPECT_TRUE(survives("Endless", "printed a line of more than 8 MiB"));
}

TEST_F(SupervisionTest, SurvivesAFloodOfNonsense) {
    EXPECT_TRUE(survives("Flood", "made too many mistakes"));
    EXPECT_LT(log_.lines.size(), 200U);
}

TEST_F(SupervisionTest, SurvivesGarbageBetweenAnswers) {
    EXPECT_TRUE(survives("Garbage", "a line that is no message"));
    EXPECT_THAT(diary(), SizeIs(testing::Le(2))) << "It was not replaced for that";
}

TEST_F(SupervisionTest, SurvivesAFloodOnStandardError) {
    EXPECT_TRUE(survives("Talkative", "is left out"));
    EXPECT_THAT(log_.lines, SizeIs(limits_.logLines));
}

TEST_F(SupervisionTest, SurvivesNotificationsWithoutEnd) {
    EXPECT_TRUE(survives("Notifies", "made too many mistakes"));
    EXPECT_LT(log_.lines.size(), 200U);
}

TEST_F(SupervisionTest, SurvivesWishesForUrlsWithoutEnd) {
    EXPECT_TRUE(survives("Begs", "too many URLs wait to be opened"));
    EXPECT_TRUE(logged("made too many mistakes"));
    EXPECT_LT(log_.lines.size(), 200U);
}

TEST_F(ImpatientSupervisionTest, SurvivesALineWithoutEndOnStandardError) {
    EXPECT_TRUE(survives("Shouts", "did not answer for the placeholder of Shouts within 1 s"));
    EXPECT_LT(log_.lines.size(), 200U);
}

TEST_F(SupervisionTest, WaitsForOneThatIsSlow) {
    const auto slow = host_.add("Slow", small);
    const auto good = host_.add("Good", small);
    EXPECT_TRUE(waitUntil([&] { return shows(slow, "Slow") && shows(good, "Good"); }));
    EXPECT_THAT(log_.lines, testing::IsEmpty());
    EXPECT_THAT(diary(), SizeIs(testing::Le(2))) << "It was not replaced for that";
}

TEST_F(SupervisionTest, TakesLargeAnswers) {
    const auto id = host_.add("Large", small);
    EXPECT_TRUE(waitUntil([&] { return shows(id, std::string(3 << 20, 'x')); }));
}

TEST_F(SupervisionTest, RefusesForeignUrlsInContent) {
    const auto good = host_.add("Good", small);
    const auto foreign = host_.add("Foreign", small);
    EXPECT_TRUE(waitUntil([&] { return shows(good, "Good") && logged("timeline is refused"); }));
    EXPECT_EQ(host_.shownEntry(foreign), nullptr);
    EXPECT_THAT(log_.lines, Each(AllOf(HasSubstr("Foreign (small)"), HasSubstr("example.org"))));
}

TEST_F(ImpatientSupervisionTest, OpensAUrlForAnActionAndReloadsAfterwards) {
    const auto id = host_.add("Good", small);
    EXPECT_TRUE(waitUntil([&] { return shows(id, "Good"); }));
    host_.perform({.name = "Open", .parameters = {{"url", std::string("clock://ticked")}}});
    EXPECT_TRUE(waitUntil([&] { return opener_.calls.size() == 1; }));
    EXPECT_EQ(opener_.calls.at(0).url, "clock://ticked");
    runFor(2 * limits_.answer);
    EXPECT_THAT(log_.lines, testing::IsEmpty()) << "The wait is not the extension's";
    opener_.calls.at(0).completed("");
    EXPECT_TRUE(waitUntil([&] { return diary().size() == 4; }));
    EXPECT_THAT(diary(), ElementsAre("started", "perform Open", "opened", "input ended"));
}

TEST_F(SupervisionTest, OpensNoForeignUrlForAnAction) {
    host_.perform({.name = "Open", .parameters = {{"url", std::string("https://example.org")}}});
    EXPECT_TRUE(waitUntil([&] { return logged("https://example.org"); }));
    EXPECT_TRUE(waitUntil([&] {
        return testing::Value(diary(), Contains("not opened: this URL may not be opened"));
    }));
    EXPECT_THAT(opener_.urls(), testing::IsEmpty());
}

TEST_F(SupervisionTest, LogsAnActionThatFails) {
    host_.perform({.name = "Fail", .parameters = {}});
    EXPECT_TRUE(waitUntil([&] { return logged("the action Fail failed: it cannot be done"); }));
}

TEST_F(SupervisionTest, UsesAnUpdatedProgramFromTheNextStart) {
    const auto update = folder_ / "update";
    const auto id = host_.add("Good", small);
    EXPECT_TRUE(waitUntil([&] { return shows(id, "Good") && diary().size() == 2; }));
    writeText(update, "#!/bin/sh\necho new program >&2\nexit 3\n");
    makeExecutable(update);
    std::filesystem::rename(update, program_);
    host_.reloadAll();
    EXPECT_TRUE(waitUntil([&] { return logged("extension: new program"); }));
    EXPECT_TRUE(waitUntil([&] { return logged("ended with exit status 3"); }));
    EXPECT_TRUE(shows(id, "Good"));
    std::filesystem::copy_file(TEST_EXTENSION, update);
    std::filesystem::rename(update, program_);
    EXPECT_TRUE(waitUntil([&] { return logged("extension: answers again"); }));
}

class PatientSupervisionTest : public SupervisionTest {
protected:
    PatientSupervisionTest() : SupervisionTest(30s, 30s) {}
};

TEST_F(PatientSupervisionTest, UsesAnUpdatedProgramFromTheNextRequest) {
    const auto update = folder_ / "update";
    const auto id = host_.add("Good", small);
    EXPECT_TRUE(waitUntil([&] { return shows(id, "Good"); }));
    EXPECT_THAT(diary(), ElementsAre("started")) << "It waits for more";
    writeText(update, "#!/bin/sh\necho new program >&2\nexit 3\n");
    makeExecutable(update);
    std::filesystem::rename(update, program_);
    host_.reloadAll();
    EXPECT_TRUE(waitUntil([&] { return logged("extension: new program"); }));
    EXPECT_TRUE(waitUntil([&] { return diary().size() == 2; }));
    EXPECT_THAT(diary(), ElementsAre("started", "input ended")) << "The old one ended gently";
}

TEST_F(SupervisionTest, ComesBackWhenAMissingProgramIsThereAgain) {
    EXPECT_TRUE(waitUntil([&] { return diary().size() == 2; }));
    std::filesystem::rename(program_, folder_ / "aside");
    const auto id = host_.add("Good", small);
    EXPECT_TRUE(waitUntil([&] { return logged("could not be started"); }));
    EXPECT_EQ(host_.shownEntry(id), nullptr);
    std::filesystem::rename(folder_ / "aside", program_);
    EXPECT_TRUE(waitUntil([&] { return shows(id, "Good"); }));
}

}  // namespace
}  // namespace kelmar::host
