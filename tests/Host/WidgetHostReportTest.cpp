#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Host/WidgetHost.h"
#include "tests/Host/Contents.h"
#include "tests/Host/HostTest.h"

namespace kelmar::host {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const kit::Environment small{
    .family = kit::Family::small, .contentSize = {138, 138}, .renderingMode = {}};

/// A host with one widget, which was placed at 1000 and gets its answers by hand.
class WidgetHostReportTest : public HostTest {
protected:
    WidgetHostReportTest() {
        launcher_.last().introduce({.widgets = {{"Clock", "", "", {}}}, .controls = {}});
        id_ = host_.add("Clock", small);
    }

    [[nodiscard]] WidgetReport report() const { return host_.report(id_).value(); }
    [[nodiscard]] ReloadRecord last() const { return report().lastReload.value(); }
    void answerLast(const kit::Timeline& timeline) {
        launcher_.last().answer(launcher_.last().requests().size() - 1,
                                kit::encodeTimeline(timeline));
    }

    WidgetHost host_{
        {.executable = "/opt/clock-extension", .urlScheme = "clock", .reloadOnChange = {}}, parts_};
    WidgetId id_ = 0;
};

TEST_F(WidgetHostReportTest, SaysNothingOfAWidgetThatIsNotThere) {
    host_.remove(id_);
    EXPECT_EQ(host_.report(id_), std::nullopt);
}

TEST_F(WidgetHostReportTest, BeforeAnyAnswerItShowsNothing) {
    timers_.advance(2s);
    EXPECT_EQ(report().content, WidgetContent::nothing);
    EXPECT_EQ(report().entry, std::nullopt);
    EXPECT_EQ(last(), (ReloadRecord{.cause = ReloadCause::placed,
                                    .began = at(1'000),
                                    .outcome = ReloadOutcome::underWay,
                                    .duration = 2s,
                                    .reason = ""}));
}

TEST_F(WidgetHostReportTest, WithoutAGoodTimelineItShowsThePlaceholder) {
    launcher_.last().answer(1, kit::encodeEntry(entry(0, "placeholder")));
    launcher_.last().answerWithError(2, "no time");
    EXPECT_EQ(report().content, WidgetContent::placeholder);
    EXPECT_EQ(last().outcome, ReloadOutcome::refused);
    EXPECT_EQ(last().reason, "no time");
}

TEST_F(WidgetHostReportTest, TellsTheEntryAndWhatComesNext) {
    timers_.advance(250ms);
    answerLast(timeline({entry(900, "a"), entry(950, "b"), entry(2'000, "c")},
                        kit::ReloadAfter{at(3'000)}));
    EXPECT_EQ(report().content, WidgetContent::timeline);
    EXPECT_EQ(report().entry, (WidgetReport::Entry{.index = 1, .count = 3, .date = at(950)}));
    EXPECT_THAT(report().why, HasSubstr("whose date has come"));
    EXPECT_EQ(report().nextEntry, at(2'000));
    EXPECT_EQ(report().nextReload, at(3'000));
    EXPECT_EQ(last().outcome, ReloadOutcome::taken);
    EXPECT_EQ(last().duration, 250ms);
}

TEST_F(WidgetHostReportTest, AnEntryThatShowsBeforeItsDateIsExplained) {
    answerLast(timeline({entry(1'500, "a")}));
    EXPECT_THAT(report().why, HasSubstr("No entry's date has come"));
    EXPECT_EQ(report().nextReload, std::nullopt);
}

TEST_F(WidgetHostReportTest, EveryReloadHasItsCause) {
    const kit::Timeline good = timeline({entry(900, "a")}, kit::ReloadAfter{at(1'100)});
    launcher_.last().answer(1, kit::encodeEntry(entry(0, "placeholder")));
    answerLast(good);
    const auto causeAfter = [&](const auto& happening) {
        happening();
        const auto cause = last().cause;
        EXPECT_EQ(last().outcome, ReloadOutcome::underWay);
        answerLast(good);
        EXPECT_EQ(last().outcome, ReloadOutcome::taken);
        return cause;
    };
    EXPECT_EQ(causeAfter([&] { fileWatch_.changed(); }), ReloadCause::fileChanged);
    EXPECT_EQ(causeAfter([&] { host_.reload("Clock"); }), ReloadCause::asked);
    EXPECT_EQ(causeAfter([&] { host_.reloadAll(); }), ReloadCause::asked);
    EXPECT_EQ(causeAfter([&] { wallClockTimer_.step(); }), ReloadCause::clockStepped);
    EXPECT_EQ(causeAfter([&] {
                  host_.perform({.name = "Tick", .parameters = {}});
                  launcher_.last().answer(launcher_.last().requests().size() - 1, "{}");
              }),
              ReloadCause::action);
    EXPECT_EQ(causeAfter([&] {
                  clock_.set(at(1'100));
                  wallClockTimer_.reach();
              }),
              ReloadCause::policyDate);
    EXPECT_EQ(causeAfter([&] {
                  host_.renew(ReloadCause::timeZoneChanged);
                  timers_.runDue();
                  launcher_.last().introduce();
              }),
              ReloadCause::timeZoneChanged);
    EXPECT_EQ(
        causeAfter([&] {
            host_.setEnvironment(id_, {.family = kit::Family::large, .contentSize = {332, 350}});
        }),
        ReloadCause::environment);
}

TEST_F(WidgetHostReportTest, TheRetryAfterARefusalIsNotTakenForTheTimelinesWish) {
    launcher_.last().answerWithError(2, "no time");
    clock_.set(at(1'001));
    wallClockTimer_.reach();
    EXPECT_EQ(last().cause, ReloadCause::refusedBefore);
}

TEST_F(WidgetHostReportTest, AReloadThatWaitedForAnotherKeepsItsOwnCause) {
    fileWatch_.changed();
    EXPECT_EQ(last().cause, ReloadCause::placed);
    answerLast(timeline({entry(900, "a")}));
    EXPECT_EQ(last().cause, ReloadCause::fileChanged);
}

TEST_F(WidgetHostReportTest, ADyingExtensionIsWhyTheTimelineIsNotThereYet) {
    launcher_.last().die("was ended by signal 9");
    EXPECT_EQ(last().outcome, ReloadOutcome::underWay);
    EXPECT_EQ(last().reason, "it was ended by signal 9");
}

TEST_F(WidgetHostReportTest, TheExtensionItselfSaysWhatIsWrong) {
    std::vector<std::string> findings{"not answered"};
    host_.diagnose([&](const auto& answer) { findings = *answer; });
    launcher_.last().answer(3, kit::encodeFindings({"the file is torn"}));
    EXPECT_THAT(findings, ElementsAre("the file is torn"));
    host_.diagnose([&](const auto& answer) { findings = *answer; });
    launcher_.last().answer(4, kit::encodeFindings({}));
    EXPECT_THAT(findings, IsEmpty());
}

TEST_F(WidgetHostReportTest, AnExtensionThatDoesNotKnowTheQuestionIsNotTakenForAHealthyOne) {
    std::vector<std::string> reasons;
    const auto note = [&](const system::Result<std::vector<std::string>>& answer) {
        reasons.push_back(answer ? "no reason" : answer.failure().reason);
    };
    host_.diagnose(note);
    launcher_.last().answerWithError(3, "There is no method.");
    host_.diagnose(note);
    launcher_.last().answer(4, R"({"findings":7})");
    EXPECT_THAT(reasons, ElementsAre("There is no method.", HasSubstr("findings")));
}

}  // namespace
}  // namespace kelmar::host
