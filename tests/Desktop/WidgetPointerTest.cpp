#include <QMouseEvent>
#include <QWidget>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Desktop/WidgetPointer.h"
#include "tests/Desktop/Pressable.h"

namespace kelmar::desktop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class WidgetPointerTest : public testing::Test {
protected:
    WidgetPointerTest() {
        window_.setGeometry(100, 100, 364, 170);
        QObject::connect(&pointer_, &WidgetPointer::actionRequested,
                         [this](const layout::Action& action) { actions_.push_back(action); });
        QObject::connect(&pointer_, &WidgetPointer::dragged,
                         [this](QPoint place) { places_.push_back(place); });
        pointer_.setDragRule(
            [](const QRect& wanted, QPoint /*pointer*/) { return wanted.topLeft(); });
    }

    [[nodiscard]] QMouseEvent event(QEvent::Type type, QPoint place,
                                    Qt::MouseButton which = Qt::LeftButton) const {
        return {type, QPointF(place), QPointF(window_.pos() + place), which, which, Qt::NoModifier};
    }
    void pressAt(QPoint place, Qt::MouseButton which = Qt::LeftButton) {
        pointer_.press(event(QEvent::MouseButtonPress, place, which));
    }
    void moveTo(QPoint place) { pointer_.move(event(QEvent::MouseMove, place, Qt::NoButton)); }
    void releaseAt(QPoint place, Qt::MouseButton which = Qt::LeftButton) {
        pointer_.release(event(QEvent::MouseButtonRelease, place, which));
    }

    paint::PaintResources resources_{paint::FontSet("Inter")};
    WidgetContent content_{entry(), kit::Family::medium, paint::Redaction::shown,
                           layout::Direction::leftToRight, resources_};
    QWidget window_;
    WidgetPointer pointer_{window_, content_};
    std::vector<layout::Action> actions_;
    std::vector<QPoint> places_;
};

TEST_F(WidgetPointerTest, ReleaseOfAnotherButtonEndsNeitherAPressNorADrag) {
    pressAt(button);
    releaseAt(button, Qt::RightButton);
    EXPECT_THAT(actions_, IsEmpty());
    moveTo(button + QPoint(50, 0));
    releaseAt(button, Qt::MiddleButton);
    EXPECT_THAT(places_, IsEmpty());
    moveTo(button + QPoint(20, 0));
    releaseAt(button + QPoint(20, 0));
    EXPECT_EQ(places_.size(), 1U);
    EXPECT_THAT(actions_, IsEmpty());
}

TEST_F(WidgetPointerTest, PressThatWasCancelledRunsNothing) {
    pressAt(button);
    pointer_.cancel();
    releaseAt(button);
    EXPECT_THAT(actions_, IsEmpty());
    pressAt(button);
    releaseAt(button);
    EXPECT_EQ(actions_.size(), 1U);
}

TEST_F(WidgetPointerTest, ActionThatHasGoneFromUnderThePointerIsNotRun) {
    pressAt(button);
    content_ = WidgetContent(kit::DrawnEntry{.content = kit::Spacer{}}, kit::Family::medium,
                             paint::Redaction::shown, layout::Direction::leftToRight, resources_);
    pointer_.takeContent();
    releaseAt(button);
    EXPECT_THAT(actions_, IsEmpty());
}

TEST_F(WidgetPointerTest, HandClosesWhileItDragsAndOpensOverWhatCanBePressed) {
    pressAt(besideAll);
    moveTo(besideAll + QPoint(40, 0));
    EXPECT_EQ(window_.cursor().shape(), Qt::ClosedHandCursor);
    EXPECT_EQ(window_.pos(), QPoint(140, 100));
    releaseAt(button);
    EXPECT_EQ(window_.cursor().shape(), Qt::PointingHandCursor);
    EXPECT_THAT(places_, ElementsAre(QPoint(140, 100)));
    moveTo(besideAll);
    EXPECT_EQ(window_.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(WidgetPointerTest, RuleThatIsTakenAwayDuringADragLeavesTheWindowWhereItIs) {
    pressAt(besideAll);
    moveTo(besideAll + QPoint(40, 0));
    pointer_.setDragRule({});
    moveTo(besideAll + QPoint(90, 0));
    releaseAt(besideAll);
    EXPECT_EQ(window_.pos(), QPoint(140, 100));
    EXPECT_THAT(places_, IsEmpty());
}

}  // namespace
}  // namespace kelmar::desktop
