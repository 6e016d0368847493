#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <memory>

#include "Host/HostParts.h"
#include "Host/TimelineSchedule.h"
#include "Host/WidgetHost.h"
#include "Kit/Archive.h"
#include "Kit/Metrics.h"
#include "Shared/SampleSnapshots.h"
#include "tests/Host/Fakes.h"
#include "tests/WholeHost/PlayedExtension.h"

namespace kelmar::host {
namespace {

using kelmar::testing::Machine;
using kelmar::testing::PlayedLauncher;
using kelmar::testing::PlayedProcess;

constexpr const char* newYork = "America/New_York";
constexpr const char* auckland = "Pacific/Auckland";

system::Date at(double seconds) {
    return system::Date::since1970(seconds);
}

/// A clock that reads the machine's.
class MachineClock final : public system::Clock {
public:
    explicit MachineClock(const Machine& machine) : machine_(machine) {}
    [[nodiscard]] system::Date now() const override { return machine_.now; }

private:
    const Machine& machine_;
};

/// What an extension that is started this moment would have the widget show.
kit::DrawnEntry freshEntry(const Machine& machine, const std::string& kind,
                           const kit::Environment& environment) {
    PlayedProcess process(machine);
    process.take(
        kit::encodeRequest({kit::MessageId(1), kit::EntryRequest{kit::EntryKind::timeline, kind,
                                                                 environment, false}}));
    process.run();
    const auto message = *kit::decodeMessage(process.said.at(0));
    const auto timeline =
        *kit::decodeTimeline(std::get<std::string>(std::get<kit::Response>(message).outcome));
    return timeline.entries.at(shownEntryIndex(timeline, machine.now)).view;
}

/// The four widgets on the desktop, with a school week around the moment at which they are placed.
class DaysTest : public ::testing::Test {
protected:
    void place(const char* timeZone, double now) {
        machine_.now = at(now);
        machine_.timeZone = timeZone;
        machine_.snapshot = shared::encodeSnapshot(
            shared::sample(machine_.now, *system::makeCalendar("en_US", timeZone)));
        host_ = std::make_unique<WidgetHost>(ExtensionFile{.executable = "/opt/planner-extension",
                                                           .urlScheme = "kelmarplanner",
                                                           .reloadOnChange = {}},
                                             HostParts{opener_, clock_, wallClockTimer_, timers_,
                                                       launcher_, fileWatch_, log_, HostLimits{}});
        for (const char* const kind : {"DueToday", "Schedule", "StudyTimer", "Streak"}) {
            ids_[kind] = host_->add(kind, medium_);
        }
        settle();
        expectWhatAFreshExtensionSays();
    }
    void settle() {
        do {
            timers_.runDue();
        } while (launcher_.run());
    }
    /// Time passes as it does when nobody touches the clock: the timer calls on the way.
    void liveUntil(double seconds) {
        while (wallClockTimer_.armedFor && *wallClockTimer_.armedFor <= at(seconds)) {
            ASSERT_GT(*wallClockTimer_.armedFor, machine_.now);
            machine_.now = *wallClockTimer_.armedFor;
            calledAt_.push_back(machine_.now.secondsSince1970());
            wallClockTimer_.reach();
            settle();
        }
        machine_.now = at(seconds);
    }
    void stepTo(double seconds) {
        machine_.now = at(seconds);
        wallClockTimer_.step();
        settle();
    }
    [[nodiscard]] std::map<std::string, kit::DrawnEntry> shown() const {
        std::map<std::string, kit::DrawnEntry> all;
        for (const auto& [kind, id] : ids_) {
            all.emplace(kind, host_->shownEntry(id)->view);
        }
        return all;
    }
    void expectWhatAFreshExtensionSays() const {
        for (const auto& [kind, id] : ids_) {
            EXPECT_FALSE(host_->showsPlaceholder(id)) << kind;
            EXPECT_EQ(kit::encodeDrawnEntry(host_->shownEntry(id)->view),
                      kit::encodeDrawnEntry(freshEntry(machine_, kind, medium_)))
                << kind << " at " << machine_.now.secondsSince1970();
        }
    }
    /// The widgets that show something else than they did.
    [[nodiscard]] std::vector<std::string> changedSince(
        const std::map<std::string, kit::DrawnEntry>& before) const {
        std::vector<std::string> kinds;
        for (const auto& [kind, view] : shown()) {
            if (!(view == before.at(kind))) {
                kinds.push_back(kind);
            }
        }
        return kinds;
    }
    void expectMidnight(double start, double midnight) {
        const auto before = shown();
        calledAt_.clear();
        liveUntil(midnight - 1);
        EXPECT_THAT(calledAt_, ::testing::Each(::testing::Lt(midnight)));
        ASSERT_EQ(wallClockTimer_.armedFor, at(midnight)) << (midnight - start) / 3600;
        liveUntil(midnight);
        expectWhatAFreshExtensionSays();
        EXPECT_THAT(changedSince(before), ::testing::Contains("DueToday"));
    }

    const kit::Environment medium_{.family = kit::Family::medium,
                                   .contentSize = kit::contentSize(kit::Family::medium),
                                   .renderingMode = kit::RenderingMode::fullColor};
    Machine machine_;
    MachineClock clock_{machine_};
    RecordingUrlOpener opener_;
    ManualWallClockTimer wallClockTimer_;
    ManualTimers timers_;
    PlayedLauncher launcher_{machine_};
    ManualFileWatch fileWatch_;
    RecordingLog log_;
    std::unique_ptr<WidgetHost> host_;
    std::map<std::string, WidgetId> ids_;
    std::vector<double> calledAt_;
};

constexpr double hour = 3'600;
/// Midnights in New York.
constexpr double beginOf8March2026 = 1'772'946'000;
constexpr double beginOf9March2026 = beginOf8March2026 + 23 * hour;
constexpr double beginOf1November2026 = 1'793'505'600;
constexpr double beginOf2November2026 = beginOf1November2026 + 25 * hour;
constexpr double beginOf9October2025 = 1'759'982'400;
constexpr double beginOf10October2025 = beginOf9October2025 + 24 * hour;

TEST_F(DaysTest, MidnightChangesTheWidgetsTogetherOnAnOrdinaryDay) {
    place(newYork, beginOf9October2025 + 9 * hour);
    expectMidnight(beginOf9October2025, beginOf10October2025);
}

TEST_F(DaysTest, ADayOf23HoursEndsAnHourEarlier) {
    place(newYork, beginOf8March2026 + hour);
    expectMidnight(beginOf8March2026, beginOf9March2026);
}

TEST_F(DaysTest, ADayOf25HoursEndsAnHourLater) {
    place(newYork, beginOf1November2026 + hour);
    expectMidnight(beginOf1November2026, beginOf2November2026);
}

TEST_F(DaysTest, EveryDayOfAMonthIsRight) {
    // From 9 October 2025 at 15:00, over the end of daylight saving time.
    constexpr double start = 1'760'036'400;
    place(newYork, start);
    for (int day = 1; day <= 31; ++day) {
        liveUntil(start + day * 86'400.0);
        expectWhatAFreshExtensionSays();
    }
    EXPECT_GE(calledAt_.size(), 31U);
}

TEST_F(DaysTest, NothingWakesTheHostOnceAnHourOrMore) {
    place(newYork, beginOf9October2025 + 9 * hour);
    liveUntil(beginOf10October2025 + 24 * hour);
    expectWhatAFreshExtensionSays();
    EXPECT_LT(calledAt_.size(), 48U);
    EXPECT_GE(calledAt_.size(), 2U);
}

TEST_F(DaysTest, AClockThatIsSetBackAnHourAcrossMidnightBringsYesterdayBack) {
    place(newYork, beginOf9October2025 + 23.25 * hour);
    const auto yesterday = shown();
    liveUntil(beginOf10October2025 + 0.5 * hour);
    EXPECT_THAT(changedSince(yesterday), ::testing::Contains("DueToday"));
    stepTo(beginOf10October2025 - 0.5 * hour);
    expectWhatAFreshExtensionSays();
    EXPECT_TRUE(shown().at("DueToday") == yesterday.at("DueToday"));
    expectMidnight(beginOf9October2025, beginOf10October2025);
}

TEST_F(DaysTest, AClockThatIsSetForwardIsFollowedAtOnce) {
    place(newYork, beginOf9October2025 + 9 * hour);
    const auto before = shown();
    stepTo(beginOf10October2025 + 9 * hour);
    expectWhatAFreshExtensionSays();
    EXPECT_THAT(changedSince(before), ::testing::Contains("DueToday"));
    EXPECT_GT(wallClockTimer_.armedFor, machine_.now);
}

TEST_F(DaysTest, AMachineThatSleptThroughTwoMidnightsShowsTheDayOnWhichItWakes) {
    place(newYork, beginOf9October2025 + 22 * hour);
    stepTo(beginOf10October2025 + 31 * hour);
    expectWhatAFreshExtensionSays();
}

TEST_F(DaysTest, ATimeZoneInWhichNoonIsYesterdayEveningIsFollowedAtOnce) {
    place(auckland, 1'759'964'400);  // noon of the 9th there, the evening of the 8th in New York
    const auto before = shown();
    machine_.timeZone = newYork;
    host_->renew(ReloadCause::timeZoneChanged);
    settle();
    EXPECT_EQ(launcher_.starts(), 2U);
    expectWhatAFreshExtensionSays();
    EXPECT_THAT(changedSince(before), ::testing::IsSupersetOf({"DueToday", "Schedule"}));
    liveUntil(beginOf9October2025 - 1);
    EXPECT_EQ(wallClockTimer_.armedFor, at(beginOf9October2025)) << "Their midnight, not ours";
    liveUntil(beginOf9October2025);
    expectWhatAFreshExtensionSays();
}

TEST_F(DaysTest, AnExtensionThatKeepsRunningWouldNotHaveNoticedTheZone) {
    place(auckland, 1'759'964'400);
    const auto before = shown();
    machine_.timeZone = newYork;
    host_->reloadAll();
    settle();
    EXPECT_TRUE(changedSince(before).empty());
}

}  // namespace
}  // namespace kelmar::host
