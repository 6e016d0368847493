// Every widget from snapshot to pixels, step by step, in each of its families.

#include <QGuiApplication>
#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <string>

#include "Kit/Archive.h"
#include "Kit/Metrics.h"
#include "Layout/Layout.h"
#include "Paint/WidgetPicture.h"
#include "benchmarks/MeasuredExtension.h"
#include "tests/Support/Streaks.h"
#include "tests/Support/Timers.h"
#include "tests/Support/Timetables.h"

namespace kelmar::benchmarks {
namespace {

using testing::TestSurroundings;

/// A school day of so many blocks, one after the other from eight o'clock.
widget::ScheduleDay schoolDay(const TestSurroundings& test, int day, int blocks) {
    constexpr system::Seconds fiveMinutes = 300;
    std::vector<widget::ScheduleBlock> all;
    for (int number = 0; number < blocks; ++number) {
        const system::Date start = test.at(8, 0, day) + number * 2 * fiveMinutes;
        all.push_back(testing::block(fmt::format("Period {}", number), start, start + fiveMinutes));
    }
    return testing::dayOf(test.at(0, 0, day), std::move(all), {"A Day"});
}

/// A usual student's snapshot: something to show in every widget.
shared::WidgetData usualSnapshot(const TestSurroundings& test) {
    std::vector<shared::WidgetData::Item> upcoming;
    for (int number = 0; number < 60; ++number)
        upcoming.push_back(testing::item(fmt::format("assignment-{}", number),
                                         test.at(20, number % 60, number / 6)));
    shared::WidgetData data = testing::snapshotOf({}, std::move(upcoming));
    data.schedule.emplace();
    for (int day = 0; day < 5; ++day)
        data.schedule->push_back(schoolDay(test, day, 6));
    data.timer = testing::runningTimer();
    data.streak = testing::streakOf(12, testing::usualDay);
    return data;
}

void requestTimelines(benchmark::State& state, const std::string& kind, kit::Family family,
                      const shared::WidgetData& data) {
    TestSurroundings test;
    test.publish(data);
    MeasuredExtension extension(test, test.tickedFolder);
    const std::string request = timelineRequest(kind, family);
    for (auto _ : state)
        benchmark::DoNotOptimize(extension.answer(request).data());
}

/// One picture of a widget that the later steps start from.
struct Scene {
    std::string kind;
    kit::Family family;

    [[nodiscard]] kit::DrawnEntry entry() const {
        static TestSurroundings test;
        test.publish(usualSnapshot(test));
        static const widget::PlannerWidgets widgets(test.surroundings);
        return widgets.widget(kind)->timeline().entries.front().draw(
            {.family = family, .contentSize = kit::contentSize(family)});
    }
};

void archive(benchmark::State& state, const Scene& scene) {
    const kit::DrawnEntry entry = scene.entry();
    for (auto _ : state) {
        const auto decoded = kit::decodeDrawnEntry(kit::encodeDrawnEntry(entry));
        benchmark::DoNotOptimize(decoded->background);
    }
}

const paint::PaintResources& resources() {
    static const paint::PaintResources all{paint::FontSet("Inter", "Quicksand")};
    return all;
}

void layOut(benchmark::State& state, const Scene& scene) {
    const kit::DrawnEntry entry = scene.entry();
    for (auto _ : state) {
        const auto boxes = layout::layOut(entry.content, kit::contentSize(scene.family),
                                          resources().measurer(), layout::Direction::leftToRight);
        benchmark::DoNotOptimize(boxes.data());
    }
}

void paintPicture(benchmark::State& state, const Scene& scene) {
    const paint::WidgetPicture picture(scene.entry(), scene.family, layout::Direction::leftToRight,
                                       resources());
    for (auto _ : state) {
        const QImage image = picture.image({}, TestSurroundings::usualNow);
        benchmark::DoNotOptimize(image.constBits());
    }
}

void addWidget(const kit::WidgetDescriptor& widget) {
    using Step = void (*)(benchmark::State&, const Scene&);
    const TestSurroundings test;
    for (const kit::Family family : widget.families) {
        const std::string place = "/" + widget.kind + "/" + std::string(kit::nameOf(family));
        benchmark::RegisterBenchmark(("timeline" + place).c_str(), requestTimelines, widget.kind,
                                     family, usualSnapshot(test))
            ->Unit(benchmark::kMicrosecond);
        for (const auto& [step, name] : {std::pair<Step, const char*>{archive, "archive"},
                                         {layOut, "layout"},
                                         {paintPicture, "paint"}})
            benchmark::RegisterBenchmark((std::string(name) + place).c_str(), step,
                                         Scene{widget.kind, family})
                ->Unit(benchmark::kMicrosecond);
    }
}

/// A planner that never forgets a day, on a day that is cut as small as can be.
void addCrowdedSchedule() {
    const TestSurroundings test;
    shared::WidgetData crowded = usualSnapshot(test);
    crowded.schedule->clear();
    for (int day = -400; day < 0; ++day)
        crowded.schedule->push_back(schoolDay(test, day, 6));
    crowded.schedule->push_back(schoolDay(test, 0, 60));
    benchmark::RegisterBenchmark("timeline/Schedule/large/400 past days, 60 blocks",
                                 requestTimelines, "Schedule", kit::Family::large, crowded)
        ->Unit(benchmark::kMicrosecond);
}

}  // namespace
}  // namespace kelmar::benchmarks

int main(int argc, char** argv) {
    using namespace kelmar;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    testing::TestSurroundings test;
    for (const auto& widget : widget::PlannerWidgets(test.surroundings).bundle("26.0.0").widgets)
        benchmarks::addWidget(widget);
    benchmarks::addCrowdedSchedule();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
