#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "Kit/Metrics.h"
#include "Layout/Layout.h"
#include "Widget/Colors.h"
#include "Widget/TimerView.h"
#include "tests/Support/FixedWidthMeasurer.h"
#include "tests/Support/Timers.h"

namespace kelmar::widget {
namespace {

using testing::TestSurroundings;

/// Words of few letters and of many, as planners and languages have them.
std::string anyWords() {
    const auto word =
        rc::gen::element<std::string>("a", "of", "Math", "History", "Placement", "Fortsetzen",
                                      "Donaudampfschifffahrtsgesellschaft");
    std::string text;
    for (const std::string& next : *rc::gen::container<std::vector<std::string>>(word))
        text += (text.empty() ? "" : " ") + next;
    return text;
}

shared::WidgetData::Timer anyTimer() {
    auto timer = testing::readyTimer();
    timer.state = *rc::gen::element<std::string>("running", "paused", "ready", "asleep");
    timer.ringing = *rc::gen::arbitrary<bool>();
    timer.isBreak = *rc::gen::arbitrary<bool>();
    timer.total = *rc::gen::element(0.0, 1500.0, 7200.0, 1e9);
    timer.secsLeft = *rc::gen::element(0.0, 750.0, 7200.0, 1e9);
    if (*rc::gen::arbitrary<bool>())
        timer.endAt = TestSurroundings::usualNow + *rc::gen::element(-5.0, 600.0, 40'000.0);
    timer.className = anyWords();
    timer.sessionTitle = anyWords();
    timer.presets = *rc::gen::container<std::vector<std::int64_t>>(
        rc::gen::element<std::int64_t>(5, 25, 1000, -15));
    return timer;
}

TEST(TimerFit, EverythingStaysInsideTheWidgetWhateverThePlannerSays) {
    const TestSurroundings test;
    const testing::FixedWidthMeasurer measurer;
    EXPECT_TRUE(rc::check([&] {
        const auto data =
            std::make_shared<const shared::WidgetData>(testing::snapshotWith(anyTimer()));
        const TimerEntry entry{.date = TestSurroundings::usualNow, .data = data};
        for (const kit::Family family : {kit::Family::small, kit::Family::medium}) {
            const kit::Size room = kit::contentSize(family);
            const kit::Environment environment{.family = family, .contentSize = room};
            const kit::DrawnEntry drawn =
                TimerWidgetView(entry, environment, plannerAccent, breakGreen, test.surroundings)
                    .body();
            for (const layout::PlacedBox& box :
                 layout::layOut(drawn.content, {room.width, room.height}, measurer,
                                layout::Direction::leftToRight)) {
                RC_ASSERT(box.rect.x >= -0.001);
                RC_ASSERT(box.rect.y >= -0.001);
                RC_ASSERT(box.rect.right() <= room.width + 0.001);
                RC_ASSERT(box.rect.bottom() <= room.height + 0.001);
            }
        }
    }));
}

}  // namespace
}  // namespace kelmar::widget
