#include "DemoPlanner/PlannerUrl.h"

#include <charconv>
#include <glib.h>
#include <memory>
#include <optional>

#include "DemoPlanner/StudyTimer.h"

namespace kelmar::demo {

namespace {

using system::Failure;
using system::Result;

struct FreeText {
    void operator()(char* text) const { g_free(text); }
};
using OwnedText = std::unique_ptr<char, FreeText>;

/// An URL's pieces, still percent-encoded.
struct UrlParts {
    std::string scheme;
    std::string place;  ///< Where a web address has its host.
    std::string path;   ///< With its first slash, or empty.
    std::optional<std::string> query;
    bool hasMore = false;  ///< A fragment, a port or a user: nothing here has one.
};

std::string take(char* text) {
    const OwnedText owned(text);
    return owned ? owned.get() : std::string();
}

std::optional<UrlParts> split(const std::string& url) {
    char* scheme = nullptr;
    char* user = nullptr;
    char* host = nullptr;
    char* path = nullptr;
    char* query = nullptr;
    char* fragment = nullptr;
    gint port = -1;
    if (g_uri_split(url.c_str(), G_URI_FLAGS_ENCODED, &scheme, &user, &host, &port, &path, &query,
                    &fragment, nullptr) == FALSE) {
        return std::nullopt;
    }
    UrlParts parts;
    parts.hasMore = user != nullptr || fragment != nullptr || port != -1;
    parts.scheme = take(scheme);
    parts.place = take(host);
    parts.path = take(path);
    if (query != nullptr) {
        parts.query = query;
    }
    take(user);
    take(query);
    take(fragment);
    return parts;
}

/// The id behind the first slash of a path.
Result<std::string> idOf(const UrlParts& parts) {
    if (parts.query) {
        return Failure{"an id takes no query"};
    }
    if (parts.path.size() < 2) {
        return Failure{"the id is missing"};
    }
    const OwnedText id(g_uri_unescape_string(parts.path.c_str() + 1, nullptr));
    if (!id || g_utf8_validate(id.get(), -1, nullptr) == FALSE) {
        return Failure{"the id is not percent-encoded UTF-8"};
    }
    return std::string(id.get());
}

Result<Request> timerCommand(const UrlParts& parts) {
    if (parts.path == "/on" && !parts.query) {
        return Request(Command(TurnTimerOn{}));
    }
    if (parts.path == "/off" && !parts.query) {
        return Request(Command(TurnTimerOff{}));
    }
    constexpr std::string_view minutesKey = "mins=";
    if (parts.path != "/start" || !parts.query || !parts.query->starts_with(minutesKey)) {
        return Failure{"the timer knows on, off and start?mins=N"};
    }
    StartTimer start;
    const char* const end = parts.query->data() + parts.query->size();
    const auto read = std::from_chars(parts.query->data() + minutesKey.size(), end, start.minutes);
    if (read.ec != std::errc() || read.ptr != end || start.minutes < 1 ||
        start.minutes > StudyTimer::longestMinutes) {
        return Failure{"a session lasts from 1 to " + std::to_string(StudyTimer::longestMinutes) +
                       " minutes"};
    }
    return Request(Command(start));
}

/// The requests that are one word.
std::optional<Request> plainRequest(std::string_view word) {
    if (word == "dashboard") {
        return DeepLink(ShowDashboard{});
    }
    if (word == "schedule") {
        return DeepLink(ShowSchedule{});
    }
    if (word == "stats") {
        return DeepLink(ShowStatistics{});
    }
    if (word == "timer-open") {
        return DeepLink(ShowTimer{});
    }
    if (word == "ticked") {
        return Command(TakeTicks{});
    }
    return std::nullopt;
}

template <class Outer, class Request>
Result<kelmar::demo::Request> withId(const UrlParts& parts) {
    Result<std::string> id = idOf(parts);
    if (!id) {
        return id.failure();
    }
    return kelmar::demo::Request(Outer(Request{*std::move(id)}));
}

}  // namespace

Result<Request> parsePlannerUrl(std::string_view url) {
    if (url.find('\0') != std::string_view::npos) {
        return Failure{"it is no URL"};
    }
    const std::optional<UrlParts> parts = split(std::string(url));
    if (!parts) {
        return Failure{"it is no URL"};
    }
    if (g_ascii_strcasecmp(parts->scheme.c_str(), plannerScheme) != 0) {
        return Failure{std::string("its scheme is not ") + plannerScheme};
    }
    if (parts->hasMore) {
        return Failure{"it holds more than a place, an id and a query"};
    }
    if (parts->place == "assignment") {
        return withId<DeepLink, ShowAssignment>(*parts);
    }
    if (parts->place == "class") {
        return withId<DeepLink, ShowClass>(*parts);
    }
    if (parts->place == "untick") {
        return withId<Command, Untick>(*parts);
    }
    if (parts->place == "timer") {
        return timerCommand(*parts);
    }
    const std::optional<Request> plain = plainRequest(parts->place);
    const bool isBare = (parts->path.empty() || parts->path == "/") && !parts->query;
    if (!plain || !isBare) {
        return Failure{"the planner knows no such place"};
    }
    return *plain;
}

}  // namespace kelmar::demo
