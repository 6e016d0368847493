#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "Shared/WidgetTicks.h"
#include "tests/Support/MemoryFolder.h"
#include "tests/Support/TemporaryFolder.h"

namespace kelmar::shared {

void PrintTo(const WidgetTicks::Tick& tick, std::ostream* stream) {
    *stream << tick.id << " at " << tick.note.at.secondsSince2001();
}

namespace {

using system::Date;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Note = WidgetTicks::Note;
using Tick = WidgetTicks::Tick;

constexpr const char* tickPrefix = "tick-";

TEST(TickName, IsUnpaddedUrlSafeBase64) {
    EXPECT_EQ(WidgetTicks::name("a1/b"), "YTEvYg");
    EXPECT_EQ(WidgetTicks::fileName("a1/b"), "tick-YTEvYg");
    EXPECT_EQ(WidgetTicks::name("abc>>>???"), "YWJjPj4-Pz8_");
    EXPECT_EQ(WidgetTicks::name("漢🎓"), "5ryi8J-Okw");
}

TEST(TickName, RoundTripsWhereBase64HasPlusAndSlash) {
    for (const std::string id : {"abc>>>???", "~~~", "é?>", "漢🎓"}) {
        EXPECT_EQ(WidgetTicks::id(WidgetTicks::fileName(id), tickPrefix), id);
    }
}

TEST(TickName, GivesItsIdUnderTheRightPrefixOnly) {
    EXPECT_EQ(WidgetTicks::id("tick-YTEvYg", "tick-"), "a1/b");
    EXPECT_EQ(WidgetTicks::id("done-YTEvYg", "done-"), "a1/b");
    EXPECT_EQ(WidgetTicks::id("done-YTEvYg", "tick-"), std::nullopt);
    EXPECT_EQ(WidgetTicks::id("Tick-YTEvYg", "tick-"), std::nullopt);
    EXPECT_EQ(WidgetTicks::id("YTEvYg", "tick-"), std::nullopt);
    EXPECT_EQ(WidgetTicks::id("tick", "tick-"), std::nullopt);
}

TEST(TickName, MayHaveItsPadding) {
    EXPECT_EQ(WidgetTicks::id("tick-YTEvYg==", tickPrefix), "a1/b");
    EXPECT_EQ(WidgetTicks::id("tick-YTEvYg=", tickPrefix), "a1/b");
}

TEST(TickName, MayHoldZeroBytes) {
    const std::string id("a\0b", 3);
    EXPECT_EQ(WidgetTicks::id(WidgetTicks::fileName(id), tickPrefix), id);
}

class NoTickName : public ::testing::TestWithParam<const char*> {};

TEST_P(NoTickName, HasNoId) {
    EXPECT_EQ(WidgetTicks::id(GetParam(), tickPrefix), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(WidgetTicks, NoTickName,
                         ::testing::Values("", "tick-",  // nothing after the prefix
                                           "tick-====",  // nothing but padding
                                           "tick-Y",     // a digit too few
                                           "tick-Y===",
                                           "tick-YTEv Yg",  // white space
                                           "tick-YTEvYg\n", "tick-YTEvYg.tmp", "tick-YT!v",
                                           "tick-_w",  // FF, no UTF-8
                                           "tick-w6",
                                           "tick-7aCA"));  // cut off; half a surrogate pair

TEST(TickNote, IsAnObjectOfTitleAndSecondsSince2001) {
    EXPECT_EQ(WidgetTicks::encode({"Lab report: Osmosis", Date::since2001(763'000'000.5)}),
              R"({"title":"Lab report: Osmosis","at":763000000.5})");
    EXPECT_EQ(WidgetTicks::decode(R"({"title":"Lab report","at":0})"),
              (Note{"Lab report", Date::since1970(978'307'200)}));
}

TEST(TickNote, IsTheSameAfterEncodingAndDecoding) {
    const Note note{"Presentación: \"Mi\" \\ 🎓\n", Date::since1970(1'741'305'600.123456)};
    EXPECT_EQ(WidgetTicks::decode(WidgetTicks::encode(note)), note);
}

TEST(TickNote, MayHaveOtherKeysAndAnyOrder) {
    EXPECT_EQ(WidgetTicks::decode(R"({"at":1e3,"by":{"widget":[1]},"title":"Essay"})"),
              (Note{"Essay", Date::since2001(1000)}));
}

class NoTickNote : public ::testing::TestWithParam<const char*> {};

TEST_P(NoTickNote, IsRefused) {
    EXPECT_EQ(WidgetTicks::decode(GetParam()), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(
    WidgetTicks, NoTickNote,
    ::testing::Values("", "{}", "[]", "null", R"({"title":"Essay"})", R"({"at":7})",
                      R"({"title":"Essay","at":"7"})", R"({"title":"Essay","at":null})",
                      R"({"title":7,"at":7})", R"({"title":null,"at":7})",
                      R"({"title":"Essay","at":7}})", R"({"title":"Essay","at":7,"by":tru})",
                      R"({"title":"Essay","at":7)", "{\"title\":\"\xFF\",\"at\":7}",
                      "\xEF\xBB\xBF{\"title\":\"Essay\",\"at\":7}"));

class WidgetTicksTest : public ::testing::Test {
protected:
    void put(const std::string& prefix, const std::string& id, double age) {
        folder_.put(prefix + WidgetTicks::name(id),
                    WidgetTicks::encode({"Title " + id, now_ + -age}));
    }
    [[nodiscard]] Tick tick(const std::string& id, double age) const {
        return {id, {"Title " + id, now_ + -age}};
    }

    const Date now_ = Date::since2001(763'000'000);
    testing::MemoryFolder folder_;
    WidgetTicks ticks_{folder_};
};

TEST_F(WidgetTicksTest, PendingAreTheIdsOfTickFilesInListingOrder) {
    put("tick-", "b", 3);
    put("done-", "c", 3);
    folder_.put("notes.txt", "");
    folder_.put("tick-", "");
    folder_.put("tick-!!!!", "");
    put("tick-", "a", 100'000);
    EXPECT_THAT(ticks_.pending(), ElementsAre("b", "a"));
}

TEST_F(WidgetTicksTest, PendingAreKnownByTheirNamesAlone) {
    folder_.put("tick-YQ", "no note");
    folder_.putUnreadable("tick-Yg");
    folder_.forgetCalls();
    EXPECT_THAT(ticks_.pending(), ElementsAre("a", "b"));
    EXPECT_THAT(folder_.calls(), ElementsAre("names"));
}

TEST_F(WidgetTicksTest, AMissingFolderHasNothing) {
    put("tick-", "a", 3);
    folder_.setMissing(true);
    EXPECT_THAT(ticks_.pending(), IsEmpty());
    EXPECT_EQ(ticks_.latest(now_), std::nullopt);
}

TEST_F(WidgetTicksTest, LatestIsTheYoungest) {
    put("tick-", "older", 5);
    put("tick-", "younger", 3);
    put("tick-", "oldest", 7);
    EXPECT_EQ(ticks_.latest(now_), tick("younger", 3));
}

TEST_F(WidgetTicksTest, LatestMayBeTakenOverAlready) {
    put("tick-", "older", 5);
    put("done-", "younger", 3);
    EXPECT_EQ(ticks_.latest(now_), tick("younger", 3));
    EXPECT_THAT(ticks_.pending(), ElementsAre("older"));
}

TEST_F(WidgetTicksTest, OfEquallyOldTheFirstListedIsLatest) {
    put("done-", "first", 3);
    put("tick-", "second", 3);
    EXPECT_EQ(ticks_.latest(now_), tick("first", 3));
}

TEST_F(WidgetTicksTest, IsOfferedForLessThanTenSeconds) {
    put("tick-", "a", 10);
    EXPECT_EQ(ticks_.latest(now_), std::nullopt);
    put("tick-", "a", 9.75);
    EXPECT_EQ(ticks_.latest(now_), tick("a", 9.75));
}

TEST_F(WidgetTicksTest, MayLieASecondInTheFutureButNoMore) {
    put("tick-", "a", -0.5);
    EXPECT_EQ(ticks_.latest(now_), tick("a", -0.5));
    put("tick-", "a", -1);
    EXPECT_EQ(ticks_.latest(now_), tick("a", -1));
    put("tick-", "a", -1.25);
    EXPECT_EQ(ticks_.latest(now_), std::nullopt);
    put("tick-", "a", -2);
    EXPECT_EQ(ticks_.latest(now_), std::nullopt);
}

TEST_F(WidgetTicksTest, LatestSkipsWhatCannotBeReadAsANote) {
    folder_.putUnreadable("tick-" + WidgetTicks::name("gone"));
    folder_.put("tick-" + WidgetTicks::name("broken"), "{");
    folder_.put("other", WidgetTicks::encode({"Other", now_}));
    folder_.put("tick-", WidgetTicks::encode({"Nameless", now_}));
    put("tick-", "good", 9);
    EXPECT_EQ(ticks_.latest(now_), tick("good", 9));
}

TEST_F(WidgetTicksTest, LatestReadsOnlyFilesThatAreNamedLikeTicks) {
    folder_.put("other", "");
    put("done-", "a", 3);
    folder_.forgetCalls();
    EXPECT_TRUE(ticks_.latest(now_));
    EXPECT_THAT(folder_.calls(), ElementsAre("names", "read done-YQ"));
}

TEST_F(WidgetTicksTest, WritingPutsANoteUnderTheIdsName) {
    EXPECT_TRUE(ticks_.write("a1/b", {"Lab report", now_}));
    EXPECT_EQ(folder_.content("tick-YTEvYg"), R"({"title":"Lab report","at":763000000})");
    EXPECT_TRUE(ticks_.write("a1/b", {"Lab report", now_ + 1}));
    EXPECT_EQ(folder_.content("tick-YTEvYg"), R"({"title":"Lab report","at":763000001})");
}

TEST_F(WidgetTicksTest, WritingTellsWhyItCouldNot) {
    folder_.failWrites("disk full");
    EXPECT_EQ(ticks_.write("a", {"Essay", now_}).failure().reason, "disk full");
    folder_.setMissing(true);
    EXPECT_FALSE(ticks_.write("a", {"Essay", now_}));
}

TEST_F(WidgetTicksTest, RemovingDeletesTheTickFileAndThenTheDoneFile) {
    put("tick-", "a", 3);
    put("done-", "a", 3);
    put("tick-", "b", 3);
    folder_.forgetCalls();
    ticks_.remove("a");
    EXPECT_THAT(folder_.calls(), ElementsAre("remove tick-YQ", "remove done-YQ"));
    EXPECT_THAT(folder_.names(), ElementsAre("tick-Yg"));
}

TEST_F(WidgetTicksTest, RemovingTriesBothFilesWhateverHappens) {
    put("done-", "a", 3);
    ticks_.remove("a");
    EXPECT_THAT(folder_.names(), IsEmpty());
    folder_.failRemovals("not allowed");
    folder_.forgetCalls();
    ticks_.remove("a");
    EXPECT_THAT(folder_.calls(), ElementsAre("remove tick-YQ", "remove done-YQ"));
}

TEST(WidgetTicksOnDisk, SkipsWhatIsNoFileWithoutBlocking) {
    const testing::TemporaryFolder disk;
    system::DiskFolder folder(disk.path().string());
    WidgetTicks ticks(folder);
    const Date now = Date::since2001(763'000'000);
    const auto pathOf = [&](const char* id) { return disk.path() / WidgetTicks::fileName(id); };
    ASSERT_EQ(::mkfifo(pathOf("fifo").c_str(), 0600), 0);
    std::filesystem::create_directory(pathOf("folder"));
    std::filesystem::create_symlink("nowhere", pathOf("dangling"));
    ASSERT_TRUE(ticks.write("good", {"Essay", now}));
    EXPECT_EQ(ticks.latest(now), (Tick{"good", {"Essay", now}}));
    EXPECT_THAT(ticks.pending(),
                ::testing::UnorderedElementsAre("fifo", "folder", "dangling", "good"));
}

}  // namespace
}  // namespace kelmar::shared
