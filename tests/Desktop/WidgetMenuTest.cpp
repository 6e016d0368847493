#include <QMenu>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Desktop/WidgetMenu.h"

namespace kelmar::desktop {
namespace {

using testing::ElementsAre;

const kit::Bundle bundle{
    .widgets = {{.kind = "DueToday",
                 .displayName = "Due Today",
                 .description = "",
                 .families = {kit::Family::small, kit::Family::medium, kit::Family::large}},
                {.kind = "Streak",
                 .displayName = "Streak & Stats",
                 .description = "",
                 .families = {kit::Family::small, kit::Family::medium}}},
    .controls = {}};

class WidgetMenuTest : public testing::Test {
protected:
    WidgetMenuTest() { fill(bundle, "DueToday"); }

    void fill(const kit::Bundle& offered, const std::string& kind,
              ArrangementLock lock = ArrangementLock::open) {
        menu_.clear();
        fillWidgetMenu(
            menu_,
            {.bundle = offered,
             .kind = kind,
             .family = kit::Family::medium,
             .lock = lock,
             .renderingMode = kit::RenderingMode::accented},
            {.resize = [this](kit::Family family) { note("resize", nameOf(family)); },
             .remove = [this] { note("remove"); },
             .undoRemoval = hasRemovals_ ? [this] { note("undo"); } : std::function<void()>(),
             .showGallery = [this] { note("gallery"); },
             .setLock =
                 [this](ArrangementLock wanted) {
                     note(wanted == ArrangementLock::locked ? "lock" : "unlock");
                 },
             .setRenderingMode = [this](kit::RenderingMode mode) { note("mode", nameOf(mode)); },
             .quit = [this] { note("quit"); }},
            texts_);
    }

    void note(const std::string& what, std::string_view which = {}) {
        done_.push_back(which.empty() ? what : what + " " + std::string(which));
    }

    /// The entry of a menu by its text.
    static QAction* find(const QMenu& menu, const QString& text) {
        for (QAction* action : menu.actions()) {
            if (action->text() == text) {
                return action;
            }
        }
        ADD_FAILURE() << "no entry " << text.toStdString();
        return nullptr;
    }

    static std::vector<std::string> textsOf(const QMenu& menu) {
        std::vector<std::string> texts;
        for (const QAction* action : menu.actions()) {
            texts.push_back(action->isSeparator() ? "-" : action->text().toStdString());
        }
        return texts;
    }

    bool hasRemovals_ = false;
    QMenu menu_;
    std::vector<std::string> done_;

private:
    system::EnglishLocalization texts_;
};

TEST_F(WidgetMenuTest, OffersSizesRemovalFurtherWidgetsLockRenderingAndTheEnd) {
    EXPECT_THAT(textsOf(menu_),
                ElementsAre("Small", "Medium", "Large", "-", "Remove widget", "Add widgets…", "-",
                            "Lock arrangement", "Rendering", "-", "Quit"));
}

TEST_F(WidgetMenuTest, OffersTheSizesOfTheWidgetsOwnKind) {
    fill(bundle, "Streak");
    EXPECT_THAT(textsOf(menu_), ElementsAre("Small", "Medium", "-", "Remove widget", "Add widgets…",
                                            "-", "Lock arrangement", "Rendering", "-", "Quit"));
}

TEST_F(WidgetMenuTest, MarksWhatIsSoAlready) {
    EXPECT_TRUE(find(menu_, "Medium")->isChecked());
    EXPECT_FALSE(find(menu_, "Small")->isChecked());
    const QMenu& modes = *find(menu_, "Rendering")->menu();
    EXPECT_THAT(textsOf(modes), ElementsAre("Full colour", "Accented", "Vibrant"));
    EXPECT_TRUE(find(modes, "Accented")->isChecked());
}

TEST_F(WidgetMenuTest, EntriesDoWhatTheySay) {
    for (const char* entry :
         {"Large", "Remove widget", "Add widgets…", "Lock arrangement", "Quit"}) {
        find(menu_, entry)->trigger();
    }
    find(*find(menu_, "Rendering")->menu(), "Vibrant")->trigger();
    EXPECT_THAT(done_,
                ElementsAre("resize large", "remove", "gallery", "lock", "quit", "mode vibrant"));
}

TEST_F(WidgetMenuTest, LockedArrangementCanBeUnlockedButNotChanged) {
    fill(bundle, "DueToday", ArrangementLock::locked);
    for (const char* entry : {"Small", "Medium", "Large", "Remove widget"}) {
        EXPECT_FALSE(find(menu_, entry)->isEnabled()) << entry;
    }
    EXPECT_TRUE(find(menu_, "Lock arrangement")->isChecked());
    find(menu_, "Lock arrangement")->trigger();
    EXPECT_THAT(done_, ElementsAre("unlock"));
}

TEST_F(WidgetMenuTest, RemovalCanBeUndoneAsLongAsThereIsOne) {
    hasRemovals_ = true;
    fill(bundle, "DueToday");
    find(menu_, "Undo removal")->trigger();
    EXPECT_THAT(done_, ElementsAre("undo"));
}

TEST_F(WidgetMenuTest, NoSizesAreKnownWhileTheExtensionIsSilent) {
    fill({}, "DueToday");
    EXPECT_THAT(textsOf(menu_), ElementsAre("Remove widget", "Add widgets…", "-",
                                            "Lock arrangement", "Rendering", "-", "Quit"));
}

}  // namespace
}  // namespace kelmar::desktop
