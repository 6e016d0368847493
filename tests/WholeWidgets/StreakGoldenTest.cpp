#include "tests/WholeWidgets/GoldenCase.h"

namespace kelmar::testing {
namespace {

using kit::Family;
using kit::RenderingMode;

const char* const kind = "Streak";
constexpr double lateEvening = 1'759'982'400 + 21 * 3600;  ///< 21:00 in New York.

class StreakGolden : public ::testing::TestWithParam<GoldenCase> {};

TEST_P(StreakGolden, LooksAsBefore) {
    expectLooksAsBefore(GetParam());
}

TEST_P(StreakGolden, CanBeRead) {
    expectCanBeRead(GetParam());
}

/// The widget has no large family.
GoldenCase streak(GoldenCase goldenCase) {
    goldenCase.kind = kind;
    goldenCase.families = {Family::small, Family::medium};
    return goldenCase;
}

INSTANTIATE_TEST_SUITE_P(
    States, StreakGolden,
    ::testing::Values(
        streak({.name = "done", .input = "streak-done"}),
        streak({.name = "milestone", .input = "streak-milestone"}),
        streak({.name = "a-whole-year", .input = "streak-long"}),
        streak({.name = "at-risk", .input = "streak-at-risk"}),
        streak({.name = "late", .input = "streak-at-risk", .now = lateEvening}),
        streak({.name = "late-without-freeze", .input = "streak-no-freeze", .now = lateEvening}),
        streak({.name = "start", .input = "streak-start"}), streak({.name = "no-snapshot"})),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    Appearances, StreakGolden,
    ::testing::Values(
        streak({.name = "done-dark", .input = "streak-done", .scheme = paint::Scheme::dark}),
        streak({.name = "at-risk-dark", .input = "streak-at-risk", .scheme = paint::Scheme::dark}),
        streak({.name = "done-accented", .input = "streak-done", .mode = RenderingMode::accented}),
        streak({.name = "done-vibrant-dark",
                .input = "streak-done",
                .mode = RenderingMode::vibrant,
                .scheme = paint::Scheme::dark}),
        streak({.name = "late-vibrant",
                .input = "streak-at-risk",
                .now = lateEvening,
                .mode = RenderingMode::vibrant}),
        streak({.name = "done-twice-as-sharp", .input = "streak-done", .scale = 2})),
    nameOf);

INSTANTIATE_TEST_SUITE_P(Languages, StreakGolden,
                         ::testing::Values(streak({.name = "late-german",
                                                   .input = "streak-at-risk",
                                                   .now = lateEvening,
                                                   .locale = "de_DE"}),
                                           streak({.name = "milestone-german",
                                                   .input = "streak-milestone",
                                                   .locale = "de_DE"}),
                                           streak({.name = "late-arabic",
                                                   .input = "streak-no-freeze",
                                                   .now = lateEvening,
                                                   .locale = "ar_EG"})),
                         nameOf);

}  // namespace
}  // namespace kelmar::testing
