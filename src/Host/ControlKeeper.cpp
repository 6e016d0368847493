#include "Host/ControlKeeper.h"

#include <fmt/format.h>
#include <utility>

namespace kelmar::host {
namespace {

system::Result<kit::ControlValue> valueIn(const RequestOutcome& outcome) {
    return outcome ? kit::decodeControlValue(*outcome) : system::Failure{outcome.failure().reason};
}

}  // namespace

ControlKeeper::ControlKeeper(ExtensionClient& client, Log& log,
                             std::function<void(const std::string& kind)> changed)
    : client_(client), log_(log), changed_(std::move(changed)) {}

void ControlKeeper::offer(const std::vector<kit::ControlDescriptor>& controls) {
    auto former = std::exchange(controls_, {});
    for (const auto& control : controls) {
        auto known = former.extract(control.kind);
        if (known.empty()) {
            controls_.try_emplace(control.kind);
        } else {
            controls_.insert(std::move(known));
        }
    }
    reloadAll();
}

const kit::ControlValue* ControlKeeper::find(const std::string& kind) const {
    const auto control = controls_.find(kind);
    return control != controls_.end() && control->second.value ? &*control->second.value : nullptr;
}

void ControlKeeper::reload(const std::string& kind) {
    const auto control = controls_.find(kind);
    if (control != controls_.end()) {
        ask(kind, control->second);
    }
}

void ControlKeeper::reloadAll() {
    for (auto& [kind, control] : controls_) {
        ask(kind, control);
    }
}

void ControlKeeper::ask(const std::string& kind, Control& control) {
    control.isWantedAgain = control.isAsked;
    if (std::exchange(control.isAsked, true)) {
        return;
    }
    client_.request({kit::ControlRequest{kind, false}, Patience::lasting,
                     [this, kind](const RequestOutcome& outcome) { take(kind, outcome); }});
}

/// What kept the extension from answering may be this very question, so it is not repeated: the
/// next occasion to ask is never far.
void ControlKeeper::take(const std::string& kind, const RequestOutcome& outcome) {
    const auto found = controls_.find(kind);
    if (found == controls_.end()) {
        return;
    }
    auto& control = found->second;
    control.isAsked = false;
    const bool hasAnswered = outcome || outcome.failure().kind == RequestFailure::Kind::refused;
    if (std::exchange(control.isWantedAgain, false) && hasAnswered) {
        ask(kind, control);
    }
    auto value = valueIn(outcome);
    if (!value) {
        refuse(kind, control, value.failure().reason);
        return;
    }
    control.fault.clear();
    if (control.value != *value) {
        control.value = *std::move(value);
        changed_(kind);
    }
}

void ControlKeeper::refuse(const std::string& kind, Control& control, const std::string& reason) {
    if (std::exchange(control.fault, reason) != reason) {
        log_.write(LogLevel::warning,
                   fmt::format("{}: its value is refused: {}; it goes on showing {}", kind, reason,
                               control.value ? "what it showed before" : "nothing"));
    }
}

}  // namespace kelmar::host
