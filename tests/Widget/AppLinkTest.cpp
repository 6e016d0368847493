#include <gtest/gtest.h>

#include "Widget/AppLink.h"
#include "tests/Support/TestSurroundings.h"

namespace kelmar::widget {
namespace {

using testing::RecordingAppLink;

TEST(TellApp, SendsTheUrlAndWaitsForTheOpenRequest) {
    RecordingAppLink link;
    link.completesAtOnce = false;
    bool isCompleted = false;
    tellApp(link, "kelmarplanner://ticked", [&] { isCompleted = true; });
    EXPECT_EQ(link.urls, std::vector<std::string>{"kelmarplanner://ticked"});
    EXPECT_FALSE(isCompleted);
    link.outstanding.front()();
    EXPECT_TRUE(isCompleted);
}

TEST(TellApp, SkipsATextThatIsNoUrlAndReturnsAtOnce) {
    for (const char* text : {"", "no url", "kelmarplanner://a b", "%zz", "://x"}) {
        RecordingAppLink link;
        bool isCompleted = false;
        tellApp(link, text, [&] { isCompleted = true; });
        EXPECT_TRUE(link.urls.empty()) << text;
        EXPECT_TRUE(isCompleted) << text;
    }
}

TEST(AskApp, PutsTheCommandBehindTheTimerAsItStands) {
    RecordingAppLink link;
    for (const char* command : {"on", "off", "start?mins=25"})
        askApp(link, command, [] {});
    EXPECT_EQ(link.urls,
              (std::vector<std::string>{"kelmarplanner://timer/on", "kelmarplanner://timer/off",
                                        "kelmarplanner://timer/start?mins=25"}));
}

TEST(AskApp, SkipsACommandThatMakesNoUrl) {
    RecordingAppLink link;
    bool isCompleted = false;
    askApp(link, "start now", [&] { isCompleted = true; });
    EXPECT_TRUE(link.urls.empty());
    EXPECT_TRUE(isCompleted);
}

TEST(TellApp, CallsMayOverlap) {
    RecordingAppLink link;
    link.completesAtOnce = false;
    std::string order;
    tellApp(link, "kelmarplanner://a", [&] { order += 'a'; });
    tellApp(link, "kelmarplanner://b", [&] { order += 'b'; });
    link.outstanding[1]();
    link.outstanding[0]();
    EXPECT_EQ(order, "ba");
}

}  // namespace
}  // namespace kelmar::widget
