#pragma once

#include <map>
#include <optional>
#include <string>

#include "Host/Backoff.h"
#include "Kit/Environment.h"
#include "Kit/Protocol.h"
#include "Kit/Timeline.h"
#include "System/Date.h"

namespace kelmar::host {

/// Whether a widget is to be drawn anew.
enum class Looks { same, different };

/// One widget on the desktop: its timeline, what shows of it, and when the next must be asked for.
/// Pure: it is told what the extension answered and what time it is.
class PlacedWidget {
public:
    PlacedWidget(std::string kind, const kit::Environment& environment, const HostLimits& limits)
        : kind_(std::move(kind)), environment_(environment), limits_(limits), backoff_(limits) {}

    [[nodiscard]] const std::string& kind() const { return kind_; }
    [[nodiscard]] const kit::Environment& environment() const { return environment_; }
    void setEnvironment(const kit::Environment& environment) { environment_ = environment; }
    /// "Clock (small)".
    [[nodiscard]] std::string name() const;

    /// Its address stays the same as long as the widget is there.
    [[nodiscard]] const kit::Entry* shown() const { return shown_ ? &*shown_ : nullptr; }
    [[nodiscard]] const kit::Timeline* timeline() const {
        return timeline_ ? &*timeline_ : nullptr;
    }
    /// When the next timeline is to be asked for, if ever.
    [[nodiscard]] std::optional<system::Date> reloadAt() const { return reloadAt_; }
    [[nodiscard]] bool hasTimeline() const { return timeline_.has_value(); }
    [[nodiscard]] bool showsPlaceholder() const { return shown_ && !timeline_; }

    /// When the timeline came, if a newer one could not be had since, or has been owed for longer
    /// than an answer may take.
    [[nodiscard]] std::optional<system::Date> outdatedSince(system::Date now) const;

    /// Whether a timeline is to be asked for now. While one is outstanding it is not, but another
    /// follows once that has come: it may have been made too early to know what happened.
    [[nodiscard]] bool beginReload(system::Date now);
    /// A reload that failed for want of an extension goes on with another request.
    void continueReload() {
        isReloadWanted_ = false;
        isOutdated_ = true;
    }
    /// Whether another one has to follow.
    [[nodiscard]] bool endReload();

    [[nodiscard]] Looks takePlaceholder(kit::Entry entry);
    [[nodiscard]] Looks takeTimeline(kit::Timeline timeline, system::Date now);
    /// The timeline that came was no good; the last one stays and another is asked for later.
    void refuseTimeline(system::Date now);

    /// Whether this fault is news: one that stays until somebody acts is not to fill the log.
    [[nodiscard]] bool noteFault(kit::EntryKind entryKind, const std::string& reason);

    /// Shows what is to be shown now.
    [[nodiscard]] Looks update(system::Date now);
    /// Whether the time for another timeline has come; says so once.
    [[nodiscard]] bool takeReloadDue(system::Date now);
    /// When one of the two may change.
    [[nodiscard]] std::optional<system::Date> nextDate(system::Date now) const;

private:
    [[nodiscard]] Looks show(kit::Entry entry);

    std::string kind_;
    kit::Environment environment_;
    HostLimits limits_;
    Backoff backoff_;
    std::optional<kit::Timeline> timeline_;
    std::optional<system::Date> timelineCame_;
    std::optional<kit::Entry> shown_;
    std::optional<system::Date> reloadAt_;
    std::map<kit::EntryKind, std::string> faults_;  ///< Since the last good timeline.
    system::Date reloadBegan_;
    bool isReloading_ = false;
    bool isReloadWanted_ = false;
    bool isOutdated_ = false;  ///< Since the last reload failed.
};

}  // namespace kelmar::host
