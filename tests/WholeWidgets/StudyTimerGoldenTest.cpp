#include "tests/WholeWidgets/GoldenCase.h"

namespace kelmar::testing {
namespace {

using kit::Family;
using kit::RenderingMode;

const char* const kind = "StudyTimer";

class StudyTimerGolden : public ::testing::TestWithParam<GoldenCase> {};

TEST_P(StudyTimerGolden, LooksAsBefore) {
    expectLooksAsBefore(GetParam());
}

TEST_P(StudyTimerGolden, CanBeRead) {
    expectCanBeRead(GetParam());
}

/// The widget has no large family.
GoldenCase timer(GoldenCase goldenCase) {
    goldenCase.kind = kind;
    goldenCase.families = {Family::small, Family::medium};
    return goldenCase;
}

INSTANTIATE_TEST_SUITE_P(
    States, StudyTimerGolden,
    ::testing::Values(timer({.name = "ready", .input = "timer-ready"}),
                      timer({.name = "running", .input = "timer-running"}),
                      timer({.name = "running-for-hours", .input = "timer-long"}),
                      timer({.name = "paused", .input = "timer-paused"}),
                      timer({.name = "break", .input = "timer-break"}),
                      timer({.name = "ended", .input = "timer-ended"}),
                      timer({.name = "ringing-after-a-break", .input = "timer-ringing-break"}),
                      timer({.name = "no-timer", .input = "caught-up"})),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    Appearances, StudyTimerGolden,
    ::testing::Values(
        timer({.name = "running-dark", .input = "timer-running", .scheme = paint::Scheme::dark}),
        timer({.name = "running-accented",
               .input = "timer-running",
               .mode = RenderingMode::accented}),
        timer({.name = "break-vibrant-dark",
               .input = "timer-break",
               .mode = RenderingMode::vibrant,
               .scheme = paint::Scheme::dark}),
        timer({.name = "ready-twice-as-sharp", .input = "timer-ready", .scale = 2})),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    Languages, StudyTimerGolden,
    ::testing::Values(
        timer({.name = "ready-german", .input = "timer-ready", .locale = "de_DE"}),
        timer({.name = "ended-german", .input = "timer-ended", .locale = "de_DE"}),
        timer({.name = "running-arabic", .input = "timer-running", .locale = "ar_EG"}),
        timer({.name = "ended-arabic", .input = "timer-ended", .locale = "ar_EG"})),
    nameOf);

}  // namespace
}  // namespace kelmar::testing
