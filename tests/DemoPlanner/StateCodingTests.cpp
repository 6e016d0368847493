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
    Surroundings around;
    PlannerState state = PlannerState::begun(around.at(0, 15), *around.calendar);

    /// The state's text with one piece of it changed.
    [[nodiscard]] std::string with(const std::string& piece, const std::string& other) const {
        std::string text = encodeState(state);
        const std::size_t place = text.find(piece);
        EXPECT_NE(place, std::string::npos) << piece;
        return text.replace(place, piece.size(), other);
    }
};

TEST_F(StateCodingTest, EverythingSurvives) {
    state.signedIn = false;
    state.schoolCalendarConnected = false;
    state.timer.start(around.at(0, 15), 15);
    state.timer.turnOff(around.at(0, 15) + 0.25);
    state.timer.subject = {"Spanish II", "#EF4444", "¿Qué? \"x\"\n"};
    state.streak.settleToday(true, around.at(0, 15), *around.calendar);
    const system::Result<PlannerState> read = decodeState(encodeState(state));
    ASSERT_TRUE(read) << read.failure().reason;
    EXPECT_EQ(*read, state);
}

TEST_F(StateCodingTest, WhatIsNoStateIsRefused) {
    for (const char* const text : {"", "{", "[]", "null", "{}", "\xFF", "{\"version\": 1}"}) {
        EXPECT_FALSE(decodeState(text)) << text;
    }
}

TEST_F(StateCodingTest, AnotherVersionIsRefused) {
    const auto read = decodeState(with("\"version\": 1", "\"version\": 2"));
    ASSERT_FALSE(read);
    EXPECT_THAT(read.failure().reason, HasSubstr("version"));
}

TEST_F(StateCodingTest, ImpossibleStatesAreRefused) {
    const std::vector<std::pair<std::string, std::string>> table{
        {"\"phase\": \"ready\"", "\"phase\": \"dancing\""},
        {"\"phase\": \"ready\"", "\"phase\": \"running\""},
        {"\"phase\": \"ready\"", "\"phase\": \"ready\", \"endAt\": 5"},
        {"\"total\": 1500", "\"total\": -1"},
        {"\"total\": 1500", "\"total\": 1e300"},
        {"\"total\": 1500", "\"total\": \"1500\""},
        {"\"count\": 6", "\"count\": 6.5"},
        {"\"count\": 6", "\"count\": 1e300"},
        {"\"lesson\": 11", "\"lesson\": -1"},
        {"\"signedIn\": true", "\"signedIn\": 1"},
        {"\"done\": false", "\"finished\": false"},
        {"\"hist\": {", "\"hist\": [], \"old\": {"},
    };
    for (const auto& [piece, other] : table) {
        EXPECT_FALSE(decodeState(with(piece, other))) << other;
    }
}

TEST_F(StateCodingTest, ARefusalNamesTheKey) {
    const auto read = decodeState(with("\"signedIn\": true", "\"signedIn\": 1"));
    ASSERT_FALSE(read);
    EXPECT_THAT(read.failure().reason, HasSubstr("signedIn"));
}

}  // namespace
}  // namespace kelmar::demo
