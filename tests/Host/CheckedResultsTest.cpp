#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Host/CheckedResults.h"
#include "Kit/Protocol.h"
#include "tests/Host/Contents.h"

namespace kelmar::host {
namespace {

using testing::HasSubstr;

kit::Entry linking(const std::string& url) {
    auto linked = entry(10, "link");
    linked.view.content = kit::Link{url, linked.view.content};
    return linked;
}

TEST(CheckedResults, TakesWhatHasOnlyTheExtensionsUrls) {
    const auto good = timeline({entry(10, "ten"), linking("clock://now")}, kit::ReloadAfter{at(7)});
    const auto checked = checkedTimeline(kit::encodeTimeline(good), "clock");
    ASSERT_TRUE(checked) << checked.failure().reason;
    EXPECT_EQ(*checked, good);
}

TEST(CheckedResults, RefusesATimelineForOneForeignUrlInIt) {
    const auto bad = timeline({entry(10, "ten"), linking("https://example.org")});
    const auto checked = checkedTimeline(kit::encodeTimeline(bad), "clock");
    ASSERT_FALSE(checked);
    EXPECT_THAT(checked.failure().reason, HasSubstr("https://example.org"));
}

TEST(CheckedResults, RefusesAnEntryForTheForeignUrlOfTheWidgetItself) {
    auto bad = entry(10, "ten");
    bad.view.widgetUrl = "mailto:someone@example.org";
    const auto checked = checkedEntry(kit::encodeEntry(bad), "clock");
    ASSERT_FALSE(checked);
    EXPECT_THAT(checked.failure().reason, HasSubstr("mailto:someone@example.org"));
}

TEST(CheckedResults, RefusesWhatCannotBeDecoded) {
    for (const auto* const json : {"{}", "[]", "7", R"({"entries":[],"policy":"never"})",
                                   R"({"entries":[{"date":1}],"policy":"never"})"}) {
        EXPECT_FALSE(checkedTimeline(json, "clock")) << json;
        EXPECT_FALSE(checkedEntry(json, "clock")) << json;
    }
}

}  // namespace
}  // namespace kelmar::host
