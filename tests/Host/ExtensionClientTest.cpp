#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Host/ExtensionClient.h"
#include "tests/Host/Fakes.h"

namespace kelmar::host {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

const kit::Bundle bundle{.widgets = {{"Clock", "Clock", "Tells the time", {}}}, .controls = {}};

class ExtensionClientTest : public testing::Test {
protected:
    void ask(const std::string& kind, Patience patience = Patience::lasting) {
        client_.request({kit::ControlRequest{kind, false}, patience,
                         [this, kind](const RequestOutcome& outcome) {
                             outcomes_.push_back(
                                 outcome ? kind + "=" + *outcome
                                 : outcome.failure().kind == RequestFailure::Kind::refused
                                     ? kind + " refused: " + outcome.failure().reason
                                     : kind + " unavailable: " + outcome.failure().reason);
                         }});
    }
    /// A process that has introduced itself and waits for work.
    FakeProcess& ready() {
        client_.introduce();
        launcher_.last().introduce(bundle);
        return launcher_.last();
    }
    /// The kinds that a process was asked for.
    [[nodiscard]] static std::vector<std::string> askedOf(const FakeProcess& process) {
        std::vector<std::string> kinds;
        for (const auto& request : process.requests()) {
            if (const auto* const control = std::get_if<kit::ControlRequest>(&request.body)) {
                kinds.push_back(control->controlKind);
            }
        }
        return kinds;
    }

    FakeLauncher launcher_;
    RecordingUrlOpener opener_;
    ManualTimers timers_;
    RecordingLog log_;
    UrlGate gate_{opener_, "clock"};
    std::vector<kit::Bundle> bundles_;
    ExtensionClient client_{{launcher_, gate_, timers_, log_, HostLimits{}, "clock-extension"},
                            [this](kit::Bundle any) { bundles_.push_back(std::move(any)); }};
    std::vector<std::string> outcomes_;
};

TEST_F(ExtensionClientTest, StartsNothingBeforeItIsAsked) {
    timers_.advance(1h);
    EXPECT_EQ(launcher_.starts(), 0U);
    EXPECT_EQ(timers_.armed(), 0);
}

TEST_F(ExtensionClientTest, InitializesBeforeEverythingElse) {
    ask("a");
    ASSERT_EQ(launcher_.starts(), 1U);
    const auto requests = launcher_.last().requests();
    ASSERT_FALSE(requests.empty());
    EXPECT_EQ(requests[0].body, (kit::RequestBody{kit::InitializeRequest{"26.0.0"}}));
    launcher_.last().introduce(bundle);
    EXPECT_THAT(bundles_, ElementsAre(bundle));
    EXPECT_THAT(askedOf(launcher_.last()), ElementsAre("a"));
}

TEST_F(ExtensionClientTest, AnExtensionThatOffersNoWidgetsHasFailedAndIsAskedAgain) {
    client_.introduce();
    launcher_.last().introduce({});
    EXPECT_THAT(bundles_, IsEmpty());
    EXPECT_THAT(log_.lines, ElementsAre("clock-extension: offers no widgets; not started again "
                                        "before 1 s"));
    timers_.advance(1s);
    ASSERT_EQ(launcher_.starts(), 2U);
    launcher_.last().introduce(bundle);
    EXPECT_THAT(bundles_, ElementsAre(bundle));
}

TEST_F(ExtensionClientTest, IntroducesItselfAgainWhenItsProcessHasEnded) {
    ready();
    client_.introduce();
    EXPECT_EQ(launcher_.starts(), 1U) << "The process that runs has done so";
    timers_.advance(2s);
    client_.introduce();
    EXPECT_EQ(launcher_.starts(), 2U);
    launcher_.last().introduce(bundle);
    EXPECT_THAT(bundles_, SizeIs(2));
    timers_.advance(2s);
    EXPECT_EQ(launcher_.last().ending, Ending::gently);
}

TEST_F(ExtensionClientTest, AnUpdatedProgramIntroducesItselfWhateverTheOldOneIsBusyWith) {
    client_.introduce();
    auto& old = launcher_.last();
    old.isOutdated = true;
    client_.introduce();
    old.introduce(bundle);
    EXPECT_EQ(old.ending, Ending::gently);
    ASSERT_EQ(launcher_.starts(), 2U);
    launcher_.last().introduce(bundle);
    EXPECT_THAT(bundles_, SizeIs(2));
    EXPECT_EQ(launcher_.starts(), 2U);
}

TEST_F(ExtensionClientTest, ASlowStartIsNotCountedAgainstWhatWasAskedBefore) {
    ask("a");
    timers_.advance(4s);
    launcher_.last().introduce(bundle);
    timers_.advance(4s);
    EXPECT_THAT(log_.lines, IsEmpty());
    timers_.advance(1s);
    EXPECT_THAT(log_.lines, ElementsAre(HasSubstr("did not answer for the value of a within 5 s")));
}

TEST_F(ExtensionClientTest, OnlyWhoAsksAgainAsksBeforeTheExtensionHasIntroducedItself) {
    ask("a");
    ask("press", Patience::brief);
    ask("b");
    EXPECT_THAT(askedOf(launcher_.last()), ElementsAre("a"));
    launcher_.last().introduce(bundle);
    EXPECT_THAT(askedOf(launcher_.last()), ElementsAre("a", "press", "b"));
}

TEST_F(ExtensionClientTest, MatchesAnswersToRequestsWhateverTheirOrder) {
    ready();
    ask("a");
    ask("b");
    auto& process = launcher_.last();
    EXPECT_THAT(askedOf(process), ElementsAre("a", "b"));
    process.answer(2, "2");
    process.answerWithError(1, "no such control");
    EXPECT_THAT(outcomes_, ElementsAre("b=2", "a refused: no such control"));
}

TEST_F(ExtensionClientTest, EndsTheProcessTwoIdleSecondsAfterTheLastAnswer) {
    auto& process = ready();
    timers_.advance(1'500ms);
    ask("a");
    timers_.advance(3s);
    EXPECT_EQ(process.ending, std::nullopt) << "It is not idle while it owes an answer";
    process.answer(1, "1");
    timers_.advance(1'999ms);
    EXPECT_EQ(process.ending, std::nullopt);
    timers_.advance(1ms);
    EXPECT_EQ(process.ending, Ending::gently);
    EXPECT_EQ(timers_.armed(), 0);
    EXPECT_THAT(log_.lines, IsEmpty());
}

TEST_F(ExtensionClientTest, StartsAgainOnDemandAfterTheIdleEnd) {
    ready();
    timers_.advance(2s);
    ask("a");
    ASSERT_EQ(launcher_.starts(), 2U);
    launcher_.last().introduce(bundle);
    launcher_.last().answer(1, "1");
    EXPECT_THAT(outcomes_, ElementsAre("a=1"));
    EXPECT_THAT(bundles_, SizeIs(2)) << "A new process may offer something else";
}

TEST_F(ExtensionClientTest, AnUpdatedProgramAnswersTheNextRequest) {
    auto& old = ready();
    old.isOutdated = true;
    timers_.advance(1s);
    EXPECT_EQ(old.ending, std::nullopt) << "Nothing is asked";
    ask("a");
    EXPECT_EQ(old.ending, Ending::gently);
    ASSERT_EQ(launcher_.starts(), 2U);
    launcher_.last().introduce(bundle);
    launcher_.last().answer(1, "1");
    EXPECT_THAT(outcomes_, ElementsAre("a=1"));
    EXPECT_THAT(log_.lines, ElementsAre(HasSubstr("its program was updated")));
}

TEST_F(ExtensionClientTest, AnOutdatedProcessFirstAnswersWhatItWasAsked) {
    auto& old = ready();
    ask("a");
    old.isOutdated = true;
    ask("b");
    EXPECT_THAT(askedOf(old), ElementsAre("a"));
    EXPECT_EQ(launcher_.starts(), 1U);
    old.answer(1, "1");
    EXPECT_EQ(old.ending, Ending::gently);
    ASSERT_EQ(launcher_.starts(), 2U);
    launcher_.last().introduce(bundle);
    EXPECT_THAT(askedOf(launcher_.last()), ElementsAre("b"));
    EXPECT_THAT(outcomes_, ElementsAre("a=1"));
}

TEST_F(ExtensionClientTest, AnOutdatedProcessThatNeverAnswersIsReplacedAllTheSame) {
    auto& old = ready();
    ask("a");
    old.isOutdated = true;
    ask("b");
    timers_.advance(5s);
    EXPECT_EQ(old.ending, Ending::atOnce);
    timers_.advance(1s);
    launcher_.last().introduce(bundle);
    EXPECT_THAT(askedOf(launcher_.last()), ElementsAre("b"));
}

TEST_F(ExtensionClientTest, AProgramThatIsUpdatedWhileItStartsIsReplacedBeforeItIsAsked) {
    client_.introduce();
    auto& old = launcher_.last();
    ask("a", Patience::brief);
    old.isOutdated = true;
    old.introduce(bundle);
    EXPECT_EQ(old.ending, Ending::gently);
    EXPECT_THAT(askedOf(old), IsEmpty());
    launcher_.last().introduce(bundle);
    EXPECT_THAT(askedOf(launcher_.last()), ElementsAre("a"));
}

TEST_F(ExtensionClientTest, AProcessThatIsOutOfDateIsAskedNothingMore) {
    auto& first = ready();
    client_.replaceProcess();
    ask("a");
    timers_.runDue();
    EXPECT_EQ(first.ending, Ending::gently);
    ASSERT_EQ(launcher_.starts(), 2U);
    launcher_.last().introduce(bundle);
    EXPECT_THAT(askedOf(first), IsEmpty());
    EXPECT_THAT(askedOf(launcher_.last()), ElementsAre("a"));
    EXPECT_THAT(log_.lines, IsEmpty());
}

TEST_F(ExtensionClientTest, AProcessThatIsOutOfDateAnswersFirstWhatItWasAsked) {
    auto& first = ready();
    ask("a");
    client_.replaceProcess();
    ask("b");
    timers_.runDue();
    EXPECT_EQ(first.ending, std::nullopt);
    first.answer(1, "1");
    timers_.runDue();
    EXPECT_EQ(first.ending, Ending::gently);
    launcher_.last().introduce(bundle);
    launcher_.last().answer(1, "2");
    EXPECT_THAT(outcomes_, ElementsAre("a=1", "b=2"));
}

TEST_F(ExtensionClientTest, AProcessThatGoesOutOfDateWhileItIntroducesItselfIsReplacedToo) {
    client_.introduce();
    client_.replaceProcess();
    ask("a");
    launcher_.last().introduce(bundle);
    timers_.runDue();
    ASSERT_EQ(launcher_.starts(), 2U);
    launcher_.last().introduce(bundle);
    EXPECT_THAT(askedOf(launcher_.last()), ElementsAre("a"));
}

TEST_F(ExtensionClientTest, AProcessThatIsOutOfDateAndHangsIsReplacedAsAnyOther) {
    ready();
    ask("a");
    client_.replaceProcess();
    timers_.advance(5s);
    timers_.advance(1s);
    ASSERT_EQ(launcher_.starts(), 1U) << "Nothing was asked since";
    ask("b");
    ASSERT_EQ(launcher_.starts(), 2U);
    launcher_.last().introduce(bundle);
    timers_.runDue();
    EXPECT_THAT(askedOf(launcher_.last()), ElementsAre("b"));
    EXPECT_EQ(launcher_.starts(), 2U);
}

TEST_F(ExtensionClientTest, WithoutAProcessNoneIsOutOfDate) {
    ready();
    timers_.advance(2s);
    client_.replaceProcess();
    timers_.runDue();
    EXPECT_EQ(launcher_.starts(), 1U);
    ask("a");
    launcher_.last().introduce(bundle);
    EXPECT_THAT(askedOf(launcher_.last()), ElementsAre("a"));
    EXPECT_EQ(launcher_.starts(), 2U);
}

TEST_F(ExtensionClientTest, KillsAProcessThatDoesNotAnswerWithinFiveSeconds) {
    auto& process = ready();
    ask("a");
    timers_.advance(4'999ms);
    EXPECT_EQ(process.ending, std::nullopt);
    timers_.advance(1ms);
    EXPECT_EQ(process.ending, Ending::atOnce);
    EXPECT_THAT(outcomes_,
                ElementsAre("a unavailable: it did not answer for the value of a within 5 s"));
    EXPECT_THAT(log_.lines, ElementsAre("clock-extension: did not answer for the value of a within "
                                        "5 s; not started again before 1 s"));
}

TEST_F(ExtensionClientTest, KillsAProcessThatNeverIntroducesItself) {
    client_.introduce();
    timers_.advance(5s);
    EXPECT_EQ(launcher_.last().ending, Ending::atOnce);
    EXPECT_THAT(log_.lines, ElementsAre(HasSubstr("did not answer for its start within 5 s")));
    timers_.advance(1s);
    EXPECT_EQ(launcher_.starts(), 2U) << "What it offers is still unknown";
}

TEST_F(ExtensionClientTest, TimeInWhichItsUrlIsOpenedDoesNotCount) {
    auto& process = ready();
    ask("a");
    timers_.advance(3s);
    process.askToOpen(7, "clock://slow");
    timers_.advance(1min);
    EXPECT_EQ(process.ending, std::nullopt);
    opener_.calls.at(0).completed("");
    timers_.advance(1'999ms);
    EXPECT_EQ(process.ending, std::nullopt);
    timers_.advance(1ms);
    EXPECT_EQ(process.ending, Ending::atOnce);
}

TEST_F(ExtensionClientTest, ReplacesADeadProcessAfterTheBackOffIfSomethingIsWanted) {
    ready().die("ended with exit status 70");
    timers_.advance(1h);
    EXPECT_EQ(launcher_.starts(), 1U) << "Nothing is wanted";
    ask("a");
    EXPECT_EQ(launcher_.starts(), 2U) << "The back-off is long over";
}

TEST_F(ExtensionClientTest, BacksOffOneSecondDoublingToFiveMinutes) {
    ask("a");
    std::vector<int> seconds;
    while (seconds.size() < 11) {
        launcher_.last().die("ended");
        const auto starts = launcher_.starts();
        int waited = 0;
        while (launcher_.starts() == starts && waited < 1'000) {
            timers_.advance(1s);
            ++waited;
        }
        seconds.push_back(waited);
    }
    EXPECT_THAT(seconds, ElementsAre(1, 2, 4, 8, 16, 32, 64, 128, 256, 300, 300));
}

TEST_F(ExtensionClientTest, IntroducingItselfIsNoSuccessButAnsweringIs) {
    ask("a");
    launcher_.last().die("ended");
    timers_.advance(1s);
    launcher_.last().introduce(bundle);
    launcher_.last().die("ended");
    timers_.advance(1'999ms);
    EXPECT_EQ(launcher_.starts(), 2U);
    ask("b");
    timers_.advance(1ms);
    ASSERT_EQ(launcher_.starts(), 3U);
    launcher_.last().introduce(bundle);
    launcher_.last().answer(1, "1");
    EXPECT_EQ(log_.lines.back(), "clock-extension: answers again");
    ask("c");
    launcher_.last().die("ended");
    ask("d");
    timers_.advance(1s);
    EXPECT_EQ(launcher_.starts(), 4U) << "The back-off has begun anew";
}

TEST_F(ExtensionClientTest, WhatIsAskedWhileItIsDownWaitsInOrder) {
    ready().die("ended");
    ask("a");
    ask("b");
    EXPECT_EQ(launcher_.starts(), 1U);
    timers_.advance(1s);
    launcher_.last().introduce(bundle);
    EXPECT_THAT(askedOf(launcher_.last()), ElementsAre("a", "b"));
}

TEST_F(ExtensionClientTest, TellsAllThatAreUnansweredTheOldestLast) {
    auto& process = ready();
    ask("a");
    ask("b");
    ask("c");
    process.die("was ended by signal 11");
    EXPECT_THAT(outcomes_, ElementsAre("b unavailable: it was ended by signal 11",
                                       "c unavailable: it was ended by signal 11",
                                       "a unavailable: it was ended by signal 11"));
}

TEST_F(ExtensionClientTest, ThoseInAHurryWaitForAShortBackOff) {
    ready().die("ended");
    ask("press", Patience::brief);
    timers_.advance(1s);
    launcher_.last().introduce(bundle);
    EXPECT_THAT(askedOf(launcher_.last()), ElementsAre("press"));
}

TEST_F(ExtensionClientTest, ThoseInAHurryAreRefusedDuringALongBackOff) {
    for (const auto pause : {1s, 2s, 4s}) {
        ask("a");
        launcher_.last().die("ended");
        timers_.advance(pause);
    }
    launcher_.last().die("ended");
    outcomes_.clear();
    ask("press", Patience::brief);
    EXPECT_THAT(outcomes_, IsEmpty()) << "Answers never come within the call";
    timers_.runDue();
    EXPECT_THAT(outcomes_, ElementsAre("press unavailable: it failed before and is not started "
                                       "again before 8 s"));
}

TEST_F(ExtensionClientTest, ThoseInAHurryAreRefusedWhenALongBackOffBeginsWhileTheyWait) {
    ask("a");
    for (int count = 0; count < 3; ++count) {
        launcher_.last().die("ended");
        ask("a");
        timers_.advance(5s);
    }
    ask("press", Patience::brief);
    outcomes_.clear();
    launcher_.last().die("ended");
    timers_.runDue();
    EXPECT_THAT(outcomes_, Contains(HasSubstr("press unavailable")));
}

TEST_F(ExtensionClientTest, ALongPauseIsCutShortWhenWhatMadeItFailMayBeGone) {
    ask("a");
    for (int count = 0; count < 6; ++count) {
        launcher_.last().die("ended");
        ask("a");
        timers_.advance(60s);
    }
    const auto starts = launcher_.starts();
    launcher_.last().die("ended");
    ask("a");
    timers_.advance(1s);
    EXPECT_EQ(launcher_.starts(), starts) << "The pause is a long one";
    client_.hastenRetry();
    timers_.advance(999ms);
    client_.hastenRetry();
    EXPECT_EQ(launcher_.starts(), starts);
    timers_.advance(1ms);
    EXPECT_EQ(launcher_.starts(), starts + 1) << "Asked twice, it is no later";
}

TEST_F(ExtensionClientTest, OpensUrlsOneAfterTheOtherAndAnswersWhenEachHasCompleted) {
    auto& process = ready();
    process.askToOpen(7, "clock://one");
    process.askToOpen(8, "clock://two");
    EXPECT_THAT(opener_.urls(), ElementsAre("clock://one"));
    EXPECT_FALSE(opener_.calls[0].options.activates);
    EXPECT_FALSE(opener_.calls[0].options.addsToRecentItems);
    EXPECT_THAT(process.responses(), IsEmpty());

    opener_.calls[0].completed("");
    opener_.calls[1].completed("no application is registered");
    EXPECT_THAT(log_.lines, ElementsAre("clock://two is not opened: no application is registered"));
    ASSERT_THAT(process.responses(), SizeIs(2));
    EXPECT_EQ(process.responses()[0].id, kit::MessageId(7));
    EXPECT_EQ(std::get<std::string>(process.responses()[0].outcome), "{}");
    EXPECT_EQ(process.responses()[1].id, kit::MessageId(8));
    EXPECT_EQ(std::get<kit::ResponseError>(process.responses()[1].outcome).message,
              "no application is registered");
}

TEST_F(ExtensionClientTest, IsNotIdleWhileItsUrlIsOpened) {
    auto& process = ready();
    process.askToOpen(7, "clock://one");
    timers_.advance(1min);
    EXPECT_EQ(process.ending, std::nullopt);
    opener_.calls[0].completed("");
    timers_.advance(2s);
    EXPECT_EQ(process.ending, Ending::gently);
}

TEST_F(ExtensionClientTest, RefusesForeignUrlsWithAnErrorAndALineInTheLog) {
    auto& process = ready();
    process.askToOpen(7, "https://example.org");
    EXPECT_THAT(opener_.urls(), IsEmpty());
    ASSERT_THAT(process.responses(), SizeIs(1));
    EXPECT_TRUE(std::holds_alternative<kit::ResponseError>(process.responses()[0].outcome));
    EXPECT_THAT(log_.lines,
                ElementsAre(AllOf(HasSubstr("clock-extension"), HasSubstr("https://example.org"))));
}

TEST_F(ExtensionClientTest, OpensTheUrlOfANotificationWithoutAnAnswer) {
    auto& process = ready();
    process.say(kit::encodeRequest({std::nullopt, kit::OpenRequest{"clock://one", false, false}}));
    opener_.calls.at(0).completed("");
    EXPECT_THAT(process.responses(), IsEmpty());
}

TEST_F(ExtensionClientTest, ReplacesAProcessThatAsksForTooManyUrls) {
    auto& process = ready();
    for (int id = 0; process.listener != nullptr && id < 1'000; ++id) {
        process.askToOpen(id, "clock://again");
    }
    EXPECT_EQ(process.ending, Ending::atOnce);
    EXPECT_THAT(opener_.urls(), SizeIs(1));
    EXPECT_THAT(log_.lines,
                testing::Contains(HasSubstr("31 URLs that it asked for are not opened")));
    opener_.calls[0].completed("");
    EXPECT_THAT(opener_.urls(), SizeIs(1)) << "Those that waited go with the process";
}

TEST_F(ExtensionClientTest, BearsALittleNonsenseAndGoesOn) {
    auto& process = ready();
    ask("a");
    process.say("Segmentation fault (core dumped)");
    process.say(kit::encodeResponse(99, "1"));
    process.say(kit::encodeRequest({kit::MessageId(5), kit::ControlRequest{"x", false}}));
    process.answer(1, "1");
    EXPECT_THAT(outcomes_, ElementsAre("a=1"));
    EXPECT_EQ(process.ending, std::nullopt);
    ASSERT_THAT(log_.lines, SizeIs(3));
    EXPECT_THAT(log_.lines[0], HasSubstr("Segmentation fault (core dumped)"));
    ASSERT_THAT(process.responses(), SizeIs(2));
    EXPECT_EQ(process.responses()[0].id, std::nullopt) << "The answer to a line that is no message";
    EXPECT_EQ(process.responses()[1].id, kit::MessageId(5));
}

TEST_F(ExtensionClientTest, ReplacesAProcessThatPrintsTooMuchNonsense) {
    auto& process = ready();
    ask("a");
    int lines = 0;
    for (; process.listener != nullptr && lines < 1'000; ++lines) {
        process.say("nonsense");
    }
    EXPECT_EQ(lines, HostLimits{}.faults + 1);
    EXPECT_EQ(process.ending, Ending::atOnce);
    EXPECT_THAT(outcomes_, ElementsAre("a unavailable: it made too many mistakes"));
}

TEST_F(ExtensionClientTest, ReplacesAProcessWithAnOverlongLine) {
    auto& process = ready();
    ask("a");
    process.listener->overlongLineCame();
    EXPECT_EQ(process.ending, Ending::atOnce);
    EXPECT_THAT(log_.lines, ElementsAre(HasSubstr("a line of more than 8 MiB")));
}

TEST_F(ExtensionClientTest, ReplacesAProcessWhoseOfferIsNotUnderstood) {
    client_.introduce();
    launcher_.last().answer(0, R"({"widgets": 7})");
    EXPECT_EQ(launcher_.last().ending, Ending::atOnce);
    EXPECT_THAT(bundles_, IsEmpty());
    timers_.advance(1s);
    launcher_.last().answerWithError(0, "unknown protocol");
    EXPECT_EQ(launcher_.last().ending, Ending::atOnce);
    EXPECT_THAT(log_.lines, ElementsAre(HasSubstr("says what it offers"),
                                        HasSubstr("does not want to work with this host: unknown "
                                                  "protocol; not started again before 2 s")));
}

TEST_F(ExtensionClientTest, LogsItsStandardErrorButNoFloodOfIt) {
    auto& process = ready();
    for (int count = 0; count < 1'000; ++count) {
        process.listener->errorLineCame("no Landlock in this kernel");
    }
    ASSERT_THAT(log_.lines, SizeIs(HostLimits{}.logLines));
    EXPECT_EQ(log_.lines.front(), "clock-extension: no Landlock in this kernel");
    EXPECT_THAT(log_.lines.back(), HasSubstr("more like it is left out"));
}

TEST_F(ExtensionClientTest, BabblingDoesNotFillTheLogHoweverOftenItIsStarted) {
    const auto babble = [this] {
        ask("a");
        auto& process = launcher_.last();
        process.introduce(bundle);
        process.answer(1, "1");
        for (int line = 0; line < 1'000 && process.listener != nullptr; ++line) {
            process.listener->errorLineCame("no Landlock in this kernel");
            process.say("nonsense");
        }
        timers_.advance(1min);
    };
    for (int minute = 0; minute < 24 * 60; ++minute) {
        babble();
    }
    const auto kinds = 3;  // What it says, what is nonsense, and its failures and recoveries.
    EXPECT_EQ(launcher_.starts(), 24U * 60) << "It is asked all the time";
    EXPECT_LE(log_.lines.size(), kinds * (20U + 24 * 6));
    EXPECT_GE(log_.lines.size(), kinds * 24U * 5) << "It is told of all the time";
}

TEST_F(ExtensionClientTest, SaysTheNameOnceThatAnErrorLineBeginsWith) {
    auto& process = ready();
    process.listener->errorLineCame("clock-extension: not enough memory");
    EXPECT_EQ(log_.lines.back(), "clock-extension: not enough memory");
}

TEST_F(ExtensionClientTest, EndsItsProcessWithItself) {
    FakeLauncher launcher;
    {
        ExtensionClient client({launcher, gate_, timers_, log_, HostLimits{}, "clock-extension"},
                               [](const kit::Bundle&) {});
        client.introduce();
    }
    EXPECT_EQ(launcher.last().ending, Ending::gently);
}

}  // namespace
}  // namespace kelmar::host
