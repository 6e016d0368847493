#include <gtest/gtest.h>

#include "DemoPlanner/PlannerTexts.h"
#include "DemoPlanner/StreakKeeper.h"
#include "DemoPlanner/StudyTimer.h"
#include "tests/DemoPlanner/Surroundings.h"

namespace kelmar::demo {
namespace {

class PlannerTextsTest : public testing::Test {
protected:
    Surroundings around_;
    const system::Date now_ = around_.at(0, 15);
    system::LocaleTexts texts_{"de_DE", "Europe/Berlin"};

    [[nodiscard]] std::string due(system::Date date, bool hasTime, bool done = false) const {
        Assignment assignment;
        assignment.item.due = date;
        assignment.item.hasTime = hasTime;
        assignment.done = done;
        return dueText(assignment, now_, texts_);
    }
};

TEST_F(PlannerTextsTest, DueTextsSayWhatMattersMost) {
    EXPECT_EQ(due(around_.at(0, 14), true), "overdue");
    EXPECT_EQ(due(around_.at(0, 14), true, true), "done");
    EXPECT_EQ(due(around_.at(0, 21), true), "due 21:00");
    EXPECT_EQ(due(around_.at(1, 0) + -1, false), "due today");
}

TEST_F(PlannerTextsTest, TheTimerSaysWhatItDoesAndWhatItsButtonDoes) {
    StudyTimer timer;
    const StudySubject subject{"History", "#F59E0B", "Essay"};
    const auto said = [&](system::Date at) {
        return timerTexts(timer.snapshot(at, subject), texts_);
    };
    EXPECT_EQ(said(now_), (TimerTexts{"Essay", "Ready, 25:00", "Start"}));
    timer.turnOn(now_, subject);
    EXPECT_EQ(said(now_), (TimerTexts{"Essay", "Until 15:25", "Pause"}));
    timer.turnOff(now_ + 90.5);
    EXPECT_EQ(said(now_ + 100), (TimerTexts{"Essay", "Paused with 23:30 left", "Resume"}));
    timer.start(now_, 1);
    timer.advance(now_ + 60);
    EXPECT_EQ(said(now_ + 60), (TimerTexts{"Free study", "Time’s up", "Stop alarm"}));
}

TEST_F(PlannerTextsTest, TheStreakSaysWhatWouldChangeIt) {
    const system::Calendar& calendar = *around_.calendar;
    StreakKeeper keeper = StreakKeeper::begun(now_, calendar);
    EXPECT_EQ(streakTexts(keeper.streak, now_, calendar),
              (StreakTexts{"6 days, best 11", "Grows when nothing due today is left"}));
    keeper.settleToday(true, now_, calendar);
    EXPECT_EQ(streakTexts(keeper.streak, now_, calendar),
              (StreakTexts{"7 days, best 11", "Today counts"}));
    EXPECT_EQ(streakTexts(keeper.streak, around_.at(5, 15), calendar),
              (StreakTexts{"0 days, best 11", "Begins again when nothing due today is left"}));
    keeper.settleToday(true, around_.at(5, 15), calendar);
    EXPECT_EQ(streakTexts(keeper.streak, around_.at(5, 15), calendar).title, "1 day, best 11");
}

}  // namespace
}  // namespace kelmar::demo
