#include <gtest/gtest.h>
#include <limits>

#include "Widget/Intents.h"
#include "Widget/TimerIntents.h"
#include "tests/Support/TestSurroundings.h"

namespace kelmar::widget {
namespace {

using testing::TestSurroundings;
using Urls = std::vector<std::string>;

/// Runs an action and tells whether it ended well.
template <class Action>
bool endsWell(const Action& action, TestSurroundings& test) {
    bool succeeded = false;
    action.perform(test.surroundings, [&](const system::Result<system::Done>& outcome) {
        succeeded = static_cast<bool>(outcome);
    });
    return succeeded;
}

TEST(TimerRun, SendsOnAndOff) {
    TestSurroundings test;
    EXPECT_TRUE(endsWell(TimerRunIntent{.run = true}, test));
    EXPECT_TRUE(endsWell(TimerRunIntent{.run = false}, test));
    EXPECT_EQ(test.appLink.urls, (Urls{"kelmarplanner://timer/on", "kelmarplanner://timer/off"}));
}

TEST(TimerControl, SendsTheSameAsTheWidgetsButtons) {
    TestSurroundings test;
    EXPECT_TRUE(endsWell(TimerControlIntent{.value = true}, test));
    EXPECT_TRUE(endsWell(TimerControlIntent{.value = false}, test));
    EXPECT_EQ(test.appLink.urls, (Urls{"kelmarplanner://timer/on", "kelmarplanner://timer/off"}));
}

struct PresetRow {
    std::int64_t minutes;
    const char* url;
};

TEST(TimerPreset, SendsItsMinutesAsAPlainNumber) {
    for (const PresetRow& row : {PresetRow{25, "kelmarplanner://timer/start?mins=25"},
                                 {5, "kelmarplanner://timer/start?mins=5"},
                                 {0, "kelmarplanner://timer/start?mins=0"},
                                 {-5, "kelmarplanner://timer/start?mins=-5"},
                                 {100000, "kelmarplanner://timer/start?mins=100000"},
                                 {std::numeric_limits<std::int64_t>::min(),
                                  "kelmarplanner://timer/start?mins=-9223372036854775808"}}) {
        TestSurroundings test;
        EXPECT_TRUE(endsWell(TimerPresetIntent{.minutes = row.minutes}, test));
        EXPECT_EQ(test.appLink.urls, Urls{row.url});
    }
}

TEST(TimerIntents, SendTheirCommandsInTheOrderInWhichTheyArePressed) {
    TestSurroundings test;
    test.appLink.completesAtOnce = false;
    std::vector<int> ended;
    const auto press = [&](const auto& action, int number) {
        action.perform(test.surroundings,
                       [&ended, number](const system::Result<system::Done>& outcome) {
                           ended.push_back(outcome ? number : -number);
                       });
    };
    press(TimerRunIntent{.run = true}, 1);
    press(TimerRunIntent{.run = false}, 2);
    press(TimerPresetIntent{.minutes = 15}, 3);
    press(TimerRunIntent{.run = false}, 4);
    EXPECT_EQ(test.appLink.urls,
              (Urls{"kelmarplanner://timer/on", "kelmarplanner://timer/off",
                    "kelmarplanner://timer/start?mins=15", "kelmarplanner://timer/off"}));
    // None has ended: each waits for its own open request, in whatever order those complete.
    EXPECT_TRUE(ended.empty());
    for (const std::size_t index : {1U, 0U, 3U, 2U})
        test.appLink.outstanding[index]();
    EXPECT_EQ(ended, (std::vector{2, 1, 4, 3}));
}

TEST(TimerIntents, LeaveTheSnapshotAndTheTicksAlone) {
    TestSurroundings test;
    EXPECT_TRUE(endsWell(TimerRunIntent{.run = true}, test));
    EXPECT_TRUE(endsWell(TimerPresetIntent{.minutes = 5}, test));
    EXPECT_TRUE(endsWell(TimerControlIntent{.value = true}, test));
    EXPECT_TRUE(test.plannerFolder.calls().empty());
    EXPECT_TRUE(test.tickedFolder.calls().empty());
}

TEST(TimerIntents, DescribeThemselves) {
    EXPECT_EQ(TimerRunIntent{.run = true}.described(),
              (kit::Intent{.name = "TimerRunIntent", .parameters = {{"run", true}}}));
    EXPECT_EQ(
        TimerPresetIntent{.minutes = 25}.described(),
        (kit::Intent{.name = "TimerPresetIntent", .parameters = {{"minutes", std::int64_t{25}}}}));
    EXPECT_EQ(TimerControlIntent{.value = false}.described(),
              (kit::Intent{.name = "TimerControlIntent", .parameters = {{"value", false}}}));
}

TEST(TimerIntents, RunFromTheirDescriptions) {
    TestSurroundings test;
    for (const kit::Intent& intent :
         {TimerRunIntent{.run = false}.described(), TimerPresetIntent{.minutes = 50}.described(),
          TimerControlIntent{.value = true}.described()}) {
        bool succeeded = false;
        performIntent(intent, test.surroundings, [&](const system::Result<system::Done>& outcome) {
            succeeded = static_cast<bool>(outcome);
        });
        EXPECT_TRUE(succeeded) << intent.name;
    }
    EXPECT_EQ(test.appLink.urls,
              (Urls{"kelmarplanner://timer/off", "kelmarplanner://timer/start?mins=50",
                    "kelmarplanner://timer/on"}));
}

}  // namespace
}  // namespace kelmar::widget
