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

const kit::Environment small{
    .family = kit::Family::small, .contentSize = {138, 138}, .renderingMode = {}};

const kit::ControlDescriptor lamp{.kind = "Lamp", .displayName = "Lamp", .description = ""};
const kit::ControlDescriptor fan{.kind = "Fan", .displayName = "Fan", .description = ""};
const kit::Bundle lampOnly{.widgets = {{"Clock", "", "", {}}}, .controls = {lamp}};
const kit::Bundle lampAndFan{.widgets = {{"Clock", "", "", {}}}, .controls = {lamp, fan}};

const kit::ControlValue off{.running = false,
                            .text = "Dark",
                            .symbol = "circle",
                            .intent = {.name = "Light", .parameters = {{"value", true}}}};
const kit::ControlValue on{.running = true,
                           .text = "Bright",
                           .symbol = "circle",
                           .intent = {.name = "Light", .parameters = {{"value", false}}}};

class ControlsTest : public HostTest {
protected:
    ControlsTest() {
        QObject::connect(&host_, &WidgetHost::controlChanged, &host_,
                         [this](const std::string& kind) { changed_.push_back(kind); });
    }

    FakeProcess& process() { return launcher_.last(); }

    /// The places of the requests for a control's value that the current process has got.
    std::vector<std::size_t> questions(const std::string& kind = "Lamp") {
        std::vector<std::size_t> places;
        const auto requests = process().requests();
        for (std::size_t place = 0; place < requests.size(); ++place) {
            const auto* const question = std::get_if<kit::ControlRequest>(&requests[place].body);
            if (question != nullptr && question->controlKind == kind) {
                EXPECT_FALSE(question->isPreview);
                places.push_back(place);
            }
        }
        return places;
    }
    void answer(const kit::ControlValue& value, const std::string& kind = "Lamp") {
        process().answer(questions(kind).back(), kit::encodeControlValue(value));
    }
    [[nodiscard]] std::string shown(const std::string& kind = "Lamp") const {
        const auto* const value = host_.controlValue(kind);
        return value != nullptr ? value->text : "nothing";
    }

    WidgetHost host_{{.executable = "/opt/clock-extension",
                      .urlScheme = "clock",
                      .reloadOnChange = {"/home/someone/clock.json"}},
                     parts_};
    std::vector<std::string> changed_;
};

TEST_F(ControlsTest, ValueIsAskedForAsSoonAsTheControlIsOffered) {
    EXPECT_THAT(questions(), IsEmpty());
    process().introduce(lampOnly);
    ASSERT_THAT(questions(), testing::SizeIs(1));
    EXPECT_EQ(host_.controlValue("Lamp"), nullptr);
    answer(on);
    ASSERT_NE(host_.controlValue("Lamp"), nullptr);
    EXPECT_EQ(*host_.controlValue("Lamp"), on);
    EXPECT_THAT(changed_, ElementsAre("Lamp"));
}

TEST_F(ControlsTest, NothingIsAskedWhereNoControlIsOffered) {
    process().introduce({.widgets = lampOnly.widgets, .controls = {}});
    host_.reloadControls();
    fileWatch_.changed();
    EXPECT_EQ(process().requests().size(), 1U) << "Only the introduction";
    EXPECT_EQ(host_.controlValue("Lamp"), nullptr);
}

TEST_F(ControlsTest, OpeningAMenuAChangedFileAndARequestAskAnew) {
    process().introduce(lampOnly);
    answer(off);
    const std::vector<std::pair<const char*, std::function<void()>>> occasions{
        {"a menu opens", [this] { host_.reloadControls(); }},
        {"a file changes", [this] { fileWatch_.changed(); }},
        {"its kind is to be reloaded", [this] { host_.reload("Lamp"); }},
        {"all is to be reloaded", [this] { host_.reloadAll(); }},
    };
    for (const auto& [name, happen] : occasions) {
        const auto before = questions().size();
        happen();
        EXPECT_EQ(questions().size(), before + 1) << name;
        answer(off);
    }
    host_.reload("Fan");
    EXPECT_EQ(questions().size(), 1 + occasions.size());
}

TEST_F(ControlsTest, AnActionAsksAnewWhenItHasEndedWellOrNot) {
    process().introduce(lampOnly);
    answer(off);
    host_.perform(off.intent);
    EXPECT_THAT(questions(), testing::SizeIs(1)) << "It has not ended yet";
    process().answer(process().requests().size() - 1, kit::emptyResult);
    EXPECT_THAT(questions(), testing::SizeIs(2));
    answer(on);
    EXPECT_EQ(shown(), "Bright");
    host_.perform(on.intent);
    process().answerWithError(process().requests().size() - 1, "the bulb is broken");
    EXPECT_THAT(questions(), testing::SizeIs(3));
}

TEST_F(ControlsTest, OnlyADifferentValueIsTold) {
    process().introduce(lampOnly);
    answer(off);
    host_.reloadControls();
    answer(off);
    EXPECT_THAT(changed_, ElementsAre("Lamp"));
    host_.reloadControls();
    answer(on);
    EXPECT_THAT(changed_, ElementsAre("Lamp", "Lamp"));
}

TEST_F(ControlsTest, OccasionsWhileAnAnswerIsOutstandingAskOnceMore) {
    process().introduce(lampOnly);
    host_.reloadControls();
    fileWatch_.changed();
    EXPECT_THAT(questions(), testing::SizeIs(1));
    answer(off);
    EXPECT_EQ(shown(), "Dark");
    EXPECT_THAT(questions(), testing::SizeIs(2));
    answer(on);
    EXPECT_EQ(shown(), "Bright");
    EXPECT_THAT(questions(), testing::SizeIs(2));
}

TEST_F(ControlsTest, ARefusedValueLeavesTheLastOneAndIsToldOnce) {
    process().introduce(lampOnly);
    process().answerWithError(questions().back(), "no such control");
    EXPECT_EQ(shown(), "nothing");
    EXPECT_THAT(log_.lines, ElementsAre(AllOf(HasSubstr("Lamp"), HasSubstr("no such control"),
                                              HasSubstr("showing nothing"))));
    host_.reloadControls();
    process().answerWithError(questions().back(), "no such control");
    EXPECT_THAT(log_.lines, testing::SizeIs(1)) << "The same once more is no news";
    host_.reloadControls();
    answer(off);
    host_.reloadControls();
    process().answer(questions().back(), R"({"running": "maybe"})");
    EXPECT_EQ(shown(), "Dark");
    EXPECT_THAT(log_.lines, ElementsAre(testing::_, HasSubstr("what it showed before")));
}

TEST_F(ControlsTest, AValueThatKillsTheExtensionIsNotAskedForAgainByItself) {
    process().introduce(lampOnly);
    host_.add("Clock", small);
    process().die("ended with exit status 70");
    timers_.advance(1s);
    ASSERT_EQ(launcher_.starts(), 2U) << "For the timeline";
    process().introduce(lampOnly);
    EXPECT_THAT(questions(), IsEmpty());
    EXPECT_THAT(log_.lines, testing::Contains(AllOf(HasSubstr("Lamp"), HasSubstr("status 70"))));
    host_.reloadControls();
    answer(off);
    EXPECT_EQ(shown(), "Dark");
}

TEST_F(ControlsTest, WhatIsAskedWhileTheExtensionIsDownIsAnsweredWhenItIsBack) {
    process().introduce(lampOnly);
    answer(off);
    host_.add("Clock", small);
    process().die("ended");
    host_.reloadControls();
    host_.reloadControls();
    timers_.advance(1s);
    process().introduce(lampOnly);
    ASSERT_THAT(questions(), testing::SizeIs(1));
    answer(on);
    EXPECT_EQ(shown(), "Bright");
}

TEST_F(ControlsTest, AnotherOfferKeepsTheValuesOfControlsThatStay) {
    process().introduce(lampAndFan);
    answer(off);
    answer(on, "Fan");
    host_.add("Clock", small);
    process().die("ended");
    timers_.advance(1s);
    process().introduce(lampOnly);
    EXPECT_EQ(shown("Lamp"), "Dark");
    EXPECT_EQ(shown("Fan"), "nothing");
    EXPECT_THAT(questions("Lamp"), testing::SizeIs(1)) << "What it shows now may differ";
    EXPECT_THAT(questions("Fan"), IsEmpty());
}

TEST_F(ControlsTest, TheExtensionIsToldTheVersionOfTheHostsSystem) {
    const auto toldVersion = [this] {
        return std::get<kit::InitializeRequest>(process().requests().at(0).body).systemVersion;
    };
    EXPECT_EQ(toldVersion(), "26.0.0");
    const WidgetHost older(
        {.executable = "/opt/clock-extension", .urlScheme = "clock", .reloadOnChange = {}},
        HostParts{opener_, clock_, wallClockTimer_, timers_, launcher_, fileWatch_, log_,
                  HostLimits{}, "25.6.1"});
    EXPECT_EQ(toldVersion(), "25.6.1");
}

}  // namespace
}  // namespace kelmar::host
