#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "Host/ExtensionClient.h"
#include "Host/Log.h"
#include "Kit/Descriptor.h"

namespace kelmar::host {

/// The controls that the extension offers and what each of them showed when it was last asked. A
/// control has no timeline: nothing says when its value grows old, so whoever is about to show it
/// asks for it anew.
class ControlKeeper {
public:
    /// `client` and `log` outlive the keeper. `changed` runs when a control shows something else.
    ControlKeeper(ExtensionClient& client, Log& log,
                  std::function<void(const std::string& kind)> changed);

    /// These are there from now on, and no others; all of them are asked for.
    void offer(const std::vector<kit::ControlDescriptor>& controls);
    /// Nothing while no answer has come yet. A failure leaves the value before it.
    [[nodiscard]] const kit::ControlValue* find(const std::string& kind) const;

    /// While an answer is outstanding nothing is asked, but once more when that has come: it may
    /// have been made too early to know what happened.
    void reload(const std::string& kind);
    void reloadAll();

private:
    struct Control {
        std::optional<kit::ControlValue> value;
        std::string fault;  ///< The one that the log has been told of since the last value.
        bool isAsked = false;
        bool isWantedAgain = false;
    };

    void ask(const std::string& kind, Control& control);
    void take(const std::string& kind, const RequestOutcome& outcome);
    void refuse(const std::string& kind, Control& control, const std::string& reason);

    ExtensionClient& client_;
    Log& log_;
    std::function<void(const std::string& kind)> changed_;
    std::map<std::string, Control> controls_;
};

}  // namespace kelmar::host
