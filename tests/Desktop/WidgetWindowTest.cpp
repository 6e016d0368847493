#include <QAccessible>
#include <QApplication>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QDeadlineTimer>
#include <QExposeEvent>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QToolTip>
#include <QWindow>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Desktop/WidgetAccessibility.h"
#include "Desktop/WidgetWindow.h"
#include "Paint/PaintResources.h"
#include "tests/Desktop/Pressable.h"

namespace kelmar::desktop {
namespace {

using testing::ElementsAre;

class WidgetWindowTest : public testing::Test {
protected:
    WidgetWindowTest() {
        QObject::connect(&window_, &WidgetWindow::actionRequested,
                         [this](const layout::Action& action) { actions_.push_back(action); });
        QObject::connect(&window_, &WidgetWindow::movedByHand,
                         [this](QPoint place) { places_.push_back(place); });
        QObject::connect(&window_, &WidgetWindow::menuRequested,
                         [this](QPoint place) { menus_.push_back(place); });
        window_.setName("Probe");
        window_.setDragRule([](const QRect& wanted, QPoint pointer) {
            return pointer.y() > 600 ? QPoint(0, 0) : wanted.topLeft() + QPoint(1, 2);
        });
        show(entry());
        window_.move(80, 80);
        window_.show();
    }

    void show(const kit::DrawnEntry& drawn, paint::Redaction redaction = paint::Redaction::shown) {
        window_.setContent(drawn, redaction, layout::Direction::leftToRight, resources_);
    }

    void send(QEvent::Type type, QPoint inWindow, Qt::MouseButton which = Qt::LeftButton) {
        const Qt::MouseButtons held =
            type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(which);
        QMouseEvent event(type, inWindow, window_.pos() + inWindow,
                          type == QEvent::MouseMove ? Qt::NoButton : which, held, Qt::NoModifier);
        QCoreApplication::sendEvent(&window_, &event);
    }

    void click(QPoint place, Qt::MouseButton which = Qt::LeftButton) {
        send(QEvent::MouseButtonPress, place, which);
        send(QEvent::MouseButtonRelease, place, which);
    }

    system::ManualClock clock_{system::Date::since1970(1'760'000'000)};
    paint::PaintResources resources_{paint::FontSet("Inter")};
    WidgetWindow window_{kit::Family::medium, clock_};
    std::vector<layout::Action> actions_;
    std::vector<QPoint> places_;
    std::vector<QPoint> menus_;
};

/// Counts how often a window is drawn.
class DrawingCounter final : public QObject {
public:
    [[nodiscard]] int count() const { return count_; }

private:
    bool eventFilter(QObject* /*window*/, QEvent* event) override {
        count_ += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    int count_ = 0;
};

TEST_F(WidgetWindowTest, NothingIsDrawnBeforeTheFirstContent) {
    WidgetWindow window(kit::Family::small, clock_);
    DrawingCounter drawings;
    window.installEventFilter(&drawings);
    window.show();
    QCoreApplication::processEvents();
    EXPECT_FALSE(window.hasContent());
    EXPECT_EQ(drawings.count(), 0);
    window.setContent(entry(), paint::Redaction::shown, layout::Direction::leftToRight, resources_);
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.hasContent());
    EXPECT_EQ(drawings.count(), 1);
}

TEST_F(WidgetWindowTest, ClickRunsTheActionUnderIt) {
    click(button);
    click(link);
    EXPECT_THAT(actions_, ElementsAre(layout::Action(layout::ButtonAction{press}),
                                      layout::Action(layout::LinkAction{"probe://linked"})));
}

TEST_F(WidgetWindowTest, ClickBesideEveryActionRunsNothing) {
    click(besideAll);
    EXPECT_TRUE(actions_.empty());
}

TEST_F(WidgetWindowTest, ClickBesideEveryActionOpensTheWidgetsUrl) {
    show(entry("probe://whole"));
    click(besideAll);
    EXPECT_THAT(actions_, ElementsAre(layout::Action(layout::LinkAction{"probe://whole"})));
}

TEST_F(WidgetWindowTest, RedactedWidgetCannotBePressed) {
    show(entry("probe://whole"), paint::Redaction::redacted);
    click(button);
    click(besideAll);
    EXPECT_TRUE(actions_.empty());
    EXPECT_TRUE(window_.content().boxes().empty());
}

TEST_F(WidgetWindowTest, ToolTipIsAskedForEachTimeItAppears) {
    QString text = "Last updated 1 minute ago";
    window_.setToolTipSource([&text] { return text; });
    const auto hover = [this] {
        QHelpEvent event(QEvent::ToolTip, besideAll, window_.pos() + besideAll);
        QCoreApplication::sendEvent(&window_, &event);
        return QToolTip::text();
    };
    EXPECT_EQ(hover(), "Last updated 1 minute ago");
    text = "Last updated 2 minutes ago";
    EXPECT_EQ(hover(), "Last updated 2 minutes ago");
    EXPECT_TRUE(QToolTip::isVisible());
    QToolTip::hideText();
}

TEST_F(WidgetWindowTest, OtherPointerButtonsPressNothing) {
    click(button, Qt::RightButton);
    click(button, Qt::MiddleButton);
    EXPECT_TRUE(actions_.empty());
}

TEST_F(WidgetWindowTest, DraggedWindowRestsWhereTheRuleSays) {
    send(QEvent::MouseButtonPress, button);
    send(QEvent::MouseMove, button + QPoint(45, 21));
    EXPECT_EQ(window_.pos(), QPoint(80 + 45 + 1, 80 + 21 + 2));
    send(QEvent::MouseButtonRelease, button);
    EXPECT_THAT(places_, ElementsAre(QPoint(126, 103)));
    EXPECT_TRUE(actions_.empty());
}

TEST_F(WidgetWindowTest, RuleIsToldWhereThePointerIs) {
    send(QEvent::MouseButtonPress, button);
    send(QEvent::MouseMove, {36, 601 - 80});
    EXPECT_EQ(window_.pos(), QPoint(0, 0));
}

TEST_F(WidgetWindowTest, WindowWithoutARuleStaysAndADragPressesNothing) {
    window_.setDragRule({});
    send(QEvent::MouseButtonPress, button);
    send(QEvent::MouseMove, button + QPoint(45, 21));
    EXPECT_EQ(window_.pos(), QPoint(80, 80));
    EXPECT_NE(window_.cursor().shape(), Qt::ClosedHandCursor);
    send(QEvent::MouseMove, button);
    send(QEvent::MouseButtonRelease, button);
    EXPECT_TRUE(places_.empty());
    EXPECT_TRUE(actions_.empty());
}

TEST_F(WidgetWindowTest, ShortWayIsStillAClick) {
    send(QEvent::MouseButtonPress, button);
    send(QEvent::MouseMove, button + QPoint(3, 3));
    send(QEvent::MouseButtonRelease, button + QPoint(3, 3));
    EXPECT_EQ(actions_.size(), 1U);
    EXPECT_TRUE(places_.empty());
    EXPECT_EQ(window_.pos(), QPoint(80, 80));
}

TEST_F(WidgetWindowTest, PointerBecomesAHandOverActionsOnly) {
    send(QEvent::MouseMove, button);
    EXPECT_EQ(window_.cursor().shape(), Qt::PointingHandCursor);
    send(QEvent::MouseMove, besideAll);
    EXPECT_EQ(window_.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(WidgetWindowTest, MenuKeyOrButtonAsksForTheMenuAndEndsAPress) {
    send(QEvent::MouseButtonPress, button);
    QContextMenuEvent event(QContextMenuEvent::Mouse, button, window_.pos() + button);
    QCoreApplication::sendEvent(&window_, &event);
    send(QEvent::MouseButtonRelease, button);
    EXPECT_THAT(menus_, ElementsAre(QPoint(116, 116)));
    EXPECT_TRUE(actions_.empty());
}

TEST_F(WidgetWindowTest, WindowManagerCannotCloseAWidget) {
    EXPECT_FALSE(window_.close());
    EXPECT_TRUE(window_.isVisible());
}

TEST_F(WidgetWindowTest, FamilyDecidesTheSize) {
    EXPECT_EQ(window_.size(), QSize(364, 170));
    window_.setFamily(kit::Family::large);
    EXPECT_EQ(window_.size(), QSize(364, 382));
}

TEST_F(WidgetWindowTest, PicturesFillTheWindowWithTheWidgetsBackground) {
    const QImage picture = window_.grab().toImage();
    EXPECT_EQ(picture.pixelColor(besideAll * picture.devicePixelRatio()), QColor(0, 0, 255));
    EXPECT_EQ(picture.pixelColor(button * picture.devicePixelRatio()), QColor(255, 0, 0));
}

TEST_F(WidgetWindowTest, CornersAreCutOutOnDemandOnly) {
    window_.setCorners(Corners::cutOut);
    EXPECT_FALSE(window_.mask().contains(QPoint(0, 0)));
    EXPECT_FALSE(window_.mask().contains(QPoint(363, 169)));
    EXPECT_TRUE(window_.mask().contains(QPoint(22, 0)));
    window_.setCorners(Corners::transparent);
    EXPECT_TRUE(window_.mask().isEmpty());
}

class LiveWindowTest : public WidgetWindowTest {
protected:
    /// A countdown of a minute that began a quarter of a second ago.
    LiveWindowTest() {
        const system::Date from = clock_.now() + -0.25;
        kit::DrawnEntry drawn = entry();
        drawn.content = kit::Countdown{.from = from,
                                       .to = from + 60,
                                       .font = kit::Font::system(30, kit::FontWeight::bold),
                                       .color = kit::Color::rgb(1, 1, 1)};
        show(drawn);
    }

    void SetUp() override {
        QCoreApplication::processEvents();
        window_.installEventFilter(&paints_);
    }

    void pass(double seconds) { clock_.set(clock_.now() + seconds); }
    void tellThatItCanBeSeenAgain() {
        QExposeEvent event(QRegion(0, 0, 364, 170));
        QCoreApplication::sendEvent(window_.windowHandle(), &event);
        // First a timer that is due at once, then the drawing that it asks for.
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    struct PaintCounter final : QObject {
        bool eventFilter(QObject* /*watched*/, QEvent* event) override {
            count += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
        int count = 0;
    };
    PaintCounter paints_;
};

TEST_F(LiveWindowTest, NothingIsDrawnAnewBeforeTheSecondIsOver) {
    pass(0.1);
    tellThatItCanBeSeenAgain();
    EXPECT_EQ(paints_.count, 0);
}

TEST_F(LiveWindowTest, WhatChangedUnseenIsDrawnAsSoonAsItCanBeSeen) {
    pass(20);
    tellThatItCanBeSeenAgain();
    EXPECT_EQ(paints_.count, 1);
}

TEST_F(LiveWindowTest, AClockThatIsSetIsFollowedAtOnce) {
    for (const double step : {-3600.0, 1800.0}) {
        paints_.count = 0;
        pass(step);
        QCoreApplication::processEvents();
        EXPECT_EQ(paints_.count, 0) << "Nobody has told it yet";
        window_.followClock();
        QCoreApplication::processEvents();
        EXPECT_EQ(paints_.count, 1);
    }
}

class WidgetFadeTest : public WidgetWindowTest {
protected:
    void SetUp() override { QCoreApplication::processEvents(); }

    static kit::DrawnEntry card(const kit::Color& color) {
        return {.content = kit::Spacer{}, .background = color, .widgetUrl = {}};
    }
    [[nodiscard]] QColor color() {
        const QImage picture = window_.grab().toImage();
        return picture.pixelColor(besideAll * picture.devicePixelRatio());
    }
    void waitForTheEnd() {
        const QDeadlineTimer deadline(20'000);
        while (color() != QColor(255, 0, 0) && !deadline.hasExpired()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

    static inline const kit::Color red = kit::Color::rgb(1, 0, 0);
};

TEST_F(WidgetFadeTest, NewContentIsMixedWithTheFormerAndThenAlone) {
    show(card(red));
    const QColor first = color();
    EXPECT_GT(first.red(), 0);
    EXPECT_GT(first.blue(), 0);
    waitForTheEnd();
    EXPECT_EQ(color(), QColor(255, 0, 0));
}

TEST_F(WidgetFadeTest, ReducedMotionShowsNewContentAtOnce) {
    window_.setMotion(Motion::reduced);
    show(card(red));
    EXPECT_EQ(color(), QColor(255, 0, 0));
}

TEST_F(WidgetFadeTest, PlaceholderGivesWayAtOnce) {
    show(entry(), paint::Redaction::redacted);
    show(card(red));
    EXPECT_EQ(color(), QColor(255, 0, 0));
}

TEST_F(WidgetFadeTest, HiddenWidgetDoesNotFade) {
    window_.hide();
    show(card(red));
    EXPECT_EQ(color(), QColor(255, 0, 0));
}

TEST_F(WidgetFadeTest, AnotherSizeIsShownAtOnce) {
    window_.setFamily(kit::Family::large);
    show(card(red));
    EXPECT_EQ(color(), QColor(255, 0, 0));
}

class WindowKeyboardTest : public WidgetWindowTest {
protected:
    WindowKeyboardTest() {
        QObject::connect(&window_.keyboard(), &WidgetKeyboard::passedOn,
                         [this](FocusStep step) { passedOn_.push_back(step); });
        QObject::connect(&window_.keyboard(), &WidgetKeyboard::returned, [this] { ++returned_; });
    }

    void giveKeyboard() {
        window_.activateWindow();
        QApplication::setActiveWindow(&window_);
        window_.setFocus();
    }

    void key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, bool isRepeated = false) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, QString(), isRepeated);
        QCoreApplication::sendEvent(&window_, &event);
    }

    std::vector<FocusStep> passedOn_;
    int returned_ = 0;
};

const layout::Action buttonAction = layout::ButtonAction{press};
const layout::Action linkAction = layout::LinkAction{"probe://linked"};

TEST_F(WindowKeyboardTest, KeyboardComesToTheFirstTarget) {
    EXPECT_EQ(window_.keyboard().focused(), nullptr);
    giveKeyboard();
    ASSERT_NE(window_.keyboard().focused(), nullptr);
    EXPECT_EQ(window_.keyboard().focused()->action, buttonAction);
}

TEST_F(WindowKeyboardTest, TabReachesEverythingAndThenPassesTheKeyboardOn) {
    giveKeyboard();
    key(Qt::Key_Tab);
    EXPECT_EQ(window_.keyboard().focused()->action, linkAction);
    EXPECT_TRUE(passedOn_.empty());
    key(Qt::Key_Tab);
    EXPECT_THAT(passedOn_, ElementsAre(FocusStep::next));
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(window_.keyboard().focused()->action, buttonAction);
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_THAT(passedOn_, ElementsAre(FocusStep::next, FocusStep::previous));
}

TEST_F(WindowKeyboardTest, EnterAndSpacePressWhatIsMarked) {
    giveKeyboard();
    key(Qt::Key_Return);
    key(Qt::Key_Tab);
    key(Qt::Key_Space);
    key(Qt::Key_Enter);
    EXPECT_THAT(actions_, ElementsAre(buttonAction, linkAction, linkAction));
}

TEST_F(WindowKeyboardTest, KeyThatIsHeldDownPressesOnce) {
    giveKeyboard();
    key(Qt::Key_Return);
    key(Qt::Key_Return, Qt::NoModifier, true);
    EXPECT_EQ(actions_.size(), 1U);
}

TEST_F(WindowKeyboardTest, WidgetsOwnUrlIsATarget) {
    show(entry("probe://whole"));
    giveKeyboard();
    key(Qt::Key_Return);
    EXPECT_THAT(actions_, ElementsAre(layout::Action(layout::LinkAction{"probe://whole"})));
}

TEST_F(WindowKeyboardTest, RedactedWidgetHasNothingToPress) {
    show(entry("probe://whole"), paint::Redaction::redacted);
    giveKeyboard();
    key(Qt::Key_Return);
    EXPECT_TRUE(actions_.empty());
    EXPECT_EQ(window_.keyboard().focused(), nullptr);
}

TEST_F(WindowKeyboardTest, EscapeGivesTheKeyboardBack) {
    giveKeyboard();
    key(Qt::Key_Escape);
    EXPECT_EQ(returned_, 1);
}

TEST_F(WindowKeyboardTest, RingIsSeenOnlyWhereTheKeyboardIs) {
    // Between the ring's middle, 3 points beside the button, and the button itself.
    const auto isMarked = [this](QPoint place) {
        return window_.grab().toImage().pixelColor(place) != QColor(0, 0, 255);
    };
    constexpr QPoint besideButton(13, 36);
    constexpr QPoint besideLink(73, 36);
    EXPECT_FALSE(isMarked(besideButton));
    giveKeyboard();
    EXPECT_TRUE(isMarked(besideButton));
    key(Qt::Key_Tab);
    EXPECT_FALSE(isMarked(besideButton));
    EXPECT_TRUE(isMarked(besideLink));
}

class WidgetAccessibilityTest : public WidgetWindowTest {
protected:
    static void SetUpTestSuite() { installWidgetAccessibility(); }

    static kit::DrawnEntry showing(kit::View view) {
        return {.content = std::move(view), .background = kit::tertiaryFill, .widgetUrl = {}};
    }
    static kit::View toggle(bool isOn) {
        return kit::Toggle{.isOn = isOn,
                           .intent = press,
                           .child = kit::View(kit::Accessible{.label = "Alarm", .child = field()})};
    }
    static kit::View bar(double value) { return kit::Progress{.value = kit::BarValue{value}}; }

    QAccessibleInterface* widget() { return QAccessible::queryAccessibleInterface(&window_); }

    std::vector<std::string> names() {
        std::vector<std::string> names;
        names.reserve(static_cast<std::size_t>(widget()->childCount()));
        for (int index = 0; index < widget()->childCount(); ++index) {
            names.push_back(widget()->child(index)->text(QAccessible::Name).toStdString());
        }
        return names;
    }
};

TEST_F(WidgetAccessibilityTest, WindowHasTheWidgetsName) {
    EXPECT_EQ(widget()->text(QAccessible::Name), "Probe");
}

TEST_F(WidgetAccessibilityTest, EveryActionIsAChildWithItsNameAndRole) {
    ASSERT_THAT(names(), ElementsAre("Mark it done", "Open it"));
    EXPECT_EQ(widget()->child(0)->role(), QAccessible::Button);
    EXPECT_EQ(widget()->child(1)->role(), QAccessible::Link);
    EXPECT_EQ(widget()->child(0)->parent(), widget());
    EXPECT_EQ(widget()->indexOfChild(widget()->child(1)), 1);
    EXPECT_EQ(widget()->child(2), nullptr);
    EXPECT_EQ(widget()->child(-1), nullptr);
}

TEST_F(WidgetAccessibilityTest, ChildStandsWhereItIsSeen) {
    EXPECT_EQ(widget()->child(0)->rect(), QRect(96, 96, 40, 40));
    EXPECT_EQ(widget()->childAt(180, 100), widget()->child(1));
    EXPECT_EQ(widget()->childAt(80, 80), nullptr);
}

TEST_F(WidgetAccessibilityTest, PressActionRunsTheBox) {
    widget()->child(0)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_THAT(actions_, ElementsAre(layout::Action(layout::ButtonAction{press})));
    widget()->child(0)->actionInterface()->doAction("dance");
    EXPECT_EQ(actions_.size(), 1U);
}

TEST_F(WidgetAccessibilityTest, ToggleSaysWhetherItIsOn) {
    show(showing(toggle(true)));
    ASSERT_THAT(names(), ElementsAre("Alarm"));
    EXPECT_EQ(widget()->child(0)->role(), QAccessible::CheckBox);
    EXPECT_TRUE(widget()->child(0)->state().checked);
    EXPECT_TRUE(widget()->child(0)->actionInterface()->actionNames().contains(
        QAccessibleActionInterface::toggleAction()));
}

TEST_F(WidgetAccessibilityTest, ToggleThatIsFlippedStaysTheSameObject) {
    show(showing(toggle(true)));
    QAccessibleInterface* const before = widget()->child(0);
    show(showing(toggle(false)));
    EXPECT_EQ(widget()->child(0), before);
    EXPECT_FALSE(before->state().checked);
}

TEST_F(WidgetAccessibilityTest, BarSaysHowFullItIsUnderTheWidgetsName) {
    show(showing(bar(0.25)));
    ASSERT_THAT(names(), ElementsAre("Probe"));
    EXPECT_EQ(widget()->child(0)->role(), QAccessible::ProgressBar);
    ASSERT_NE(widget()->child(0)->valueInterface(), nullptr);
    EXPECT_EQ(widget()->child(0)->valueInterface()->currentValue(), 0.25);
    show(showing(bar(0.5)));
    EXPECT_EQ(widget()->child(0)->valueInterface()->currentValue(), 0.5);
}

TEST_F(WidgetAccessibilityTest, CountdownSaysWhatIsLeft) {
    show(showing(kit::Countdown{.from = clock_.now(), .to = clock_.now() + 90, .font = {}}));
    EXPECT_THAT(names(), ElementsAre("1:30"));
    clock_.set(clock_.now() + 20);
    EXPECT_THAT(names(), ElementsAre("1:10"));
}

TEST_F(WidgetAccessibilityTest, WidgetsOwnUrlIsALinkOfItsName) {
    show(entry("probe://whole"));
    ASSERT_THAT(names(), ElementsAre("Probe", "Mark it done", "Open it"));
    EXPECT_EQ(widget()->child(0)->role(), QAccessible::Link);
    EXPECT_EQ(widget()->childAt(100, 100), widget()->child(1));
    widget()->child(0)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_THAT(actions_, ElementsAre(layout::Action(layout::LinkAction{"probe://whole"})));
}

TEST_F(WidgetAccessibilityTest, OtherContentMakesOtherChildren) {
    ASSERT_EQ(names().size(), 2U);
    const QAccessible::Id former = QAccessible::uniqueId(widget()->child(0));
    show(showing(kit::Text{.text = "All done", .font = {}}));
    EXPECT_EQ(QAccessible::accessibleInterface(former), nullptr);
    EXPECT_THAT(names(), ElementsAre("All done"));
}

TEST_F(WidgetAccessibilityTest, KeyboardIsFollowed) {
    ASSERT_EQ(names().size(), 2U);
    int requests = 0;
    QObject::connect(&window_.keyboard(), &WidgetKeyboard::requested, [&] { ++requests; });
    QApplication::setActiveWindow(&window_);
    widget()->child(1)->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(requests, 1);
    EXPECT_EQ(widget()->focusChild(), widget()->child(1));
    EXPECT_TRUE(widget()->child(1)->state().focused);
    EXPECT_FALSE(widget()->child(0)->state().focused);
    EXPECT_TRUE(widget()->child(0)->state().focusable);
}

TEST_F(WidgetAccessibilityTest, TextIsReadAndCannotBePressed) {
    kit::DrawnEntry drawn = entry();
    drawn.content = kit::Text{.text = "Nothing else due this week.", .font = {}, .lineLimit = 1};
    show(drawn);
    ASSERT_THAT(names(), ElementsAre("Nothing else due this week."));
    EXPECT_EQ(widget()->child(0)->role(), QAccessible::StaticText);
    EXPECT_EQ(widget()->child(0)->actionInterface(), nullptr);
}

TEST_F(WidgetAccessibilityTest, PlaceholderIsNotReadOut) {
    show(entry(), paint::Redaction::redacted);
    EXPECT_TRUE(names().empty());
}

}  // namespace
}  // namespace kelmar::desktop
