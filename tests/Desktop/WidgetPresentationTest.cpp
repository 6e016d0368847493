#include "Desktop/WidgetPresentation.h"
#include "tests/Desktop/DesktopTest.h"
#include "tests/Host/Contents.h"

namespace kelmar::desktop {
namespace {

const kit::Bundle bundle{.widgets = {{.kind = "DueToday",
                                      .displayName = "Due Today",
                                      .description = "",
                                      .families = {kit::Family::medium}}},
                         .controls = {}};

class WidgetPresentationTest : public DesktopTest {
protected:
    host::WidgetId add() { return host_.add("DueToday", look_.environment(kit::Family::medium)); }

    /// The place of the latest request for a timeline among all requests.
    std::size_t timelineRequest() {
        const std::vector<kit::Request> requests = launcher_.last().requests();
        std::size_t latest = 0;
        for (std::size_t place = 0; place < requests.size(); ++place) {
            const auto* entry = std::get_if<kit::EntryRequest>(&requests[place].body);
            if (entry != nullptr && entry->entryKind == kit::EntryKind::timeline) {
                latest = place;
            }
        }
        return latest;
    }

    void answerTimeline() {
        launcher_.last().answer(timelineRequest(),
                                kit::encodeTimeline(host::timeline({host::entry(0, "Essay")})));
    }

    const WidgetContent& filled(host::WidgetId id) {
        presentation_.fill(window_, id);
        return window_.content();
    }

    WidgetPresentation presentation_{desktopParts_};
    WidgetWindow window_{kit::Family::medium, clock_};
};

TEST_F(WidgetPresentationTest, WidgetIsCalledByItsKindUntilTheExtensionNamesIt) {
    add();
    EXPECT_FALSE(presentation_.isOffered("DueToday"));
    EXPECT_EQ(presentation_.name("DueToday"), "DueToday");
    launcher_.last().introduce(bundle);
    EXPECT_TRUE(presentation_.isOffered("DueToday"));
    EXPECT_EQ(presentation_.name("DueToday"), "Due Today");
    EXPECT_FALSE(presentation_.isOffered("Duetoday"));
    EXPECT_EQ(presentation_.name("Streak"), "Streak");
}

TEST_F(WidgetPresentationTest, EmptyCardStandsForContentThatHasNeverCome) {
    const WidgetContent& empty = filled(add());
    EXPECT_NE(empty.picture(), nullptr);
    EXPECT_EQ(empty.redaction(), paint::Redaction::redacted);
}

TEST_F(WidgetPresentationTest, ContentIsShownOnceItHasCome) {
    const host::WidgetId id = add();
    launcher_.last().introduce(bundle);
    answerTimeline();
    const WidgetContent& content = filled(id);
    EXPECT_EQ(content.redaction(), paint::Redaction::shown);
    EXPECT_FALSE(content.boxes().empty());
}

TEST_F(WidgetPresentationTest, AgeIsSaidOnlyOfWhatCouldNotBeBroughtUpToDate) {
    const host::WidgetId id = add();
    EXPECT_EQ(presentation_.age(id), "");
    launcher_.last().introduce(bundle);
    answerTimeline();
    clock_.set(clock_.now() + 12 * 60);
    EXPECT_EQ(presentation_.age(id), "");
    host_.reloadAll();
    launcher_.last().answerWithError(timelineRequest(), "no");
    EXPECT_EQ(presentation_.age(id), "Last updated 12 minutes ago");
    host_.reloadAll();
    answerTimeline();
    EXPECT_EQ(presentation_.age(id), "");
}

TEST_F(WidgetPresentationTest, ContentIsWrittenFromTheSideThatWasSetLast) {
    const host::WidgetId id = add();
    launcher_.last().introduce(bundle);
    answerTimeline();
    const double left = filled(id).boxes().back().rect.x;
    presentation_.setDirection(layout::Direction::rightToLeft);
    EXPECT_GE(filled(id).boxes().back().rect.x, left);
}

}  // namespace
}  // namespace kelmar::desktop
