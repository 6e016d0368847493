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
    Surroundings around;
    const system::Calendar& calendar = *around.calendar;
    Coursework coursework = Coursework::begun(around.at(0, 15), calendar);

    void finishEverything() {
        for (const Assignment& assignment : std::vector(coursework.assignments())) {
            ASSERT_TRUE(coursework.setDone(assignment.item.id, true));
        }
    }
};

TEST_F(CourseworkTest, BeginsWithSomethingOverdueSomethingTimedAndSomethingForTheDay) {
    const std::vector<Assignment> today = coursework.openToday(around.at(0, 15), calendar);
    const auto has = [&](auto condition) {
        return std::any_of(today.begin(), today.end(), condition);
    };
    EXPECT_TRUE(has([&](const Assignment& each) { return each.item.due < around.at(0, 0); }));
    EXPECT_TRUE(has([&](const Assignment& each) {
        return each.item.hasTime && each.item.due > around.at(0, 15);
    }));
    EXPECT_TRUE(has([](const Assignment& each) { return !each.item.hasTime; }));
}

TEST_F(CourseworkTest, ReachesMoreThanAWeekAheadWithoutAnEmptyDay) {
    for (int days = 0; days <= Coursework::daysAhead; ++days) {
        EXPECT_FALSE(coursework.dueOn(around.at(days, 12), calendar).empty()) << days;
    }
    EXPECT_GT(coursework.openLater(around.at(0, 15), calendar).back().item.due, around.at(8, 0));
}

TEST_F(CourseworkTest, WorkForTheDayMayBeHandedInUntilItsLastSecond) {
    for (const Assignment& assignment : coursework.assignments()) {
        if (!assignment.item.hasTime) {
            EXPECT_EQ(assignment.item.due + 1, calendar.startOfDay(assignment.item.due + 1));
        }
    }
}

TEST_F(CourseworkTest, IdsAreUniqueOverAWholeTerm) {
    std::set<std::string> known;
    std::set<std::string> present;
    for (int days = 0; days < 120; ++days) {
        coursework.advance(around.at(days, 1), calendar);
        std::set<std::string> now;
        for (const Assignment& assignment : coursework.assignments()) {
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
    const auto today = coursework.openToday(around.at(0, 15), calendar);
    const auto later = coursework.openLater(around.at(0, 15), calendar);
    EXPECT_TRUE(std::is_sorted(today.begin(), today.end(), isEarlier));
    EXPECT_TRUE(std::is_sorted(later.begin(), later.end(), isEarlier));
    EXPECT_LT(today.back().item.due, around.at(1, 0));
    EXPECT_GE(later.front().item.due, around.at(1, 0));
}

TEST_F(CourseworkTest, WhatIsDoneIsNotOpenAndCanBeOpenedAgain) {
    const std::string id = coursework.openToday(around.at(0, 15), calendar).front().item.id;
    EXPECT_TRUE(coursework.setDone(id, true));
    EXPECT_NE(coursework.openToday(around.at(0, 15), calendar).front().item.id, id);
    EXPECT_TRUE(coursework.setDone(id, false));
    EXPECT_EQ(coursework.openToday(around.at(0, 15), calendar).front().item.id, id);
}

TEST_F(CourseworkTest, AnUnknownIdIsNotMarked) {
    const Coursework before = coursework;
    EXPECT_FALSE(coursework.setDone("nothing", true));
    EXPECT_EQ(coursework, before);
}

TEST_F(CourseworkTest, ANewDayMovesTomorrowsWorkToTodayAndHandsOutOneDayMore) {
    const std::vector<Assignment> tomorrow = coursework.dueOn(around.at(1, 12), calendar);
    const int lesson = coursework.lesson();
    finishEverything();
    for (const Assignment& assignment : tomorrow) {
        ASSERT_TRUE(coursework.setDone(assignment.item.id, false));
    }
    coursework.advance(around.at(1, 0), calendar);
    EXPECT_EQ(coursework.openToday(around.at(1, 0), calendar), tomorrow);
    EXPECT_EQ(coursework.lesson(), lesson + 1);
    EXPECT_FALSE(coursework.dueOn(around.at(1 + Coursework::daysAhead, 12), calendar).empty());
}

TEST_F(CourseworkTest, FinishedDaysAreNotHandedOutAgain) {
    finishEverything();
    coursework.advance(around.at(0, 16), calendar);
    EXPECT_TRUE(coursework.openToday(around.at(0, 16), calendar).empty());
    EXPECT_TRUE(coursework.openLater(around.at(0, 16), calendar).empty());
}

TEST_F(CourseworkTest, UnfinishedWorkStaysOverdueForTheDaysOfGraceOnly) {
    const std::string id = coursework.dueOn(around.at(0, 12), calendar).front().item.id;
    coursework.advance(around.at(Coursework::daysOfGrace, 23), calendar);
    EXPECT_NE(coursework.find(id), nullptr);
    coursework.advance(around.at(Coursework::daysOfGrace + 1, 0), calendar);
    EXPECT_EQ(coursework.find(id), nullptr);
}

TEST_F(CourseworkTest, AfterALongAbsenceOnlyRecentWorkIsLeft) {
    coursework.advance(around.at(100, 9), calendar);
    ASSERT_FALSE(coursework.assignments().empty());
    EXPECT_GE(coursework.assignments().front().item.due,
              around.at(100 - Coursework::daysOfGrace, 0));
    EXPECT_FALSE(coursework.openToday(around.at(100, 9), calendar).empty());
}

}  // namespace
}  // namespace kelmar::demo
