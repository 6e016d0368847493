#include <gtest/gtest.h>
#include <limits>

#include "tests/Shared/SnapshotDocuments.h"
#include "tests/Support/Dates.h"

namespace kelmar::shared {
namespace {

using system::Date;

WidgetData decoded(std::string_view json) {
    const auto data = decodeSnapshot(json);
    EXPECT_TRUE(data) << ::testing::PrintToString(data ? SnapshotFault() : data.failure()) << '\n'
                      << json;
    return data ? *data : WidgetData();
}

bool isReadable(std::string_view json) {
    return static_cast<bool>(decodeSnapshot(json));
}

TEST(SnapshotDecoding, FillsEveryFieldOfEveryRecord) {
    const WidgetData data = decoded(fullDocument);
    EXPECT_EQ(data.updated, Date::since1970(1'741'305'600.5));
    EXPECT_TRUE(data.signedIn);
    ASSERT_EQ(data.today.size(), 2U);
    EXPECT_EQ(data.today[0], (WidgetData::Item{"a1/b", "Lab report", "Biology", "#10B981",
                                               Date::since1970(1'741'305'600), true}));
    EXPECT_EQ(data.today[1].due, Date::since1970(1'741'309'200.25));
    EXPECT_FALSE(data.today[1].hasTime);
    ASSERT_EQ(data.upcoming.size(), 1U);
    EXPECT_EQ(data.upcoming[0].title, "Presentación");
    ASSERT_TRUE(data.schedule);
    ASSERT_EQ(data.schedule->size(), 1U);
    EXPECT_EQ(data.schedule->front().day, Date::since1970(1'741'237'200));
    EXPECT_EQ(data.schedule->front().labels, (std::vector<std::string>{"A Day", "Early release"}));
    ASSERT_EQ(data.schedule->front().blocks.size(), 2U);
    EXPECT_EQ(data.schedule->front().blocks[0],
              (WidgetData::ScheduleDay::Block{"period", Date::since1970(1'741'266'000),
                                              Date::since1970(1'741'269'000), "Biology", "#10B981",
                                              false, "", "c1"}));
    EXPECT_EQ(data.schedule->front().blocks[1].classId, std::nullopt);
    EXPECT_EQ(data.timer, (WidgetData::Timer{"running",
                                             false,
                                             1500,
                                             1122.5,
                                             Date::since1970(1'741'306'722),
                                             true,
                                             "Chemistry",
                                             "#10B981",
                                             "Review",
                                             {15, 25, 45}}));
    EXPECT_EQ(data.streak,
              (WidgetData::Streak{
                  12, 21, "2025-03-06", {{"2025-03-05", 2}, {"2025-03-06", 1}}, "2025-03-10"}));
}

TEST(SnapshotDecoding, TakesMissingAndNullOptionsForAbsentOnes) {
    const WidgetData missing = decoded(emptyDocument);
    EXPECT_EQ(missing.schedule, std::nullopt);
    EXPECT_EQ(missing.timer, std::nullopt);
    EXPECT_EQ(missing.streak, std::nullopt);
    EXPECT_EQ(decoded(R"({"updated":0,"signedIn":true,"today":[],"upcoming":[],
                          "schedule":null,"timer":null,"streak":null})"),
              missing);
}

TEST(SnapshotDecoding, TakesATimerWithoutAnEndAndABlockWithoutAClass) {
    const WidgetData full = decoded(fullDocument);
    const WidgetData noEnd = decoded(changed(fullDocument, R"("endAt": 1741306722,)", ""));
    EXPECT_EQ(noEnd.timer->endAt, std::nullopt);
    EXPECT_EQ(decoded(changed(fullDocument, R"(, "classId": null)", "")), full);
    EXPECT_FALSE(isReadable(changed(fullDocument, R"("assignmentId": "a2", )", "")));
}

TEST(SnapshotDecoding, NeedsEveryRequiredKeyAtEveryDepth) {
    for (const char* const key :
         {"updated",      "signedIn",   "today",   "upcoming", "id",       "title",
          "className",    "classColor", "due",     "hasTime",  "day",      "labels",
          "blocks",       "kind",       "start",   "end",      "color",    "done",
          "assignmentId", "state",      "ringing", "total",    "secsLeft", "isBreak",
          "sessionTitle", "presets",    "count",   "best",     "lastDate", "hist",
          "freezeNext"}) {
        const std::string quoted = '"' + std::string(key) + "\":";
        EXPECT_FALSE(isReadable(changed(fullDocument, quoted, "\"other\":"))) << key;
    }
}

TEST(SnapshotDecoding, ReadsDatesAsSecondsSince1970) {
    const WidgetData data = decoded(fullDocument);
    EXPECT_EQ(data.today[0].due, testing::utc(2025, 3, 7));
    EXPECT_FALSE(
        isReadable(changed(fullDocument, "\"due\": 1741305600", "\"due\": \"2025-03-07\"")));
    EXPECT_EQ(decoded(changed(fullDocument, "1741305600.5", "-1e3")).updated,
              Date::since1970(-1000));
}

TEST(SnapshotDecoding, TakesIntegersForNumbersWithAFraction) {
    EXPECT_EQ(decoded(fullDocument).timer->total, 1500.0);
}

TEST(SnapshotDecoding, TakesIntegersOfAnyLengthWhereTheyMayHaveAFraction) {
    const std::string digits = "12345678901234567890123456789012345678901234567890";
    EXPECT_EQ(decoded(changed(fullDocument, "1500", digits)).timer->total, 1.2345678901234567e49);
    EXPECT_EQ(decoded(changed(fullDocument, "1500", "18446744073709551616")).timer->total,
              18446744073709551616.0);
    EXPECT_FALSE(isReadable(changed(fullDocument, "1500", "1" + std::string(309, '0'))));
    EXPECT_FALSE(isReadable(changed(fullDocument, "1500", "1e309")));
    EXPECT_EQ(decoded(changed(fullDocument, "1500", "1e-400")).timer->total, 0);
}

TEST(SnapshotDecoding, TakesWholeNumbersForIntegersHoweverTheyAreWritten) {
    for (const char* const number : {"12.0", "1.2e1", "120e-1", "12.000"})
        EXPECT_EQ(
            decoded(changed(fullDocument, "12, \"best\"", number + std::string(", \"best\""))),
            decoded(fullDocument));
    for (const char* const number :
         {"3.5", "1e-1", "9223372036854775808", "1e19", "\"12\"", "true"})
        EXPECT_FALSE(
            isReadable(changed(fullDocument, "12, \"best\"", number + std::string(", \"best\""))))
            << number;
    EXPECT_EQ(decoded(changed(fullDocument, "12, \"best\"", "-9223372036854775808, \"best\""))
                  .streak->count,
              std::numeric_limits<std::int64_t>::min());
}

TEST(SnapshotDecoding, WantsIntegersInHistoriesAndPresets) {
    EXPECT_FALSE(isReadable(changed(fullDocument, "[15, 25, 45]", "[15, 2.5]")));
    EXPECT_FALSE(isReadable(changed(fullDocument, "\"2025-03-05\": 2", "\"2025-03-05\": 0.5")));
    EXPECT_EQ(decoded(changed(fullDocument, "[15, 25, 45]", "[15.0, 25e0, 45]")),
              decoded(fullDocument));
}

TEST(SnapshotDecoding, KeepsTheOrderAndTheDoublesOfLists) {
    const WidgetData data = decoded(R"({"updated":0,"signedIn":true,"today":[],"upcoming":[],
        "timer":{"state":"","ringing":false,"total":0,"secsLeft":0,"isBreak":false,"className":"",
        "classColor":"","sessionTitle":"","presets":[45,5,45,-1]}})");
    EXPECT_EQ(data.timer->presets, (std::vector<std::int64_t>{45, 5, 45, -1}));
}

TEST(SnapshotDecoding, TakesKeysInAnyOrder) {
    EXPECT_EQ(decoded(R"({"upcoming":[],"today":[],"signedIn":true,"updated":0})"),
              decoded(emptyDocument));
}

TEST(SnapshotDecoding, ReadsEscapesInKeysAndTexts) {
    EXPECT_EQ(decoded(changed(emptyDocument, "\"updated\"", R"("\u0075pd\u0061ted")")),
              decoded(emptyDocument));
    const WidgetData data = decoded(
        changed(fullDocument, "Lab report", R"(\"Lab\" \\ \/ \u00e9 \ud83c\udf93\u0000\n)"));
    EXPECT_EQ(data.today[0].title, std::string("\"Lab\" \\ / é 🎓\0\n", 19));
    EXPECT_EQ(decoded(changed(fullDocument, "2025-03-05", R"(2025\u002d03-05)")),
              decoded(fullDocument));
}

TEST(SnapshotDecoding, IgnoresUnknownKeysOfAnyContent) {
    for (const char* const value :
         {"1", R"("text")", "null", "[]", "{}", R"([1,[2,{"a":{}}],"]"])", "1e400",
          "123456789012345678901234567890", R"({"today":7,"updated":[]})", R"("\ud83c\udf93")"}) {
        const std::string extra = "{\"extra\": " + std::string(value) + ",";
        EXPECT_EQ(decoded(changed(emptyDocument, "{", extra)), decoded(emptyDocument)) << value;
        EXPECT_EQ(decoded(changed(fullDocument, "{\"id\"", extra + "\"id\"")),
                  decoded(fullDocument))
            << value;
    }
}

TEST(SnapshotDecoding, TellsKeysApartByCaseAndByEveryLetter) {
    EXPECT_FALSE(isReadable(changed(emptyDocument, "updated", "Updated")));
    EXPECT_FALSE(isReadable(changed(emptyDocument, "updated", "update")));
    EXPECT_FALSE(isReadable(changed(emptyDocument, "updated", "updatedd")));
}

TEST(SnapshotDecoding, TakesTheLastOfDoubledKeys) {
    EXPECT_EQ(decoded(changed(emptyDocument, "{", "{\"signedIn\":false,")), decoded(emptyDocument));
    EXPECT_EQ(
        decoded(changed(fullDocument, "\"2025-03-05\": 2", "\"2025-03-05\": 7, \"2025-03-05\": 2")),
        decoded(fullDocument));
    EXPECT_EQ(decoded(changed(emptyDocument, "[]}", "[],\"today\":[]}")), decoded(emptyDocument));
    EXPECT_EQ(decoded(changed(fullDocument, "\"streak\"", "\"timer\": null, \"streak\"")).timer,
              std::nullopt);
    const WidgetData twoLists =
        decoded(changed(fullDocument, R"("upcoming")", R"("today": [], "upcoming")"));
    EXPECT_TRUE(twoLists.today.empty());
}

TEST(SnapshotDecoding, ForgetsAWrongValueWhoseKeyComesAgain) {
    for (const char* const value : {"7", "[{}]", R"({"a":[1]})", "null", R"("\n")"}) {
        const std::string first = "{\"signedIn\":" + std::string(value) + ",";
        EXPECT_EQ(decoded(changed(emptyDocument, "{", first)), decoded(emptyDocument)) << value;
    }
    EXPECT_EQ(decoded(changed(fullDocument, "\"today\"", "\"today\": [{\"id\": 7}, 3], \"today\"")),
              decoded(fullDocument));
    EXPECT_EQ(decoded(changed(fullDocument, "\"2025-03-05\": 2",
                              "\"2025-03-05\": [], \"2025-03-05\": 2")),
              decoded(fullDocument));
    EXPECT_FALSE(isReadable(changed(emptyDocument, "[]}", "[],\"today\":null}")));
    EXPECT_FALSE(isReadable(changed(emptyDocument, "{", "{\"signedIn\":[1 2],")));
    EXPECT_FALSE(isReadable(changed(emptyDocument, "{", "{\"signedIn\":[tru],")));
}

TEST(SnapshotDecoding, RefusesNullForWhatIsRequired) {
    EXPECT_FALSE(isReadable(changed(emptyDocument, "\"today\":[]", "\"today\":null")));
    EXPECT_FALSE(isReadable(changed(fullDocument, "\"a1/b\"", "null")));
    EXPECT_FALSE(isReadable(changed(fullDocument, "\"a1/b\"", "nul")));
}

class BrokenDocument : public ::testing::TestWithParam<std::string> {};

TEST_P(BrokenDocument, IsUnreadable) {
    EXPECT_FALSE(isReadable(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(NoObject, BrokenDocument,
                         ::testing::Values("", " \n", "[]", "7", "\"text\"", "null", "true", "{}",
                                           "[{}]"));
INSTANTIATE_TEST_SUITE_P(AroundTheDocument, BrokenDocument,
                         ::testing::Values("\xEF\xBB\xBF" + std::string(emptyDocument),
                                           std::string(emptyDocument) + "x",
                                           std::string(emptyDocument) + "{}",
                                           std::string(emptyDocument) + "}",
                                           std::string(emptyDocument) + std::string("\0", 1),
                                           std::string(emptyDocument) + "\xFF",
                                           std::string(emptyDocument, 0, emptyDocument.size() - 1),
                                           "," + std::string(emptyDocument)));

std::string withExtra(const std::string& member) {
    return changed(emptyDocument, "{", "{" + member + ",");
}

INSTANTIATE_TEST_SUITE_P(
    InsideUnknownKeys, BrokenDocument,
    ::testing::Values(withExtra("\"x\":tru"), withExtra("\"x\":01"), withExtra("\"x\":1."),
                      withExtra("\"x\":[1,]"), withExtra("\"x\":[1 2]"), withExtra("\"x\":[1}"),
                      withExtra("\"x\":{\"a\" 1}"), withExtra("\"x\":{a:1}"),
                      withExtra("\"x\":\"\\x\""), withExtra("\"x\":\"\\ud800\""),
                      withExtra("\"x\":[\"\\udc00\"]"), withExtra("\"x\":\"a\nb\""),
                      withExtra("\"x\":\"\xFF\""), withExtra("\"x\":"), withExtra("\"x\""),
                      withExtra("\"\\x\":1"), withExtra("\"\\ud800\":1"), withExtra("\"x\":NaN"),
                      withExtra("\"x\":truefalse"), withExtra("\"x\":1 2"),
                      withExtra("\"x\":\"a\"b")));
INSTANTIATE_TEST_SUITE_P(
    InsideKnownKeys, BrokenDocument,
    ::testing::Values(
        changed(emptyDocument, "true", "truetrue"), changed(emptyDocument, "true", "tru"),
        changed(emptyDocument, "0", "00"), changed(emptyDocument, "0", "0."),
        changed(emptyDocument, "0", "+1"), changed(emptyDocument, "0", "0x1"),
        changed(emptyDocument, "0", "Infinity"), changed(emptyDocument, "[]", "[,]"),
        changed(emptyDocument, "[]", "[}"), changed(emptyDocument, ",", ",,"),
        changed(emptyDocument, ":", "::"), changed(fullDocument, "Lab report", "Lab\treport"),
        changed(fullDocument, "Lab report", "\\ud800"), changed(fullDocument, "Lab report", "\\"),
        changed(fullDocument, "Lab report", "\xC3"), changed(fullDocument, "{\"id\"", "{,\"id\"")));

TEST(SnapshotDecoding, IsNotExhaustedByDepthInUnknownKeys) {
    constexpr std::size_t depth = 1'000'000;
    const std::string open(depth, '[');
    const std::string close(depth, ']');
    EXPECT_TRUE(isReadable(withExtra("\"x\":" + open + close)));
    EXPECT_FALSE(isReadable(withExtra("\"x\":" + open)));
    EXPECT_FALSE(isReadable(withExtra("\"signedIn\":" + open)));
    EXPECT_TRUE(isReadable(withExtra("\"signedIn\":" + open + close)));
}

TEST(SnapshotDecoding, InPlaceGivesTheSameWithoutChangingTheText) {
    std::string text(fullDocument);
    const auto data = decodeSnapshotInPlace(text);
    ASSERT_TRUE(data);
    EXPECT_EQ(*data, decoded(fullDocument));
    EXPECT_EQ(text, fullDocument);
}

TEST(SnapshotEncoding, WritesKeysInTheOrderOfDeclarationAndLeavesAbsentOptionsOut) {
    EXPECT_EQ(encodeSnapshot(decoded(emptyDocument)), emptyDocument);
    const WidgetData data = decoded(changed(fullDocument, R"("endAt": 1741306722,)", ""));
    EXPECT_EQ(
        encodeSnapshot(data),
        R"({"updated":1741305600.5,"signedIn":true,"today":[)"
        R"({"id":"a1/b","title":"Lab report","className":"Biology","classColor":"#10B981",)"
        R"("due":1741305600,"hasTime":true},{"id":"a2","title":"Essay","className":"English",)"
        R"("classColor":"#EC4899","due":1741309200.25,"hasTime":false}],"upcoming":[)"
        R"({"id":"a3","title":"Presentación","className":"Spanish","classColor":"#EF4444",)"
        R"("due":1741392000,"hasTime":true}],"schedule":[{"day":1741237200,)"
        R"("labels":["A Day","Early release"],"blocks":[{"kind":"period","start":1741266000,)"
        R"("end":1741269000,"title":"Biology","color":"#10B981","done":false,"assignmentId":"",)"
        R"("classId":"c1"},{"kind":"study","start":1741269600,"end":1741272600,"title":"Essay",)"
        R"("color":"#EC4899","done":true,"assignmentId":"a2"}]}],"timer":{"state":"running",)"
        R"("ringing":false,"total":1500,"secsLeft":1122.5,"isBreak":true,"className":"Chemistry",)"
        R"("classColor":"#10B981","sessionTitle":"Review","presets":[15,25,45]},"streak":{)"
        R"("count":12,"best":21,"lastDate":"2025-03-06","hist":{"2025-03-05":2,"2025-03-06":1},)"
        R"("freezeNext":"2025-03-10"}})");
}

TEST(SnapshotEquality, LooksAtTheOrderOfLists) {
    WidgetData data = decoded(fullDocument);
    std::swap(data.today[0], data.today[1]);
    EXPECT_NE(data, decoded(fullDocument));
}

}  // namespace
}  // namespace kelmar::shared
