#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "Host/ExtensionClient.h"
#include "Host/HostParts.h"
#include "Host/PlacedWidget.h"
#include "Host/ReloadJournal.h"
#include "Host/WidgetId.h"
#include "Host/WidgetReport.h"
#include "Kit/Environment.h"

namespace kelmar::host {

/// The placed widgets and what each of them shows: asks the extension for timelines, checks what
/// comes, and keeps the one wall-clock timer set for the next date at which something changes.
class ContentKeeper {
public:
    /// Who hears of what the keeper notices.
    struct Listeners {
        std::function<void(WidgetId)> changed;  ///< Looks different; may add and remove widgets.
        std::function<void()> clockStepped;
    };

    /// `parts` and `client` outlive the keeper.
    ContentKeeper(const HostParts& parts, ExtensionClient& client, std::string urlScheme,
                  Listeners listeners);
    ~ContentKeeper();
    ContentKeeper(const ContentKeeper&) = delete;
    ContentKeeper& operator=(const ContentKeeper&) = delete;

    WidgetId add(const std::string& kind, const kit::Environment& environment);
    void setEnvironment(WidgetId id, const kit::Environment& environment);
    void remove(WidgetId id);
    [[nodiscard]] const PlacedWidget* find(WidgetId id) const;
    /// As PlacedWidget has it, now.
    [[nodiscard]] std::optional<system::Date> outdatedSince(WidgetId id) const;

    void reload(const std::string& kind, ReloadCause cause);
    void reloadAll(ReloadCause cause);
    /// Nothing for a widget that is not there.
    [[nodiscard]] std::optional<WidgetReport> report(WidgetId id) const;

private:
    void wake(ClockEvent event);
    void update(WidgetId id);
    [[nodiscard]] ReloadCause dueCause(WidgetId id) const;
    void beginReload(WidgetId id, ReloadCause cause);
    void ask(WidgetId id, kit::EntryKind entryKind);
    void takePlaceholder(WidgetId id, const RequestOutcome& outcome,
                         const kit::Environment& environment);
    void takeTimeline(WidgetId id, const RequestOutcome& outcome,
                      const kit::Environment& environment);
    void giveTimelineAMoment(WidgetId id);
    void tellOfWaiting();
    void refuse(WidgetId id, kit::EntryKind entryKind, const std::string& reason);
    void tell(WidgetId id, Looks looks);
    void arm();
    [[nodiscard]] std::vector<WidgetId> ids() const;

    HostParts parts_;
    ExtensionClient& client_;
    std::string urlScheme_;
    Listeners listeners_;
    std::map<WidgetId, PlacedWidget> widgets_;
    ReloadJournal journal_;
    /// Why those are to be reloaded once more whose reload is under way.
    std::map<WidgetId, ReloadCause> wantedAgain_;
    /// Widgets that look different unless their timelines come at once.
    std::set<WidgetId> waiting_;
    std::unique_ptr<Timer> waitingTimer_;
    WidgetId lastId_ = 0;
};

}  // namespace kelmar::host
