#include "Host/WidgetHost.h"

#include <filesystem>
#include <fmt/format.h>
#include <utility>
#include <vector>

#include "Host/CheckedResults.h"
#include "Host/ExtensionClient.h"
#include "Host/HostParts.h"
#include "Host/PlacedWidget.h"
#include "Host/UrlGate.h"

namespace kelmar::host {
namespace {

std::string nameOf(const ExtensionFile& extensionFile) {
    return std::filesystem::path(extensionFile.executable).filename();
}

/// The surroundings that a host has of its own.
struct OwnParts {
    explicit OwnParts(const ExtensionFile& extensionFile) : parts(extensionFile, log) {}

    StreamLog log = StreamLog::onStandardError();
    MachineParts parts;
};

}  // namespace

class WidgetHost::State {
public:
    State(WidgetHost& host, ExtensionFile extensionFile, const HostParts& parts);
    ~State() { parts_.wallClockTimer.arm(std::nullopt); }
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    WidgetId add(const std::string& kind, const kit::Environment& environment);
    void setEnvironment(WidgetId id, const kit::Environment& environment);
    void remove(WidgetId id);
    [[nodiscard]] const PlacedWidget* find(WidgetId id) const;
    void perform(const kit::Intent& intent);
    void openLink(const std::string& url);
    void requestPreview(const std::string& kind, const kit::Environment& environment,
                        std::function<void(system::Result<kit::Entry>)> answer);
    void reload(const std::string& kind);
    void reloadAll();

    std::optional<kit::Bundle> bundle;
    std::unique_ptr<OwnParts> ownParts;

private:
    void takeBundle(kit::Bundle newBundle);
    void wake(ClockEvent event);
    void update(WidgetId id);
    void beginReload(WidgetId id);
    void ask(WidgetId id, kit::EntryKind entryKind);
    void takePlaceholder(WidgetId id, const RequestOutcome& outcome);
    void takeTimeline(WidgetId id, const RequestOutcome& outcome,
                      const kit::Environment& environment);
    void refuse(WidgetId id, std::string_view what, const std::string& reason);
    void tell(WidgetId id, Looks looks);
    void arm();
    [[nodiscard]] std::vector<WidgetId> ids() const;

    WidgetHost& host_;
    ExtensionFile extensionFile_;
    HostParts parts_;
    UrlGate urlGate_;
    ExtensionClient client_;
    std::map<WidgetId, PlacedWidget> widgets_;
    WidgetId lastId_ = 0;
};

WidgetHost::State::State(WidgetHost& host, ExtensionFile extensionFile, const HostParts& parts)
    : host_(host),
      extensionFile_(std::move(extensionFile)),
      parts_(parts),
      urlGate_(parts_.urlOpener, extensionFile_.urlScheme),
      client_({parts_.launcher, urlGate_, parts_.timers, parts_.log, parts_.limits,
               nameOf(extensionFile_)},
              [this](kit::Bundle newBundle) { takeBundle(std::move(newBundle)); }) {
    parts_.wallClockTimer.setHandler([this](ClockEvent event) { wake(event); });
    parts_.wallClockTimer.arm(std::nullopt);
    parts_.fileWatch.watch(extensionFile_.reloadOnChange, [this] { reloadAll(); });
    client_.start();
}

void WidgetHost::State::takeBundle(kit::Bundle newBundle) {
    if (bundle != newBundle) {
        bundle = std::move(newBundle);
        emit host_.bundleChanged();
    }
}

WidgetId WidgetHost::State::add(const std::string& kind, const kit::Environment& environment) {
    const auto id = ++lastId_;
    widgets_.try_emplace(id, kind, environment, parts_.limits);
    beginReload(id);
    return id;
}

void WidgetHost::State::setEnvironment(WidgetId id, const kit::Environment& environment) {
    const auto widget = widgets_.find(id);
    if (widget != widgets_.end() && widget->second.environment() != environment) {
        widget->second.setEnvironment(environment);
        beginReload(id);
    }
}

void WidgetHost::State::remove(WidgetId id) {
    widgets_.erase(id);
    arm();
}

const PlacedWidget* WidgetHost::State::find(WidgetId id) const {
    const auto widget = widgets_.find(id);
    return widget != widgets_.end() ? &widget->second : nullptr;
}

void WidgetHost::State::perform(const kit::Intent& intent) {
    client_.request({kit::PerformRequest{intent}, Patience::brief,
                     [this, name = intent.name](const RequestOutcome& outcome) {
                         if (!outcome) {
                             parts_.log.write(LogLevel::warning,
                                              fmt::format("the action {} failed: {}; the widgets "
                                                          "are reloaded all the same",
                                                          name, outcome.failure().reason));
                         }
                         reloadAll();
                     }});
}

/// Somebody pressed it, so whoever handles it may come to the front.
void WidgetHost::State::openLink(const std::string& url) {
    urlGate_.open(url, {.activates = true, .addsToRecentItems = false},
                  [&log = parts_.log, url](const std::string& error) {
                      if (!error.empty()) {
                          log.write(LogLevel::warning, fmt::format("{}: {}", url, error));
                      }
                  });
}

void WidgetHost::State::requestPreview(const std::string& kind, const kit::Environment& environment,
                                       std::function<void(system::Result<kit::Entry>)> answer) {
    client_.request({kit::EntryRequest{kit::EntryKind::snapshot, kind, environment, true},
                     Patience::brief,
                     [this, answer = std::move(answer)](const RequestOutcome& outcome) {
                         if (!outcome) {
                             answer(system::Failure{outcome.failure().reason});
                             return;
                         }
                         answer(checkedEntry(*outcome, extensionFile_.urlScheme));
                     }});
}

void WidgetHost::State::reload(const std::string& kind) {
    for (const auto id : ids()) {
        if (const auto* const widget = find(id); widget != nullptr && widget->kind() == kind) {
            beginReload(id);
        }
    }
}

void WidgetHost::State::reloadAll() {
    for (const auto id : ids()) {
        beginReload(id);
    }
}

void WidgetHost::State::wake(ClockEvent event) {
    for (const auto id : ids()) {
        update(id);
    }
    if (event == ClockEvent::clockStepped) {
        reloadAll();
    }
    arm();
}

void WidgetHost::State::update(WidgetId id) {
    const auto widget = widgets_.find(id);
    if (widget == widgets_.end()) {
        return;
    }
    const auto now = parts_.clock.now();
    if (widget->second.takeReloadDue(now)) {
        beginReload(id);
    }
    tell(id, widget->second.update(now));
}

void WidgetHost::State::beginReload(WidgetId id) {
    auto& widget = widgets_.at(id);
    if (!widget.beginReload()) {
        return;
    }
    if (widget.shown() == nullptr) {
        ask(id, kit::EntryKind::placeholder);
    }
    ask(id, kit::EntryKind::timeline);
}

void WidgetHost::State::ask(WidgetId id, kit::EntryKind entryKind) {
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
                 takePlaceholder(id, outcome);
             }
         }});
}

void WidgetHost::State::takePlaceholder(WidgetId id, const RequestOutcome& outcome) {
    if (!outcome) {
        if (outcome.failure().kind == RequestFailure::Kind::refused) {
            refuse(id, "placeholder", outcome.failure().reason);
        } else if (widgets_.at(id).shown() == nullptr) {
            ask(id, kit::EntryKind::placeholder);
        }
        return;
    }
    auto entry = checkedEntry(*outcome, extensionFile_.urlScheme);
    if (!entry) {
        refuse(id, "placeholder", entry.failure().reason);
        return;
    }
    tell(id, widgets_.at(id).takePlaceholder(*std::move(entry)));
}

void WidgetHost::State::takeTimeline(WidgetId id, const RequestOutcome& outcome,
                                     const kit::Environment& environment) {
    auto& widget = widgets_.at(id);
    if (!outcome && outcome.failure().kind == RequestFailure::Kind::unavailable) {
        widget.continueReload();
        ask(id, kit::EntryKind::timeline);
        return;
    }
    const bool isWantedAgain = widget.endReload();
    // One that was made for another size is not worth a look: its successor is on the way.
    if (widget.environment() == environment) {
        auto timeline = outcome ? checkedTimeline(*outcome, extensionFile_.urlScheme)
                                : system::Failure{outcome.failure().reason};
        if (timeline) {
            tell(id, widget.takeTimeline(*std::move(timeline), parts_.clock.now()));
        } else {
            widget.refuseTimeline(parts_.clock.now());
            refuse(id, "timeline", timeline.failure().reason);
        }
    }
    if (isWantedAgain && widgets_.contains(id)) {
        beginReload(id);
    }
    arm();
}

void WidgetHost::State::refuse(WidgetId id, std::string_view what, const std::string& reason) {
    const auto& widget = widgets_.at(id);
    const auto* const remains = widget.shown() == nullptr   ? "nothing"
                                : widget.showsPlaceholder() ? "its placeholder"
                                                            : "what it showed before";
    parts_.log.write(LogLevel::warning,
                     fmt::format("{}: its {} is refused: {}; it goes on showing {}", widget.name(),
                                 what, reason, remains));
}

void WidgetHost::State::tell(WidgetId id, Looks looks) {
    if (looks == Looks::different) {
        emit host_.entryChanged(id);
    }
}

void WidgetHost::State::arm() {
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

/// Whoever hears a signal may add and remove widgets meanwhile.
std::vector<WidgetId> WidgetHost::State::ids() const {
    std::vector<WidgetId> all;
    for (const auto& [id, widget] : widgets_) {
        all.push_back(id);
    }
    return all;
}

WidgetHost::WidgetHost(ExtensionFile extensionFile, UrlOpener& urlOpener,
                       const system::Clock& clock, QObject* parent)
    : QObject(parent) {
    auto ownParts = std::make_unique<OwnParts>(extensionFile);
    const auto parts = ownParts->parts.with(urlOpener, clock);
    state_ = std::make_unique<State>(*this, std::move(extensionFile), parts);
    state_->ownParts = std::move(ownParts);
}

WidgetHost::WidgetHost(ExtensionFile extensionFile, const HostParts& parts, QObject* parent)
    : QObject(parent), state_(std::make_unique<State>(*this, std::move(extensionFile), parts)) {}

WidgetHost::~WidgetHost() = default;

const std::optional<kit::Bundle>& WidgetHost::bundle() const {
    return state_->bundle;
}

WidgetId WidgetHost::add(const std::string& kind, const kit::Environment& environment) {
    return state_->add(kind, environment);
}

void WidgetHost::setEnvironment(WidgetId id, const kit::Environment& environment) {
    state_->setEnvironment(id, environment);
}

void WidgetHost::remove(WidgetId id) {
    state_->remove(id);
}

const kit::Entry* WidgetHost::shownEntry(WidgetId id) const {
    const auto* const widget = state_->find(id);
    return widget != nullptr ? widget->shown() : nullptr;
}

bool WidgetHost::showsPlaceholder(WidgetId id) const {
    const auto* const widget = state_->find(id);
    return widget != nullptr && widget->showsPlaceholder();
}

void WidgetHost::perform(const kit::Intent& intent) {
    state_->perform(intent);
}

void WidgetHost::openLink(const std::string& url) {
    state_->openLink(url);
}

void WidgetHost::requestPreview(const std::string& kind, const kit::Environment& environment,
                                std::function<void(system::Result<kit::Entry>)> answer) {
    state_->requestPreview(kind, environment, std::move(answer));
}

void WidgetHost::reload(const std::string& kind) {
    state_->reload(kind);
}

void WidgetHost::reloadAll() {
    state_->reloadAll();
}

}  // namespace kelmar::host
