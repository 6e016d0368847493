#include <QMenu>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Desktop/SymbolIcon.h"
#include "Desktop/TrayIcon.h"
#include "Host/HostParts.h"
#include "tests/Desktop/FoundFonts.h"
#include "tests/Desktop/RecordingLog.h"
#include "tests/Host/Fakes.h"

namespace kelmar::desktop {
namespace {

class TrayIconTest : public testing::Test {
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
    TrayIcon tray_{{.host = host_, .look = look_, .texts = texts_, .log = log_}};
};

TEST_F(TrayIconTest, MenuHoldsTheControlsTheGalleryAndTheEnd) {
    launcher_.last().introduce(
        {.widgets = {}, .controls = {{.kind = "Lamp", .displayName = "Lamp", .description = ""}}});
    std::vector<std::string> entries;
    for (const QAction* action : tray_.menu().actions()) {
        entries.push_back(action->isSeparator() ? "-" : action->text().toStdString());
    }
    EXPECT_THAT(entries, testing::ElementsAre("Lamp", "-", "Add widgets…",
                                              "Use widgets by keyboard", "Quit"));
}

TEST_F(TrayIconTest, MenuAsksForTheGallery) {
    int wishes = 0;
    QObject::connect(&tray_, &TrayIcon::galleryRequested, [&] { ++wishes; });
    tray_.menu().actions().constFirst()->trigger();
    EXPECT_EQ(wishes, 1);
}

TEST_F(TrayIconTest, EntryForTheKeyboardAsksForIt) {
    int requests = 0;
    QObject::connect(&tray_, &TrayIcon::keyboardRequested, [&] { ++requests; });
    tray_.menu().actions().at(1)->trigger();
    EXPECT_EQ(requests, 1);
}

TEST_F(TrayIconTest, LastEntryAsksForTheEnd) {
    int ends = 0;
    QObject::connect(&tray_, &TrayIcon::quitRequested, [&] { ++ends; });
    tray_.menu().actions().constLast()->trigger();
    EXPECT_EQ(ends, 1);
}

TEST(SymbolIcon, CardShowsASymbolInWhiteOnItsColour) {
    const QImage image =
        cardIcon(paint::SymbolSet(), "timer", QColor(10, 20, 200)).pixmap(32).toImage();
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(image.pixelColor(16, 1), QColor(10, 20, 200));
    int white = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            white += image.pixelColor(x, y) == Qt::white ? 1 : 0;
        }
    }
    EXPECT_GT(white, 20);
    EXPECT_LT(white, 300);
}

}  // namespace
}  // namespace kelmar::desktop
