#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Desktop/WidgetKeyboard.h"

namespace kelmar::desktop {
namespace {

using testing::ElementsAre;

PressTarget target(const char* url, double y) {
    return {.action = layout::LinkAction{url}, .rect = {0, y, 40, 20}};
}

const PressTarget first = target("probe://first", 0);
const PressTarget second = target("probe://second", 40);

class WidgetKeyboardTest : public testing::Test {
protected:
    WidgetKeyboardTest() {
        window_.setFocusPolicy(Qt::StrongFocus);
        window_.show();
        QApplication::setActiveWindow(&window_);
        keyboard_.setTargets({first, second});
        QObject::connect(&keyboard_, &WidgetKeyboard::requested,
                         [this] { said_.emplace_back("here"); });
        QObject::connect(&keyboard_, &WidgetKeyboard::returned,
                         [this] { said_.emplace_back("back"); });
        QObject::connect(&keyboard_, &WidgetKeyboard::passedOn, [this](FocusStep step) {
            said_.emplace_back(step == FocusStep::next ? "next" : "previous");
        });
        QObject::connect(&keyboard_, &WidgetKeyboard::actionRequested,
                         [this](const layout::Action& action) {
                             said_.emplace_back("run " + std::get<layout::LinkAction>(action).url);
                         });
    }

    KeyUse press(Qt::Key key, bool isRepeated = false) {
        return keyboard_.press(
            QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier, QString(), isRepeated));
    }

    QWidget window_;
    WidgetKeyboard keyboard_{window_};
    std::vector<std::string> said_;
};

TEST_F(WidgetKeyboardTest, NothingIsFocusedWhileTheKeyboardIsElsewhere) {
    keyboard_.enter(FocusStep::next);
    ASSERT_NE(keyboard_.focused(), nullptr);
    EXPECT_EQ(*keyboard_.focused(), first);
    window_.clearFocus();
    EXPECT_EQ(keyboard_.focused(), nullptr);
    EXPECT_EQ(press(Qt::Key_Return), KeyUse::unused);
    EXPECT_THAT(said_, ElementsAre("here"));
}

TEST_F(WidgetKeyboardTest, KeyboardThatComesBackIsWhereItWas) {
    keyboard_.enter(FocusStep::previous);
    window_.clearFocus();
    window_.setFocus();
    keyboard_.arrive();
    EXPECT_EQ(*keyboard_.focused(), second);
}

TEST_F(WidgetKeyboardTest, KeyboardThatArrivesForTheFirstTimeIsOnTheFirstTarget) {
    window_.setFocus();
    EXPECT_EQ(keyboard_.focused(), nullptr);
    keyboard_.arrive();
    EXPECT_EQ(*keyboard_.focused(), first);
}

TEST_F(WidgetKeyboardTest, WhatIsNoTargetIsNotFocused) {
    keyboard_.focusOn(second);
    EXPECT_EQ(*keyboard_.focused(), second);
    keyboard_.focusOn(target("probe://other", 80));
    EXPECT_EQ(*keyboard_.focused(), second);
}

TEST_F(WidgetKeyboardTest, KeyboardIsPassedOnAtBothEndsAndWhereThereIsNothing) {
    keyboard_.enter(FocusStep::next);
    keyboard_.go(FocusStep::previous);
    keyboard_.go(FocusStep::next);
    EXPECT_EQ(*keyboard_.focused(), second);
    keyboard_.go(FocusStep::next);
    keyboard_.setTargets({});
    EXPECT_FALSE(keyboard_.hasTargets());
    keyboard_.go(FocusStep::previous);
    EXPECT_THAT(said_, ElementsAre("here", "previous", "next", "previous"));
}

TEST_F(WidgetKeyboardTest, EscapeGivesTheKeyboardBackEvenWhereNothingCanBePressed) {
    keyboard_.setTargets({});
    window_.setFocus();
    EXPECT_EQ(press(Qt::Key_Escape), KeyUse::used);
    EXPECT_EQ(press(Qt::Key_Return), KeyUse::unused);
    EXPECT_THAT(said_, ElementsAre("back"));
}

TEST_F(WidgetKeyboardTest, OnlyThreeKeysPressAndEachOnlyOnceWhileItIsHeld) {
    keyboard_.enter(FocusStep::next);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        said_.clear();
        EXPECT_EQ(press(key), KeyUse::used);
        EXPECT_EQ(press(key, true), KeyUse::unused);
        EXPECT_THAT(said_, ElementsAre("run probe://first"));
    }
    said_.clear();
    EXPECT_EQ(press(Qt::Key_A), KeyUse::unused);
    EXPECT_TRUE(said_.empty());
}

/// As when a tick takes its row away.
TEST_F(WidgetKeyboardTest, ActionMayReplaceAllTargetsWhileItRuns) {
    QObject::connect(&keyboard_, &WidgetKeyboard::actionRequested,
                     [this] { keyboard_.setTargets({second}); });
    keyboard_.enter(FocusStep::next);
    EXPECT_EQ(press(Qt::Key_Return), KeyUse::used);
    EXPECT_EQ(*keyboard_.focused(), second);
}

}  // namespace
}  // namespace kelmar::desktop
