#include <QProcess>
#include <QThread>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <sstream>
#include <unistd.h>

#include "DemoPlanner/PlannerDisk.h"
#include "DemoPlanner/StateCoding.h"
#include "Shared/PlannerFiles.h"
#include "Shared/SnapshotCoding.h"
#include "Shared/WidgetTicks.h"
#include "System/Clock.h"
#include "System/Folder.h"

namespace kelmar::demo {
namespace {

namespace fs = std::filesystem;
using shared::WidgetData;
using shared::WidgetTicks;
using testing::HasSubstr;
using testing::Not;

constexpr int patienceMilliseconds = 60'000;

bool waitUntil(const std::function<bool()>& condition) {
    for (int waited = 0; waited < patienceMilliseconds; waited += 20) {
        if (condition()) {
            return true;
        }
        QThread::msleep(20);
    }
    return condition();
}

void writeFile(const fs::path& path, const std::string& text) {
    fs::create_directories(path.parent_path());
    std::ofstream(path) << text;
}

std::string textOf(const fs::path& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

struct Outcome {
    int status = -1;
    std::string output;
    std::string errors;
};

/// The program in a home of its own, which only the account database knows of.
class DemoProcessTest : public testing::Test {
public:
    ~DemoProcessTest() override {
        if (running_) {
            running_->kill();
            running_->waitForFinished(patienceMilliseconds);
        }
        fs::remove_all(root_);
    }

protected:
    DemoProcessTest() {
        std::string name = fs::temp_directory_path() / "planner-demo-XXXXXX";
        root_ = ::mkdtemp(name.data());
        home_ = root_ / "home";
        folder_ = home_ / shared::plannerFolderPath;
        fs::create_directories(home_);
        fs::create_directories(root_ / "run");
        fs::permissions(root_ / "run", fs::perms::owner_all);
        writeFile(root_ / "passwd", "student:x:" + std::to_string(::getuid()) + ":" +
                                        std::to_string(::getgid()) + "::" + home_.string() +
                                        ":/bin/sh\n");
        writeFile(root_ / "group", "student:x:" + std::to_string(::getgid()) + ":\n");
    }

    [[nodiscard]] QProcessEnvironment environment() const {
        const auto path = [&](const char* name) {
            return QString::fromStdString((root_ / name).string());
        };
        QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
        variables.insert("LD_PRELOAD", NSS_WRAPPER_LIBRARY);
        variables.insert("NSS_WRAPPER_PASSWD", path("passwd"));
        variables.insert("NSS_WRAPPER_GROUP", path("group"));
        variables.insert("HOME", path("not-the-home"));
        variables.insert("XDG_RUNTIME_DIR", path("run"));
        variables.insert("XDG_DATA_HOME", path("data"));
        variables.insert("XDG_CONFIG_HOME", path("config"));
        variables.insert("XDG_DATA_DIRS", path("system"));
        variables.insert("XDG_CONFIG_DIRS", path("system"));
        variables.insert("QT_QPA_PLATFORM", "offscreen");
        variables.insert("ASAN_OPTIONS", "verify_asan_link_order=0:detect_leaks=0");
        variables.remove("DBUS_SESSION_BUS_ADDRESS");
        variables.remove("DISPLAY");
        variables.remove("WAYLAND_DISPLAY");
        variables.remove("XDG_CURRENT_DESKTOP");
        return variables;
    }

    [[nodiscard]] std::unique_ptr<QProcess> begin(const QStringList& arguments) const {
        auto process = std::make_unique<QProcess>();
        process->setProcessEnvironment(environment());
        process->start(DEMO_PROGRAM, arguments);
        EXPECT_TRUE(process->waitForStarted(patienceMilliseconds));
        return process;
    }

    /// Starts the one that stays, and waits until it has published.
    void launch(const QStringList& arguments = {"--background"}) {
        fs::remove(folder_ / "widget.json");
        running_ = begin(arguments);
        ASSERT_TRUE(waitUntil([&] { return fs::exists(folder_ / "widget.json"); }))
            << running_->readAllStandardError().toStdString();
    }

    [[nodiscard]] Outcome run(const QStringList& arguments) const {
        const std::unique_ptr<QProcess> process = begin(arguments);
        EXPECT_TRUE(process->waitForFinished(patienceMilliseconds))
            << arguments.join(' ').toStdString();
        return {process->exitCode(), process->readAllStandardOutput().toStdString(),
                process->readAllStandardError().toStdString()};
    }

    [[nodiscard]] WidgetData published() const {
        const auto data = shared::decodeSnapshot(textOf(folder_ / "widget.json"));
        EXPECT_TRUE(data);
        return data ? *data : WidgetData();
    }

    fs::path root_;
    fs::path home_;
    fs::path folder_;
    std::unique_ptr<QProcess> running_;
};

TEST_F(DemoProcessTest, PublishesInTheHomeOfTheAccountDatabase) {
    launch();
    EXPECT_TRUE(published().signedIn);
    EXPECT_TRUE(fs::is_directory(folder_ / "Ticked"));
    EXPECT_FALSE(fs::exists(root_ / "not-the-home"));
}

TEST_F(DemoProcessTest, ASecondStartHandsItsUrlToTheOneThatRuns) {
    launch();
    EXPECT_EQ(published().timer->state, "ready");
    const Outcome outcome = run({"kelmarplanner://timer/start?mins=15"});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_EQ(published().timer->state, "running");
    EXPECT_EQ(published().timer->total, 15 * 60);
    EXPECT_EQ(running_->state(), QProcess::Running);
}

TEST_F(DemoProcessTest, ATickOfAWidgetIsTakenOverAndUndone) {
    launch();
    const WidgetData before = published();
    const std::string id = before.today.front().id;
    system::DiskFolder ticked(folder_ / "Ticked");
    ASSERT_TRUE(WidgetTicks(ticked).write(id, {"A title", before.updated}));
    EXPECT_EQ(run({"kelmarplanner://ticked"}).status, 0);
    EXPECT_EQ(published().today, before.without({id}).today);
    EXPECT_THAT(WidgetTicks(ticked).pending(), testing::IsEmpty());
    EXPECT_TRUE(fs::exists(folder_ / "Ticked" / ("done-" + WidgetTicks::name(id))));

    std::string encoded = id;
    encoded.replace(encoded.find('/'), 1, "%2F");
    WidgetTicks(ticked).remove(id);
    EXPECT_EQ(run({"kelmarplanner://untick/" + QString::fromStdString(encoded)}).status, 0);
    EXPECT_EQ(published().today, before.today);
}

TEST_F(DemoProcessTest, AFolderThatSomebodyElseMadeIsRefusedInOneLine) {
    writeFile(folder_ / "widget.json", "precious");
    const Outcome outcome = run({"--background"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors, HasSubstr(folder_.string()));
    EXPECT_EQ(std::count(outcome.errors.begin(), outcome.errors.end(), '\n'), 1);
    EXPECT_EQ(textOf(folder_ / "widget.json"), "precious");
}

TEST_F(DemoProcessTest, AMalformedUrlIsLoggedAndChangesNothing) {
    launch();
    const std::string before = textOf(folder_ / "widget.json");
    EXPECT_EQ(run({"kelmarplanner://nowhere\n"}).status, 0);
    EXPECT_EQ(run({"--quit"}).status, 0);
    ASSERT_TRUE(running_->waitForFinished(patienceMilliseconds));
    const std::string errors = running_->readAllStandardError().toStdString();
    EXPECT_THAT(errors, HasSubstr("kelmarplanner://nowhere"));
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
    EXPECT_EQ(textOf(folder_ / "widget.json"), before);
}

TEST_F(DemoProcessTest, EverythingSurvivesARestart) {
    launch();
    ASSERT_EQ(run({"kelmarplanner://timer/start?mins=50"}).status, 0);
    ASSERT_EQ(run({"kelmarplanner://timer/off"}).status, 0);
    const WidgetData before = published();
    EXPECT_EQ(run({"--quit"}).status, 0);
    ASSERT_TRUE(running_->waitForFinished(patienceMilliseconds));
    EXPECT_EQ(running_->exitCode(), 0);
    launch();
    EXPECT_EQ(published().timer, before.timer);
    EXPECT_EQ(published().today, before.today);
}

TEST_F(DemoProcessTest, AfterBeingKilledItStartsAgain) {
    launch();
    ASSERT_EQ(run({"kelmarplanner://timer/start?mins=50"}).status, 0);
    running_->kill();
    ASSERT_TRUE(running_->waitForFinished(patienceMilliseconds));
    launch();
    EXPECT_EQ(published().timer->state, "running");
    EXPECT_EQ(run({"kelmarplanner://timer/off"}).status, 0);
    EXPECT_EQ(published().timer->state, "paused");
}

TEST_F(DemoProcessTest, ACommandStartsItWhereNoneRuns) {
    launch({"kelmarplanner://timer/start?mins=15"});
    EXPECT_TRUE(waitUntil([&] { return published().timer->state == "running"; }));
    EXPECT_EQ(running_->state(), QProcess::Running);
}

TEST_F(DemoProcessTest, WithoutARuntimeFolderItFindsItselfAllTheSame) {
    fs::remove(root_ / "run");
    QProcessEnvironment variables = environment();
    variables.remove("XDG_RUNTIME_DIR");
    running_ = std::make_unique<QProcess>();
    running_->setProcessEnvironment(variables);
    running_->start(DEMO_PROGRAM, {"--background"});
    ASSERT_TRUE(waitUntil([&] { return fs::exists(folder_ / "widget.json"); }));
    EXPECT_EQ(run({"kelmarplanner://timer/start?mins=15"}).status, 0);
    EXPECT_EQ(published().timer->state, "running");
}

TEST_F(DemoProcessTest, OfTwoStartsAtOnceOneStays) {
    running_ = begin({"--background"});
    std::unique_ptr<QProcess> other = begin({"--background"});
    const auto ended = [](QProcess& process) { return process.waitForFinished(1); };
    ASSERT_TRUE(waitUntil([&] { return ended(*running_) || ended(*other); }));
    if (running_->state() == QProcess::NotRunning) {
        std::swap(running_, other);
    }
    EXPECT_EQ(other->exitCode(), 0) << other->readAllStandardError().toStdString();
    EXPECT_EQ(running_->state(), QProcess::Running);
    EXPECT_EQ(run({"kelmarplanner://timer/on"}).status, 0);
    EXPECT_EQ(published().timer->state, "running");
}

TEST_F(DemoProcessTest, ASessionThatRunsOutRingsByItself) {
    launch();
    EXPECT_EQ(run({"--quit"}).status, 0);
    ASSERT_TRUE(running_->waitForFinished(patienceMilliseconds));
    auto state = decodeState(textOf(folder_ / PlannerDisk::stateName));
    ASSERT_TRUE(state);
    PlannerState shortened = *state;
    shortened.timer.start(system::SystemClock().now(), 1);
    shortened.timer.endAt = system::SystemClock().now() + 3;
    writeFile(folder_ / PlannerDisk::stateName, encodeState(shortened));
    launch();
    EXPECT_EQ(published().timer->state, "running");
    EXPECT_TRUE(waitUntil([&] { return published().timer->ringing; }));
}

TEST_F(DemoProcessTest, QuittingWhereNoneRunsIsDoneAtOnce) {
    EXPECT_EQ(run({"--quit"}).status, 0);
    EXPECT_FALSE(fs::exists(folder_));
}

TEST_F(DemoProcessTest, ACommandLineThatMakesNoSenseIsAnErrorOfUse) {
    EXPECT_EQ(run({"--fly"}).status, 2);
    EXPECT_EQ(run({"--register", "--quit"}).status, 2);
    EXPECT_EQ(run({"kelmarplanner://ticked", "kelmarplanner://ticked"}).status, 2);
    EXPECT_EQ(run({"--help"}).status, 0);
    EXPECT_FALSE(fs::exists(folder_));
}

class SchemeHandlerTest : public DemoProcessTest {
protected:
    fs::path desktopFile_ = root_ / "data/applications/kelmar-planner-demo.desktop";
    fs::path associations_ = root_ / "config/mimeapps.list";

    /// Another program that opens the planner's URLs.
    void installAnother() const {
        writeFile(root_ / "data/applications/planner.desktop",
                  "[Desktop Entry]\nType=Application\nName=The Planner\nExec=/bin/true %u\n"
                  "MimeType=x-scheme-handler/kelmarplanner;\n");
        writeFile(associations_,
                  "[Default Applications]\nx-scheme-handler/kelmarplanner=planner.desktop;\n");
    }
};

TEST_F(SchemeHandlerTest, RegisteringMakesItTheHandler) {
    const Outcome outcome = run({"--register"});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    const std::string file = textOf(desktopFile_);
    EXPECT_THAT(file, HasSubstr("MimeType=x-scheme-handler/kelmarplanner;\n"));
    EXPECT_THAT(file, HasSubstr(std::string(DEMO_PROGRAM)));
    EXPECT_THAT(file, HasSubstr(" %u\n"));
    EXPECT_THAT(textOf(associations_),
                HasSubstr("x-scheme-handler/kelmarplanner=kelmar-planner-demo.desktop"));
    EXPECT_FALSE(fs::exists(folder_)) << "registering needs no planner folder";
}

TEST_F(SchemeHandlerTest, RegisteringTwiceChangesNothing) {
    ASSERT_EQ(run({"--register"}).status, 0);
    const std::string file = textOf(desktopFile_);
    const std::string list = textOf(associations_);
    EXPECT_EQ(run({"--register"}).status, 0);
    EXPECT_EQ(textOf(desktopFile_), file);
    EXPECT_EQ(textOf(associations_), list);
}

TEST_F(SchemeHandlerTest, UnregisteringTakesItBack) {
    ASSERT_EQ(run({"--register"}).status, 0);
    const Outcome outcome = run({"--unregister"});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_FALSE(fs::exists(desktopFile_));
    EXPECT_THAT(textOf(associations_), Not(HasSubstr("kelmar-planner-demo")));
    EXPECT_THAT(textOf(associations_), Not(HasSubstr("kelmarplanner")));
    EXPECT_EQ(run({"--unregister"}).status, 0);
}

TEST_F(SchemeHandlerTest, AnotherHandlerIsNamedAndStays) {
    installAnother();
    const std::string before = textOf(associations_);
    const Outcome outcome = run({"--register"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, HasSubstr("The Planner (planner.desktop)"));
    EXPECT_EQ(textOf(associations_), before);
    EXPECT_EQ(run({"--unregister"}).status, 0);
    EXPECT_THAT(textOf(associations_),
                HasSubstr("x-scheme-handler/kelmarplanner=planner.desktop;"));
}

TEST_F(SchemeHandlerTest, UnregisteringLeavesWhatElseTheUserHasChosen) {
    writeFile(associations_,
              "[Default Applications]\ntext/html=browser.desktop\n\n"
              "[Added Associations]\nx-scheme-handler/kelmarplanner=other.desktop;\n");
    ASSERT_EQ(run({"--register"}).status, 0);
    EXPECT_THAT(textOf(associations_),
                HasSubstr("x-scheme-handler/kelmarplanner=kelmar-planner-demo.desktop"));
    ASSERT_EQ(run({"--unregister"}).status, 0);
    const std::string list = textOf(associations_);
    EXPECT_THAT(list, Not(HasSubstr("kelmar-planner-demo")));
    EXPECT_THAT(list, HasSubstr("text/html=browser.desktop"));
    EXPECT_THAT(list, HasSubstr("x-scheme-handler/kelmarplanner=other.desktop;"));
}

TEST_F(SchemeHandlerTest, ADesktopFileOfSomebodyElseIsLeftAlone) {
    writeFile(desktopFile_, "[Desktop Entry]\nType=Application\nName=Mine\nExec=/bin/true\n");
    const std::string before = textOf(desktopFile_);
    EXPECT_EQ(run({"--register"}).status, 1);
    EXPECT_EQ(run({"--unregister"}).status, 1);
    EXPECT_EQ(textOf(desktopFile_), before);
}

}  // namespace
}  // namespace kelmar::demo
