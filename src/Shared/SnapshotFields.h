#pragma once

#include "Shared/RecordFields.h"
#include "Shared/WidgetData.h"

/// The JSON form of the snapshot's records.
namespace kelmar::shared {

template <>
struct Fields<WidgetData::Item> {
    using Record = WidgetData::Item;
    static constexpr std::tuple all{
        Field{"id", &Record::id},
        Field{"title", &Record::title},
        Field{"className", &Record::className},
        Field{"classColor", &Record::classColor},
        Field{"due", &Record::due},
        Field{"hasTime", &Record::hasTime},
    };
};

template <>
struct Fields<WidgetData::ScheduleDay::Block> {
    using Record = WidgetData::ScheduleDay::Block;
    static constexpr std::tuple all{
        Field{"kind", &Record::kind},
        Field{"start", &Record::start},
        Field{"end", &Record::end},
        Field{"title", &Record::title},
        Field{"color", &Record::color},
        Field{"done", &Record::done},
        Field{"assignmentId", &Record::assignmentId},
        Field{"classId", &Record::classId},
    };
};

template <>
struct Fields<WidgetData::ScheduleDay> {
    using Record = WidgetData::ScheduleDay;
    static constexpr std::tuple all{
        Field{"day", &Record::day},
        Field{"labels", &Record::labels},
        Field{"blocks", &Record::blocks},
    };
};

template <>
struct Fields<WidgetData::Timer> {
    using Record = WidgetData::Timer;
    static constexpr std::tuple all{
        Field{"state", &Record::state},
        Field{"ringing", &Record::ringing},
        Field{"total", &Record::total},
        Field{"secsLeft", &Record::secsLeft},
        Field{"endAt", &Record::endAt},
        Field{"isBreak", &Record::isBreak},
        Field{"className", &Record::className},
        Field{"classColor", &Record::classColor},
        Field{"sessionTitle", &Record::sessionTitle},
        Field{"presets", &Record::presets},
    };
};

template <>
struct Fields<WidgetData::Streak> {
    using Record = WidgetData::Streak;
    static constexpr std::tuple all{
        Field{"count", &Record::count},           Field{"best", &Record::best},
        Field{"lastDate", &Record::lastDate},     Field{"hist", &Record::hist},
        Field{"freezeNext", &Record::freezeNext},
    };
};

template <>
struct Fields<WidgetData> {
    using Record = WidgetData;
    static constexpr std::tuple all{
        Field{"updated", &Record::updated},   Field{"signedIn", &Record::signedIn},
        Field{"today", &Record::today},       Field{"upcoming", &Record::upcoming},
        Field{"schedule", &Record::schedule}, Field{"timer", &Record::timer},
        Field{"streak", &Record::streak},
    };
};

}  // namespace kelmar::shared
