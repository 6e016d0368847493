#include <algorithm>
#include <gtest/gtest.h>

#include "DemoPlanner/Timetable.h"
#include "tests/DemoPlanner/Surroundings.h"

namespace kelmar::demo {
namespace {

using Day = shared::WidgetData::ScheduleDay;

class TimetableTest : public testing::Test {
protected:
    Surroundings around_;
    Coursework coursework_ = Coursework::begun(around_.at(0, 15), *around_.calendar);

    [[nodiscard]] std::vector<Day> week() const {
        return timetable(coursework_, around_.at(0, 15), around_.calendars);
    }
};

std::size_t countOf(const Day& day, const std::string& kind) {
    return static_cast<std::size_t>(
        std::count_if(day.blocks.begin(), day.blocks.end(),
                      [&](const Day::Block& block) { return block.kind == kind; }));
}

TEST_F(TimetableTest, HoldsSevenDaysFromToday) {
    const std::vector<Day> days = week();
    ASSERT_EQ(days.size(), 7U);
    for (int index = 0; index < 7; ++index) {
        EXPECT_EQ(days[static_cast<std::size_t>(index)].day, around_.at(index, 0));
    }
}

TEST_F(TimetableTest, SchoolDaysAreAAndBDaysInTurnAndWeekendsAreFree) {
    std::vector<std::string> labels;
    for (const Day& day : week()) {
        labels.push_back(day.labels.empty() ? "" : day.labels.front());
    }
    ASSERT_EQ(labels.size(), 7U);
    EXPECT_NE(labels[0], labels[1]);
    EXPECT_EQ(labels[0], labels[2]);
    EXPECT_EQ(labels[3], "") << "Saturday";
    EXPECT_EQ(labels[4], "") << "Sunday";
    EXPECT_EQ(labels[5], labels[1]) << "Monday follows Friday";
    EXPECT_EQ(labels[6], labels[0]);
}

TEST_F(TimetableTest, ASchoolDayHasFourLessonsWithTheirClassAndALunchWithout) {
    const Day today = week().front();
    EXPECT_EQ(countOf(today, "period"), 4U);
    EXPECT_EQ(countOf(today, "break"), 1U);
    for (const Day::Block& block : today.blocks) {
        EXPECT_EQ(block.classId.has_value(), block.kind != "break") << block.title;
    }
}

TEST_F(TimetableTest, AWeekendHasStudyOnly) {
    const Day saturday = week()[3];
    EXPECT_FALSE(saturday.blocks.empty());
    EXPECT_EQ(countOf(saturday, "study"), saturday.blocks.size());
}

TEST_F(TimetableTest, BlocksFollowOneAnotherWithinTheirDay) {
    for (const Day& day : week()) {
        system::Date last = day.day;
        for (const Day::Block& block : day.blocks) {
            EXPECT_GE(block.start, last) << block.title;
            EXPECT_GT(block.end, block.start) << block.title;
            EXPECT_TRUE(around_.calendar->isSameDay(block.end, day.day)) << block.title;
            last = block.end;
        }
    }
}

TEST_F(TimetableTest, StudyIsForWhatIsDueTheDayAfterAndDoneWithIt) {
    const Assignment due = coursework_.dueOn(around_.at(1, 12), *around_.calendar).front();
    ASSERT_TRUE(coursework_.setDone(due.item.id, true));
    const Day today = week().front();
    const auto block =
        std::find_if(today.blocks.begin(), today.blocks.end(),
                     [&](const Day::Block& each) { return each.assignmentId == due.item.id; });
    ASSERT_NE(block, today.blocks.end());
    EXPECT_EQ(block->kind, "study");
    EXPECT_EQ(block->title, due.item.title);
    EXPECT_TRUE(block->done);
    EXPECT_EQ(block->start, around_.at(0, 16));
}

TEST_F(TimetableTest, TheSchoolWeekIsKeptInEveryCalendar) {
    const auto islamic = system::makeCalendar("ar_SA@calendar=islamic-umalqura", "Europe/Berlin");
    const Calendars calendars{*islamic, *around_.calendar};
    const std::vector<Day> days =
        timetable(Coursework::begun(around_.at(0, 15), *islamic), around_.at(0, 15), calendars);
    EXPECT_FALSE(days[0].labels.empty());
    EXPECT_TRUE(days[3].labels.empty());
}

}  // namespace
}  // namespace kelmar::demo
