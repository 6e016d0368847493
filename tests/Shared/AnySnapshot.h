#pragma once

#include <rapidcheck.h>
#include <string>

#include "Shared/WidgetData.h"

namespace kelmar::shared {

/// Any text that UTF-8 can write, zero bytes, control characters and all planes included.
inline rc::Gen<std::string> anyText() {
    const auto codePoint = rc::gen::oneOf(
        rc::gen::inRange<char32_t>(0, 0x80), rc::gen::inRange<char32_t>(0x80, 0x800),
        rc::gen::inRange<char32_t>(0x800, 0xD800), rc::gen::inRange<char32_t>(0xE000, 0x10000),
        rc::gen::inRange<char32_t>(0x10000, 0x110000));
    return rc::gen::map(rc::gen::container<std::u32string>(codePoint), [](const auto& codePoints) {
        std::string utf8;
        const auto add = [&](char32_t bits) { utf8 += static_cast<char>(bits); };
        for (const char32_t code : codePoints) {
            if (code < 0x80) {
                add(code);
            } else if (code < 0x800) {
                add(0xC0 | code >> 6), add(0x80 | (code & 0x3F));
            } else if (code < 0x10000) {
                add(0xE0 | code >> 12), add(0x80 | (code >> 6 & 0x3F)), add(0x80 | (code & 0x3F));
            } else {
                add(0xF0 | code >> 18), add(0x80 | (code >> 12 & 0x3F));
                add(0x80 | (code >> 6 & 0x3F)), add(0x80 | (code & 0x3F));
            }
        }
        return utf8;
    });
}

inline rc::Gen<system::Date> anyDate() {
    return rc::gen::map(rc::gen::arbitrary<double>(),
                        [](double seconds) { return system::Date::since1970(seconds); });
}

template <class T>
rc::Gen<std::optional<T>> perhaps(rc::Gen<T> generator) {
    return rc::gen::mapcat(rc::gen::arbitrary<bool>(), [=](bool isThere) {
        return isThere ? rc::gen::map(generator, [](T value) { return std::optional<T>(value); })
                       : rc::gen::just(std::optional<T>());
    });
}

template <class T>
rc::Gen<std::vector<T>> listOf(rc::Gen<T> generator) {
    return rc::gen::container<std::vector<T>>(std::move(generator));
}

inline rc::Gen<WidgetData::Item> anyItem() {
    using Item = WidgetData::Item;
    return rc::gen::build<Item>(
        rc::gen::set(&Item::id, anyText()), rc::gen::set(&Item::title, anyText()),
        rc::gen::set(&Item::className, anyText()), rc::gen::set(&Item::classColor, anyText()),
        rc::gen::set(&Item::due, anyDate()), rc::gen::set(&Item::hasTime));
}

inline rc::Gen<WidgetData::ScheduleDay> anyScheduleDay() {
    using Day = WidgetData::ScheduleDay;
    using Block = Day::Block;
    const auto block = rc::gen::build<Block>(
        rc::gen::set(&Block::kind, anyText()), rc::gen::set(&Block::start, anyDate()),
        rc::gen::set(&Block::end, anyDate()), rc::gen::set(&Block::title, anyText()),
        rc::gen::set(&Block::color, anyText()), rc::gen::set(&Block::done),
        rc::gen::set(&Block::assignmentId, anyText()),
        rc::gen::set(&Block::classId, perhaps(anyText())));
    return rc::gen::build<Day>(rc::gen::set(&Day::day, anyDate()),
                               rc::gen::set(&Day::labels, listOf(anyText())),
                               rc::gen::set(&Day::blocks, listOf(block)));
}

inline rc::Gen<WidgetData::Timer> anyTimer() {
    using Timer = WidgetData::Timer;
    return rc::gen::build<Timer>(
        rc::gen::set(&Timer::state, anyText()), rc::gen::set(&Timer::ringing),
        rc::gen::set(&Timer::total), rc::gen::set(&Timer::secsLeft),
        rc::gen::set(&Timer::endAt, perhaps(anyDate())), rc::gen::set(&Timer::isBreak),
        rc::gen::set(&Timer::className, anyText()), rc::gen::set(&Timer::classColor, anyText()),
        rc::gen::set(&Timer::sessionTitle, anyText()), rc::gen::set(&Timer::presets));
}

inline rc::Gen<WidgetData::Streak> anyStreak() {
    using Streak = WidgetData::Streak;
    const auto history = rc::gen::container<std::map<std::string, std::int64_t>>(
        anyText(), rc::gen::arbitrary<std::int64_t>());
    return rc::gen::build<Streak>(rc::gen::set(&Streak::count), rc::gen::set(&Streak::best),
                                  rc::gen::set(&Streak::lastDate, anyText()),
                                  rc::gen::set(&Streak::hist, history),
                                  rc::gen::set(&Streak::freezeNext, anyText()));
}

/// Any snapshot that a document can carry.
inline rc::Gen<WidgetData> anySnapshot() {
    return rc::gen::build<WidgetData>(
        rc::gen::set(&WidgetData::updated, anyDate()), rc::gen::set(&WidgetData::signedIn),
        rc::gen::set(&WidgetData::today, listOf(anyItem())),
        rc::gen::set(&WidgetData::upcoming, listOf(anyItem())),
        rc::gen::set(&WidgetData::schedule, perhaps(listOf(anyScheduleDay()))),
        rc::gen::set(&WidgetData::timer, perhaps(anyTimer())),
        rc::gen::set(&WidgetData::streak, perhaps(anyStreak())));
}

}  // namespace kelmar::shared
