#pragma once

#include <QObject>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Host/ExtensionFile.h"
#include "Host/UrlOpener.h"
#include "Host/WidgetId.h"
#include "Host/WidgetReport.h"
#include "Kit/Descriptor.h"
#include "Kit/Environment.h"
#include "Kit/Timeline.h"
#include "System/Clock.h"
#include "System/Result.h"

namespace kelmar::host {

struct HostParts;

/// Keeps the content of the placed widgets right: asks the extension for timelines, decides which
/// entry shows, reloads when the rules say so, runs actions and opens links. Knows no widget and no
/// window; whoever draws listens to `entryChanged`.
class WidgetHost final : public QObject {
    Q_OBJECT

public:
    /// `clock` and `urlOpener` must outlive the host. What the extension offers may depend on
    /// `systemVersion`.
    WidgetHost(ExtensionFile extensionFile, UrlOpener& urlOpener, const system::Clock& clock,
               std::string systemVersion, QObject* parent = nullptr);
    /// With other surroundings than this machine's; all parts must outlive the host.
    WidgetHost(ExtensionFile extensionFile, const HostParts& parts, QObject* parent = nullptr);
    ~WidgetHost() override;

    /// What the extension offers; absent until it has answered once.
    [[nodiscard]] const std::optional<kit::Bundle>& bundle() const;

    /// A widget is now on the desktop. Its placeholder, then its timeline are asked for at once.
    WidgetId add(const std::string& kind, const kit::Environment& environment);
    void setEnvironment(WidgetId id, const kit::Environment& environment);
    void remove(WidgetId id);

    /// The entry to draw now, or nothing while no answer has come yet. It stays at its address as
    /// long as the widget is there, and looks the same until `entryChanged`.
    [[nodiscard]] const kit::Entry* shownEntry(WidgetId id) const;
    /// Whether `shownEntry` is only the placeholder, to be drawn redacted.
    [[nodiscard]] bool showsPlaceholder(WidgetId id) const;

    /// When what is shown came from the extension, if the extension has failed to give anything
    /// newer since; nothing while all is well. Changes without a signal: ask when it is wanted.
    [[nodiscard]] std::optional<system::Date> outdatedSince(WidgetId id) const;

    /// What a control shows, as far as is known, or nothing while no answer has come yet. Valid
    /// until `controlChanged` or `bundleChanged`.
    [[nodiscard]] const kit::ControlValue* controlValue(const std::string& kind) const;
    /// Asks what the controls show now: to be called when they are about to be looked at.
    void reloadControls();

    /// Runs an action of a widget or a control; when it has ended everything is reloaded.
    void perform(const kit::Intent& intent);
    /// Opens a link that the user pressed, if its scheme is the extension's own.
    void openLink(const std::string& url);
    /// One entry as the gallery shows it.
    void requestPreview(const std::string& kind, const kit::Environment& environment,
                        std::function<void(system::Result<kit::Entry>)> answer);

    /// Another program asks for new content of all widgets of a kind, or of the control that has
    /// it. However often it does, the extension is asked a few times a second at most; what comes
    /// too soon is done a little later.
    void reload(const std::string& kind);
    /// Of all widgets and controls.
    void reloadAll();
    /// The machine's time zone or locale is another: goes on with a new extension process, which
    /// finds it, and reloads all widgets.
    void renew(ReloadCause cause);

    /// What the widget shows and why; nothing for a widget that is not there.
    [[nodiscard]] std::optional<WidgetReport> report(WidgetId id) const;
    /// Has the extension say what is wrong with what it works with: one sentence for each fault,
    /// none when all is well, or why it does not say.
    void diagnose(std::function<void(const system::Result<std::vector<std::string>>&)> answer);

signals:
    void bundleChanged();
    /// The clock was set, or the machine slept: what counts down must be drawn anew.
    void clockStepped();
    /// The widget looks different. Said of a new one as well if no answer comes at once.
    void entryChanged(kelmar::host::WidgetId id);
    void controlChanged(const std::string& kind);

private:
    class State;
    std::unique_ptr<State> state_;
};

}  // namespace kelmar::host
