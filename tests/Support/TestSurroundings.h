#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Shared/PlannerFiles.h"
#include "Shared/SnapshotCoding.h"
#include "System/Calendar.h"
#include "System/Clock.h"
#include "System/LocaleTexts.h"
#include "System/Localization.h"
#include "Widget/Surroundings.h"
#include "tests/Support/MemoryFolder.h"

namespace kelmar::testing {

/// An app link that only remembers, and completes at once or when it is told to.
class RecordingAppLink final : public widget::AppLink {
public:
    void open(const std::string& url, widget::Completion completed) override {
        urls.push_back(url);
        if (completesAtOnce) {
            completed();
        } else {
            outstanding.push_back(std::move(completed));
        }
    }

    std::vector<std::string> urls;
    std::vector<widget::Completion> outstanding;
    bool completesAtOnce = true;
};

/// Surroundings in memory. The usual ones: New York in US English, on 2025-10-09 at 15:00, a
/// Thursday.
class TestSurroundings {
public:
    explicit TestSurroundings(const std::string& locale = "en_US",
                              const std::string& timeZone = "America/New_York")
        : calendar(system::makeCalendar(locale, timeZone)), localeTexts(locale, timeZone) {}

    /// Puts the snapshot where the planner would.
    void publish(const shared::WidgetData& data) {
        plannerFolder.put(shared::snapshotName, shared::encodeSnapshot(data));
    }

    /// A moment of the usual day or `days` later, on the wall clock of the surroundings.
    [[nodiscard]] system::Date at(int hour, int minute = 0, int days = 0) const {
        const auto day = calendar->addingDays(calendar->startOfDay(usualNow), days);
        return calendar->settingTime(day.value(), hour, minute);
    }

    static constexpr system::Date usualNow = system::Date::since1970(1'760'036'400);

    system::ManualClock clock{usualNow};
    std::unique_ptr<system::Calendar> calendar;
    system::LocaleTexts localeTexts;
    system::EnglishLocalization localization;
    MemoryFolder plannerFolder;
    MemoryFolder tickedFolder;
    RecordingAppLink appLink;
    widget::Surroundings surroundings{.clock = clock,
                                      .calendar = *calendar,
                                      .localeTexts = localeTexts,
                                      .localization = localization,
                                      .plannerFolder = plannerFolder,
                                      .tickedFolder = tickedFolder,
                                      .appLink = appLink};
};

/// An assignment whose other fields do not matter.
[[nodiscard]] inline shared::WidgetData::Item item(const std::string& id, system::Date due) {
    return {.id = id,
            .title = "Title " + id,
            .className = "Biology",
            .classColor = "#10B981",
            .due = due,
            .hasTime = true};
}

[[nodiscard]] inline shared::WidgetData snapshotOf(
    std::vector<shared::WidgetData::Item> today,
    std::vector<shared::WidgetData::Item> upcoming = {}) {
    shared::WidgetData data;
    data.updated = TestSurroundings::usualNow;
    data.signedIn = true;
    data.today = std::move(today);
    data.upcoming = std::move(upcoming);
    return data;
}

}  // namespace kelmar::testing
