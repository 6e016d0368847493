#include <gmock/gmock.h>

#include "Desktop/TrayMenu.h"
#include "tests/Desktop/DesktopTest.h"

namespace kelmar::desktop {
namespace {

class TrayMenuTest : public DesktopTest {
protected:
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
