#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "Host/WidgetId.h"
#include "System/Date.h"

namespace kelmar::host {

/// Why a widget's timeline is asked for.
enum class ReloadCause {
    placed,           ///< It has just come to the desktop.
    environment,      ///< Its size or its rendering mode changed.
    policyDate,       ///< The timeline before wished to be replaced now.
    refusedBefore,    ///< The last one that came was refused.
    fileChanged,      ///< A file that the extension names, or its program, changed.
    action,           ///< An action of a widget has run.
    asked,            ///< Another program asked for it.
    clockStepped,     ///< The clock was set, or the machine slept.
    timeZoneChanged,  ///< The machine is in another time zone.
    localeChanged,    ///< The machine speaks another language.
};

/// "clockStepped".
[[nodiscard]] std::string_view nameOf(ReloadCause cause);

enum class ReloadOutcome {
    underWay,
    taken,
    refused,  ///< What came was no good, or the extension said no; the last good timeline stays.
};

/// "underWay".
[[nodiscard]] std::string_view nameOf(ReloadOutcome outcome);

/// One reload of one widget.
struct ReloadRecord {
    ReloadCause cause = ReloadCause::placed;
    system::Date began;
    ReloadOutcome outcome = ReloadOutcome::underWay;
    /// From the request to the answer, or until now; sleep of the machine does not count.
    std::chrono::milliseconds duration{0};
    std::string reason;  ///< Of a refusal, or why it is not there yet; empty when all is well.

    bool operator==(const ReloadRecord&) const = default;
};

/// Remembers how the last reload of every widget went. `elapsed` is that of Timers.
class ReloadJournal {
public:
    void begin(WidgetId id, ReloadCause cause, system::Date now, std::chrono::milliseconds elapsed);
    /// The request failed and is made once more.
    void noteTrouble(WidgetId id, const std::string& reason);
    /// `reason` of a refusal; empty when the timeline was taken.
    void end(WidgetId id, std::chrono::milliseconds elapsed, const std::string& reason);
    void forget(WidgetId id) { pages_.erase(id); }
    /// The last reload as it stands at `elapsed`, if there was any.
    [[nodiscard]] std::optional<ReloadRecord> last(WidgetId id,
                                                   std::chrono::milliseconds elapsed) const;

private:
    struct Page {
        ReloadRecord record;
        std::chrono::milliseconds beganAt{0};
    };
    std::map<WidgetId, Page> pages_;
};

}  // namespace kelmar::host
