#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DemoPlanner/PlannerService.h"
#include "Shared/SnapshotCoding.h"
#include "Shared/WidgetTicks.h"
#include "System/Url.h"
#include "tests/DemoPlanner/Surroundings.h"

namespace kelmar::demo {
namespace {

using shared::WidgetData;
using shared::WidgetTicks;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class PlannerServiceTest : public testing::Test {
protected:
    Surroundings around_;
    RecordingStorage storage_;
    std::vector<std::string> log_;

    [[nodiscard]] PlannerService start() {
        return {storage_, around_.clock, around_.calendars,
                [this](std::string_view line) { log_.emplace_back(line); }};
    }

    [[nodiscard]] WidgetData published() const {
        const auto data = shared::decodeSnapshot(storage_.published);
        EXPECT_TRUE(data) << storage_.published;
        return data ? *data : WidgetData();
    }

    /// Ticks an assignment off as a widget does.
    void tick(const std::string& id) {
        storage_.ticks[WidgetTicks::fileName(id)] =
            WidgetTicks::encode({"A title", around_.clock.now()});
    }

    [[nodiscard]] static std::string doneName(const std::string& id) {
        return std::string(WidgetTicks::donePrefix) + WidgetTicks::name(id);
    }

    [[nodiscard]] bool isPublishedToday(const std::string& id) const {
        const WidgetData data = published();
        return std::any_of(data.today.begin(), data.today.end(),
                           [&](const WidgetData::Item& item) { return item.id == id; });
    }
};

TEST_F(PlannerServiceTest, TheFirstStartPublishesAWeek) {
    const PlannerService service = start();
    EXPECT_THAT(storage_.events, ElementsAre("save", "publish"));
    EXPECT_THAT(published().today, Not(IsEmpty()));
    EXPECT_THAT(log_, IsEmpty());
}

TEST_F(PlannerServiceTest, ATickIsTakenOverOnlyAfterTheWidgetsHaveASnapshotWithoutIt) {
    PlannerService service = start();
    const std::string id = published().today.front().id;
    tick(id);
    storage_.events.clear();
    EXPECT_FALSE(service.open("kelmarplanner://ticked"));
    EXPECT_THAT(
        storage_.events,
        ElementsAre("save", "publish", "rename " + WidgetTicks::fileName(id) + " " + doneName(id)));
    EXPECT_FALSE(isPublishedToday(id));
}

TEST_F(PlannerServiceTest, ATickStaysPendingWhileTheSnapshotCannotBeWritten) {
    PlannerService service = start();
    const std::string id = published().today.front().id;
    tick(id);
    storage_.isFull = true;
    service.open("kelmarplanner://ticked");
    EXPECT_TRUE(storage_.ticks.contains(WidgetTicks::fileName(id)));
    EXPECT_THAT(log_, Contains(HasSubstr("no space left")));
    storage_.isFull = false;
    service.open("kelmarplanner://ticked");
    EXPECT_TRUE(storage_.ticks.contains(doneName(id)));
    EXPECT_FALSE(isPublishedToday(id));
}

TEST_F(PlannerServiceTest, SeveralTicksAreTakenOverWithOneSnapshot) {
    PlannerService service = start();
    const std::vector<WidgetData::Item> today = published().today;
    for (const WidgetData::Item& item : today) {
        tick(item.id);
    }
    storage_.events.clear();
    service.open("kelmarplanner://ticked");
    EXPECT_EQ(std::count(storage_.events.begin(), storage_.events.end(), "publish"), 1);
    EXPECT_THAT(published().today, IsEmpty());
    EXPECT_EQ(published().streak->count, 7);
    EXPECT_EQ(storage_.ticks.size(), today.size());
}

TEST_F(PlannerServiceTest, ATickOfWhatIsDoneAlreadyReplacesItsDoneFile) {
    PlannerService service = start();
    const std::string id = published().today.front().id;
    tick(id);
    service.open("kelmarplanner://ticked");
    tick(id);
    const WidgetData before = published();
    service.open("kelmarplanner://ticked");
    EXPECT_EQ(published(), before);
    EXPECT_THAT(storage_.tickFiles(), ElementsAre(doneName(id)));
}

TEST_F(PlannerServiceTest, ATickOfAnUnknownAssignmentIsLoggedAndPutAway) {
    PlannerService service = start();
    const WidgetData before = published();
    tick("nothing");
    service.open("kelmarplanner://ticked");
    EXPECT_EQ(published(), before);
    EXPECT_THAT(storage_.tickFiles(), ElementsAre(doneName("nothing")));
    EXPECT_THAT(log_, ElementsAre(HasSubstr("nothing")));
}

TEST_F(PlannerServiceTest, TheNameOfATickCountsEvenWhenItsTextIsMalformed) {
    PlannerService service = start();
    const std::string id = published().today.front().id;
    storage_.ticks[WidgetTicks::fileName(id)] = R"({"title": "half a no)";
    service.open("kelmarplanner://ticked");
    EXPECT_FALSE(isPublishedToday(id));
    EXPECT_FALSE(storage_.ticks.contains(WidgetTicks::fileName(id)));
}

TEST_F(PlannerServiceTest, FilesThatAreNoTicksAreLeftAlone) {
    PlannerService service = start();
    storage_.ticks = {{"tick-", "{}"},    {"tick-*", "{}"},  {"tick-A", "{}"},
                      {"notes.txt", "x"}, {"done-", "junk"}, {"TICK-YQ", "{}"}};
    const auto before = storage_.ticks;
    service.open("kelmarplanner://ticked");
    EXPECT_EQ(storage_.ticks, before);
}

TEST_F(PlannerServiceTest, DoneFilesStayForUndoAndAreClearedLater) {
    PlannerService service = start();
    const std::string id = published().today.front().id;
    tick(id);
    service.open("kelmarplanner://ticked");
    around_.clock.set(around_.clock.now() + PlannerService::doneAge);
    service.open("kelmarplanner://ticked");
    EXPECT_TRUE(storage_.ticks.contains(doneName(id)));
    around_.clock.set(around_.clock.now() + 1);
    service.open("kelmarplanner://ticked");
    EXPECT_THAT(storage_.tickFiles(), IsEmpty());
}

TEST_F(PlannerServiceTest, DoneFilesThatCannotBeUndoneAreCleared) {
    PlannerService service = start();
    storage_.ticks = {
        {doneName("malformed"), "{"},
        {doneName("future"), WidgetTicks::encode({"A title", around_.clock.now() + 3600})}};
    service.open("kelmarplanner://ticked");
    EXPECT_THAT(storage_.tickFiles(), IsEmpty());
}

TEST_F(PlannerServiceTest, UntickBringsTheAssignmentBack) {
    PlannerService service = start();
    const WidgetData before = published();
    const std::string id = before.today.front().id;
    tick(id);
    service.open("kelmarplanner://ticked");
    storage_.ticks.clear();
    service.open("kelmarplanner://untick/" + system::encodeUrlPath(id, system::Slash::encoded));
    EXPECT_EQ(published(), before);
}

TEST_F(PlannerServiceTest, UntickOfAnUnknownAssignmentIsLogged) {
    PlannerService service = start();
    const WidgetData before = published();
    service.open("kelmarplanner://untick/nothing");
    EXPECT_EQ(published(), before);
    EXPECT_THAT(log_, ElementsAre(HasSubstr("nothing")));
}

TEST_F(PlannerServiceTest, TicksOfTheMeantimeAreTakenOverAtTheStart) {
    std::string id;
    {
        const PlannerService service = start();
        id = published().today.front().id;
    }
    tick(id);
    const PlannerService again = start();
    EXPECT_FALSE(isPublishedToday(id));
    EXPECT_TRUE(storage_.ticks.contains(doneName(id)));
}

TEST_F(PlannerServiceTest, DeepLinksAreGivenBackAndChangeNothing) {
    PlannerService service = start();
    storage_.events.clear();
    EXPECT_EQ(service.open("kelmarplanner://class/spanish"), DeepLink(ShowClass{"spanish"}));
    EXPECT_THAT(storage_.events, IsEmpty());
}

TEST_F(PlannerServiceTest, AMalformedUrlIsLoggedInOneLineAndChangesNothing) {
    PlannerService service = start();
    storage_.events.clear();
    EXPECT_FALSE(service.open("kelmarplanner://timer/start?mins=-5"));
    EXPECT_THAT(storage_.events, IsEmpty());
    EXPECT_THAT(log_, ElementsAre(HasSubstr("kelmarplanner://timer/start?mins=-5")));
}

TEST_F(PlannerServiceTest, TheTimerIsRunByUrlsAndRingsByItself) {
    PlannerService service = start();
    service.open("kelmarplanner://timer/start?mins=15");
    EXPECT_EQ(published().timer->state, "running");
    EXPECT_EQ(published().timer->endAt, around_.at(0, 15, 15));
    EXPECT_EQ(service.nextChange(), around_.at(0, 15, 15));

    around_.clock.set(around_.at(0, 15, 5));
    service.open("kelmarplanner://timer/off");
    EXPECT_EQ(published().timer->state, "paused");
    EXPECT_EQ(published().timer->secsLeft, 600);
    service.open("kelmarplanner://timer/on");

    around_.clock.set(around_.at(0, 15, 15));
    service.wake();
    EXPECT_TRUE(published().timer->ringing);
    service.open("kelmarplanner://timer/on");
    EXPECT_FALSE(published().timer->ringing);
    EXPECT_TRUE(published().timer->isBreak);
    EXPECT_EQ(published().timer->state, "ready");
}

TEST_F(PlannerServiceTest, StoppingAnAlarmThatIsDueButNotYetNoticedStopsIt) {
    PlannerService service = start();
    service.open("kelmarplanner://timer/start?mins=15");
    around_.clock.set(around_.at(0, 15, 20));
    service.open("kelmarplanner://timer/on");
    EXPECT_EQ(published().timer->state, "ready");
    EXPECT_TRUE(published().timer->isBreak);
}

TEST_F(PlannerServiceTest, WakingWithoutAReasonWritesNothing) {
    PlannerService service = start();
    storage_.events.clear();
    around_.clock.set(around_.clock.now() + 600);
    service.wake();
    EXPECT_THAT(storage_.events, IsEmpty());
}

TEST_F(PlannerServiceTest, AtMidnightANewDayIsPublished) {
    PlannerService service = start();
    around_.clock.set(service.nextChange().value());
    service.wake();
    EXPECT_EQ(published().schedule->front().day, around_.at(1, 0));
    EXPECT_EQ(published().updated, around_.at(1, 0));
}

TEST_F(PlannerServiceTest, ARestartGoesOnWhereTheLastRunEnded) {
    WidgetData before;
    {
        PlannerService service = start();
        service.open("kelmarplanner://timer/start?mins=50");
        service.setDone(published().today.front().id, true);
        service.setSchoolCalendarConnected(false);
        before = published();
    }
    storage_.published.clear();
    const PlannerService again = start();
    EXPECT_EQ(published(), before);
}

TEST_F(PlannerServiceTest, ASessionThatRanOutMeanwhileRingsAfterTheRestart) {
    {
        PlannerService service = start();
        service.open("kelmarplanner://timer/start?mins=15");
    }
    around_.clock.set(around_.at(0, 16));
    const PlannerService again = start();
    EXPECT_TRUE(published().timer->ringing);
}

TEST_F(PlannerServiceTest, AnUnusableStateIsLoggedAndANewWeekBegins) {
    storage_.state = "{\"version\": 1}";
    const PlannerService service = start();
    EXPECT_THAT(log_, ElementsAre(HasSubstr("unusable")));
    EXPECT_THAT(published().today, Not(IsEmpty()));
}

TEST_F(PlannerServiceTest, SigningOutIsPublishedAtOnce) {
    PlannerService service = start();
    service.setSignedIn(false);
    EXPECT_FALSE(published().signedIn);
}

}  // namespace
}  // namespace kelmar::demo
