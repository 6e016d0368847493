#include <gtest/gtest.h>

#include "Host/ReloadJournal.h"
#include "tests/Host/Contents.h"

namespace kelmar::host {
namespace {

using namespace std::chrono_literals;

class ReloadJournalTest : public testing::Test {
protected:
    ReloadJournal journal_;
};

TEST_F(ReloadJournalTest, KnowsNothingOfAWidgetThatWasNeverReloaded) {
    EXPECT_EQ(journal_.last(1, 5s), std::nullopt);
}

TEST_F(ReloadJournalTest, OneUnderWayTakesAsLongAsItHasTakenSoFar) {
    journal_.begin(1, ReloadCause::fileChanged, at(100), 10s);
    EXPECT_EQ(journal_.last(1, 12s), (ReloadRecord{.cause = ReloadCause::fileChanged,
                                                   .began = at(100),
                                                   .outcome = ReloadOutcome::underWay,
                                                   .duration = 2s,
                                                   .reason = ""}));
}

TEST_F(ReloadJournalTest, WhatKeepsOneFromEndingIsKeptUntilItEnds) {
    journal_.begin(1, ReloadCause::asked, at(100), 10s);
    journal_.noteTrouble(1, "it was killed");
    EXPECT_EQ(journal_.last(1, 11s)->reason, "it was killed");
    EXPECT_EQ(journal_.last(1, 11s)->outcome, ReloadOutcome::underWay);
    journal_.end(1, 13s, "");
    EXPECT_EQ(journal_.last(1, 99s), (ReloadRecord{.cause = ReloadCause::asked,
                                                   .began = at(100),
                                                   .outcome = ReloadOutcome::taken,
                                                   .duration = 3s,
                                                   .reason = ""}));
}

TEST_F(ReloadJournalTest, ARefusalKeepsItsReason) {
    journal_.begin(1, ReloadCause::asked, at(100), 10s);
    journal_.end(1, 10s, "too deep");
    EXPECT_EQ(journal_.last(1, 99s)->outcome, ReloadOutcome::refused);
    EXPECT_EQ(journal_.last(1, 99s)->reason, "too deep");
}

TEST_F(ReloadJournalTest, EveryWidgetHasAPageOfItsOwnUntilItGoes) {
    journal_.begin(1, ReloadCause::placed, at(100), 10s);
    journal_.begin(2, ReloadCause::action, at(200), 20s);
    EXPECT_EQ(journal_.last(1, 30s)->cause, ReloadCause::placed);
    EXPECT_EQ(journal_.last(2, 30s)->cause, ReloadCause::action);
    journal_.forget(1);
    EXPECT_EQ(journal_.last(1, 30s), std::nullopt);
    EXPECT_EQ(journal_.last(2, 30s)->began, at(200));
}

}  // namespace
}  // namespace kelmar::host
