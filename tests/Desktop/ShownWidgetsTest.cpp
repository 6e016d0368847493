#include <QMenu>
#include <QMouseEvent>
#include <QPointer>
#include <gmock/gmock.h>

#include "Desktop/Screens.h"
#include "Desktop/ShownWidgets.h"
#include "tests/Desktop/DesktopTest.h"

namespace kelmar::desktop {
namespace {

using testing::ElementsAre;

WidgetPlace at(const char* kind, QPoint position, kit::Family family = kit::Family::small) {
    return {.kind = kind,
            .family = family,
            .screen = currentScreens().front().identity,
            .position = position};
}

class ShownWidgetsTest : public DesktopTest {
protected:
    ShownWidgetsTest() {
        QObject::connect(&widgets_, &ShownWidgets::moved, [this] { ++moved_; });
    }

    WidgetWindow& window(std::size_t index) {
        return widgets_.window(*widgets_.items().at(index).id);
    }
    host::WidgetId id(std::size_t index) { return *widgets_.items().at(index).id; }

    /// Takes a widget by its middle and lets it go further to the right and down.
    static void drag(WidgetWindow& window, QPoint way) {
        const QPoint start = window.rect().center();
        const QPoint onScreen = window.pos() + start;
        const auto send = [&](QEvent::Type type, QPoint moved) {
            QMouseEvent event(type, QPointF(start), QPointF(onScreen + moved), Qt::LeftButton,
                              Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(&window, &event);
        };
        send(QEvent::MouseButtonPress, {});
        send(QEvent::MouseMove, way);
        send(QEvent::MouseButtonRelease, way);
    }

    [[nodiscard]] std::vector<std::string> kinds() const {
        std::vector<std::string> kinds;
        for (const WidgetPlace& place : widgets_.places()) {
            kinds.push_back(place.kind);
        }
        return kinds;
    }

    WidgetPresentation presentation_{desktopParts_};
    ShownWidgets widgets_{desktopParts_, presentation_};
    int moved_ = 0;
};

TEST_F(ShownWidgetsTest, WidgetsStandAtTheirPlacesFromBackToFront) {
    EXPECT_TRUE(widgets_.areNone());
    widgets_.add({at("Streak", {40, 60}), at("DueToday", {300, 60})});
    EXPECT_THAT(kinds(), ElementsAre("Streak", "DueToday"));
    EXPECT_EQ(window(0).pos(), QPoint(40, 60));
    EXPECT_EQ(window(1).pos(), QPoint(300, 60));
    EXPECT_EQ(windows().size(), 2U);
}

TEST_F(ShownWidgetsTest, RemovedWidgetTakesItsOpenMenuWithIt) {
    widgets_.add({at("Streak", {40, 60})});
    QMenu menu(&window(0));
    menu.addAction("Remove");
    menu.popup({60, 80});
    ASSERT_TRUE(menu.isVisible());
    widgets_.remove(id(0));
    EXPECT_FALSE(menu.isVisible());
}

TEST_F(ShownWidgetsTest, RemovedWidgetIsNoLongerSeenNorKept) {
    widgets_.add({at("Streak", {40, 60}), at("DueToday", {300, 60})});
    widgets_.remove(id(0));
    EXPECT_THAT(kinds(), ElementsAre("DueToday"));
    EXPECT_EQ(windows().size(), 1U);
    widgets_.remove(id(0));
    EXPECT_TRUE(widgets_.areNone());
    EXPECT_TRUE(windows().empty());
}

/// A menu of the window may still be at work when it asks for that.
TEST_F(ShownWidgetsTest, WindowOutlivesWhatAskedForItsRemoval) {
    widgets_.add(at("Streak", {40, 60}));
    const QPointer<WidgetWindow> removed(&window(0));
    widgets_.remove(id(0));
    EXPECT_FALSE(removed.isNull());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(removed.isNull());
}

TEST_F(ShownWidgetsTest, DraggedWidgetIsKeptWhereItRests) {
    widgets_.add(at("Streak", {40, 60}));
    drag(window(0), {200, 150});
    EXPECT_EQ(moved_, 1);
    EXPECT_EQ(widgets_.places().front().position, window(0).pos());
    EXPECT_NE(window(0).pos(), QPoint(40, 60));
}

TEST_F(ShownWidgetsTest, LockHoldsThoseThatAreThereAndThoseThatCome) {
    widgets_.add(at("Streak", {40, 60}));
    widgets_.setLock(ArrangementLock::locked);
    widgets_.add(at("DueToday", {300, 60}));
    drag(window(0), {200, 150});
    drag(window(1), {100, 150});
    EXPECT_EQ(moved_, 0);
    EXPECT_EQ(window(0).pos(), QPoint(40, 60));
    EXPECT_EQ(window(1).pos(), QPoint(300, 60));
    widgets_.setLock(ArrangementLock::open);
    drag(window(1), {100, 150});
    EXPECT_EQ(moved_, 1);
}

/// Its own former place would hold it otherwise.
TEST_F(ShownWidgetsTest, DraggedWidgetIsAttractedByTheOthersOnly) {
    widgets_.add({at("Streak", {45, 60}), at("DueToday", {300, 60})});
    const DragRule ruleForNew = widgets_.dragRule();
    const QSize size = windowSize(kit::Family::small);
    const QRect nearly(QPoint(48, 400), size);
    EXPECT_EQ(ruleForNew(nearly, nearly.center()).x(), 45);
    drag(window(0), {3, 340});
    EXPECT_NE(window(0).x(), 45);
}

TEST_F(ShownWidgetsTest, AnotherSizeIsKeptAndAskedForAndStaysOnTheScreen) {
    const QRect visible = currentScreens().front().visible;
    const QSize small = windowSize(kit::Family::small);
    widgets_.add(at("DueToday", {visible.width() - small.width(), 60}));
    widgets_.resize(id(0), kit::Family::large);
    EXPECT_EQ(widgets_.places().front().family, kit::Family::large);
    EXPECT_EQ(window(0).size(), windowSize(kit::Family::large));
    EXPECT_TRUE(visible.contains(window(0).geometry()));
    // Where the user put it is not forgotten for that.
    EXPECT_EQ(widgets_.places().front().position.x(), visible.width() - small.width());
    widgets_.resize(id(0), kit::Family::small);
    EXPECT_EQ(window(0).x(), visible.width() - small.width());
}

TEST_F(ShownWidgetsTest, NamesComeWithTheBundle) {
    widgets_.add(at("DueToday", {40, 60}));
    EXPECT_EQ(window(0).windowTitle(), "DueToday");
    launcher_.last().introduce({.widgets = {{.kind = "DueToday",
                                             .displayName = "Heute fällig",
                                             .description = "",
                                             .families = {kit::Family::small}}},
                                .controls = {}});
    EXPECT_EQ(window(0).windowTitle(), "Heute fällig");
    EXPECT_EQ(window(0).accessibleName(), "Heute fällig");
}

TEST_F(ShownWidgetsTest, LinksAreOpenedAndIntentsPerformed) {
    widgets_.add(at("DueToday", {40, 60}));
    launcher_.last().introduce();
    window(0).run(layout::LinkAction{"probe://linked"});
    EXPECT_THAT(opener_.urls(), ElementsAre("probe://linked"));
    const kit::Intent tick{.name = "Tick", .parameters = {}};
    window(0).run(layout::ButtonAction{tick});
    const kit::Request last = launcher_.last().requests().back();
    ASSERT_TRUE(std::holds_alternative<kit::PerformRequest>(last.body));
    EXPECT_EQ(std::get<kit::PerformRequest>(last.body).intent, tick);
}

}  // namespace
}  // namespace kelmar::desktop
