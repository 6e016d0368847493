#include <gtest/gtest.h>

#include "tests/Shared/SnapshotDocuments.h"

namespace kelmar::shared {
namespace {

SnapshotFault faultOf(std::string_view json) {
    const auto data = decodeSnapshot(json);
    EXPECT_FALSE(data) << json;
    return data ? SnapshotFault() : data.failure();
}

struct WrongPassage {
    const char* from;
    const char* to;
    SnapshotFault fault;

    friend void PrintTo(const WrongPassage& passage, std::ostream* stream) {
        *stream << passage.to;
    }
};

class FaultOfPassage : public ::testing::TestWithParam<WrongPassage> {};

TEST_P(FaultOfPassage, NamesThePathWhatStoodThereAndWhatShouldHave) {
    EXPECT_EQ(faultOf(changed(fullDocument, GetParam().from, GetParam().to)), GetParam().fault);
}

constexpr const char* truth = "true or false";
constexpr const char* text = "a text";
constexpr const char* date = "a number of seconds";
constexpr const char* integer = "an integer of 64 bits";

INSTANTIATE_TEST_SUITE_P(
    WrongTypes, FaultOfPassage,
    ::testing::Values(
        WrongPassage{"true,\n    \"today\"",
                     "\"yes\", \"today\"",
                     {"$.signedIn", "the text \"yes\"", truth}},
        WrongPassage{"1741305600.5", "\"soon\"", {"$.updated", "the text \"soon\"", date}},
        WrongPassage{"1741392000", "null", {"$.upcoming[0].due", "null", date}},
        WrongPassage{"1741309200.25", "[1]", {"$.today[1].due", "a list", date}},
        WrongPassage{"\"a2\"", "2", {"$.today[1].id", "the number 2", text}},
        WrongPassage{"\"a2\"", "{}", {"$.today[1].id", "an object", text}},
        WrongPassage{"\"Early release\"", "false", {"$.schedule[0].labels[1]", "false", text}},
        WrongPassage{"\"c1\"", "1", {"$.schedule[0].blocks[0].classId", "the number 1", text}},
        WrongPassage{
            "[15, 25, 45]", "[15, 2.5]", {"$.timer.presets[1]", "the number 2.5", integer}},
        WrongPassage{
            "\"count\": 12", "\"count\": 3.5", {"$.streak.count", "the number 3.5", integer}},
        WrongPassage{"\"2025-03-06\": 1",
                     "\"2025-03-06\": \"1\"",
                     {"$.streak.hist['2025-03-06']", "the text \"1\"", integer}},
        WrongPassage{"1500", "true", {"$.timer.total", "true", "a number"}},
        WrongPassage{
            "1500", "1e400", {"$.timer.total", "the number 1e400, which is too large", "a number"}},
        WrongPassage{
            "\"today\": [", "\"today\": {}, \"other\": [", {"$.today", "an object", "a list"}},
        WrongPassage{"\"upcoming\": [",
                     "\"upcoming\": [7, ",
                     {"$.upcoming[0]", "the number 7", "an object"}},
        WrongPassage{
            "\"hist\": {", "\"hist\": [], \"other\": {", {"$.streak.hist", "a list", "an object"}},
        WrongPassage{"\"timer\": {",
                     "\"timer\": \"off\", \"other\": {",
                     {"$.timer", "the text \"off\"", "an object"}}));

INSTANTIATE_TEST_SUITE_P(
    MissingKeys, FaultOfPassage,
    ::testing::Values(
        WrongPassage{
            "\"hasTime\": false", "\"other\": false", {"$.today[1].hasTime", "nothing", truth}},
        WrongPassage{"\"upcoming\"", "\"Upcoming\"", {"$.upcoming", "nothing", "a list"}},
        WrongPassage{"\"assignmentId\": \"a2\", ",
                     "",
                     {"$.schedule[0].blocks[1].assignmentId", "nothing", text}},
        WrongPassage{"\"freezeNext\"", "\"other\"", {"$.streak.freezeNext", "nothing", text}}));

TEST(SnapshotFault, ShortensALongTextBetweenTwoCharacters) {
    const std::string title = "é" + std::string(57, 'x') + "éé";
    const SnapshotFault fault = faultOf(changed(fullDocument, "1741305600.5", '"' + title + '"'));
    EXPECT_EQ(fault.found, "the text \"é" + std::string(57, 'x') + "…");
}

TEST(SnapshotFault, OfADocumentThatIsNoObjectStandsAtTheRoot) {
    EXPECT_EQ(faultOf(""), (SnapshotFault{"$", "nothing", "an object"}));
    EXPECT_EQ(faultOf(" \n"), (SnapshotFault{"$", "nothing", "an object"}));
    EXPECT_EQ(faultOf("[1]"), (SnapshotFault{"$", "a list", "an object"}));
    EXPECT_EQ(faultOf("7"), (SnapshotFault{"$", "a single value", "an object"}));
    EXPECT_EQ(faultOf("\xEF\xBB\xBF{}"), (SnapshotFault{"$", "a byte order mark", "an object"}));
}

TEST(SnapshotFault, OfATextThatIsNoJsonNamesLineAndColumn) {
    EXPECT_EQ(faultOf("{\n  \"updated\": 1,\n  \"today\" []\n}"),
              (SnapshotFault{"$", "line 3, column 11: a colon is missing", "valid JSON"}));
    EXPECT_EQ(faultOf(std::string(emptyDocument) + "x"),
              (SnapshotFault{"$", "line 1, column 55: something follows the end", "valid JSON"}));
}

TEST(SnapshotFault, OfATextThatIsNoJsonComesBeforeAWrongType) {
    EXPECT_EQ(faultOf("{\"updated\": \"soon\", \"x\": tru}").expected, "valid JSON");
}

TEST(SnapshotFault, OfADoubledKeyIsThatOfTheLastValue) {
    EXPECT_EQ(faultOf(changed(emptyDocument, "[]}", "[],\"today\":7,\"today\":8}")),
              (SnapshotFault{"$.today", "the number 8", "a list"}));
}

}  // namespace
}  // namespace kelmar::shared
