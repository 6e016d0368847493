#include <algorithm>
#include <gtest/gtest.h>
#include <set>

#include "DemoPlanner/Coursework.h"
#include "tests/DemoPlanner/Surroundings.h"

namespace kelmar::demo {
namespace {

using system::Date;

class CourseworkTest : public testing::Test {
protected:
    Surroundings around_;
    const system::Calendar& calendar_ = *around_.calendar;
    Coursework coursework_ = Coursework::begun(around_.at(0, 15), calendar_);

    void finishEverything() {
        for (const Assignment& assignment : std::vector(coursework_.assignments())) {
            ASSERT_TRUE(coursework_.setDone(assignment.item.id, true));
        }
    }
};

TEST_F(CourseworkTest, BeginsWithSomethingOverdueSomethingTimedAndSomethingForTheDay) {
    const std::vector<Assignment> today = coursework_.openToday(around_.at(0, 15), calendar_);
    const auto has = [&](auto condition) {
        return std::any_of(today.begin(), today.end(), condition);
    };
    EXPECT_TRUE(has([&](const Assignment& each) { return each.item.due < around_.at(0, 0); }));
    EXPECT_TRUE(has([&](const Assignment& each) {
        return each.item.hasTime && each.item.due > around_.at(0, 15);
    }));
    EXPECT_TRUE(has([](const Assignment& each) { return !each.item.hasTime; }));
}

TEST_F(CourseworkTest, ReachesMoreThanAWeekAheadWithoutAnEmptyDay) {
    for (int days = 0; days <= Coursework::daysAhead; ++days) {
        EXPECT_FALSE(coursework_.dueOn(around_.at(days, 12), calendar_).empty()) << days;
    }
    EXPECT_GT(coursework_.openLater(around_.at(0, 15), calendar_).back().item.due,
              around_.at(8, 0));
}

TEST_F(CourseworkTest, WorkForTheDayMayBeHandedInUntilItsLastSecond) {
    for (const Assignment& assignment : coursework_.assignments()) {
        if (!assignment.item.hasTime) {
            EXPECT_EQ(assignment.item.due + 1, calendar_.startOfDay(assignment.item.due + 1));
        }
    }
}

TEST_F(CourseworkTest, IdsAreUniqueOverAWholeTerm) {
    std::set<std::string> known;
    std::set<std::string> present;
    for (int days = 0; days < 120; ++days) {
        coursework_.advance(around_.at(days, 1), calendar_);
        std::set<std::string> now;
        for (const Assignment& assignment : coursework_.assignments()) {
            const std::string& id = assignment.item.id;
            EXPECT_TRUE(now.insert(id).second) << id << " twice on day " << days;
            EXPECT_TRUE(present.contains(id) || known.insert(id).second)
                << id << " came back on day " << days;
        }
        present = std::move(now);
    }
}

TEST_F(CourseworkTest, ColorsAreHexTexts) {
    for (const SchoolClass& each : schoolClasses()) {
        const std::string color = each.color;
        ASSERT_EQ(color.size(), 7U);
        EXPECT_EQ(color[0], '#');
        EXPECT_EQ(color.find_first_not_of("0123456789ABCDEF", 1), std::string::npos);
    }
}

TEST_F(CourseworkTest, OpenListsAreInTheOrderInWhichTheyAreDue) {
    const auto isEarlier = [](const Assignment& first, const Assignment& second) {
        return first.item.due < second.item.due;
    };
    const auto today = coursework_.openToday(around_.at(0, 15), calendar_);
    const auto later = coursework_.openLater(around_.at(0, 15), calendar_);
    EXPECT_TRUE(std::is_sorted(today.begin(), today.end(), isEarlier));
    EXPECT_TRUE(std::is_sorted(later.begin(), later.end(), isEarlier));
    EXPECT_LT(today.back().item.due, around_.at(1, 0));
    EXPECT_GE(later.front().item.due, around_.at(1, 0));
}

TEST_F(CourseworkTest, WhatIsDoneIsNotOpenAndCanBeOpenedAgain) {
    const std::string id = coursework_.openToday(around_.at(0, 15), calendar_).front().item.id;
    EXPECT_TRUE(coursework_.setDone(id, true));
    EXPECT_NE(coursework_.openToday(around_.at(0, 15), calendar_).front().item.id, id);
    EXPECT_TRUE(coursework_.setDone(id, false));
    EXPECT_EQ(coursework_.openToday(around_.at(0, 15), calendar_).front().item.id, id);
}

TEST_F(CourseworkTest, AnUnknownIdIsNotMarked) {
    const Coursework before = coursework_;
    EXPECT_FALSE(coursework_.setDone("nothing", true));
    EXPECT_EQ(coursework_, before);
}

TEST_F(CourseworkTest, ANewDayMovesTomorrowsWorkToTodayAndHandsOutOneDayMore) {
    const std::vector<Assignment> tomorrow = coursework_.dueOn(around_.at(1, 12), calendar_);
    const int lesson = coursework_.lesson();
    finishEverything();
    for (const Assignment& assignment : tomorrow) {
        ASSERT_TRUE(coursework_.setDone(assignment.item.id, false));
    }
    coursework_.advance(around_.at(1, 0), calendar_);
    EXPECT_EQ(coursework_.openToday(around_.at(1, 0), calendar_), tomorrow);
    EXPECT_EQ(coursework_.lesson(), lesson + 1);
    EXPECT_FALSE(coursework_.dueOn(around_.at(1 + Coursework::daysAhead, 12), calendar_).empty());
}

TEST_F(CourseworkTest, FinishedDaysAreNotHandedOutAgain) {
    finishEverything();
    coursework_.advance(around_.at(0, 16), calendar_);
    EXPECT_TRUE(coursework_.openToday(around_.at(0, 16), calendar_).empty());
    EXPECT_TRUE(coursework_.openLater(around_.at(0, 16), calendar_).empty());
}

TEST_F(CourseworkTest, UnfinishedWorkStaysOverdueForTheDaysOfGraceOnly) {
    const std::string id = coursework_.dueOn(around_.at(0, 12), calendar_).front().item.id;
    coursework_.advance(around_.at(Coursework::daysOfGrace, 23), calendar_);
    EXPECT_NE(coursework_.find(id), nullptr);
    coursework_.advance(around_.at(Coursework::daysOfGrace + 1, 0), calendar_);
    EXPECT_EQ(coursework_.find(id), nullptr);
}

TEST_F(CourseworkTest, AfterALongAbsenceOnlyRecentWorkIsLeft) {
    coursework_.advance(around_.at(100, 9), calendar_);
    ASSERT_FALSE(coursework_.assignments().empty());
    EXPECT_GE(coursework_.assignments().front().item.due,
              around_.at(100 - Coursework::daysOfGrace, 0));
    EXPECT_FALSE(coursework_.openToday(around_.at(100, 9), calendar_).empty());
}

}  // namespace
}  // namespace kelmar::demo
