#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "Host/ProcessLauncher.h"
#include "tests/Host/EventLoop.h"
#include "tests/Host/Fakes.h"
#include "tests/Host/TemporaryFolder.h"

namespace kelmar::host {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class RecordingListener final : public ExtensionListener {
public:
    void lineCame(std::string_view line) override { lines.emplace_back(line); }
    void overlongLineCame() override { isOverlong = true; }
    void errorLineCame(std::string_view line) override { errorLines.emplace_back(line); }
    void processEnded(std::string how) override { ended = std::move(how); }

    std::vector<std::string> lines;
    std::vector<std::string> errorLines;
    std::optional<std::string> ended;
    bool isOverlong = false;
};

class ProcessLauncherTest : public testing::Test {
protected:
    /// Launches a shell script.
    std::unique_ptr<ExtensionProcess> launch(std::string_view script) {
        return launch(launcher_, script);
    }
    std::unique_ptr<ExtensionProcess> launch(ProcessLauncher& launcher, std::string_view script) {
        writeText(program_, "#!/bin/sh\n" + std::string(script));
        makeExecutable(program_);
        return launcher.launch(listener_);
    }
    [[nodiscard]] bool exists(std::string_view name) const {
        return std::filesystem::exists(folder_ / name);
    }
    [[nodiscard]] std::string pathOf(std::string_view name) const {
        return "'" + (folder_ / name).string() + "'";
    }

    TemporaryFolder folder_;
    std::filesystem::path program_ = folder_ / "extension";
    RecordingLog log_;
    ManualTimers timers_;
    RecordingListener listener_;
    ProcessLauncher launcher_{program_, {.ending = 20s}, timers_, log_};
};

TEST_F(ProcessLauncherTest, CarriesLinesBothWays) {
    const auto process = launch("while read line; do echo \"got $line\"; done");
    process->write("one");
    process->write("two");
    EXPECT_TRUE(waitUntil([&] { return listener_.lines.size() == 2; }));
    EXPECT_THAT(listener_.lines, ElementsAre("got one", "got two"));
}

TEST_F(ProcessLauncherTest, HearsStandardErrorApart) {
    const auto process = launch("echo oops >&2; echo fine; cat >/dev/null");
    EXPECT_TRUE(
        waitUntil([&] { return listener_.lines.size() + listener_.errorLines.size() == 2; }));
    EXPECT_THAT(listener_.lines, ElementsAre("fine"));
    EXPECT_THAT(listener_.errorLines, ElementsAre("oops"));
}

TEST_F(ProcessLauncherTest, TellsHowTheProcessEnded) {
    const auto first = launch("exit 70");
    EXPECT_TRUE(waitUntil([&] { return listener_.ended.has_value(); }));
    EXPECT_EQ(listener_.ended, "ended with exit status 70");
    listener_.ended.reset();
    const auto second = launch("kill -9 $$");
    EXPECT_TRUE(waitUntil([&] { return listener_.ended.has_value(); }));
    EXPECT_EQ(listener_.ended, "was ended by signal 9 (Killed)");
}

TEST_F(ProcessLauncherTest, HearsTheLastLinesBeforeTheEnd) {
    const auto process = launch("echo one; echo two; exit 3");
    EXPECT_TRUE(waitUntil([&] { return listener_.ended.has_value(); }));
    EXPECT_THAT(listener_.lines, ElementsAre("one", "two"));
}

TEST_F(ProcessLauncherTest, TellsThatItCouldNotBeStartedButNotWithinTheCall) {
    const auto process = launcher_.launch(listener_);
    EXPECT_EQ(listener_.ended, std::nullopt);
    EXPECT_TRUE(waitUntil([&] { return listener_.ended.has_value(); }));
    EXPECT_THAT(*listener_.ended, HasSubstr("could not be started"));
    process->write("to nobody");
    process->end(Ending::gently);
}

TEST_F(ProcessLauncherTest, AGentleEndLetsTheProcessFinish) {
    const auto process =
        launch("while read line; do :; done; sleep 0.1; touch " + pathOf("finished"));
    process->end(Ending::gently);
    EXPECT_TRUE(waitUntil([&] { return exists("finished"); }));
    EXPECT_THAT(log_.lines, IsEmpty());
    EXPECT_EQ(listener_.ended, std::nullopt);
}

TEST_F(ProcessLauncherTest, OneThatStaysAfterItsInputHasEndedIsKilled) {
    ProcessLauncher launcher(program_, {.ending = 300ms}, timers_, log_);
    const auto process = launch(launcher, "echo $$; exec sleep 3600");
    ASSERT_TRUE(waitUntil([&] { return !listener_.lines.empty(); }));
    const auto folder = "/proc/" + listener_.lines.at(0);
    process->end(Ending::gently);
    EXPECT_TRUE(std::filesystem::exists(folder));
    EXPECT_TRUE(waitUntil([&] { return !std::filesystem::exists(folder); }));
    EXPECT_THAT(log_.lines, ElementsAre(HasSubstr("stayed 300 ms after the end of its input")));
}

TEST_F(ProcessLauncherTest, ThoseThatAlwaysStayFillNoLog) {
    ProcessLauncher launcher(program_, {.ending = 20ms, .logLines = 3, .logPause = 1h}, timers_,
                             log_);
    const auto letOneStay = [&] {
        listener_.lines.clear();
        const auto process = launch(launcher, "echo $$; exec sleep 3600");
        ASSERT_TRUE(waitUntil([&] { return !listener_.lines.empty(); }));
        const auto folder = "/proc/" + listener_.lines.at(0);
        process->end(Ending::gently);
        ASSERT_TRUE(waitUntil([&] { return !std::filesystem::exists(folder); }));
    };
    for (int count = 0; count < 5; ++count) {
        letOneStay();
    }
    EXPECT_THAT(log_.lines, SizeIs(3));
    timers_.advance(1h);
    letOneStay();
    EXPECT_THAT(log_.lines, SizeIs(4));
    EXPECT_THAT(log_.lines.back(), HasSubstr("(2 like it left out before)"));
}

TEST_F(ProcessLauncherTest, AnEndAtOnceKills) {
    const auto process =
        launch("echo $$; while read line; do :; done; touch " + pathOf("finished"));
    ASSERT_TRUE(waitUntil([&] { return !listener_.lines.empty(); }));
    const auto folder = "/proc/" + listener_.lines.at(0);
    process->end(Ending::atOnce);
    EXPECT_TRUE(waitUntil([&] { return !std::filesystem::exists(folder); }));
    EXPECT_FALSE(exists("finished"));
    EXPECT_EQ(listener_.ended, std::nullopt);
}

TEST_F(ProcessLauncherTest, HearsNothingMoreAfterTheEnd) {
    ProcessLauncher launcher(program_, {.ending = 300ms}, timers_, log_);
    const auto process = launch(launcher, "while echo more; do :; done");
    EXPECT_TRUE(waitUntil([&] { return !listener_.lines.empty(); }));
    process->end(Ending::gently);
    const auto heard = listener_.lines.size();
    runFor(100ms);
    EXPECT_EQ(listener_.lines.size(), heard);
}

TEST_F(ProcessLauncherTest, GoingAwayLetsAProcessFinishAndLeavesNoneBehind) {
    std::string folder;
    {
        ProcessLauncher launcher(program_, {.ending = 2s}, timers_, log_);
        const auto process = launch(launcher, "echo $$; while read line; do :; done; touch " +
                                                  pathOf("finished") + "; exec sleep 3600");
        ASSERT_TRUE(waitUntil([&] { return !listener_.lines.empty(); }));
        folder = "/proc/" + listener_.lines.at(0);
    }
    EXPECT_TRUE(exists("finished"));
    EXPECT_FALSE(std::filesystem::exists(folder));
}

TEST_F(ProcessLauncherTest, KnowsWhenItsProgramWasReplacedOrRewritten) {
    const std::string_view waiting = "while read line; do :; done";
    const auto first = launch(waiting);
    EXPECT_FALSE(first->isOutdated());
    std::filesystem::rename(program_, folder_ / "aside");
    EXPECT_FALSE(first->isOutdated()) << "Its successor is not there yet";
    const auto second = launch(waiting);
    EXPECT_TRUE(first->isOutdated());
    EXPECT_FALSE(second->isOutdated());
    writeText(program_, "#!/bin/sh\nexit 0\n");
    EXPECT_TRUE(second->isOutdated());
    std::filesystem::rename(folder_ / "aside", program_);
    EXPECT_FALSE(first->isOutdated()) << "The very same is back";
}

/// In mebibytes.
std::size_t residentMemory() {
    std::ifstream statm("/proc/self/statm");
    std::size_t total = 0;
    std::size_t resident = 0;
    statm >> total >> resident;
    return resident * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE)) >> 20U;
}

TEST_F(ProcessLauncherTest, KeepsNothingOfWhatIsPrintedAfterTheEnd) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the address sanitizer keeps hundreds of megabytes of what has been freed";
#endif
    ProcessLauncher launcher(program_, {.ending = 10s}, timers_, log_);
    const auto process =
        launch(launcher, "echo begun; head -c 300000000 /dev/zero; touch " + pathOf("printed") +
                             "; head -c 300000000 /dev/zero >&2; touch " + pathOf("shouted"));
    ASSERT_TRUE(waitUntil([&] { return !listener_.lines.empty(); }));
    const auto before = residentMemory();
    process->end(Ending::gently);
    ASSERT_TRUE(waitUntil([&] { return exists("shouted"); }));
    constexpr std::size_t room = 64;
    EXPECT_LT(residentMemory(), before + room);
}

TEST_F(ProcessLauncherTest, StopsReadingAtAnOverlongLine) {
    const auto process = launch(
        "echo short; head -c 8388609 /dev/zero | tr '\\0' x; echo; echo behind; cat >/dev/null");
    EXPECT_TRUE(waitUntil([&] { return listener_.isOverlong; }));
    EXPECT_THAT(listener_.lines, ElementsAre("short"));
}

TEST_F(ProcessLauncherTest, TakesALineOfEightMebibytes) {
    const auto process = launch("head -c 8388608 /dev/zero | tr '\\0' x; echo; cat >/dev/null");
    EXPECT_TRUE(waitUntil([&] { return !listener_.lines.empty(); }));
    EXPECT_EQ(listener_.lines.at(0).size(), 8'388'608U);
    EXPECT_FALSE(listener_.isOverlong);
}

}  // namespace
}  // namespace kelmar::host
