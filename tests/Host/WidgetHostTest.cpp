#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Host/WidgetHost.h"
#include "tests/Host/Contents.h"
#include "tests/Host/HostTest.h"

namespace kelmar::host {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

const kit::Environment small{
    .family = kit::Family::small, .contentSize = {138, 138}, .renderingMode = {}};
const kit::Environment large{
    .family = kit::Family::large, .contentSize = {332, 350}, .renderingMode = {}};

/// What one line to the extension asks for: "timeline Clock", "perform Tick".
std::string wordsOf(const kit::Request& request) {
    return std::visit(
        kit::Match{
            [](const kit::InitializeRequest&) -> std::string { return "initialize"; },
            [](const kit::EntryRequest& entry) {
                const auto* const kind = entry.entryKind == kit::EntryKind::timeline ? "timeline "
                                         : entry.entryKind == kit::EntryKind::snapshot
                                             ? "snapshot "
                                             : "placeholder ";
                return kind + entry.widgetKind;
            },
            [](const kit::ControlRequest& control) { return "control " + control.controlKind; },
            [](const kit::PerformRequest& perform) { return "perform " + perform.intent.name; },
            [](const kit::DiagnoseRequest&) -> std::string { return "diagnose"; },
            [](const kit::OpenRequest& open) { return "open " + open.url; },
        },
        request.body);
}

class WidgetHostTest : public HostTest {
protected:
    WidgetHostTest() {
        QObject::connect(&host_, &WidgetHost::entryChanged, &host_,
                         [this](WidgetId id) { changed_.push_back(id); });
        QObject::connect(&host_, &WidgetHost::bundleChanged, &host_, [this] { ++bundleChanges_; });
    }

    FakeProcess& process() { return launcher_.last(); }
    void introduce() { process().introduce(); }

    /// What the current process was asked since the last look.
    std::vector<std::string> newRequests() {
        std::vector<std::string> words;
        const auto requests = process().requests();
        if (lookedAt_ != &process()) {
            lookedAt_ = &process();
            looked_ = 0;
        }
        for (; looked_ < requests.size(); ++looked_) {
            words.push_back(wordsOf(requests[looked_]));
        }
        return words;
    }
    [[nodiscard]] std::size_t lastRequest() { return process().requests().size() - 1; }
    void answerLast(const kit::Timeline& timeline) {
        process().answer(lastRequest(), kit::encodeTimeline(timeline));
    }
    /// A widget that has its timeline.
    WidgetId place(const std::string& kind, const kit::Timeline& timeline) {
        const auto id = host_.add(kind, small);
        process().answer(lastRequest() - 1, kit::encodeEntry(entry(0, "placeholder")));
        answerLast(timeline);
        changed_.clear();
        static_cast<void>(newRequests());
        return id;
    }
    [[nodiscard]] std::string shown(WidgetId id) const {
        const auto* const entry = host_.shownEntry(id);
        return entry != nullptr ? textOf(*entry) : "nothing";
    }

    WidgetHost host_{{.executable = "/opt/clock-extension",
                      .urlScheme = "clock",
                      .reloadOnChange = {"/home/someone/clock.json"}},
                     parts_};
    std::vector<WidgetId> changed_;
    int bundleChanges_ = 0;
    FakeProcess* lookedAt_ = nullptr;
    std::size_t looked_ = 0;
};

TEST_F(WidgetHostTest, LearnsAtOnceWhatTheExtensionOffers) {
    EXPECT_EQ(host_.bundle(), std::nullopt);
    EXPECT_THAT(newRequests(), ElementsAre("initialize"));
    introduce();
    ASSERT_TRUE(host_.bundle());
    EXPECT_EQ(host_.bundle()->widgets[0].kind, "Clock");
    EXPECT_EQ(bundleChanges_, 1);
}

TEST_F(WidgetHostTest, TellsOfTheOfferOnlyWhenItIsAnother) {
    introduce();
    timers_.advance(2s);
    host_.add("Clock", small);
    introduce();
    EXPECT_EQ(bundleChanges_, 1);
    timers_.advance(5s);
    timers_.advance(1s);
    process().introduce({.widgets = {{"Moon", "", "", {}}}, .controls = {}});
    EXPECT_EQ(bundleChanges_, 2);
}

TEST_F(WidgetHostTest, WhereNothingIsOnTheDesktopTheOfferIsAskedForAgain) {
    introduce();
    const std::vector<std::function<void()>> occasions{
        fileWatch_.changed, [this] { host_.reloadAll(); },
        [this] { host_.renew(ReloadCause::localeChanged); }};
    for (const auto& occasion : occasions) {
        timers_.advance(2s);
        const auto starts = launcher_.starts();
        occasion();
        ASSERT_EQ(launcher_.starts(), starts + 1);
        EXPECT_THAT(newRequests(), ElementsAre("initialize"));
        introduce();
    }
}

TEST_F(WidgetHostTest, AReloadThatIsAskedForCutsALongPauseShort) {
    for (int failures = 0; failures < 6; ++failures) {
        process().die("ended");
        timers_.advance(5min);
    }
    process().die("ended");
    const auto starts = launcher_.starts();
    host_.reloadAll();
    timers_.advance(1s);
    EXPECT_EQ(launcher_.starts(), starts + 1);
}

TEST_F(WidgetHostTest, AWidgetShowsItsPlaceholderAndThenItsTimeline) {
    introduce();
    static_cast<void>(newRequests());
    const auto id = host_.add("Clock", small);
    EXPECT_EQ(shown(id), "nothing");
    EXPECT_THAT(newRequests(), ElementsAre("placeholder Clock", "timeline Clock"));
    process().answer(1, kit::encodeEntry(entry(0, "placeholder")));
    timers_.advance(50ms);
    EXPECT_EQ(shown(id), "placeholder");
    EXPECT_TRUE(host_.showsPlaceholder(id));
    EXPECT_THAT(changed_, ElementsAre(id));
    process().answer(2, kit::encodeTimeline(timeline({entry(900, "now")})));
    EXPECT_EQ(shown(id), "now");
    EXPECT_FALSE(host_.showsPlaceholder(id));
    EXPECT_THAT(changed_, ElementsAre(id, id));
}

TEST_F(WidgetHostTest, APlaceholderThatIsFollowedAtOnceIsNotToldOf) {
    introduce();
    const auto id = host_.add("Clock", small);
    const auto slow = host_.add("Clock", large);
    process().answer(1, kit::encodeEntry(entry(0, "placeholder")));
    process().answer(2, kit::encodeTimeline(timeline({entry(900, "now")})));
    process().answer(3, kit::encodeEntry(entry(0, "placeholder")));
    timers_.advance(49ms);
    EXPECT_THAT(changed_, ElementsAre(id));
    timers_.advance(1ms);
    EXPECT_THAT(changed_, ElementsAre(id, slow));
}

TEST_F(WidgetHostTest, AWidgetWithoutAnyAnswerIsToldOfAfterAMoment) {
    introduce();
    const auto id = host_.add("Clock", small);
    timers_.advance(49ms);
    EXPECT_TRUE(changed_.empty());
    timers_.advance(1ms);
    EXPECT_THAT(changed_, ElementsAre(id));
    EXPECT_EQ(shown(id), "nothing");
}

TEST_F(WidgetHostTest, NothingIsToldOfAPlaceholderWhoseWidgetHasGone) {
    introduce();
    const auto id = host_.add("Clock", small);
    process().answer(1, kit::encodeEntry(entry(0, "placeholder")));
    host_.remove(id);
    timers_.advance(1s);
    EXPECT_TRUE(changed_.empty());
}

TEST_F(WidgetHostTest, KnowsNothingOfWidgetsThatAreNotThere) {
    introduce();
    const auto id = place("Clock", timeline({entry(900, "now")}));
    host_.reload("Clock");
    host_.remove(id);
    EXPECT_EQ(host_.shownEntry(id), nullptr);
    EXPECT_FALSE(host_.showsPlaceholder(id));
    answerLast(timeline({entry(900, "late")}));
    host_.setEnvironment(id, large);
    host_.remove(id);
    EXPECT_THAT(changed_, IsEmpty());
    EXPECT_EQ(wallClockTimer_.armedFor, std::nullopt);
}

TEST_F(WidgetHostTest, ArmsTheOneTimerForTheNextDateOfAllWidgets) {
    introduce();
    place("Clock", timeline({entry(900, "a"), entry(3'000, "b")}));
    EXPECT_EQ(wallClockTimer_.armedFor, at(3'000));
    const auto second = place("Moon", timeline({entry(900, "c"), entry(2'000, "d")}));
    EXPECT_EQ(wallClockTimer_.armedFor, at(2'000));
    place("Sun", timeline({entry(900, "e")}, kit::ReloadAfter{at(2'500)}));
    EXPECT_EQ(wallClockTimer_.armedFor, at(2'000));
    host_.remove(second);
    EXPECT_EQ(wallClockTimer_.armedFor, at(2'500));
}

TEST_F(WidgetHostTest, ShowsTheNextEntryAtItsDate) {
    introduce();
    const auto first = place("Clock", timeline({entry(900, "a"), entry(2'000, "b")}));
    place("Moon", timeline({entry(900, "c"), entry(3'000, "d")}));
    clock_.set(at(2'000));
    wallClockTimer_.reach();
    EXPECT_EQ(shown(first), "b");
    EXPECT_THAT(changed_, ElementsAre(first));
    EXPECT_THAT(newRequests(), IsEmpty());
    EXPECT_EQ(wallClockTimer_.armedFor, at(3'000));
}

TEST_F(WidgetHostTest, ReloadsAWidgetAtThePolicysDate) {
    introduce();
    place("Clock", timeline({entry(900, "a")}, kit::ReloadAfter{at(2'000)}));
    place("Moon", timeline({entry(900, "b")}, kit::ReloadAfter{at(3'000)}));
    clock_.set(at(2'000));
    wallClockTimer_.reach();
    EXPECT_THAT(newRequests(), ElementsAre("timeline Clock"));
    EXPECT_EQ(wallClockTimer_.armedFor, at(3'000));
}

TEST_F(WidgetHostTest, AStepOfTheClockShowsTheRightEntryAndReloadsAll) {
    introduce();
    const auto id = place("Clock", timeline({entry(900, "a"), entry(2'000, "b")}));
    place("Moon", timeline({entry(900, "c")}));
    clock_.set(at(2'500));
    wallClockTimer_.step();
    EXPECT_EQ(shown(id), "b");
    EXPECT_THAT(newRequests(), UnorderedElementsAre("timeline Clock", "timeline Moon"));
    clock_.set(at(1'500));
    wallClockTimer_.step();
    EXPECT_EQ(shown(id), "a");
    EXPECT_EQ(wallClockTimer_.armedFor, at(2'000));
}

TEST_F(WidgetHostTest, TellsOfAStepOfTheClockButNotOfADateThatComes) {
    introduce();
    place("Clock", timeline({entry(900, "a"), entry(2'000, "b")}));
    int steps = 0;
    QObject::connect(&host_, &WidgetHost::clockStepped, &host_, [&steps] { ++steps; });
    clock_.set(at(2'000));
    wallClockTimer_.reach();
    EXPECT_EQ(steps, 0);
    clock_.set(at(1'500));
    wallClockTimer_.step();
    EXPECT_EQ(steps, 1);
}

TEST_F(WidgetHostTest, AStepOfTheClockBeyondThePolicysDateReloadsOnce) {
    introduce();
    place("Clock", timeline({entry(900, "a")}, kit::ReloadAfter{at(2'000)}));
    clock_.set(at(2'500));
    wallClockTimer_.step();
    EXPECT_THAT(newRequests(), ElementsAre("timeline Clock"));
    answerLast(timeline({entry(900, "a")}));
    EXPECT_THAT(newRequests(), IsEmpty());
}

TEST_F(WidgetHostTest, AnActionReloadsAllWidgetsWhenItHasEnded) {
    introduce();
    place("Clock", timeline({entry(900, "a")}));
    place("Moon", timeline({entry(900, "b")}));
    host_.perform({.name = "Tick", .parameters = {{"id", std::string("7")}}});
    EXPECT_THAT(newRequests(), ElementsAre("perform Tick"));
    process().answer(lastRequest(), kit::emptyResult);
    EXPECT_THAT(newRequests(), ElementsAre("timeline Clock", "timeline Moon"));
}

TEST_F(WidgetHostTest, AnActionThatFailsReloadsThemToo) {
    introduce();
    place("Clock", timeline({entry(900, "a")}));
    host_.perform({.name = "Tick", .parameters = {}});
    static_cast<void>(newRequests());
    process().answerWithError(lastRequest(), "the folder is missing");
    EXPECT_THAT(newRequests(), ElementsAre("timeline Clock"));
    EXPECT_THAT(log_.lines, ElementsAre(AllOf(HasSubstr("Tick"), HasSubstr("folder is missing"))));
}

TEST_F(WidgetHostTest, AnActionInWhichTheExtensionDiesIsNotRepeated) {
    introduce();
    place("Clock", timeline({entry(900, "a")}));
    host_.perform({.name = "Tick", .parameters = {}});
    process().die("was ended by signal 11");
    timers_.advance(1s);
    introduce();
    EXPECT_THAT(newRequests(), ElementsAre("initialize", "timeline Clock"));
    EXPECT_THAT(log_.lines, testing::Contains(HasSubstr("the action Tick failed")));
}

TEST_F(WidgetHostTest, ActionsReachTheExtensionInTheOrderPressed) {
    introduce();
    static_cast<void>(newRequests());
    host_.perform({.name = "Run", .parameters = {}});
    host_.perform({.name = "Pause", .parameters = {}});
    host_.perform({.name = "Run", .parameters = {}});
    EXPECT_THAT(newRequests(), ElementsAre("perform Run", "perform Pause", "perform Run"));
}

TEST_F(WidgetHostTest, AChangedFileReloadsAllWidgets) {
    introduce();
    place("Clock", timeline({entry(900, "a")}));
    EXPECT_THAT(fileWatch_.paths, ElementsAre("/home/someone/clock.json", "/opt/clock-extension"));
    fileWatch_.changed();
    EXPECT_THAT(newRequests(), ElementsAre("timeline Clock"));
}

TEST_F(WidgetHostTest, ReloadsOnlyTheWidgetsOfAKindWhenAskedSo) {
    introduce();
    place("Clock", timeline({entry(900, "a")}));
    place("Moon", timeline({entry(900, "b")}));
    place("Clock", timeline({entry(900, "c")}));
    host_.reload("Clock");
    EXPECT_THAT(newRequests(), ElementsAre("timeline Clock", "timeline Clock"));
    host_.reload("Sun");
    EXPECT_THAT(newRequests(), IsEmpty());
}

TEST_F(WidgetHostTest, ReloadsThatComeWhileOneIsOutstandingBecomeOneMore) {
    introduce();
    const auto id = place("Clock", timeline({entry(900, "a")}));
    host_.reloadAll();
    host_.reloadAll();
    fileWatch_.changed();
    EXPECT_THAT(newRequests(), ElementsAre("timeline Clock"));
    answerLast(timeline({entry(900, "b")}));
    EXPECT_EQ(shown(id), "b");
    EXPECT_THAT(newRequests(), ElementsAre("timeline Clock"));
    answerLast(timeline({entry(900, "c")}));
    EXPECT_EQ(shown(id), "c");
    EXPECT_THAT(newRequests(), IsEmpty());
}

TEST_F(WidgetHostTest, TellsOnlyOfEntriesThatLookDifferent) {
    introduce();
    const auto id = place("Clock", timeline({entry(900, "a")}));
    host_.reloadAll();
    answerLast(timeline({entry(950, "a")}));
    EXPECT_THAT(changed_, IsEmpty());
    host_.reloadAll();
    answerLast(timeline({entry(950, "b")}));
    EXPECT_THAT(changed_, ElementsAre(id));
}

TEST_F(WidgetHostTest, AnotherEnvironmentAsksForAnotherTimeline) {
    introduce();
    const auto id = place("Clock", timeline({entry(900, "small")}));
    host_.setEnvironment(id, small);
    EXPECT_THAT(newRequests(), IsEmpty());
    host_.setEnvironment(id, large);
    EXPECT_THAT(newRequests(), ElementsAre("timeline Clock"));
    const auto request = process().requests().back();
    EXPECT_EQ(std::get<kit::EntryRequest>(request.body).environment, large);
}

TEST_F(WidgetHostTest, AnotherEnvironmentAsksForAnotherPlaceholderWhileThereIsNoTimeline) {
    introduce();
    const auto id = host_.add("Clock", small);
    process().answer(1, kit::encodeEntry(entry(0, "small placeholder")));
    host_.setEnvironment(id, large);
    process().answerWithError(2, "not yet");
    static_cast<void>(newRequests());
    process().answer(3, kit::encodeEntry(entry(0, "large placeholder")));
    EXPECT_EQ(shown(id), "large placeholder");
    EXPECT_TRUE(host_.showsPlaceholder(id));
}

TEST_F(WidgetHostTest, ATimelineForAnEarlierEnvironmentIsNotShown) {
    introduce();
    const auto id = place("Clock", timeline({entry(900, "old")}));
    host_.reloadAll();
    host_.setEnvironment(id, large);
    answerLast(timeline({entry(900, "small")}));
    EXPECT_EQ(shown(id), "old");
    static_cast<void>(newRequests());
    answerLast(timeline({entry(900, "large")}));
    EXPECT_EQ(shown(id), "large");
}

TEST_F(WidgetHostTest, ARefusedTimelineLeavesTheLastGoodOneAndIsAskedForLater) {
    introduce();
    const auto id = place("Clock", timeline({entry(900, "good")}));
    auto foreign = entry(900, "bad");
    foreign.view.widgetUrl = "https://example.org";
    host_.reloadAll();
    answerLast(timeline({foreign}));
    EXPECT_EQ(shown(id), "good");
    EXPECT_THAT(changed_, IsEmpty());
    EXPECT_THAT(log_.lines, ElementsAre(AllOf(HasSubstr("Clock (small)"), HasSubstr("refused"),
                                              HasSubstr("https://example.org"),
                                              HasSubstr("what it showed before"))));
    EXPECT_EQ(wallClockTimer_.armedFor, at(1'001));
    static_cast<void>(newRequests());
    clock_.set(at(1'001));
    wallClockTimer_.reach();
    EXPECT_THAT(newRequests(), ElementsAre("timeline Clock"));
    process().answerWithError(lastRequest(), "no such widget");
    EXPECT_EQ(wallClockTimer_.armedFor, at(1'003));
    EXPECT_THAT(log_.lines.back(), HasSubstr("no such widget"));
}

TEST_F(WidgetHostTest, ARefusedPlaceholderLeavesNothing) {
    introduce();
    const auto id = host_.add("Clock", small);
    process().answer(1, "{}");
    EXPECT_EQ(shown(id), "nothing");
    EXPECT_THAT(log_.lines, ElementsAre(AllOf(HasSubstr("placeholder is refused"),
                                              HasSubstr("showing nothing"))));
    process().answerWithError(2, "no such widget");
    EXPECT_THAT(log_.lines.back(), AllOf(HasSubstr("timeline"), HasSubstr("showing nothing")));
    static_cast<void>(newRequests());
    clock_.set(at(1'001));
    wallClockTimer_.reach();
    EXPECT_THAT(newRequests(), ElementsAre("placeholder Clock", "timeline Clock"));
    process().answer(lastRequest() - 1, "{}");
    process().answerWithError(lastRequest(), "no such widget");
    EXPECT_THAT(log_.lines, SizeIs(2)) << "The same once more is no news";
}

TEST_F(WidgetHostTest, AsksAnewForWhatADeadExtensionOwes) {
    introduce();
    const auto clock = place("Clock", timeline({entry(900, "good")}));
    host_.add("Moon", small);
    host_.reloadAll();
    process().die("ended with exit status 70");
    EXPECT_EQ(shown(clock), "good");
    timers_.advance(1s);
    introduce();
    EXPECT_THAT(newRequests(),
                ElementsAre("initialize", "timeline Moon", "timeline Clock", "placeholder Moon"));
}

TEST_F(WidgetHostTest, KnowsSinceWhenAWidgetIsOutdated) {
    introduce();
    const auto clock = place("Clock", timeline({entry(900, "good")}));
    EXPECT_EQ(host_.outdatedSince(clock), std::nullopt);
    EXPECT_EQ(host_.outdatedSince(clock + 1), std::nullopt);
    clock_.set(at(2'000));
    host_.reloadAll();
    process().die("was ended by signal 9");
    EXPECT_EQ(shown(clock), "good");
    EXPECT_EQ(host_.outdatedSince(clock), at(1'000));
    timers_.advance(1s);
    introduce();
    answerLast(timeline({entry(900, "better")}));
    EXPECT_EQ(shown(clock), "better");
    EXPECT_EQ(host_.outdatedSince(clock), std::nullopt);
    host_.reloadAll();
    process().answer(lastRequest(), "{}");
    EXPECT_EQ(host_.outdatedSince(clock), at(2'000)) << "What is refused is no update";
}

TEST_F(WidgetHostTest, OneWidgetThatKillsTheExtensionDoesNotKeepTheOthersFromTheirContent) {
    introduce();
    const auto killer = host_.add("Killer", small);
    const auto clock = host_.add("Clock", small);
    for (int rounds = 0; rounds < 10 && shown(clock) != "good"; ++rounds) {
        // The extension answers in the order asked and dies of every request for the killer.
        for (std::size_t index = 1; process().listener != nullptr && index <= lastRequest();
             ++index) {
            const auto words = wordsOf(process().requests()[index]);
            if (words.ends_with("Killer")) {
                process().die("was ended by signal 11");
            } else if (words == "timeline Clock") {
                process().answer(index, kit::encodeTimeline(timeline({entry(900, "good")})));
            } else {
                process().answer(index, kit::encodeEntry(entry(0, "placeholder")));
            }
        }
        const auto starts = launcher_.starts();
        for (int seconds = 0; seconds < 300 && launcher_.starts() == starts; ++seconds) {
            timers_.advance(1s);
        }
        introduce();
    }
    EXPECT_EQ(shown(clock), "good");
    EXPECT_EQ(shown(killer), "nothing");
}

TEST_F(WidgetHostTest, LetsGoOfItsSurroundings) {
    ManualFileWatch fileWatch;
    ManualWallClockTimer wallClockTimer;
    ManualTimers timers;
    FakeLauncher launcher;
    {
        WidgetHost host({.executable = "/opt/other", .urlScheme = "x", .reloadOnChange = {"/y"}},
                        HostParts{opener_, clock_, wallClockTimer, timers, launcher, fileWatch,
                                  log_, HostLimits{}});
        host.add("Clock", small);
        host.openLink("x://y");
    }
    EXPECT_THAT(fileWatch.paths, IsEmpty());
    fileWatch.changed();
    wallClockTimer.step();
    opener_.calls.at(0).completed("too late");
    timers.advance(1h);
    EXPECT_EQ(launcher.starts(), 1U);
    EXPECT_EQ(launcher.last().ending, Ending::gently);
    EXPECT_THAT(log_.lines, IsEmpty());
}

TEST_F(WidgetHostTest, OpensALinkThatWasPressedInFront) {
    host_.openLink("clock://now");
    ASSERT_THAT(opener_.urls(), ElementsAre("clock://now"));
    EXPECT_TRUE(opener_.calls[0].options.activates);
    EXPECT_FALSE(opener_.calls[0].options.addsToRecentItems);
    opener_.calls[0].completed("no application is registered");
    EXPECT_THAT(log_.lines, ElementsAre("clock://now is not opened: no application is registered"));
}

TEST_F(WidgetHostTest, OpensNoForeignLink) {
    host_.openLink("https://example.org");
    EXPECT_THAT(opener_.urls(), IsEmpty());
    EXPECT_THAT(log_.lines, ElementsAre(HasSubstr("https://example.org")));
}

class PreviewTest : public WidgetHostTest {
protected:
    void request() {
        host_.requestPreview("Clock", large, [this](const system::Result<kit::Entry>& answer) {
            answers_.push_back(answer ? textOf(*answer) : "failed: " + answer.failure().reason);
        });
    }
    std::vector<std::string> answers_;
};

TEST_F(PreviewTest, IsASnapshotForThePreview) {
    introduce();
    request();
    const auto sent = std::get<kit::EntryRequest>(process().requests().back().body);
    EXPECT_EQ(sent, (kit::EntryRequest{kit::EntryKind::snapshot, "Clock", large, true}));
    process().answer(lastRequest(), kit::encodeEntry(entry(0, "sample")));
    EXPECT_THAT(answers_, ElementsAre("sample"));
}

TEST_F(PreviewTest, FailsWithTheReason) {
    introduce();
    request();
    process().answerWithError(lastRequest(), "no such widget");
    request();
    process().answer(lastRequest(), "{}");
    request();
    process().die("ended");
    ASSERT_THAT(answers_, SizeIs(3));
    EXPECT_EQ(answers_[0], "failed: no such widget");
    EXPECT_THAT(answers_[1], HasSubstr("failed: "));
    EXPECT_EQ(answers_[2], "failed: it ended");
}

TEST_F(WidgetHostTest, WidgetsMayGoAndComeWhileTheyAreToldOfChanges) {
    introduce();
    const auto first = place("Clock", timeline({entry(900, "a"), entry(2'000, "b")}));
    const auto second = place("Moon", timeline({entry(900, "c"), entry(2'000, "d")}));
    QObject::connect(&host_, &WidgetHost::entryChanged, &host_, [&] {
        host_.remove(first);
        host_.remove(second);
        host_.add("Sun", small);
    });
    clock_.set(at(2'000));
    wallClockTimer_.reach();
    EXPECT_THAT(changed_, ElementsAre(first));
    EXPECT_THAT(newRequests(), ElementsAre("placeholder Sun", "timeline Sun"));
}

}  // namespace
}  // namespace kelmar::host
