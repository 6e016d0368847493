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

    void fill(const kit::Bundle& offered, const std::string& kind) {
        menu_.clear();
        fillWidgetMenu(
            menu_,
            {.bundle = offered,
             .kind = kind,
             .family = kit::Family::medium,
             .renderingMode = kit::RenderingMode::accented},
            {.resize = [this](kit::Family family) { note("resize", nameOf(family)); },
             .remove = [this] { note("remove"); },
             .add = [this](const std::string& added,
                           kit::Family family) { note("add " + added, nameOf(family)); },
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

    QMenu menu_;
    std::vector<std::string> done_;

private:
    system::EnglishLocalization texts_;
};

TEST_F(WidgetMenuTest, OffersSizesRemovalFurtherWidgetsRenderingAndTheEnd) {
    EXPECT_THAT(textsOf(menu_), ElementsAre("Small", "Medium", "Large", "-", "Remove widget",
                                            "Add widget", "Rendering", "-", "Quit"));
}

TEST_F(WidgetMenuTest, OffersTheSizesOfTheWidgetsOwnKind) {
    fill(bundle, "Streak");
    EXPECT_THAT(textsOf(menu_), ElementsAre("Small", "Medium", "-", "Remove widget", "Add widget",
                                            "Rendering", "-", "Quit"));
}

TEST_F(WidgetMenuTest, MarksWhatIsSoAlready) {
    EXPECT_TRUE(find(menu_, "Medium")->isChecked());
    EXPECT_FALSE(find(menu_, "Small")->isChecked());
    const QMenu& modes = *find(menu_, "Rendering")->menu();
    EXPECT_THAT(textsOf(modes), ElementsAre("Full colour", "Accented", "Vibrant"));
    EXPECT_TRUE(find(modes, "Accented")->isChecked());
}

TEST_F(WidgetMenuTest, ListsEveryWidgetInEverySizeToAdd) {
    const QMenu& add = *find(menu_, "Add widget")->menu();
    // A lone "&" would be drawn as an underline.
    EXPECT_THAT(textsOf(add), ElementsAre("Due Today", "Streak && Stats"));
    EXPECT_THAT(textsOf(*find(add, "Streak && Stats")->menu()), ElementsAre("Small", "Medium"));
}

TEST_F(WidgetMenuTest, EntriesDoWhatTheySay) {
    find(menu_, "Large")->trigger();
    find(menu_, "Remove widget")->trigger();
    const QMenu& add = *find(menu_, "Add widget")->menu();
    find(*find(add, "Streak && Stats")->menu(), "Small")->trigger();
    find(*find(menu_, "Rendering")->menu(), "Vibrant")->trigger();
    find(menu_, "Quit")->trigger();
    EXPECT_THAT(done_,
                ElementsAre("resize large", "remove", "add Streak small", "mode vibrant", "quit"));
}

TEST_F(WidgetMenuTest, NothingCanBeAddedWhileTheExtensionIsSilent) {
    fill({}, "DueToday");
    EXPECT_THAT(textsOf(menu_),
                ElementsAre("Remove widget", "Add widget", "Rendering", "-", "Quit"));
    EXPECT_FALSE(find(menu_, "Add widget")->isEnabled());
}

}  // namespace
}  // namespace kelmar::desktop
