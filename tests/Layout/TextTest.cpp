#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Layout/TextComposition.h"
#include "tests/Layout/Laying.h"

namespace kelmar::layout {
namespace {

using namespace laying;
using ::testing::DoubleNear;

ComposedText composed(const kit::Text& text, const Proposal& offer) {
    const testing::FixedWidthMeasurer measurer;
    return compose(text, lineBreaking(text, measurer), offer);
}
ComposedText composed(const kit::Text& text, Size offer) {
    return composed(text, Proposal::exactly(offer));
}

TEST(Text, BeyondWhatAnyWidgetShowsCostsNothingMore) {
    const auto questions = [](const std::string& piece, std::size_t count) {
        std::string text;
        for (std::size_t times = 0; times < count; ++times) {
            text += piece;
        }
        const testing::FixedWidthMeasurer measurer;
        const kit::Text longText = words(text);
        const ComposedText all =
            compose(longText, lineBreaking(longText, measurer),
                    {.width = Length::definite(100), .height = Length::unspecified()});
        EXPECT_TRUE(all.lines.back().text.ends_with("…"));
        return measurer.questions();
    };
    EXPECT_EQ(questions("x", 5'000), questions("x", 200'000));
    EXPECT_EQ(questions("\u0301", 5'000), questions("\u0301", 200'000));
}

TEST(Text, TakesItsIdealWidthOfAWiderRoom) {
    EXPECT_EQ(sizeOf(words("Essay"), {100, 100}), (Size{25, 12}));
}

TEST(Text, TakesItsIdealSizeWhereNothingIsSpecified) {
    EXPECT_EQ(sizeOf(words("Read chapter four"), Proposal{}), (Size{85, 12}));
    EXPECT_EQ(sizeOf(words("Read\nchapter"), Proposal{}), (Size{35, 24}));
}

TEST(Text, TakesItsIdealWidthOfInfinity) {
    EXPECT_EQ(sizeOf(words("Essay"), proposal(Length::infinite(), Length::infinite())),
              (Size{25, 12}));
}

TEST(Text, EmptyTextHasNoWidthAndTheHeightOfALine) {
    EXPECT_EQ(sizeOf(words(""), {100, 100}), (Size{0, 12}));
    EXPECT_EQ(sizeOf(oneLine(""), {100, 100}), (Size{0, 12}));
}

TEST(Text, WrapsInANarrowRoomAndIsAsWideAsItsWidestLine) {
    EXPECT_EQ(sizeOf(words("Read chapter four"), {64, 100}), (Size{60, 24}));
}

TEST(Text, NoLimitShowsAsManyLinesAsTheHeightHolds) {
    const kit::Text text = words("one two three four");
    EXPECT_EQ(composed(text, Size{25, 100}).lines.size(), 4u);
    EXPECT_EQ(composed(text, Size{25, 47}).lines.size(), 3u);
    EXPECT_EQ(composed(text, Size{25, 47}).lines.back().text, "thre…");
    EXPECT_EQ(composed(text, Size{25, 0}).lines.size(), 1u);
}

TEST(Text, LimitHoldsInAHighRoomAndTheHeightBelowTheLimit) {
    kit::Text text = words("one two three four");
    text.lineLimit = 2;
    EXPECT_EQ(sizeOf(text, {25, 100}), (Size{20, 24}));
    EXPECT_EQ(composed(text, Size{25, 100}).lines.back().text, "two…");
    EXPECT_EQ(sizeOf(text, {25, 12}).height, 12);
}

TEST(Text, LimitOfNoLinesStillShowsOne) {
    kit::Text text = words("Essay");
    text.lineLimit = -3;
    EXPECT_EQ(composed(text, Size{100, 100}).lines.size(), 1u);
}

TEST(Text, OneLineShowsLineFeedsAsBlanks) {
    EXPECT_EQ(composed(oneLine("One\nTwo\tThree"), Size{100, 12}).lines[0].text, "One Two Three");
}

/// Ten characters at 10 points are 50 wide, and 40 where they may shrink to 0.8.
TEST(Text, SweepShrinksDownToTheMinimumScaleThenCutsOff) {
    for (int width = 60; width >= 5; --width) {
        const ComposedText text = composed(oneLine("0123456789", 0.8), Size{double(width), 12});
        const double scale = std::clamp(width / 50.0, 0.8, 1.0);
        EXPECT_NEAR(text.font.size, 10 * scale, 1e-9) << "at " << width;
        EXPECT_EQ(text.lines[0].text.ends_with("…"), width < 40) << "at " << width;
        EXPECT_LE(text.size.width, width + 1e-9) << "at " << width;
        EXPECT_EQ(text.size.height, 12) << "at " << width;
    }
}

TEST(Text, SeveralLinesNeverShrink) {
    kit::Text text = words("Read chapter four");
    text.minimumScale = 0.5;
    const ComposedText wrapped = composed(text, Size{60, 100});
    EXPECT_EQ(wrapped.font.size, 10);
    EXPECT_EQ(wrapped.lines.size(), 2u);
}

TEST(Text, BaselinesFollowTheLines) {
    const ComposedText text = composed(words("one two"), Size{20, 100});
    EXPECT_THAT(text.lines[0].baseline, DoubleNear(9.6, 1e-9));
    EXPECT_THAT(text.lines[1].baseline, DoubleNear(21.6, 1e-9));
}

TEST(Text, ShrunkLetterKeepsItsMiddleInTheLine) {
    // Half as large, the baseline stands half as far below the middle of the line at 6.
    EXPECT_THAT(baselineOfShrunk(10, 1), DoubleNear(9.6, 1e-9));
    EXPECT_THAT(baselineOfShrunk(10, 0.5), DoubleNear(7.8, 1e-9));
}

TEST(Text, SeveralLinesStandAtTheLeadingEdge) {
    EXPECT_EQ(dump(words("Read chapter four"), {60, 24}),
              "0,0 60x24 text 10 regular primary \"Read chapter\"@0,9.6 \"four\"@0,21.6 "
              "label \"Read chapter four\"\n");
    EXPECT_EQ(dump(words("Read chapter four"), {60, 24}, Direction::rightToLeft),
              "0,0 60x24 text 10 regular primary \"Read chapter\"@0,9.6 \"four\"@40,21.6 "
              "label \"Read chapter four\"\n");
}

TEST(Text, AbsurdFontsNeverYieldAbsurdLengths) {
    for (const double size : {-1.0, 0.0, 1e-300, 1e300, std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN()}) {
        kit::Text text = oneLine("Essay", std::numeric_limits<double>::quiet_NaN());
        text.font.size = size;
        for (const double width : {0.0, 1.0, 1e6}) {
            const Size measured = sizeOf(text, {width, 20});
            EXPECT_TRUE(measured.width >= 0 && measured.width <= greatestLength) << size;
            EXPECT_TRUE(measured.height >= 0 && measured.height <= 2 * greatestLength) << size;
        }
    }
}

TEST(Countdown, IsAsWideAsTheLongestTextThatItShows) {
    const auto lasting = [](double seconds) {
        return kit::Countdown{.from = system::Date::since1970(0),
                              .to = system::Date::since1970(seconds),
                              .font = kit::Font::system(10)};
    };
    EXPECT_EQ(sizeOf(lasting(0), {100, 100}), (Size{20, 12}));
    EXPECT_EQ(sizeOf(lasting(-50), {100, 100}), (Size{20, 12}));
    EXPECT_EQ(sizeOf(lasting(1500), {100, 100}), (Size{25, 12}));
    EXPECT_EQ(sizeOf(lasting(3600), {100, 100}), (Size{35, 12}));
}

/// Only the digit 4 is wide.
class WideFours final : public TextMeasurer {
public:
    [[nodiscard]] double width(std::string_view text, const kit::Font& font) const override {
        double width = 0;
        for (const char character : text) {
            width += character == '4' ? font.size : font.size / 2;
        }
        return width;
    }
};

TEST(Countdown, LeavesRoomForItsWidestDigits) {
    const kit::View countdown = kit::Countdown{.from = system::Date::since1970(0),
                                               .to = system::Date::since1970(599),
                                               .font = kit::Font::system(10)};
    const WideFours measurer;
    EXPECT_EQ(Measuring(measurer).measure(countdown, Proposal{}, Precision::exact).size.width, 35);
}

TEST(Countdown, ShrinksAndSticksOutRatherThanBeingCutOff) {
    const kit::Countdown countdown{.from = system::Date::since1970(0),
                                   .to = system::Date::since1970(1500),
                                   .font = kit::Font::system(10),
                                   .lineLimit = 1,
                                   .minimumScale = 0.6};
    EXPECT_EQ(dump(countdown, {20, 12}),
              "0,0 20x12 countdown 8 regular primary lasting 1500 baseline 8.88 label \"25:00\"\n");
    EXPECT_EQ(dump(countdown, {10, 12}),
              "-2.5,0 15x12 countdown 6 regular primary lasting 1500 baseline 8.16 label "
              "\"25:00\"\n");
}

}  // namespace
}  // namespace kelmar::layout
