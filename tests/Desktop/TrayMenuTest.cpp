#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Desktop/TrayMenu.h"
#include "Host/HostParts.h"
#include "tests/Desktop/FoundFonts.h"
#include "tests/Desktop/RecordingLog.h"
#include "tests/Host/Fakes.h"

namespace kelmar::desktop {
namespace {

class TrayMenuTest : public testing::Test {
protected:
    host::RecordingUrlOpener opener_;
    system::ManualClock clock_{system::Date::since1970(1'760'000'000)};
    host::ManualWallClockTimer wallClockTimer_;
    host::ManualTimers timers_;
    host::FakeLauncher launcher_;
    host::ManualFileWatch fileWatch_;
    test::RecordingLog log_;
    host::WidgetHost host_{
        {.executable = "/opt/lamp-extension", .urlScheme = "lamp", .reloadOnChange = {}},
        host::HostParts{opener_, clock_, wallClockTimer_, timers_, launcher_, fileWatch_, log_,
                        host::HostLimits{}}};
    PortalSettings settings_{log_};
    Look look_{settings_, SchemeChoice::light, foundFonts()};
    system::EnglishLocalization texts_;
    TrayMenu menu_{{.host = host_, .look = look_, .texts = texts_}};
};

TEST_F(TrayMenuTest, MenuHoldsTheControlsTheGalleryAndTheEnd) {
    launcher_.last().introduce(
        {.widgets = {}, .controls = {{.kind = "Lamp", .displayName = "Lamp", .description = ""}}});
    std::vector<std::string> entries;
    for (const QAction* action : menu_.actions()) {
        entries.push_back(action->isSeparator() ? "-" : action->text().toStdString());
    }
    EXPECT_THAT(entries, testing::ElementsAre("Lamp", "-", "Add widgets…",
                                              "Use widgets by keyboard", "Quit"));
}

TEST_F(TrayMenuTest, MenuAsksForTheGallery) {
    int wishes = 0;
    QObject::connect(&menu_, &TrayMenu::galleryRequested, [&] { ++wishes; });
    menu_.actions().constFirst()->trigger();
    EXPECT_EQ(wishes, 1);
}

TEST_F(TrayMenuTest, EntryForTheKeyboardAsksForIt) {
    int requests = 0;
    QObject::connect(&menu_, &TrayMenu::keyboardRequested, [&] { ++requests; });
    menu_.actions().at(1)->trigger();
    EXPECT_EQ(requests, 1);
}

TEST_F(TrayMenuTest, LastEntryAsksForTheEnd) {
    int ends = 0;
    QObject::connect(&menu_, &TrayMenu::quitRequested, [&] { ++ends; });
    menu_.actions().constLast()->trigger();
    EXPECT_EQ(ends, 1);
}

}  // namespace
}  // namespace kelmar::desktop
