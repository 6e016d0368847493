#include <algorithm>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "System/TextBoundaries.h"

namespace kelmar::system {
namespace {

using Offsets = std::vector<std::size_t>;

TEST(CharacterBoundaries, StandAfterEachLetterOfPlainText) {
    EXPECT_EQ(characterBoundaries("abc"), (Offsets{1, 2, 3}));
}

TEST(CharacterBoundaries, CountInBytes) {
    EXPECT_EQ(characterBoundaries("é漢a"), (Offsets{2, 5, 6}));
}

TEST(CharacterBoundaries, KeepTogetherWhatAReaderSeesAsOne) {
    EXPECT_EQ(characterBoundaries("e\u0301"), (Offsets{3}));              // combining accent
    EXPECT_EQ(characterBoundaries("👩‍👩‍👧"), (Offsets{18}));  // joined family
    EXPECT_EQ(characterBoundaries("🇩🇪🇫🇷"), (Offsets{8, 16}));             // two flags
    EXPECT_EQ(characterBoundaries("a\r\nb"), (Offsets{1, 3, 4}));         // one line end
}

TEST(LineBreaks, StandBehindSpacesAndHyphens) {
    EXPECT_EQ(lineBreaks("read the well-known"), (Offsets{5, 9, 14, 19}));
}

TEST(LineBreaks, StandBetweenIdeographsButNotBeforeTheirFullStop) {
    EXPECT_EQ(lineBreaks("漢字。"), (Offsets{3, 9}));
}

TEST(LineBreaks, DoNotStandAtANoBreakSpace) {
    EXPECT_EQ(lineBreaks("7\u00A0PM now"), (Offsets{6, 9}));
}

TEST(LineBreaks, FollowALineFeed) {
    EXPECT_EQ(lineBreaks("a\nb"), (Offsets{2, 3}));
}

TEST(Boundaries, OfTheEmptyTextAreNone) {
    EXPECT_EQ(characterBoundaries(""), Offsets());
    EXPECT_EQ(lineBreaks(""), Offsets());
}

TEST(Boundaries, OfAnyBytesAscendToTheEnd) {
    EXPECT_TRUE(rc::check([](const std::string& bytes) {
        for (const Offsets& offsets : {characterBoundaries(bytes), lineBreaks(bytes)}) {
            RC_ASSERT(std::ranges::adjacent_find(offsets, std::greater_equal<>()) == offsets.end());
            RC_ASSERT((bytes.empty() ? offsets.empty() : offsets.back() == bytes.size()));
        }
    }));
}

/// What ICU's own rules say of a text within a longer one, which is not plain any more.
Offsets fromRules(std::string_view text, std::vector<std::size_t> (*boundaries)(std::string_view)) {
    Offsets all = boundaries(std::string(text) + " é");
    std::erase_if(all, [&](std::size_t offset) { return offset >= text.size(); });
    if (!text.empty())
        all.push_back(text.size());
    return all;
}

TEST(TextBoundaries, OfPlainTextAreThoseOfTheRules) {
    EXPECT_TRUE(rc::check([] {
        const auto text = *rc::gen::container<std::string>(rc::gen::oneOf(
            rc::gen::elementOf(std::string("aZ09 ,.: ")), rc::gen::elementOf(std::string("e1. "))));
        RC_ASSERT(lineBreaks(text) == fromRules(text, lineBreaks));
        RC_ASSERT(characterBoundaries(text) == fromRules(text, characterBoundaries));
    }));
}

}  // namespace
}  // namespace kelmar::system
