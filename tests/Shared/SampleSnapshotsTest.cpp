#include <algorithm>
#include <cctype>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "Shared/SampleSnapshots.h"
#include "tests/Support/Dates.h"

namespace kelmar::shared {
namespace {

using system::Date;
using ::testing::ElementsAre;
using ::testing::IsSupersetOf;
using testing::utc;

class SampleTest : public ::testing::Test {
protected:
    std::unique_ptr<system::Calendar> calendar_ = system::makeCalendar("en_US", "America/New_York");
    /// 15:00 in New York on Thursday, 9 October 2025.
    const Date now_ = utc(2025, 10, 9, 19);
};

TEST_F(SampleTest, AreAllSignedInAndUpToDate) {
    for (const auto make : {sample, scheduleSample, streakSample, timerSample}) {
        const WidgetData data = make(now_, *calendar_);
        EXPECT_TRUE(data.signedIn);
        EXPECT_EQ(data.updated, now_);
        EXPECT_TRUE(data.schedule);
        EXPECT_TRUE(data.timer);
        EXPECT_TRUE(data.streak);
    }
}

TEST_F(SampleTest, ListsKnownTitlesDueOneToFourDaysAhead) {
    const WidgetData data = sample(now_, *calendar_);
    std::vector<std::string> titles;
    std::vector<double> daysAhead;
    for (const WidgetData::Item& item : data.today)
        titles.push_back(item.title);
    for (const WidgetData::Item& item : data.upcoming) {
        titles.push_back(item.title);
        daysAhead.push_back((item.due - now_) / 86'400);
    }
    EXPECT_THAT(titles, IsSupersetOf({"Reading check: Gatsby ch. 7–9", "Lab report: Osmosis",
                                      "Ch. 7 reading + questions", "Unit 3 Test: Cell energy",
                                      "Presentación: Mi ciudad", "Problem set 5: Momentum"}));
    EXPECT_THAT(daysAhead, ElementsAre(1, 1, 2, 3, 4));
    const auto gatsby =
        std::ranges::find(data.today, "Reading check: Gatsby ch. 7–9", &WidgetData::Item::title);
    ASSERT_NE(gatsby, data.today.end());
    EXPECT_EQ(gatsby->className, "Honors English 11");
}

TEST_F(SampleTest, FillsEveryFieldOfEveryItem) {
    const WidgetData data = sample(now_, *calendar_);
    std::vector<WidgetData::Item> items = data.today;
    items.insert(items.end(), data.upcoming.begin(), data.upcoming.end());
    std::set<std::string> ids;
    for (const WidgetData::Item& item : items) {
        ids.insert(item.id);
        EXPECT_FALSE(item.title.empty());
        EXPECT_FALSE(item.className.empty());
        EXPECT_EQ(item.classColor.size(), 7U) << item.classColor;
        EXPECT_TRUE(item.classColor.starts_with('#') &&
                    std::all_of(item.classColor.begin() + 1, item.classColor.end(),
                                [](unsigned char digit) { return std::isxdigit(digit); }))
            << item.classColor;
    }
    EXPECT_EQ(ids.size(), items.size());
}

TEST_F(SampleTest, HasOneItemAtALaterTimeOfToday) {
    const WidgetData data = sample(now_, *calendar_);
    ASSERT_GE(data.today.size(), 2U);
    EXPECT_EQ(std::ranges::count(data.today, true, &WidgetData::Item::hasTime), 1);
    EXPECT_EQ(data.today[0].due, utc(2025, 10, 9, 22));  // 18:00
}

TEST_F(SampleTest, IsNeverOverdueAndDueTodayAtAnyHour) {
    EXPECT_TRUE(rc::check([] {
        const auto zone = *rc::gen::element<std::string>("America/New_York", "America/Havana",
                                                         "Australia/Lord_Howe", "Asia/Kathmandu");
        const auto local = system::makeCalendar("en_US", zone);
        // A fair share of the moments lies in the last hours before midnight.
        const Date day = Date::since1970(*rc::gen::inRange(1'700'000'000, 1'800'000'000));
        const Date moment = *rc::gen::arbitrary<bool>()
                                ? day
                                : *local->startOfNextDay(day) + -*rc::gen::inRange(1, 12'000);
        for (const WidgetData::Item& item : sample(moment, *local).today) {
            RC_ASSERT(item.due >= moment);
            RC_ASSERT(local->isSameDay(item.due, moment));
        }
    }));
}

TEST_F(SampleTest, OfTheScheduleHasTheDaysFourBlocks) {
    const WidgetData data = scheduleSample(now_, *calendar_);
    ASSERT_EQ(data.schedule->size(), 1U);
    const WidgetData::ScheduleDay& day = data.schedule->front();
    EXPECT_EQ(day.day, utc(2025, 10, 9, 4));
    std::vector<std::string> lines;
    for (const auto& block : day.blocks) {
        const auto start = calendar_->components(block.start);
        const auto end = calendar_->components(block.end);
        lines.push_back(block.kind + "|" + block.title + "|" + std::to_string(start.hour) + ":" +
                        std::to_string(start.minute) + "|" + std::to_string(end.hour) + ":" +
                        std::to_string(end.minute) + "|" + block.color);
        EXPECT_FALSE(block.done);
        EXPECT_TRUE(calendar_->isSameDay(block.start, now_));
    }
    EXPECT_THAT(lines, ElementsAre("period|AP Calculus BC|8:0|8:50|#6366F1",
                                   "period|AP Biology|9:0|9:50|#10B981",
                                   "period|Honors English 11|10:0|10:50|#EC4899",
                                   "study|Problem Set 4.1|16:0|16:45|#6366F1"));
    EXPECT_FALSE(day.blocks[3].assignmentId.empty());
    for (int period = 0; period < 3; ++period)
        EXPECT_TRUE(day.blocks[static_cast<std::size_t>(period)].classId);
}

TEST_F(SampleTest, OfTheScheduleHasTheOtherPartsOfTheGeneralSample) {
    WidgetData data = scheduleSample(now_, *calendar_);
    const WidgetData general = sample(now_, *calendar_);
    data.schedule = general.schedule;
    EXPECT_EQ(data, general);
}

TEST_F(SampleTest, OfTheStreakIsAliveWithAFreezeThreeDaysBack) {
    using Mark = WidgetData::Streak::Mark;
    const WidgetData data = streakSample(now_, *calendar_);
    EXPECT_EQ(data.streak->lastDate, "2025-10-08");
    EXPECT_TRUE(data.streak->isAlive(now_, *calendar_));
    EXPECT_GT(data.streak->count, 0);
    EXPECT_GE(data.streak->best, data.streak->count);
    std::vector<Mark> marks;
    for (const auto& day : data.streak->recent(now_, *calendar_))
        marks.push_back(day.mark);
    EXPECT_THAT(marks, ElementsAre(Mark::streak, Mark::streak, Mark::streak, Mark::covered,
                                   Mark::streak, Mark::streak, Mark::none));
    EXPECT_GT(data.streak->freezeNext, "2025-10-09");
}

TEST_F(SampleTest, OfTheTimerRunsForEighteenMinutesMore) {
    const WidgetData::Timer timer = *timerSample(now_, *calendar_).timer;
    EXPECT_EQ(timer.state, "running");
    EXPECT_EQ(timer.className, "AP Chemistry");
    EXPECT_EQ(timer.classColor, "#10B981");
    EXPECT_EQ(timer.endAt, now_ + 1122);
    EXPECT_EQ(timer.secsLeft, 1122);
    EXPECT_GT(timer.total, timer.secsLeft);
    EXPECT_FALSE(timer.ringing);
    EXPECT_FALSE(timer.isBreak);
    EXPECT_FALSE(timer.sessionTitle.empty());
    EXPECT_FALSE(timer.presets.empty());
}

}  // namespace
}  // namespace kelmar::shared
