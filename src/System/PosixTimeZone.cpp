#include "System/PosixTimeZone.h"

#include <array>
#include <charconv>
#include <chrono>
#include <optional>
#include <string_view>
#include <unicode/simpletz.h>

namespace kelmar::system {
namespace {

using std::chrono::hours;
using std::chrono::milliseconds;
using std::chrono::minutes;
using std::chrono::seconds;

/// When the clocks change, in the form of ICU's rules.
struct Change {
    int month = 0;      ///< From 0.
    int day = 0;        ///< Of the month, or which of the month's days of this name, -1 the last.
    int dayOfWeek = 0;  ///< From 1, Sunday; 0 where `day` is one of the month.
    milliseconds time{0};  ///< Of day, by the clocks before the change.
};

/// Where a rule does not say it.
constexpr hours defaultChangeTime{2};

/// What is left of a rule; whatever is not there leaves it as it is.
class Reader {
public:
    explicit Reader(std::string_view text) : text_(text) {}

    [[nodiscard]] bool isAtEnd() const { return text_.empty(); }

    bool take(char character) {
        if (!text_.starts_with(character)) {
            return false;
        }
        text_.remove_prefix(1);
        return true;
    }

    /// Three letters or more, or in angle brackets digits and signs too.
    bool takeName() {
        constexpr std::size_t shortest = 3;
        if (take('<')) {
            const auto length = text_.find('>');
            if (length == std::string_view::npos || length < shortest) {
                return false;
            }
            text_.remove_prefix(length + 1);
            return true;
        }
        std::size_t length = 0;
        while (length < text_.size() && isLetter(text_[length])) {
            ++length;
        }
        text_.remove_prefix(length);
        return length >= shortest;
    }

    std::optional<int> takeNumber(int least, int most) {
        int number = 0;
        const auto read = std::from_chars(text_.data(), text_.data() + text_.size(), number);
        if (text_.starts_with('-') || read.ec != std::errc() || number < least || number > most) {
            return std::nullopt;
        }
        text_.remove_prefix(static_cast<std::size_t>(read.ptr - text_.data()));
        return number;
    }

    /// "[+-]hh[:mm[:ss]]".
    std::optional<seconds> takeTime() {
        constexpr int mostHours = 167;  // A week less an hour, which the C library allows.
        const bool isNegative = take('-');
        if (!isNegative) {
            take('+');
        }
        const auto wholeHours = takeNumber(0, mostHours);
        if (!wholeHours) {
            return std::nullopt;
        }
        seconds time = hours(*wholeHours);
        for (const seconds unit : {seconds(minutes(1)), seconds(1)}) {
            if (!take(':')) {
                break;
            }
            const auto count = takeNumber(0, 59);
            if (!count) {
                return std::nullopt;
            }
            time += *count * unit;
        }
        return isNegative ? -time : time;
    }

private:
    static bool isLetter(char character) {
        return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
    }

    std::string_view text_;
};

/// "Mm.w.d": day d of the week w of the month m.
bool readWeekday(Reader& reader, Change& change) {
    constexpr int lastWeek = 5;
    const auto month = reader.takeNumber(1, 12);
    const auto week = month && reader.take('.') ? reader.takeNumber(1, lastWeek) : std::nullopt;
    const auto day = week && reader.take('.') ? reader.takeNumber(0, 6) : std::nullopt;
    if (!day) {
        return false;
    }
    change = {.month = *month - 1,
              .day = *week == lastWeek ? -1 : *week,
              .dayOfWeek = *day + 1,
              .time = {}};
    return true;
}

/// "Jn": day n of the year, in which February has always 28 days.
bool readDayOfYear(Reader& reader, Change& change) {
    constexpr std::array lengths{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    auto day = reader.takeNumber(1, 365);
    if (!day) {
        return false;
    }
    for (change.month = 0; *day > lengths.at(static_cast<std::size_t>(change.month));
         ++change.month) {
        *day -= lengths.at(static_cast<std::size_t>(change.month));
    }
    change.day = *day;
    return true;
}

std::optional<Change> readChange(Reader& reader) {
    Change change;
    if (!reader.take(',') || !(reader.take('M')   ? readWeekday(reader, change)
                               : reader.take('J') ? readDayOfYear(reader, change)
                                                  : false)) {
        return std::nullopt;
    }
    const std::optional<seconds> time =
        reader.take('/') ? reader.takeTime() : std::optional<seconds>(defaultChangeTime);
    if (!time || *time < seconds(0) || *time > hours(24)) {
        return std::nullopt;
    }
    change.time = *time;
    return change;
}

int32_t inMilliseconds(milliseconds time) {
    return static_cast<int32_t>(time.count());
}

std::unique_ptr<icu::TimeZone> zoneWith(seconds offset, seconds saving, const std::string& name,
                                        Reader changes) {
    const auto start = readChange(changes);
    const auto end = start ? readChange(changes) : std::nullopt;
    if (!end || !changes.isAtEnd()) {
        return nullptr;
    }
    const auto id = icu::UnicodeString::fromUTF8(name);
    const auto narrow = [](int number) { return static_cast<int8_t>(number); };
    UErrorCode status = U_ZERO_ERROR;
    auto zone = std::make_unique<icu::SimpleTimeZone>(
        inMilliseconds(offset), id, narrow(start->month), narrow(start->day),
        narrow(start->dayOfWeek), inMilliseconds(start->time), icu::SimpleTimeZone::WALL_TIME,
        narrow(end->month), narrow(end->day), narrow(end->dayOfWeek), inMilliseconds(end->time),
        icu::SimpleTimeZone::WALL_TIME, inMilliseconds(saving), status);
    return U_SUCCESS(status) ? std::move(zone) : nullptr;
}

}  // namespace

PosixTimeZone readPosixTimeZone(const std::string& rule) {
    Reader reader(rule);
    // POSIX counts from the zone to Greenwich.
    const auto west = reader.takeName() ? reader.takeTime() : std::nullopt;
    if (!west) {
        return {};
    }
    auto fixed = std::make_unique<icu::SimpleTimeZone>(inMilliseconds(-*west),
                                                       icu::UnicodeString::fromUTF8(rule));
    if (reader.isAtEnd()) {
        return {std::move(fixed), false};
    }
    seconds saving = hours(1);
    if (!reader.takeName()) {
        return {};
    }
    if (Reader ahead = reader; const auto savingWest = ahead.takeTime()) {
        saving = *west - *savingWest;
        reader = ahead;
    }
    auto zone = zoneWith(-*west, saving, rule, reader);
    if (zone == nullptr) {
        return {std::move(fixed), true};
    }
    return {std::move(zone), false};
}

}  // namespace kelmar::system
