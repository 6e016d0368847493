#include "tests/WholeWidgets/GoldenCase.h"

namespace kelmar::testing {
namespace {

using kit::Family;
using kit::RenderingMode;

const char* const kind = "DueToday";

const shared::WidgetTicks::Tick freshTick{
    .id = "lab",
    .note = {.title = "Lab report: Osmosis", .at = system::Date::since1970(1'760'036'397)}};

class DueTodayGolden : public ::testing::TestWithParam<GoldenCase> {};

TEST_P(DueTodayGolden, LooksAsBefore) {
    expectLooksAsBefore(GetParam());
}

TEST_P(DueTodayGolden, CanBeRead) {
    expectCanBeRead(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    States, DueTodayGolden,
    ::testing::Values(GoldenCase{.name = "week", .kind = kind, .input = "week"},
                      GoldenCase{.name = "no-snapshot", .kind = kind, .input = ""},
                      GoldenCase{.name = "signed-out", .kind = kind, .input = "signed-out"},
                      GoldenCase{.name = "caught-up", .kind = kind, .input = "caught-up"},
                      GoldenCase{.name = "one", .kind = kind, .input = "one"},
                      GoldenCase{.name = "free-day", .kind = kind, .input = "free-day"},
                      GoldenCase{.name = "overflowing", .kind = kind, .input = "overflowing"},
                      GoldenCase{.name = "odd-titles", .kind = kind, .input = "odd-titles"},
                      GoldenCase{.name = "undo", .kind = kind, .input = "week", .tick = freshTick},
                      GoldenCase{.name = "undo-overflowing",
                                 .kind = kind,
                                 .input = "overflowing",
                                 .tick = freshTick}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(Appearances, DueTodayGolden,
                         ::testing::Values(GoldenCase{.name = "dark",
                                                      .kind = kind,
                                                      .input = "week",
                                                      .scheme = paint::Scheme::dark},
                                           GoldenCase{.name = "accented",
                                                      .kind = kind,
                                                      .input = "week",
                                                      .tick = freshTick,
                                                      .mode = RenderingMode::accented},
                                           GoldenCase{.name = "accented-dark",
                                                      .kind = kind,
                                                      .input = "week",
                                                      .families = {Family::medium},
                                                      .mode = RenderingMode::accented,
                                                      .scheme = paint::Scheme::dark},
                                           GoldenCase{.name = "vibrant",
                                                      .kind = kind,
                                                      .input = "week",
                                                      .tick = freshTick,
                                                      .mode = RenderingMode::vibrant},
                                           GoldenCase{.name = "vibrant-dark",
                                                      .kind = kind,
                                                      .input = "week",
                                                      .families = {Family::medium},
                                                      .mode = RenderingMode::vibrant,
                                                      .scheme = paint::Scheme::dark},
                                           GoldenCase{.name = "twice-as-sharp",
                                                      .kind = kind,
                                                      .input = "week",
                                                      .families = {Family::large},
                                                      .scale = 2},
                                           GoldenCase{.name = "half-again-as-sharp",
                                                      .kind = kind,
                                                      .input = "week",
                                                      .families = {Family::small},
                                                      .scale = 1.5}),
                         nameOf);

INSTANTIATE_TEST_SUITE_P(
    Languages, DueTodayGolden,
    ::testing::Values(
        GoldenCase{
            .name = "german", .kind = kind, .input = "week", .tick = freshTick, .locale = "de_DE"},
        GoldenCase{
            .name = "arabic", .kind = kind, .input = "week", .tick = freshTick, .locale = "ar_EG"},
        GoldenCase{.name = "arabic-odd-titles",
                   .kind = kind,
                   .input = "odd-titles",
                   .families = {Family::large},
                   .locale = "ar_EG"}),
    nameOf);

}  // namespace
}  // namespace kelmar::testing
