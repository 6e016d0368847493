#include "Host/ReloadJournal.h"

#include "Kit/Names.h"

namespace kelmar::host {
namespace {

constexpr kit::NameTable<ReloadCause, 10> causes{{
    {ReloadCause::placed, "placed"},
    {ReloadCause::environment, "environment"},
    {ReloadCause::policyDate, "policyDate"},
    {ReloadCause::refusedBefore, "refusedBefore"},
    {ReloadCause::fileChanged, "fileChanged"},
    {ReloadCause::action, "action"},
    {ReloadCause::asked, "asked"},
    {ReloadCause::clockStepped, "clockStepped"},
    {ReloadCause::timeZoneChanged, "timeZoneChanged"},
    {ReloadCause::localeChanged, "localeChanged"},
}};

constexpr kit::NameTable<ReloadOutcome, 3> outcomes{{
    {ReloadOutcome::underWay, "underWay"},
    {ReloadOutcome::taken, "taken"},
    {ReloadOutcome::refused, "refused"},
}};

}  // namespace

std::string_view nameOf(ReloadCause cause) {
    return kit::nameIn(causes, cause);
}

std::string_view nameOf(ReloadOutcome outcome) {
    return kit::nameIn(outcomes, outcome);
}

void ReloadJournal::begin(WidgetId id, ReloadCause cause, system::Date now,
                          std::chrono::milliseconds elapsed) {
    pages_[id] = {
        .record = {.cause = cause, .began = now, .outcome = ReloadOutcome::underWay, .reason = {}},
        .beganAt = elapsed};
}

void ReloadJournal::noteTrouble(WidgetId id, const std::string& reason) {
    pages_[id].record.reason = reason;
}

void ReloadJournal::end(WidgetId id, std::chrono::milliseconds elapsed, const std::string& reason) {
    Page& page = pages_[id];
    page.record.outcome = reason.empty() ? ReloadOutcome::taken : ReloadOutcome::refused;
    page.record.duration = elapsed - page.beganAt;
    page.record.reason = reason;
}

std::optional<ReloadRecord> ReloadJournal::last(WidgetId id,
                                                std::chrono::milliseconds elapsed) const {
    const auto page = pages_.find(id);
    if (page == pages_.end()) {
        return std::nullopt;
    }
    ReloadRecord record = page->second.record;
    if (record.outcome == ReloadOutcome::underWay) {
        record.duration = elapsed - page->second.beganAt;
    }
    return record;
}

}  // namespace kelmar::host
