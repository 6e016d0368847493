#include "Host/ContentKeeper.h"

#include <fmt/format.h>
#include <optional>
#include <utility>

#include "Host/CheckedResults.h"

namespace kelmar::host {

ContentKeeper::ContentKeeper(const HostParts& parts, ExtensionClient& client, std::string urlScheme,
                             Listeners listeners)
    : parts_(parts),
      client_(client),
      urlScheme_(std::move(urlScheme)),
      listeners_(std::move(listeners)),
      waitingTimer_(parts.timers.make([this] { tellOfWaiting(); })) {
    parts_.wallClockTimer.setHandler([this](ClockEvent event) { wake(event); });
    parts_.wallClockTimer.arm(std::nullopt);
}

ContentKeeper::~ContentKeeper() {
    parts_.wallClockTimer.arm(std::nullopt);
    parts_.wallClockTimer.setHandler([](ClockEvent) {});
}

WidgetId ContentKeeper::add(const std::string& kind, const kit::Environment& environment) {
    const auto id = ++lastId_;
    widgets_.try_emplace(id, kind, environment, parts_.limits);
    giveTimelineAMoment(id);
    beginReload(id, ReloadCause::placed);
    return id;
}

void ContentKeeper::setEnvironment(WidgetId id, const kit::Environment& environment) {
    const auto widget = widgets_.find(id);
    if (widget != widgets_.end() && widget->second.environment() != environment) {
        widget->second.setEnvironment(environment);
        beginReload(id, ReloadCause::environment);
    }
}

void ContentKeeper::remove(WidgetId id) {
    widgets_.erase(id);
    journal_.forget(id);
    wantedAgain_.erase(id);
    arm();
}

const PlacedWidget* ContentKeeper::find(WidgetId id) const {
    const auto widget = widgets_.find(id);
    return widget != widgets_.end() ? &widget->second : nullptr;
}

std::optional<system::Date> ContentKeeper::outdatedSince(WidgetId id) const {
    const auto* const widget = find(id);
    return widget != nullptr ? widget->outdatedSince(parts_.clock.now()) : std::nullopt;
}

void ContentKeeper::reload(const std::string& kind, ReloadCause cause) {
    for (const auto& [id, widget] : widgets_) {
        if (widget.kind() == kind) {
            beginReload(id, cause);
        }
    }
}

void ContentKeeper::reloadAll(ReloadCause cause) {
    for (const auto& [id, widget] : widgets_) {
        beginReload(id, cause);
    }
}

std::optional<WidgetReport> ContentKeeper::report(WidgetId id) const {
    const auto* const widget = find(id);
    if (widget == nullptr) {
        return std::nullopt;
    }
    return reportOn(*widget, parts_.clock.now(), journal_.last(id, parts_.timers.elapsed()));
}

void ContentKeeper::wake(ClockEvent event) {
    if (event == ClockEvent::clockStepped) {
        reloadAll(ReloadCause::clockStepped);
        listeners_.clockStepped();
    }
    for (const auto id : ids()) {
        update(id);
    }
    arm();
}

void ContentKeeper::update(WidgetId id) {
    const auto widget = widgets_.find(id);
    if (widget == widgets_.end()) {
        return;
    }
    const auto now = parts_.clock.now();
    if (widget->second.takeReloadDue(now)) {
        beginReload(id, dueCause(id));
    }
    tell(id, widget->second.update(now));
}

/// After a refusal it is not the timeline that wishes to be replaced.
ReloadCause ContentKeeper::dueCause(WidgetId id) const {
    const auto last = journal_.last(id, parts_.timers.elapsed());
    return last && last->outcome == ReloadOutcome::refused ? ReloadCause::refusedBefore
                                                           : ReloadCause::policyDate;
}

void ContentKeeper::beginReload(WidgetId id, ReloadCause cause) {
    auto& widget = widgets_.at(id);
    if (!widget.beginReload(parts_.clock.now())) {
        wantedAgain_[id] = cause;
        return;
    }
    journal_.begin(id, cause, parts_.clock.now(), parts_.timers.elapsed());
    if (!widget.hasTimeline()) {
        ask(id, kit::EntryKind::placeholder);
    }
    ask(id, kit::EntryKind::timeline);
}

void ContentKeeper::ask(WidgetId id, kit::EntryKind entryKind) {
    const auto& widget = widgets_.at(id);
    client_.request(
        {kit::EntryRequest{entryKind, widget.kind(), widget.environment(), false},
         Patience::lasting,
         [this, id, entryKind, environment = widget.environment()](const RequestOutcome& outcome) {
             if (!widgets_.contains(id)) {
                 return;
             }
             if (entryKind == kit::EntryKind::timeline) {
                 takeTimeline(id, outcome, environment);
             } else {
                 takePlaceholder(id, outcome, environment);
             }
         }});
}

void ContentKeeper::takePlaceholder(WidgetId id, const RequestOutcome& outcome,
                                    const kit::Environment& environment) {
    auto& widget = widgets_.at(id);
    if (widget.hasTimeline() || widget.environment() != environment) {
        return;
    }
    if (!outcome) {
        if (outcome.failure().kind == RequestFailure::Kind::refused) {
            refuse(id, kit::EntryKind::placeholder, outcome.failure().reason);
        } else {
            ask(id, kit::EntryKind::placeholder);
        }
        return;
    }
    auto entry = checkedEntry(*outcome, urlScheme_);
    if (!entry) {
        refuse(id, kit::EntryKind::placeholder, entry.failure().reason);
        return;
    }
    if (widget.takePlaceholder(*std::move(entry)) == Looks::different) {
        giveTimelineAMoment(id);
    }
}

void ContentKeeper::giveTimelineAMoment(WidgetId id) {
    waiting_.insert(id);
    waitingTimer_->start(parts_.limits.placeholder);
}

void ContentKeeper::tellOfWaiting() {
    for (const auto id : std::exchange(waiting_, {})) {
        if (const auto* const widget = find(id); widget != nullptr && !widget->hasTimeline()) {
            listeners_.changed(id);
        }
    }
}

void ContentKeeper::takeTimeline(WidgetId id, const RequestOutcome& outcome,
                                 const kit::Environment& environment) {
    auto& widget = widgets_.at(id);
    if (!outcome && outcome.failure().kind == RequestFailure::Kind::unavailable) {
        widget.continueReload();
        journal_.noteTrouble(id, outcome.failure().reason);
        ask(id, kit::EntryKind::timeline);
        return;
    }
    const bool isWantedAgain = widget.endReload();
    // One that was made for another size is not worth a look: its successor is on the way.
    if (widget.environment() == environment) {
        auto timeline = outcome ? checkedTimeline(*outcome, urlScheme_)
                                : system::Failure{outcome.failure().reason};
        journal_.end(id, parts_.timers.elapsed(), timeline ? "" : timeline.failure().reason);
        if (timeline) {
            tell(id, widget.takeTimeline(*std::move(timeline), parts_.clock.now()));
        } else {
            widget.refuseTimeline(parts_.clock.now());
            refuse(id, kit::EntryKind::timeline, timeline.failure().reason);
        }
    }
    if (isWantedAgain && widgets_.contains(id)) {
        beginReload(id, wantedAgain_.at(id));
    }
    arm();
}

void ContentKeeper::refuse(WidgetId id, kit::EntryKind entryKind, const std::string& reason) {
    auto& widget = widgets_.at(id);
    if (!widget.noteFault(entryKind, reason)) {
        return;
    }
    const auto* const remains = widget.shown() == nullptr   ? "nothing"
                                : widget.showsPlaceholder() ? "its placeholder"
                                                            : "what it showed before";
    parts_.log.write(LogLevel::warning,
                     fmt::format("{}: its {} is refused: {}; it goes on showing {}", widget.name(),
                                 nameOf(entryKind), reason, remains));
}

void ContentKeeper::tell(WidgetId id, Looks looks) {
    if (looks == Looks::different) {
        listeners_.changed(id);
    }
}

void ContentKeeper::arm() {
    const auto now = parts_.clock.now();
    std::optional<system::Date> nearest;
    for (const auto& [id, widget] : widgets_) {
        const auto date = widget.nextDate(now);
        if (date && (!nearest || *date < *nearest)) {
            nearest = date;
        }
    }
    parts_.wallClockTimer.arm(nearest);
}

/// Whoever is told of a change may add and remove widgets meanwhile.
std::vector<WidgetId> ContentKeeper::ids() const {
    std::vector<WidgetId> all;
    for (const auto& [id, widget] : widgets_) {
        all.push_back(id);
    }
    return all;
}

}  // namespace kelmar::host
