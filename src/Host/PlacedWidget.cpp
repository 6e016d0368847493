#include "Host/PlacedWidget.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "Host/TimelineSchedule.h"

namespace kelmar::host {
namespace {

system::Seconds inSeconds(std::chrono::milliseconds time) {
    return std::chrono::duration<system::Seconds>(time).count();
}

}  // namespace

std::string PlacedWidget::name() const {
    return kind_ + " (" + std::string(kit::nameOf(environment_.family)) + ")";
}

std::optional<system::Date> PlacedWidget::outdatedSince(system::Date now) const {
    const bool isOverdue = isReloading_ && now - reloadBegan_ > inSeconds(limits_.answer);
    return isOutdated_ || isOverdue ? timelineCame_ : std::nullopt;
}

bool PlacedWidget::beginReload(system::Date now) {
    reloadAt_.reset();
    if (!isReloading_) {
        reloadBegan_ = now;
    }
    isReloadWanted_ = isReloading_;
    return !std::exchange(isReloading_, true);
}

bool PlacedWidget::endReload() {
    isReloading_ = false;
    return std::exchange(isReloadWanted_, false);
}

Looks PlacedWidget::takePlaceholder(kit::Entry entry) {
    return timeline_ ? Looks::same : show(std::move(entry));
}

Looks PlacedWidget::takeTimeline(kit::Timeline timeline, system::Date now) {
    const bool showedPlaceholder = showsPlaceholder();
    timeline_ = std::move(timeline);
    timelineCame_ = now;
    isOutdated_ = false;
    faults_.clear();
    reloadAt_ = reloadDate(*timeline_);
    // A date that has come before the timeline did would have it asked for again and again, as
    // fast as the extension can answer.
    if (reloadAt_ && *reloadAt_ - now < inSeconds(limits_.firstRetry)) {
        reloadAt_ = now + inSeconds(backoff_.next());
    } else {
        backoff_.reset();
    }
    const auto looks = update(now);
    return showedPlaceholder ? Looks::different : looks;
}

void PlacedWidget::refuseTimeline(system::Date now) {
    reloadAt_ = now + inSeconds(backoff_.next());
    isOutdated_ = true;
}

bool PlacedWidget::noteFault(kit::EntryKind entryKind, const std::string& reason) {
    return std::exchange(faults_[entryKind], reason) != reason;
}

Looks PlacedWidget::update(system::Date now) {
    return timeline_ ? show(timeline_->entries[shownEntryIndex(*timeline_, now)]) : Looks::same;
}

Looks PlacedWidget::show(kit::Entry entry) {
    const auto looks = shown_ && shown_->view == entry.view ? Looks::same : Looks::different;
    shown_ = std::move(entry);
    return looks;
}

bool PlacedWidget::takeReloadDue(system::Date now) {
    if (!reloadAt_ || now < *reloadAt_) {
        return false;
    }
    reloadAt_.reset();
    return true;
}

std::optional<system::Date> PlacedWidget::nextDate(system::Date now) const {
    const auto change = timeline_ ? nextEntryChange(*timeline_, now) : std::nullopt;
    return change && reloadAt_ ? std::min(*change, *reloadAt_) : change ? change : reloadAt_;
}

}  // namespace kelmar::host
