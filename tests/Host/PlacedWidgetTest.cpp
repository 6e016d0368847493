#include <gtest/gtest.h>
#include <vector>

#include "Host/PlacedWidget.h"
#include "tests/Host/Contents.h"

namespace kelmar::host {
namespace {

class PlacedWidgetTest : public testing::Test {
protected:
    [[nodiscard]] std::string shownText() const {
        return widget_.shown() != nullptr ? textOf(*widget_.shown()) : "nothing";
    }

    PlacedWidget widget_{"Clock", {}, HostLimits{}};
};

TEST_F(PlacedWidgetTest, ShowsNothingThenThePlaceholderThenTheTimeline) {
    EXPECT_EQ(shownText(), "nothing");
    EXPECT_FALSE(widget_.showsPlaceholder());
    EXPECT_EQ(widget_.takePlaceholder(entry(0, "redacted")), Looks::different);
    EXPECT_EQ(shownText(), "redacted");
    EXPECT_TRUE(widget_.showsPlaceholder());
    EXPECT_EQ(widget_.takeTimeline(timeline({entry(10, "ten")}), at(15)), Looks::different);
    EXPECT_EQ(shownText(), "ten");
    EXPECT_FALSE(widget_.showsPlaceholder());
}

TEST_F(PlacedWidgetTest, APlaceholderThatComesLateIsIgnored) {
    EXPECT_EQ(widget_.takeTimeline(timeline({entry(10, "ten")}), at(15)), Looks::different);
    EXPECT_EQ(widget_.takePlaceholder(entry(0, "redacted")), Looks::same);
    EXPECT_EQ(shownText(), "ten");
}

TEST_F(PlacedWidgetTest, LooksDifferentWhenTheRedactionGoesThoughTheContentIsTheSame) {
    EXPECT_EQ(widget_.takePlaceholder(entry(0, "same")), Looks::different);
    EXPECT_EQ(widget_.takeTimeline(timeline({entry(10, "same")}), at(15)), Looks::different);
}

TEST_F(PlacedWidgetTest, LooksTheSameWhenOnlyTheDateOfTheEntryIsAnother) {
    EXPECT_EQ(widget_.takeTimeline(timeline({entry(10, "same")}), at(15)), Looks::different);
    const auto* const address = widget_.shown();
    EXPECT_EQ(widget_.takeTimeline(timeline({entry(14, "same")}), at(15)), Looks::same);
    EXPECT_EQ(widget_.shown(), address);
    EXPECT_EQ(widget_.shown()->date, at(14));
}

TEST_F(PlacedWidgetTest, ChangesItsEntryAtTheDatesOfTheTimeline) {
    EXPECT_EQ(widget_.takeTimeline(timeline({entry(10, "ten"), entry(20, "twenty")}), at(15)),
              Looks::different);
    EXPECT_EQ(widget_.nextDate(at(15)), at(20));
    EXPECT_EQ(widget_.update(at(19)), Looks::same);
    EXPECT_EQ(widget_.update(at(20)), Looks::different);
    EXPECT_EQ(shownText(), "twenty");
    EXPECT_EQ(widget_.nextDate(at(20)), std::nullopt);
}

TEST_F(PlacedWidgetTest, GoesBackToTheEarlierEntryWhenTheClockDoes) {
    EXPECT_EQ(widget_.takeTimeline(timeline({entry(10, "ten"), entry(20, "twenty")}), at(25)),
              Looks::different);
    EXPECT_EQ(widget_.update(at(12)), Looks::different);
    EXPECT_EQ(shownText(), "ten");
    EXPECT_EQ(widget_.nextDate(at(12)), at(20));
}

TEST_F(PlacedWidgetTest, IsDueForAnotherTimelineAtThePolicysDateOnce) {
    static_cast<void>(
        widget_.takeTimeline(timeline({entry(10, "ten")}, kit::ReloadAfter{at(50)}), at(15)));
    EXPECT_EQ(widget_.nextDate(at(15)), at(50));
    EXPECT_FALSE(widget_.takeReloadDue(at(49)));
    EXPECT_TRUE(widget_.takeReloadDue(at(50)));
    EXPECT_FALSE(widget_.takeReloadDue(at(51)));
    EXPECT_EQ(widget_.nextDate(at(51)), std::nullopt);
}

TEST_F(PlacedWidgetTest, WaitsLongerAndLongerWhenThePolicysDateHasAlwaysPassed) {
    std::vector<double> waits;
    for (double now = 100; waits.size() < 4;) {
        static_cast<void>(widget_.takeTimeline(
            timeline({entry(10, "ten")}, kit::ReloadAfter{at(now - 1)}), at(now)));
        waits.push_back(*widget_.nextDate(at(now)) - at(now));
        now += waits.back();
        EXPECT_TRUE(widget_.takeReloadDue(at(now)));
    }
    EXPECT_EQ(waits, (std::vector<double>{1, 2, 4, 8}));
}

TEST_F(PlacedWidgetTest, KeepsTheLastGoodTimelineAndTriesAgainLaterWhenOneIsRefused) {
    static_cast<void>(widget_.takeTimeline(timeline({entry(10, "ten")}), at(15)));
    widget_.refuseTimeline(at(100));
    EXPECT_EQ(shownText(), "ten");
    EXPECT_EQ(widget_.nextDate(at(100)), at(101));
    EXPECT_TRUE(widget_.takeReloadDue(at(101)));
    widget_.refuseTimeline(at(101));
    EXPECT_EQ(widget_.nextDate(at(101)), at(103));
}

TEST_F(PlacedWidgetTest, IsOutdatedSinceItsTimelineCameWhenANewerOneCouldNotBeHad) {
    widget_.refuseTimeline(at(10));
    EXPECT_EQ(widget_.outdatedSince(at(103)), std::nullopt) << "It shows no timeline";
    static_cast<void>(widget_.takeTimeline(timeline({entry(10, "ten")}), at(15)));
    EXPECT_EQ(widget_.outdatedSince(at(103)), std::nullopt);
    widget_.refuseTimeline(at(100));
    EXPECT_EQ(widget_.outdatedSince(at(103)), at(15));
    static_cast<void>(widget_.takeTimeline(timeline({entry(10, "ten")}), at(101)));
    EXPECT_EQ(widget_.outdatedSince(at(103)), std::nullopt);
    EXPECT_TRUE(widget_.beginReload(at(102)));
    EXPECT_EQ(widget_.outdatedSince(at(103)), std::nullopt)
        << "The extension has its time to answer";
    EXPECT_EQ(widget_.outdatedSince(at(107)), std::nullopt);
    EXPECT_EQ(widget_.outdatedSince(at(108)), at(101)) << "It never even got to be asked";
    widget_.continueReload();
    EXPECT_EQ(widget_.outdatedSince(at(103)), at(101));
}

TEST_F(PlacedWidgetTest, ATimelineThatIsAcceptedEndsTheTrying) {
    widget_.refuseTimeline(at(100));
    widget_.refuseTimeline(at(101));
    static_cast<void>(widget_.takeTimeline(timeline({entry(10, "ten")}), at(102)));
    EXPECT_EQ(widget_.nextDate(at(102)), std::nullopt);
    widget_.refuseTimeline(at(200));
    EXPECT_EQ(widget_.nextDate(at(200)), at(201));
}

TEST_F(PlacedWidgetTest, AFaultIsNewsUntilAGoodTimelineComes) {
    using enum kit::EntryKind;
    EXPECT_TRUE(widget_.noteFault(placeholder, "no such widget"));
    EXPECT_TRUE(widget_.noteFault(timeline, "no such widget"));
    EXPECT_FALSE(widget_.noteFault(placeholder, "no such widget"));
    EXPECT_FALSE(widget_.noteFault(timeline, "no such widget"));
    EXPECT_TRUE(widget_.noteFault(timeline, "no entries"));
    static_cast<void>(widget_.takeTimeline(host::timeline({entry(10, "ten")}), at(15)));
    EXPECT_TRUE(widget_.noteFault(timeline, "no entries"));
}

TEST_F(PlacedWidgetTest, AsksOnceMoreForAllThatHappenedWhileATimelineWasOutstanding) {
    EXPECT_TRUE(widget_.beginReload(at(102)));
    EXPECT_FALSE(widget_.beginReload(at(102)));
    EXPECT_FALSE(widget_.beginReload(at(102)));
    EXPECT_TRUE(widget_.endReload());
    EXPECT_TRUE(widget_.beginReload(at(102)));
    EXPECT_FALSE(widget_.endReload());
}

TEST_F(PlacedWidgetTest, ARequestThatIsMadeAnewCoversWhatWasWantedMeanwhile) {
    EXPECT_TRUE(widget_.beginReload(at(102)));
    EXPECT_FALSE(widget_.beginReload(at(102)));
    widget_.continueReload();
    EXPECT_FALSE(widget_.endReload());
}

TEST_F(PlacedWidgetTest, AskingForAnotherReasonSparesTheDateOfThePolicy) {
    static_cast<void>(
        widget_.takeTimeline(timeline({entry(10, "ten")}, kit::ReloadAfter{at(50)}), at(15)));
    EXPECT_TRUE(widget_.beginReload(at(102)));
    EXPECT_FALSE(widget_.takeReloadDue(at(50)));
}

TEST_F(PlacedWidgetTest, IsNamedByKindAndFamily) {
    EXPECT_EQ(widget_.name(), "Clock (small)");
    widget_.setEnvironment({.family = kit::Family::large, .contentSize = {}, .renderingMode = {}});
    EXPECT_EQ(widget_.name(), "Clock (large)");
}

}  // namespace
}  // namespace kelmar::host
