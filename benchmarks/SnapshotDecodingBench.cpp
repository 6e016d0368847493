#include <benchmark/benchmark.h>
#include <cstdint>
#include <fmt/format.h>
#include <simdjson.h>
#include <string>

#include "Shared/SnapshotCoding.h"

/// Decoding to records against a bare parse of the same bytes, both with the same room behind the
/// text: what the records cost beyond knowing that the text is JSON.
namespace kelmar::shared {
namespace {

constexpr double firstDay = 1'741'305'600;
constexpr double secondsADay = 86'400;

WidgetData::Item item(std::int64_t number) {
    const double due = firstDay + static_cast<double>(number % 90) * secondsADay;
    return {.id = fmt::format("5f0c2a9e-7d41-4b8e-9c55-{:012}", number),
            .title =
                fmt::format("Unit {} reading, questions {} to {}", number % 12, number, number + 9),
            .className = "Honors English 11",
            .classColor = "#EC4899",
            .due = system::Date::since1970(due),
            .hasTime = number % 2 == 0};
}

WidgetData::ScheduleDay scheduleDay(int number) {
    const auto start = system::Date::since1970(firstDay + number * secondsADay);
    const WidgetData::ScheduleDay::Block period = {.kind = "period",
                                                   .start = start,
                                                   .end = start + 3000,
                                                   .title = "AP Biology",
                                                   .color = "#10B981",
                                                   .done = false,
                                                   .assignmentId = "",
                                                   .classId = "class-2"};
    return {.day = start, .labels = {"A Day"}, .blocks = {6, period}};
}

/// A student's term: a week's timetable, a year's streak and so many assignments.
std::string document(std::int64_t assignments) {
    WidgetData data;
    data.updated = system::Date::since1970(firstDay + 0.25);
    data.signedIn = true;
    for (std::int64_t number = 0; number < assignments; ++number)
        (number < 8 ? data.today : data.upcoming).push_back(item(number));
    data.schedule.emplace();
    for (int day = 0; day < 5; ++day)
        data.schedule->push_back(scheduleDay(day));
    data.streak.emplace();
    for (int day = 0; day < 60; ++day)
        data.streak->hist[fmt::format("2025-{:02}-{:02}", 1 + day / 28, 1 + day % 28)] = 1;
    return encodeSnapshot(data);
}

/// 19 kB, as it is in daily life, and 11 MB, which no student's snapshot reaches.
constexpr std::int64_t usual = 70;
constexpr std::int64_t huge = 59'000;

void bareParse(benchmark::State& state) {
    const simdjson::padded_string json(document(state.range(0)));
    simdjson::dom::parser parser;
    for (auto pass : state)
        benchmark::DoNotOptimize(parser.parse(json).error());
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(json.size()));
    state.counters["bytes"] = static_cast<double>(json.size());
}
BENCHMARK(bareParse)->Arg(usual)->Arg(huge);

void decodeToRecords(benchmark::State& state) {
    std::string json = document(state.range(0));
    for (auto pass : state) {
        const auto data = decodeSnapshotInPlace(json);
        if (!data)
            state.SkipWithError("the document is unreadable");
        benchmark::DoNotOptimize(data);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(json.size()));
    state.counters["bytes"] = static_cast<double>(json.size());
}
BENCHMARK(decodeToRecords)->Arg(usual)->Arg(huge);

/// The bare parse as a process pays for it that has just started: with a parser made for the text.
void bareParseByNewParser(benchmark::State& state) {
    const simdjson::padded_string json(document(state.range(0)));
    for (auto pass : state) {
        simdjson::dom::parser parser;
        benchmark::DoNotOptimize(parser.parse(json).error());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(json.size()));
}
BENCHMARK(bareParseByNewParser)->Arg(usual)->Arg(huge);

/// What the records cost without any reading: the room for their texts, and giving it back.
void copyRecords(benchmark::State& state) {
    const std::string json = document(state.range(0));
    const auto data = decodeSnapshot(json);
    for (auto pass : state)
        benchmark::DoNotOptimize(WidgetData(*data));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(json.size()));
}
BENCHMARK(copyRecords)->Arg(usual)->Arg(huge);

}  // namespace
}  // namespace kelmar::shared
