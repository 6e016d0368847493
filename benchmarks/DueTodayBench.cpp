// How a timeline request of Due Today grows with the assignments and with the tick files.

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <fmt/format.h>
#include <string>

#include "Shared/WidgetTicks.h"
#include "benchmarks/MeasuredExtension.h"
#include "tests/Support/TemporaryFolder.h"

namespace kelmar::benchmarks {
namespace {

using testing::TestSurroundings;

constexpr int usualItems = 60;

void publishItems(TestSurroundings& test, std::int64_t count) {
    std::vector<shared::WidgetData::Item> today;
    std::vector<shared::WidgetData::Item> upcoming;
    for (int number = 0; number < count; ++number) {
        auto item = testing::item(fmt::format("assignment-{}", number),
                                  test.at(20, number % 60, number % 10));
        item.title = fmt::format("Chapter {} reading and questions", number);
        (number % 10 == 0 ? today : upcoming).push_back(std::move(item));
    }
    test.publish(testing::snapshotOf(std::move(today), std::move(upcoming)));
}

void requestTimelines(benchmark::State& state, TestSurroundings& test,
                      system::Folder& tickedFolder) {
    MeasuredExtension extension(test, tickedFolder);
    const std::string request = timelineRequest("DueToday", kit::Family::large);
    for (auto _ : state)
        benchmark::DoNotOptimize(extension.answer(request).data());
}

void assignments(benchmark::State& state) {
    TestSurroundings test;
    publishItems(test, state.range(0));
    requestTimelines(state, test, test.tickedFolder);
    state.SetComplexityN(state.range(0));
}
BENCHMARK(assignments)->RangeMultiplier(10)->Range(10, 100'000)->Complexity(benchmark::oN);

/// With real files, because a folder in memory would hide what listing and reading cost.
void tickFiles(benchmark::State& state) {
    TestSurroundings test;
    publishItems(test, usualItems);
    const testing::TemporaryFolder temporary;
    system::DiskFolder tickedFolder(temporary.path());
    for (int number = 0; number < state.range(0); ++number) {
        const shared::WidgetTicks::Note note{.title = "Done", .at = test.clock.now() + -60};
        if (!shared::WidgetTicks(tickedFolder).write(fmt::format("ticked-{}", number), note))
            std::abort();
    }
    requestTimelines(state, test, tickedFolder);
}
BENCHMARK(tickFiles)->Arg(0)->Arg(10)->Arg(100)->Arg(1000)->Arg(10'000);

}  // namespace
}  // namespace kelmar::benchmarks
