#include <gtest/gtest.h>

#include "Widget/ExtensionServer.h"
#include "Widget/TickIntents.h"
#include "Widget/TimerIntents.h"
#include "tests/Support/Timers.h"

namespace kelmar::widget {
namespace {

using testing::item;
using testing::snapshotOf;
using testing::TestSurroundings;

/// A server in memory, and the lines that it sent.
class Conversation {
public:
    Conversation() { test.publish(snapshotOf({item("x", test.at(20))})); }

    /// Sends a request and gives the lines that came at once.
    std::vector<std::string> send(const std::string& line) {
        const std::size_t before = sent.size();
        server.receive(line);
        return {sent.begin() + static_cast<std::ptrdiff_t>(before), sent.end()};
    }

    std::vector<std::string> send(const kit::Request& request) {
        return send(kit::encodeRequest(request));
    }

    TestSurroundings test;
    std::vector<std::string> sent;
    SendLine keep = [this](const std::string& line) { sent.push_back(line); };
    HostAppLink appLink{keep};
    Surroundings surroundings{.clock = test.clock,
                              .calendar = *test.calendar,
                              .localeTexts = test.localeTexts,
                              .localization = test.localization,
                              .plannerFolder = test.plannerFolder,
                              .tickedFolder = test.tickedFolder,
                              .appLink = appLink};
    ExtensionServer server{surroundings, appLink, keep};
};

kit::Response responseIn(const std::string& line) {
    return std::get<kit::Response>(*kit::decodeMessage(line));
}

const std::string& resultIn(const std::string& line) {
    static std::string result;
    result = std::get<std::string>(responseIn(line).outcome);
    return result;
}

kit::ResponseError errorIn(const std::string& line) {
    return std::get<kit::ResponseError>(responseIn(line).outcome);
}

kit::EntryRequest entryRequest(kit::EntryKind entryKind) {
    return {.entryKind = entryKind,
            .widgetKind = "DueToday",
            .environment = {.family = kit::Family::medium, .contentSize = {332, 138}}};
}

TEST(ExtensionServer, InitializesWithItsBundle) {
    Conversation conversation;
    const auto lines =
        conversation.send({.id = 1, .body = kit::InitializeRequest{.systemVersion = "26.0.0"}});
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(responseIn(lines[0]).id, kit::MessageId(1));
    const auto bundle = kit::decodeBundle(resultIn(lines[0]));
    ASSERT_TRUE(bundle);
    EXPECT_EQ(bundle->widgets.front().kind, "DueToday");
    EXPECT_EQ(bundle->controls.size(), 1U);
}

TEST(ExtensionServer, OffersNoControlToAHostThatKnowsNone) {
    Conversation conversation;
    const auto lines =
        conversation.send({.id = 1, .body = kit::InitializeRequest{.systemVersion = "25.9"}});
    const auto bundle = kit::decodeBundle(resultIn(lines.at(0)));
    ASSERT_TRUE(bundle);
    EXPECT_EQ(bundle->widgets.size(), 4U);
    EXPECT_TRUE(bundle->controls.empty());
}

TEST(ExtensionServer, GivesTheControlsValueAndItsPreview) {
    Conversation conversation;
    conversation.test.publish(testing::snapshotWith(testing::runningTimer()));
    const auto valueFor = [&](bool isPreview) {
        const auto lines =
            conversation.send({.id = 5,
                               .body = kit::ControlRequest{.controlKind = "StudyTimerControl",
                                                           .isPreview = isPreview}});
        return *kit::decodeControlValue(resultIn(lines.at(0)));
    };
    EXPECT_EQ(valueFor(false),
              (kit::ControlValue{.running = true,
                                 .text = "Until 3:10\u202fPM",
                                 .symbol = "pause.fill",
                                 .intent = TimerControlIntent{.value = false}.described()}));
    EXPECT_EQ(valueFor(true),
              (kit::ControlValue{.running = false,
                                 .text = "Start",
                                 .symbol = "timer",
                                 .intent = TimerControlIntent{.value = true}.described()}));
}

TEST(ExtensionServer, RunsTheControlsIntent) {
    Conversation conversation;
    const auto asked = conversation.send(
        {.id = 9, .body = kit::PerformRequest{TimerControlIntent{.value = true}.described()}});
    const auto open = std::get<kit::Request>(*kit::decodeMessage(asked.at(0)));
    EXPECT_EQ(std::get<kit::OpenRequest>(open.body),
              (kit::OpenRequest{.url = "kelmarplanner://timer/on"}));
}

TEST(ExtensionServer, AnswersEveryKindOfEntryRequest) {
    Conversation conversation;
    for (const auto kind : {kit::EntryKind::placeholder, kit::EntryKind::snapshot}) {
        const auto lines = conversation.send({.id = 2, .body = entryRequest(kind)});
        ASSERT_EQ(lines.size(), 1U);
        const auto entry = kit::decodeEntry(resultIn(lines[0]));
        ASSERT_TRUE(entry);
        EXPECT_EQ(entry->date, TestSurroundings::usualNow);
    }
    const auto lines =
        conversation.send({.id = "t", .body = entryRequest(kit::EntryKind::timeline)});
    const auto timeline = kit::decodeTimeline(resultIn(lines.at(0)));
    ASSERT_TRUE(timeline);
    EXPECT_EQ(timeline->entries.size(), 3U);
}

TEST(ExtensionServer, SaysWhatIsWrongWithTheSnapshotWhenAsked) {
    Conversation conversation;
    const auto findings = [&] {
        return *kit::decodeFindings(
            resultIn(conversation.send({.id = 3, .body = kit::DiagnoseRequest{}}).at(0)));
    };
    EXPECT_TRUE(findings().empty());
    conversation.test.plannerFolder.put(shared::snapshotName, "half a");
    EXPECT_EQ(findings().size(), 1U);
}

TEST(ExtensionServer, RefusesAWidgetOrFamilyThatItDoesNotHave) {
    Conversation conversation;
    auto unknown = entryRequest(kit::EntryKind::timeline);
    unknown.widgetKind = "Weather";
    const auto lines = conversation.send({.id = 3, .body = unknown});
    EXPECT_EQ(errorIn(lines.at(0)).code, kit::ErrorCode::invalidParams);
    auto large = entryRequest(kit::EntryKind::timeline);
    large.widgetKind = "StudyTimer";
    large.environment.family = kit::Family::large;
    EXPECT_EQ(errorIn(conversation.send({.id = 3, .body = large}).at(0)).code,
              kit::ErrorCode::invalidParams);
    const auto control =
        conversation.send({.id = 4, .body = kit::ControlRequest{.controlKind = "Lights"}});
    EXPECT_EQ(errorIn(control.at(0)).code, kit::ErrorCode::invalidParams);
}

TEST(ExtensionServer, AsksTheHostToOpenAndEndsTheActionWhenItHas) {
    Conversation conversation;
    const auto asked = conversation.send(
        {.id = 9, .body = kit::PerformRequest{TickOffIntent{.id = "x", .title = "T"}.described()}});
    ASSERT_EQ(asked.size(), 1U);
    const auto open = std::get<kit::Request>(*kit::decodeMessage(asked[0]));
    EXPECT_EQ(std::get<kit::OpenRequest>(open.body),
              (kit::OpenRequest{.url = "kelmarplanner://ticked"}));

    // The host's answer is still outstanding; other requests are served meanwhile.
    EXPECT_EQ(conversation.send({.id = 10, .body = entryRequest(kit::EntryKind::timeline)}).size(),
              1U);
    const auto ended = conversation.send(kit::encodeResponse(*open.id, kit::emptyResult));
    ASSERT_EQ(ended.size(), 1U);
    EXPECT_EQ(ended[0], R"({"jsonrpc":"2.0","id":9,"result":{}})");
}

TEST(ExtensionServer, AnActionEndsWellThoughTheHostCouldNotOpen) {
    Conversation conversation;
    const auto asked = conversation.send(
        {.id = 9, .body = kit::PerformRequest{UndoTickIntent{.id = "x"}.described()}});
    const auto open = std::get<kit::Request>(*kit::decodeMessage(asked.at(0)));
    const auto ended = conversation.send(kit::encodeError(open.id, {.message = "no handler"}));
    EXPECT_EQ(ended, std::vector<std::string>{R"({"jsonrpc":"2.0","id":9,"result":{}})"});
}

TEST(ExtensionServer, SaysWhyAnActionFailed) {
    Conversation conversation;
    conversation.test.tickedFolder.failWrites("No space left on device");
    const auto lines = conversation.send(
        {.id = 9, .body = kit::PerformRequest{TickOffIntent{.id = "x", .title = "T"}.described()}});
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(errorIn(lines[0]).code, kit::ErrorCode::actionFailed);
    EXPECT_EQ(errorIn(lines[0]).message, "No space left on device");
}

TEST(ExtensionServer, AnswersALineThatIsNoMessageAndGoesOn) {
    Conversation conversation;
    const auto before =
        conversation.send({.id = 1, .body = entryRequest(kit::EntryKind::timeline)});
    for (const char* line : {"", "garbage", R"({"jsonrpc":"2.0","id":1})", "[1,2]"})
        EXPECT_EQ(conversation.send(std::string(line)).size(), 1U) << line;
    EXPECT_TRUE(conversation.test.tickedFolder.names().empty());
    EXPECT_EQ(conversation.send({.id = 1, .body = entryRequest(kit::EntryKind::timeline)}), before);
}

TEST(ExtensionServer, IgnoresAnswersThatNobodyWaitsFor) {
    Conversation conversation;
    EXPECT_TRUE(conversation.send(kit::encodeResponse(77, kit::emptyResult)).empty());
    EXPECT_TRUE(conversation.send(kit::encodeError(std::nullopt, {.message = "?"})).empty());
}

TEST(ExtensionServer, RunsANotificationWithoutAnAnswer) {
    Conversation conversation;
    const auto lines = conversation.send(
        {.id = std::nullopt,
         .body = kit::PerformRequest{TickOffIntent{.id = "x", .title = "T"}.described()}});
    ASSERT_EQ(lines.size(), 1U);  // the request to open, but no answer
    const auto open = std::get<kit::Request>(*kit::decodeMessage(lines[0]));
    EXPECT_TRUE(conversation.send(kit::encodeResponse(*open.id, kit::emptyResult)).empty());
}

TEST(ExtensionServer, DoesNotOpenUrlsForTheHost) {
    Conversation conversation;
    const auto lines =
        conversation.send({.id = 1, .body = kit::OpenRequest{.url = "kelmarplanner://x"}});
    EXPECT_EQ(errorIn(lines.at(0)).code, kit::ErrorCode::methodNotFound);
}

}  // namespace
}  // namespace kelmar::widget
