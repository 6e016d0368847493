#include "tests/WholeWidgets/GoldenCase.h"

namespace kelmar::testing {
namespace {

using kit::Family;
using kit::RenderingMode;

const char* const kind = "Schedule";
constexpr double midnight = 1'759'982'400;  ///< At which 2025-10-09 begins in New York.
constexpr double hour = 3600;

class ScheduleGolden : public ::testing::TestWithParam<GoldenCase> {};

TEST_P(ScheduleGolden, LooksAsBefore) {
    expectLooksAsBefore(GetParam());
}

TEST_P(ScheduleGolden, CanBeRead) {
    expectCanBeRead(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    States, ScheduleGolden,
    ::testing::Values(
        GoldenCase{.name = "running", .kind = kind, .input = "timetable"},
        GoldenCase{
            .name = "between", .kind = kind, .input = "timetable", .now = midnight + 15.6 * hour},
        GoldenCase{.name = "early", .kind = kind, .input = "timetable", .now = midnight + 7 * hour},
        GoldenCase{
            .name = "evening", .kind = kind, .input = "timetable", .now = midnight + 20 * hour},
        GoldenCase{.name = "weekend", .kind = kind, .input = "timetable-weekend"},
        GoldenCase{.name = "empty", .kind = kind, .input = "timetable-empty"},
        GoldenCase{.name = "crowded", .kind = kind, .input = "timetable-crowded"},
        GoldenCase{.name = "no-snapshot", .kind = kind, .input = ""}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(Appearances, ScheduleGolden,
                         ::testing::Values(GoldenCase{.name = "dark",
                                                      .kind = kind,
                                                      .input = "timetable",
                                                      .scheme = paint::Scheme::dark},
                                           GoldenCase{.name = "accented",
                                                      .kind = kind,
                                                      .input = "timetable",
                                                      .mode = RenderingMode::accented},
                                           GoldenCase{.name = "vibrant-dark",
                                                      .kind = kind,
                                                      .input = "timetable",
                                                      .mode = RenderingMode::vibrant,
                                                      .scheme = paint::Scheme::dark},
                                           GoldenCase{.name = "twice-as-sharp",
                                                      .kind = kind,
                                                      .input = "timetable",
                                                      .families = {Family::medium},
                                                      .scale = 2}),
                         nameOf);

INSTANTIATE_TEST_SUITE_P(
    Languages, ScheduleGolden,
    ::testing::Values(
        GoldenCase{.name = "german", .kind = kind, .input = "timetable", .locale = "de_DE"},
        GoldenCase{.name = "arabic", .kind = kind, .input = "timetable", .locale = "ar_EG"},
        GoldenCase{
            .name = "german-empty", .kind = kind, .input = "timetable-empty", .locale = "de_DE"}),
    nameOf);

}  // namespace
}  // namespace kelmar::testing
