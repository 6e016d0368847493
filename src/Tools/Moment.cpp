#include "Tools/Moment.h"

#include <charconv>
#include <cmath>
#include <fmt/format.h>
#include <glib.h>
#include <memory>

namespace kelmar::tools {

namespace {

struct DateTimeUnref {
    void operator()(GDateTime* dateTime) const { g_date_time_unref(dateTime); }
};
using DateTime = std::unique_ptr<GDateTime, DateTimeUnref>;

}  // namespace

std::optional<system::Date> momentNamed(const std::string& text) {
    double seconds = 0;
    const char* const end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), end, seconds);
    if (error == std::errc() && stopped == end && std::isfinite(seconds)) {
        return system::Date::since1970(seconds);
    }
    const DateTime dateTime(g_date_time_new_from_iso8601(text.c_str(), nullptr));
    if (!dateTime) {
        return std::nullopt;
    }
    constexpr double microsecond = 1e-6;
    return system::Date::since1970(static_cast<double>(g_date_time_to_unix(dateTime.get())) +
                                   g_date_time_get_microsecond(dateTime.get()) * microsecond);
}

std::string describedMoment(system::Date date) {
    const double whole = std::floor(date.secondsSince1970());
    constexpr double furthest = 253'402'300'799;  // the end of the year 9999, GLib's last
    if (!(std::abs(whole) <= furthest)) {
        return fmt::format("{} seconds since 1970", date.secondsSince1970());
    }
    const DateTime dateTime(g_date_time_new_from_unix_utc(static_cast<gint64>(whole)));
    if (!dateTime) {
        return fmt::format("{} seconds since 1970", date.secondsSince1970());
    }
    const std::unique_ptr<char, decltype(&g_free)> text(
        g_date_time_format(dateTime.get(), "%Y-%m-%dT%H:%M:%SZ"), g_free);
    return text.get();
}

}  // namespace kelmar::tools
