#include <QApplication>
#include <QKeyEvent>
#include <QTimer>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Desktop/Removals.h"
#include "tests/Desktop/FoundFonts.h"
#include "tests/Desktop/RecordingLog.h"
#include "tests/Desktop/ToldSettings.h"

namespace kelmar::desktop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const ScreenArea screen{{"eDP-1", QRect(0, 0, 1280, 800)}, QRect(0, 0, 1280, 760)};
const WidgetPlace due{.kind = "DueToday",
                      .family = kit::Family::large,
                      .screen = screen.identity,
                      .position = {400, 200}};
const WidgetPlace streakInTheCorner{.kind = "Streak",
                                    .family = kit::Family::small,
                                    .screen = screen.identity,
                                    .position = {1110, 16}};

class RemovalsTest : public testing::Test {
protected:
    RemovalsTest() {
        QObject::connect(&removals_, &Removals::undone,
                         [this](const WidgetPlace& place) { undone_.push_back(place.kind); });
        QObject::connect(&removals_, &Removals::offerExpired, [this] { ++expired_; });
    }

    void remove(const WidgetPlace& place, const std::string& name) {
        removals_.add(place, name, {screen});
    }

    static QList<UndoBar*> bars() {
        QList<UndoBar*> bars;
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (auto* bar = qobject_cast<UndoBar*>(widget); bar != nullptr && bar->isVisible()) {
                bars.push_back(bar);
            }
        }
        return bars;
    }

    static UndoBar& bar() { return *bars().at(0); }

    static void press(UndoBar& bar, Qt::Key key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&bar, &event);
    }

    /// As if the ten seconds were over.
    static void letExpire(UndoBar& bar) {
        auto* timer = bar.findChild<QTimer*>();
        ASSERT_NE(timer, nullptr);
        ASSERT_TRUE(timer->isActive());
        EXPECT_EQ(timer->interval(), 10'000);
        QMetaObject::invokeMethod(timer, "timeout");
    }

    test::RecordingLog log_;
    PortalSettings settings_{log_};
    Look look_{settings_, SchemeChoice::dark, foundFonts()};
    Compositor compositor_;
    StackingRule stacking_;
    system::EnglishLocalization texts_;
    Removals removals_{{look_, compositor_, stacking_, texts_}};
    std::vector<std::string> undone_;
    int expired_ = 0;
};

TEST_F(RemovalsTest, BarGrowsWithItsTextsAndStaysInItsPlace) {
    remove(streakInTheCorner, "Streak");
    const QRect usual = bar().geometry();
    tell(settings_, setting::gnomeInterface, "text-scaling-factor", 2.0);
    EXPECT_EQ(bar().height(), 2 * usual.height());
    EXPECT_GT(bar().width(), usual.width() + 80);
    EXPECT_EQ(bar().geometry().right(), usual.right());
    EXPECT_TRUE(screen.visible.contains(bar().geometry()));
}

TEST_F(RemovalsTest, BarStandsInTheMiddleOfThePlaceAndNamesTheWidget) {
    remove(due, "Due Today");
    ASSERT_EQ(bars().size(), 1);
    EXPECT_EQ(bar().windowTitle(), "Due Today removed");
    EXPECT_EQ(bar().geometry().center(), QRect(400, 200, 364, 382).center());
    EXPECT_TRUE(bar().testAttribute(Qt::WA_ShowWithoutActivating));
}

TEST_F(RemovalsTest, BarThatIsWiderThanItsWidgetKeepsAGapToTheEdge) {
    remove(streakInTheCorner, "A widget with a rather long name");
    EXPECT_GT(bar().width(), 170);
    EXPECT_EQ(bar().geometry().right(), screen.visible.right() - 16);
}

TEST_F(RemovalsTest, UndoBringsTheWidgetBackOnce) {
    remove(due, "Due Today");
    bar().findChild<QPushButton*>()->click();
    EXPECT_THAT(undone_, ElementsAre("DueToday"));
    EXPECT_THAT(bars(), IsEmpty());
    EXPECT_TRUE(removals_.areEmpty());
    EXPECT_EQ(expired_, 0);
}

TEST_F(RemovalsTest, EnterUndoesToo) {
    remove(due, "Due Today");
    press(bar(), Qt::Key_Return);
    EXPECT_THAT(undone_, ElementsAre("DueToday"));
}

TEST_F(RemovalsTest, BarGoesAfterItsTimeAndTheRemovalCanStillBeUndone) {
    remove(due, "Due Today");
    EXPECT_TRUE(removals_.areOffered());
    letExpire(bar());
    EXPECT_THAT(bars(), IsEmpty());
    EXPECT_FALSE(removals_.areOffered());
    EXPECT_EQ(expired_, 1);
    ASSERT_FALSE(removals_.areEmpty());
    removals_.undoLatest();
    EXPECT_THAT(undone_, ElementsAre("DueToday"));
    EXPECT_TRUE(removals_.areEmpty());
}

TEST_F(RemovalsTest, EscapeSendsTheBarAway) {
    remove(due, "Due Today");
    press(bar(), Qt::Key_Escape);
    EXPECT_THAT(bars(), IsEmpty());
    EXPECT_EQ(expired_, 1);
    EXPECT_THAT(undone_, IsEmpty());
}

TEST_F(RemovalsTest, BarWaitsWhileThePointerIsOnIt) {
    remove(due, "Due Today");
    const auto* const timer = bar().findChild<QTimer*>();
    bar().setAttribute(Qt::WA_UnderMouse);
    QEvent enter(QEvent::Enter);
    QCoreApplication::sendEvent(&bar(), &enter);
    EXPECT_FALSE(timer->isActive());
    bar().setAttribute(Qt::WA_UnderMouse, false);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&bar(), &leave);
    EXPECT_TRUE(timer->isActive());
}

TEST_F(RemovalsTest, EveryBarBringsBackItsOwnWidget) {
    remove(due, "Due Today");
    remove(streakInTheCorner, "Streak");
    ASSERT_EQ(bars().size(), 2);
    for (UndoBar* each : bars()) {
        if (each->windowTitle() == "Due Today removed") {
            each->findChild<QPushButton*>()->click();
        }
    }
    EXPECT_THAT(undone_, ElementsAre("DueToday"));
    EXPECT_EQ(bar().windowTitle(), "Streak removed");
}

TEST_F(RemovalsTest, LatestRemovalIsUndoneFirst) {
    remove(due, "Due Today");
    remove(streakInTheCorner, "Streak");
    removals_.undoLatest();
    removals_.undoLatest();
    EXPECT_THAT(undone_, ElementsAre("Streak", "DueToday"));
    EXPECT_THAT(bars(), IsEmpty());
}

}  // namespace
}  // namespace kelmar::desktop
