#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "DemoPlanner/PlannerUrl.h"

namespace kelmar::demo {
namespace {

using testing::HasSubstr;

struct Understood {
    std::string url;
    Request request;
};

TEST(PlannerUrl, EveryUrlOfTheWidgetsIsUnderstood) {
    const std::vector<Understood> table{
        {"kelmarplanner://dashboard", DeepLink(ShowDashboard{})},
        {"kelmarplanner://assignment/a1", DeepLink(ShowAssignment{"a1"})},
        {"kelmarplanner://class/calculus", DeepLink(ShowClass{"calculus"})},
        {"kelmarplanner://schedule", DeepLink(ShowSchedule{})},
        {"kelmarplanner://stats", DeepLink(ShowStatistics{})},
        {"kelmarplanner://timer-open", DeepLink(ShowTimer{})},
        {"kelmarplanner://ticked", Command(TakeTicks{})},
        {"kelmarplanner://untick/a1", Command(Untick{"a1"})},
        {"kelmarplanner://timer/on", Command(TurnTimerOn{})},
        {"kelmarplanner://timer/off", Command(TurnTimerOff{})},
        {"kelmarplanner://timer/start?mins=25", Command(StartTimer{25})},
    };
    for (const Understood& row : table) {
        const system::Result<Request> request = parsePlannerUrl(row.url);
        ASSERT_TRUE(request) << row.url << ": " << request.failure().reason;
        EXPECT_EQ(*request, row.request) << row.url;
    }
}

TEST(PlannerUrl, IdsAreTakenAsTheyWereBeforeEncoding) {
    const std::vector<std::pair<std::string, std::string>> table{
        {"x/y", "x/y"},   {"x%2Fy", "x/y"},         {"x%2fy", "x/y"},
        {"a%201", "a 1"}, {"%3B%3F%23%25", ";?#%"}, {"%C3%9Cbung", "Übung"},
        {"//", "//"},     {"a+b@c:d", "a+b@c:d"},   {"/", "/"},
    };
    for (const auto& [encoded, id] : table) {
        const system::Result<Request> untick = parsePlannerUrl("kelmarplanner://untick/" + encoded);
        ASSERT_TRUE(untick) << encoded;
        EXPECT_EQ(*untick, Request(Command(Untick{id}))) << encoded;
        const system::Result<Request> show =
            parsePlannerUrl("kelmarplanner://assignment/" + encoded);
        ASSERT_TRUE(show) << encoded;
        EXPECT_EQ(*show, Request(DeepLink(ShowAssignment{id}))) << encoded;
    }
}

TEST(PlannerUrl, SchemeCaseAndOneSlashAtTheEndMakeNoDifference) {
    EXPECT_TRUE(parsePlannerUrl("KelmarPlanner://dashboard"));
    EXPECT_TRUE(parsePlannerUrl("kelmarplanner://dashboard/"));
    EXPECT_TRUE(parsePlannerUrl("kelmarplanner://ticked/"));
}

TEST(PlannerUrl, WhatIsNoUrlOfThePlannersIsRefused) {
    const std::vector<std::string> table{
        "",
        "kelmarplanner",
        "kelmarplanner:",
        "kelmarplanner://",
        "kelmarplanner:dashboard",
        "https://dashboard",
        "://dashboard",
        "kelmarplanner://Dashboard",
        "kelmarplanner://dashboards",
        "kelmarplanner://dashboard/today",
        "kelmarplanner://dashboard?today",
        "kelmarplanner://dashboard#today",
        "kelmarplanner://me@dashboard",
        "kelmarplanner://dashboard:80",
        "kelmarplanner://assignment",
        "kelmarplanner://assignment/",
        "kelmarplanner://assignment/a?b",
        "kelmarplanner://assignment/a#b",
        "kelmarplanner://assignment/%",
        "kelmarplanner://assignment/%2",
        "kelmarplanner://assignment/%zz",
        "kelmarplanner://assignment/%00",
        "kelmarplanner://assignment/%FF",
        "kelmarplanner://untick",
        "kelmarplanner://untick/",
        "kelmarplanner://ticked/a1",
        "kelmarplanner://timer",
        "kelmarplanner://timer/",
        "kelmarplanner://timer/On",
        "kelmarplanner://timer/on?now",
        "kelmarplanner://timer/off/",
        "kelmarplanner://timer/start",
        "kelmarplanner://timer/start?",
        "kelmarplanner://timer/start?mins=",
        "kelmarplanner://timer/start?mins=0",
        "kelmarplanner://timer/start?mins=-5",
        "kelmarplanner://timer/start?mins=+5",
        "kelmarplanner://timer/start?mins=5.5",
        "kelmarplanner://timer/start?mins=5&mins=6",
        "kelmarplanner://timer/start?mins=1441",
        "kelmarplanner://timer/start?mins=99999999999999999999",
        "kelmarplanner://timer/start?minutes=5",
        std::string("kelmarplanner://dash\0board", 26),
    };
    for (const std::string& url : table) {
        EXPECT_FALSE(parsePlannerUrl(url)) << url;
    }
}

TEST(PlannerUrl, ARefusalSaysWhy) {
    EXPECT_THAT(parsePlannerUrl("https://dashboard").failure().reason, HasSubstr("scheme"));
    EXPECT_THAT(parsePlannerUrl("kelmarplanner://untick").failure().reason, HasSubstr("id"));
    EXPECT_THAT(parsePlannerUrl("kelmarplanner://timer/start?mins=-5").failure().reason,
                HasSubstr("1440"));
}

}  // namespace
}  // namespace kelmar::demo
