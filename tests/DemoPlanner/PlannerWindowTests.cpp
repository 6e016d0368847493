#include <QApplication>
#include <QCheckBox>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

#include "DemoPlanner/PlannerWindow.h"
#include "tests/DemoPlanner/Surroundings.h"

namespace kelmar::demo {
namespace {

using testing::Contains;
using testing::Not;

class PlannerWindowTest : public testing::Test {
protected:
    PlannerWindowTest() { window_.present({}); }

    /// What the window shows in words.
    [[nodiscard]] std::vector<std::string> labels() const {
        QApplication::processEvents();
        std::vector<std::string> texts;
        for (const QLabel* label : window_.findChildren<QLabel*>()) {
            if (label->isVisible()) {
                texts.push_back(label->text().toStdString());
            }
        }
        return texts;
    }

    [[nodiscard]] QCheckBox& box(const std::string& text) const {
        QApplication::processEvents();
        for (QCheckBox* each : window_.findChildren<QCheckBox*>()) {
            if (each->isVisible() && each->text().toStdString() == text) {
                return *each;
            }
        }
        throw std::runtime_error("no check box " + text);
    }

    [[nodiscard]] QPushButton& timerButton() const { return *window_.findChild<QPushButton*>(); }

    Surroundings around_;
    RecordingStorage storage_;
    PlannerService service_{storage_, around_.clock, around_.calendars, [](std::string_view) {}};
    int changes_ = 0;
    PlannerWindow window_{service_, *around_.calendar, [this] {
                              ++changes_;
                              window_.refresh();
                          }};
};

TEST_F(PlannerWindowTest, ListsTodaysWorkTheTimerAndTheStreak) {
    for (const Assignment& assignment : service_.today()) {
        EXPECT_FALSE(box(assignment.item.title).isChecked());
    }
    EXPECT_THAT(labels(), Contains("Nothing asked for yet"));
    EXPECT_THAT(labels(), Contains("Ready, 25:00"));
    EXPECT_THAT(labels(), Contains("6 days, best 11"));
}

TEST_F(PlannerWindowTest, SaysWhatADeepLinkWouldOpen) {
    const Assignment assignment = service_.today().back();
    window_.hide();
    window_.showOpening(ShowAssignment{assignment.item.id}, "kelmarplanner://assignment/x");
    window_.present({});
    EXPECT_TRUE(window_.isVisible());
    EXPECT_THAT(labels(), Contains("Would open · Assignment"));
    EXPECT_THAT(labels(), Contains(assignment.item.title));
    EXPECT_THAT(labels(), Contains("kelmarplanner://assignment/x"));
    window_.showOpening(ShowClass{"spanish"}, "kelmarplanner://class/spanish");
    EXPECT_THAT(labels(), Contains("Spanish II"));
    EXPECT_THAT(labels(), Not(Contains(assignment.item.title)));
}

TEST_F(PlannerWindowTest, CheckingAnAssignmentMarksItDoneAndUncheckingTakesItBack) {
    const Assignment assignment = service_.today().back();
    box(assignment.item.title).click();
    EXPECT_TRUE(service_.planner().state().coursework.find(assignment.item.id)->done);
    EXPECT_TRUE(box(assignment.item.title).isChecked());
    EXPECT_THAT(labels(), Contains("done"));
    box(assignment.item.title).click();
    EXPECT_FALSE(service_.planner().state().coursework.find(assignment.item.id)->done);
    EXPECT_EQ(changes_, 2);
}

TEST_F(PlannerWindowTest, TheTimersButtonStartsAndPausesIt) {
    timerButton().click();
    EXPECT_EQ(service_.planner().state().timer.phase, StudyTimer::Phase::running);
    EXPECT_EQ(timerButton().text(), "Pause");
    timerButton().click();
    EXPECT_EQ(service_.planner().state().timer.phase, StudyTimer::Phase::paused);
    EXPECT_EQ(timerButton().text(), "Resume");
}

TEST_F(PlannerWindowTest, TheSwitchesSignOutAndDisconnectTheCalendar) {
    box("Signed in").click();
    box("School calendar connected").click();
    EXPECT_FALSE(service_.planner().state().signedIn);
    EXPECT_FALSE(service_.planner().state().schoolCalendarConnected);
}

TEST_F(PlannerWindowTest, AHiddenWindowIsBroughtUpToDateWhenItIsShownAgain) {
    window_.hide();
    service_.perform(TurnTimerOn{});
    window_.refresh();
    EXPECT_EQ(timerButton().text(), "Start");
    window_.present({});
    EXPECT_EQ(timerButton().text(), "Pause");
}

}  // namespace
}  // namespace kelmar::demo
