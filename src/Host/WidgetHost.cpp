#include "Host/WidgetHost.h"

#include <filesystem>
#include <fmt/format.h>
#include <utility>

#include "Host/CheckedResults.h"
#include "Host/ContentKeeper.h"
#include "Host/ControlKeeper.h"
#include "Host/ExtensionClient.h"
#include "Host/HostParts.h"
#include "Host/ReloadRequests.h"
#include "Host/UrlGate.h"

namespace kelmar::host {
namespace {

std::string nameOf(const ExtensionFile& extensionFile) {
    return std::filesystem::path(extensionFile.executable).filename();
}

/// Another program may have more to offer, and show what is there in another way.
std::vector<std::string> watchedFiles(const ExtensionFile& extensionFile) {
    auto files = extensionFile.reloadOnChange;
    files.push_back(extensionFile.executable);
    return files;
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
    State(WidgetHost& host, ExtensionFile extensionFile, HostParts parts);
    ~State();
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    [[nodiscard]] ContentKeeper& keeper() { return keeper_; }
    [[nodiscard]] ControlKeeper& controls() { return controls_; }
    void reloadAll(ReloadCause cause);
    void perform(const kit::Intent& intent);
    void openLink(const std::string& url);
    void requestPreview(const std::string& kind, const kit::Environment& environment,
                        std::function<void(system::Result<kit::Entry>)> answer);
    void renew(ReloadCause cause);
    void diagnose(std::function<void(const system::Result<std::vector<std::string>>&)> answer);
    [[nodiscard]] ReloadRequests& reloadRequests() { return reloadRequests_; }

    std::optional<kit::Bundle> bundle;
    std::unique_ptr<OwnParts> ownParts;

private:
    void takeBundle(kit::Bundle newBundle);

    WidgetHost& host_;
    ExtensionFile extensionFile_;
    HostParts parts_;
    UrlGate urlGate_;
    ExtensionClient client_;
    ContentKeeper keeper_;
    ControlKeeper controls_;
    ReloadRequests reloadRequests_;
};

WidgetHost::State::State(WidgetHost& host, ExtensionFile extensionFile, HostParts parts)
    : host_(host),
      extensionFile_(std::move(extensionFile)),
      parts_(std::move(parts)),
      urlGate_(parts_.urlOpener, extensionFile_.urlScheme),
      client_({parts_.launcher, urlGate_, parts_.timers, parts_.log, parts_.limits,
               nameOf(extensionFile_), parts_.systemVersion},
              [this](kit::Bundle newBundle) { takeBundle(std::move(newBundle)); }),
      keeper_(parts_, client_, extensionFile_.urlScheme,
              {.changed = [this](WidgetId id) { emit host_.entryChanged(id); },
               .clockStepped = [this] { emit host_.clockStepped(); }}),
      controls_(client_, parts_.log,
                [this](const std::string& kind) { emit host_.controlChanged(kind); }),
      reloadRequests_(
          parts_.timers, parts_.limits,
          [this](const std::string& kind) {
              client_.hastenRetry();
              keeper_.reload(kind, ReloadCause::asked);
              controls_.reload(kind);
          },
          [this] {
              client_.hastenRetry();
              reloadAll(ReloadCause::asked);
          }) {
    parts_.fileWatch.watch(watchedFiles(extensionFile_), [this] {
        client_.hastenRetry();
        reloadAll(ReloadCause::fileChanged);
    });
    client_.introduce();
}

WidgetHost::State::~State() {
    parts_.fileWatch.watch({}, [] {});
}

void WidgetHost::State::takeBundle(kit::Bundle newBundle) {
    if (bundle != newBundle) {
        bundle = std::move(newBundle);
        controls_.offer(bundle->controls);
        emit host_.bundleChanged();
    }
}

void WidgetHost::State::reloadAll(ReloadCause cause) {
    keeper_.reloadAll(cause);
    controls_.reloadAll();
    // Where nothing is on the desktop this alone may bring something there.
    client_.introduce();
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
                         reloadAll(ReloadCause::action);
                     }});
}

/// Somebody pressed it, so whoever handles it may come to the front.
void WidgetHost::State::openLink(const std::string& url) {
    urlGate_.open(url, {.activates = true, .addsToRecentItems = false},
                  [&log = parts_.log, url](const std::string& error) {
                      if (!error.empty()) {
                          log.write(LogLevel::warning,
                                    fmt::format("{} is not opened: {}", url, error));
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

void WidgetHost::State::renew(ReloadCause cause) {
    client_.replaceProcess();
    reloadAll(cause);
}

void WidgetHost::State::diagnose(
    std::function<void(const system::Result<std::vector<std::string>>&)> answer) {
    client_.request({kit::DiagnoseRequest{}, Patience::brief,
                     [answer = std::move(answer)](const RequestOutcome& outcome) {
                         answer(outcome ? kit::decodeFindings(*outcome)
                                        : system::Failure{outcome.failure().reason});
                     }});
}

WidgetHost::WidgetHost(ExtensionFile extensionFile, UrlOpener& urlOpener,
                       const system::Clock& clock, std::string systemVersion, QObject* parent)
    : QObject(parent) {
    auto ownParts = std::make_unique<OwnParts>(extensionFile);
    const auto parts = ownParts->parts.with(urlOpener, clock, std::move(systemVersion));
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
    return state_->keeper().add(kind, environment);
}

void WidgetHost::setEnvironment(WidgetId id, const kit::Environment& environment) {
    state_->keeper().setEnvironment(id, environment);
}

void WidgetHost::remove(WidgetId id) {
    state_->keeper().remove(id);
}

const kit::Entry* WidgetHost::shownEntry(WidgetId id) const {
    const auto* const widget = state_->keeper().find(id);
    return widget != nullptr ? widget->shown() : nullptr;
}

bool WidgetHost::showsPlaceholder(WidgetId id) const {
    const auto* const widget = state_->keeper().find(id);
    return widget != nullptr && widget->showsPlaceholder();
}

std::optional<system::Date> WidgetHost::outdatedSince(WidgetId id) const {
    return state_->keeper().outdatedSince(id);
}

const kit::ControlValue* WidgetHost::controlValue(const std::string& kind) const {
    return state_->controls().find(kind);
}

void WidgetHost::reloadControls() {
    state_->controls().reloadAll();
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
    state_->reloadRequests().ask(kind);
}

void WidgetHost::reloadAll() {
    state_->reloadRequests().askForAll();
}

void WidgetHost::renew(ReloadCause cause) {
    state_->renew(cause);
}

std::optional<WidgetReport> WidgetHost::report(WidgetId id) const {
    return state_->keeper().report(id);
}

void WidgetHost::diagnose(
    std::function<void(const system::Result<std::vector<std::string>>&)> answer) {
    state_->diagnose(std::move(answer));
}

}  // namespace kelmar::host
