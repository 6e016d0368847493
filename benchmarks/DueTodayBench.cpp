// A Due Today widget from snapshot to pixels, step by step, and how each step grows.

#include <QGuiApplication>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <fmt/format.h>
#include <string>

#include "Kit/Archive.h"
#include "Kit/Metrics.h"
#include "Layout/Layout.h"
#include "Paint/WidgetPicture.h"
#include "Shared/WidgetTicks.h"
#include "Widget/ExtensionServer.h"
#include "tests/Support/TestSurroundings.h"

namespace kelmar {
namespace {

using testing::TestSurroundings;

constexpr int usualItems = 60;

void publishItems(TestSurroundings& test, int count) {
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

/// A folder on disk that goes with its object.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern = std::filesystem::temp_directory_path() / "kelmar-bench-XXXXXX";
        if (::mkdtemp(pattern.data()) == nullptr) {
            std::abort();
        }
        path_ = pattern;
    }
    ~TemporaryFolder() { std::filesystem::remove_all(path_); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }

private:
    std::string path_;
};

/// A server whose snapshot is in memory and whose tick files are real, and what it answers to a
/// timeline request.
class Extension {
public:
    Extension(int items, int ticks) {
        publishItems(test_, items);
        for (int number = 0; number < ticks; ++number) {
            const shared::WidgetTicks::Note note{.title = "Done", .at = test_.clock.now() + -60};
            if (!shared::WidgetTicks(tickedFolder_).write(fmt::format("ticked-{}", number), note)) {
                std::abort();
            }
        }
    }

    const std::string& timeline() {
        test_.plannerFolder.forgetCalls();
        server_.receive(request_);
        return answer_;
    }

private:
    TestSurroundings test_;
    TemporaryFolder temporary_;
    system::DiskFolder tickedFolder_{temporary_.path()};
    std::string answer_;
    widget::SendLine keep_ = [this](const std::string& line) { answer_ = line; };
    widget::HostAppLink appLink_{keep_};
    widget::Surroundings surroundings_{.clock = test_.clock,
                                       .calendar = *test_.calendar,
                                       .localeTexts = test_.localeTexts,
                                       .localization = test_.localization,
                                       .plannerFolder = test_.plannerFolder,
                                       .tickedFolder = tickedFolder_,
                                       .appLink = appLink_};
    widget::ExtensionServer server_{surroundings_, appLink_, keep_};
    std::string request_ = kit::encodeRequest(
        {.id = 1,
         .body = kit::EntryRequest{
             .entryKind = kit::EntryKind::timeline,
             .widgetKind = "DueToday",
             .environment = {.family = kit::Family::large,
                             .contentSize = kit::contentSize(kit::Family::large)}}});
};

void timelineRequest(benchmark::State& state) {
    Extension extension(static_cast<int>(state.range(0)), 0);
    for (auto _ : state) {
        benchmark::DoNotOptimize(extension.timeline().data());
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(timelineRequest)->RangeMultiplier(10)->Range(10, 100'000)->Complexity(benchmark::oN);

void timelineRequestWithTicks(benchmark::State& state) {
    Extension extension(usualItems, static_cast<int>(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(extension.timeline().data());
    }
}
BENCHMARK(timelineRequestWithTicks)->Arg(0)->Arg(10)->Arg(100)->Arg(1000)->Arg(10'000);

/// The entry that the picture benchmarks draw.
kit::DrawnEntry usualEntry(kit::Family family) {
    static TestSurroundings test;
    publishItems(test, usualItems);
    const widget::PlannerWidgets widgets(test.surroundings);
    return widgets.widget("DueToday")
        ->timeline()
        .entries.front()
        .draw({.family = family, .contentSize = kit::contentSize(family)});
}

kit::Family familyOf(const benchmark::State& state) {
    return kit::families.at(static_cast<std::size_t>(state.range(0)));
}

void archive(benchmark::State& state) {
    const kit::DrawnEntry entry = usualEntry(familyOf(state));
    for (auto _ : state) {
        const std::string json = kit::encodeDrawnEntry(entry);
        const auto decoded = kit::decodeDrawnEntry(json);
        benchmark::DoNotOptimize(decoded->background);
    }
}
BENCHMARK(archive)->DenseRange(0, 2);

const paint::PaintResources& resources() {
    static const paint::PaintResources all{paint::FontSet("Inter", "Quicksand")};
    return all;
}

void layOut(benchmark::State& state) {
    const kit::Family family = familyOf(state);
    const kit::DrawnEntry entry = usualEntry(family);
    for (auto _ : state) {
        const auto boxes = layout::layOut(entry.content, kit::contentSize(family),
                                          resources().measurer(), layout::Direction::leftToRight);
        benchmark::DoNotOptimize(boxes.data());
    }
}
BENCHMARK(layOut)->DenseRange(0, 2);

void paintPicture(benchmark::State& state) {
    const kit::Family family = familyOf(state);
    const paint::WidgetPicture picture(usualEntry(family), family, layout::Direction::leftToRight,
                                       resources());
    for (auto _ : state) {
        const QImage image = picture.image({}, TestSurroundings::usualNow);
        benchmark::DoNotOptimize(image.constBits());
    }
}
BENCHMARK(paintPicture)->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace kelmar

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
