#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "DemoPlanner/StateCoding.h"
#include "tests/DemoPlanner/Surroundings.h"

namespace kelmar::demo {
namespace {

using testing::HasSubstr;

class StateCodingTest : public testing::Test {
protected:
    Surroundings around_;
    PlannerState state_ = PlannerState::begun(around_.at(0, 15), *around_.calendar);

    /// The state's text with one piece of it changed.
    [[nodiscard]] std::string with(const std::string& piece, const std::string& other) const {
        std::string text = encodeState(state_);
        const std::size_t place = text.find(piece);
        EXPECT_NE(place, std::string::npos) << piece;
        return text.replace(place, piece.size(), other);
    }
};

TEST_F(StateCodingTest, EverythingSurvives) {
    state_.signedIn = false;
    state_.schoolCalendarConnected = false;
    state_.timer.start(around_.at(0, 15), 15);
    state_.timer.turnOff(around_.at(0, 15) + 0.25);
    state_.timer.subject = {"Spanish II", "#EF4444", "¿Qué? \"x\"\n"};
    state_.streak.settleToday(true, around_.at(0, 15), *around_.calendar);
    const system::Result<PlannerState> read = decodeState(encodeState(state_));
    ASSERT_TRUE(read) << read.failure().reason;
    EXPECT_EQ(*read, state_);
}

TEST_F(StateCodingTest, WhatIsNoStateIsRefused) {
    for (const char* const text : {"", "{", "[]", "null", "{}", "\xFF", R"({"version": 1})"}) {
        EXPECT_FALSE(decodeState(text)) << text;
    }
}

TEST_F(StateCodingTest, AnotherVersionIsRefused) {
    const auto read = decodeState(with(R"("version": 1)", R"("version": 2)"));
    ASSERT_FALSE(read);
    EXPECT_THAT(read.failure().reason, HasSubstr("version"));
}

TEST_F(StateCodingTest, ImpossibleStatesAreRefused) {
    const std::vector<std::pair<std::string, std::string>> table{
        {R"("phase": "ready")", R"("phase": "dancing")"},
        {R"("phase": "ready")", R"("phase": "running")"},
        {R"("phase": "ready")", R"("phase": "ready", "endAt": 5)"},
        {R"("total": 1500)", R"("total": -1)"},
        {R"("total": 1500)", R"("total": 1e300)"},
        {R"("total": 1500)", R"("total": "1500")"},
        {R"("count": 6)", R"("count": 6.5)"},
        {R"("count": 6)", R"("count": 1e300)"},
        {R"("lesson": 11)", R"("lesson": -1)"},
        {R"("signedIn": true)", R"("signedIn": 1)"},
        {R"("done": false)", R"("finished": false)"},
        {R"("hist": {)", R"("hist": [], "old": {)"},
    };
    for (const auto& [piece, other] : table) {
        EXPECT_FALSE(decodeState(with(piece, other))) << other;
    }
}

TEST_F(StateCodingTest, ARefusalNamesTheKey) {
    const auto read = decodeState(with(R"("signedIn": true)", R"("signedIn": 1)"));
    ASSERT_FALSE(read);
    EXPECT_THAT(read.failure().reason, HasSubstr("signedIn"));
}

}  // namespace
}  // namespace kelmar::demo
