#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "Layout/Blanks.h"
#include "Layout/LineBreaking.h"
#include "tests/Support/FixedWidthMeasurer.h"

namespace kelmar::layout {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Texts = std::vector<std::string>;

constexpr std::size_t noLimit = LineBreaking::noLimit;

/// The lines of a text in a room for so many characters.
Texts lines(const std::string& text, double characters, std::size_t limit = noLimit) {
    const testing::FixedWidthMeasurer measurer;
    const LineBreaking breaking(text, kit::Font::system(2), measurer);
    Texts texts;
    for (const LineBreaking::Line& line : breaking.lines(characters, limit)) {
        texts.push_back(line.text);
    }
    return texts;
}

TEST(LineBreaking, TextThatFitsStaysOneLine) {
    EXPECT_THAT(lines("Read chapter four", 17), ElementsAre("Read chapter four"));
}

TEST(LineBreaking, TextBreaksBetweenWordsAndDropsTheBlanks) {
    EXPECT_THAT(lines("Read chapter four", 16), ElementsAre("Read chapter", "four"));
    EXPECT_THAT(lines("Read chapter four", 7), ElementsAre("Read", "chapter", "four"));
}

TEST(LineBreaking, BlanksAtTheEndOfALineNeedNoRoom) {
    EXPECT_THAT(lines("Read    chapter", 7), ElementsAre("Read", "chapter"));
    EXPECT_THAT(lines("chapter   ", 7), ElementsAre("chapter"));
}

TEST(LineBreaking, LongWordsBreakBetweenCharacters) {
    EXPECT_THAT(lines("Thermodynamics lab", 6), ElementsAre("Thermo", "dynami", "cs lab"));
}

TEST(LineBreaking, CharactersOfSeveralCodePointsStayWhole) {
    // A letter with a combining accent, a family of four, a flag: one character each.
    EXPECT_THAT(lines("e\u0301\U0001F468\u200D\U0001F469\u200D\U0001F467\U0001F1E6\U0001F1F9", 1),
                ElementsAre("e\u0301", "\U0001F468\u200D\U0001F469\u200D\U0001F467",
                            "\U0001F1E6\U0001F1F9"));
}

TEST(LineBreaking, LineFeedsOfTheTextAreKept) {
    EXPECT_THAT(lines("One\nTwo\r\nThree", 20), ElementsAre("One", "Two", "Three"));
    EXPECT_THAT(lines("One\n\nTwo", 20), ElementsAre("One", "", "Two"));
}

TEST(LineBreaking, LineFeedAtTheVeryEndOpensNoLine) {
    EXPECT_THAT(lines("One\n", 20), ElementsAre("One"));
}

TEST(LineBreaking, LastAllowedLineEndsInAnEllipsis) {
    EXPECT_THAT(lines("Read chapter four and five", 12, 2),
                ElementsAre("Read chapter", "four and fi…"));
}

TEST(LineBreaking, BlanksBeforeTheEllipsisAreDropped) {
    EXPECT_THAT(lines("Read chapter four", 6, 1), ElementsAre("Read…"));
}

TEST(LineBreaking, EllipsisNeverCutsACharacterInTwo) {
    EXPECT_THAT(lines("ae\u0301e\u0301e\u0301", 3, 1), ElementsAre("ae\u0301…"));
}

TEST(LineBreaking, LinesThatFollowTheLimitAreToldByAnEllipsisEvenWhereTheLineFits) {
    EXPECT_THAT(lines("One\nTwo\nThree", 20, 2), ElementsAre("One", "Two…"));
}

TEST(LineBreaking, TextThatEndsOnTheLastAllowedLineIsNotCutOff) {
    EXPECT_THAT(lines("Read chapter four", 12, 2), ElementsAre("Read chapter", "four"));
}

TEST(LineBreaking, RoomForTheEllipsisAloneShowsTheEllipsisAlone) {
    EXPECT_THAT(lines("Essay", 1, 1), ElementsAre("…"));
}

TEST(LineBreaking, LineTooNarrowForTheEllipsisStaysEmpty) {
    EXPECT_THAT(lines("Essay", 0.5, 1), ElementsAre(""));
}

TEST(LineBreaking, CharacterWiderThanTheRoomSticksOut) {
    EXPECT_THAT(lines("ab", 0.5), ElementsAre("a", "b"));
}

TEST(LineBreaking, NoWidthMeansNoLines) {
    EXPECT_THAT(lines("Essay", 0), IsEmpty());
}

TEST(LineBreaking, EmptyTextHasNoLines) {
    EXPECT_THAT(lines("", 10), IsEmpty());
    EXPECT_THAT(lines("", 0), IsEmpty());
}

TEST(LineBreaking, ScriptsWithoutBlanksBreakBetweenTheirSigns) {
    EXPECT_THAT(lines("宿題を終える", 4), ElementsAre("宿題を終", "える"));
}

TEST(LineBreaking, CutFromOneToAllCharactersShowsOneMoreEachTime) {
    const std::string text = "Thermodynamics";
    for (std::size_t room = 1; room < text.size(); ++room) {
        EXPECT_THAT(lines(text, static_cast<double>(room), 1),
                    ElementsAre(text.substr(0, room - 1) + "…"));
    }
    EXPECT_THAT(lines(text, static_cast<double>(text.size()), 1), ElementsAre(text));
}

TEST(LineBreaking, RoundingErrorDoesNotCutAText) {
    EXPECT_THAT(lines("Essay", 5 - 1e-9, 1), ElementsAre("Essay"));
}

TEST(LineBreaking, LongTextIsMeasuredOnlyAboutWhereItsLineEnds) {
    const testing::FixedWidthMeasurer measurer;
    std::string text;
    for (int word = 0; word < 10'000; ++word) {
        text += "word ";
    }
    const LineBreaking breaking(text, kit::Font::system(2), measurer);
    const std::size_t before = measurer.questions();
    EXPECT_EQ(breaking.lines(40, 3).size(), 3u);
    EXPECT_LT(measurer.questions() - before, 60u);
}

rc::Gen<std::string> anyText() {
    const auto piece = rc::gen::element<std::string>("a", "bc", "Essay", " ", "  ", "\n", "\t", "-",
                                                     "e\u0301", "宿", "\U0001F468\u200D\U0001F469");
    return rc::gen::map(rc::gen::container<std::vector<std::string>>(piece),
                        [](const std::vector<std::string>& pieces) {
                            std::string text;
                            for (const std::string& part : pieces) {
                                text += part;
                            }
                            return text;
                        });
}

RC_GTEST_PROP(LineBreakingLaws, NoLineIsWiderThanARoomForACharacter, ()) {
    const testing::FixedWidthMeasurer measurer;
    const LineBreaking breaking(*anyText(), kit::Font::system(2), measurer);
    const double room = *rc::gen::inRange(1, 30);
    const auto limit = *rc::gen::inRange<std::size_t>(1, 6);
    const auto lines = breaking.lines(room, limit);
    RC_ASSERT(lines.size() <= limit);
    for (const LineBreaking::Line& line : lines) {
        RC_ASSERT(line.width <= room);
        RC_ASSERT(line.width == measurer.width(line.text, kit::Font::system(2)));
    }
}

RC_GTEST_PROP(LineBreakingLaws, WithoutLimitNothingButBlanksIsLost, ()) {
    const std::string text = *anyText();
    const double room = *rc::gen::inRange(1, 30);
    const auto visible = [](std::string shown) {
        std::erase_if(shown, [](char character) {
            return character == ' ' || character == '\t' || character == '\n';
        });
        return shown;
    };
    std::string all;
    for (const std::string& line : lines(text, room)) {
        all += line;
    }
    RC_ASSERT(visible(all) == visible(text));
}

TEST(Blanks, LineFeedsAndTabsBecomeBlanksOnOneLine) {
    EXPECT_EQ(onOneLine("One\nTwo\r\nThree\tFour\u2028Five"), "One Two Three Four Five");
}

TEST(Blanks, TrailingBlanksOfEveryKindAreDropped) {
    EXPECT_EQ(withoutTrailingBlanks("One \u00A0\t\u3000\r\n"), "One");
    EXPECT_EQ(withoutTrailingBlanks(" \n "), "");
    EXPECT_EQ(withoutTrailingBlanks(" One"), " One");
}

}  // namespace
}  // namespace kelmar::layout
