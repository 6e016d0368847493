#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "Kit/Protocol.h"
#include "Widget/AppLink.h"
#include "Widget/PlannerWidgets.h"
#include "Widget/Surroundings.h"

namespace kelmar::widget {

/// Sends one line to the host.
using SendLine = std::function<void(const std::string& line)>;

/// The app link of a process that may not open URLs itself: it asks the host to. An open request
/// completes when the host has answered it, whatever the answer; meanwhile everything else goes on.
class HostAppLink final : public AppLink {
public:
    explicit HostAppLink(SendLine send) : send_(std::move(send)) {}

    void open(const std::string& url, Completion completed) override;
    /// The host has answered. An id that nobody waits for is ignored.
    void answered(const kit::MessageId& id);

private:
    SendLine send_;
    std::int64_t lastId_ = 0;
    std::map<kit::MessageId, Completion> outstanding_;
};

/// Answers a host's requests, line by line. Has no loop, thread or timer of its own.
class ExtensionServer {
public:
    /// The surroundings' app link is `appLink`, which hears of the host's answers from here.
    ExtensionServer(const Surroundings& surroundings, HostAppLink& appLink, SendLine send);

    /// Takes one line from the host, without its line feed. What is no valid message is answered
    /// with the JSON-RPC error and changes nothing.
    void receive(std::string_view line);

private:
    void answer(const std::optional<kit::MessageId>& id,
                const system::Result<std::string>& resultJson);
    void perform(const std::optional<kit::MessageId>& id, const kit::Intent& intent);
    void refuse(const std::optional<kit::MessageId>& id, kit::ErrorCode code,
                const std::string& message);
    [[nodiscard]] system::Result<std::string> result(const kit::EntryRequest& request) const;
    [[nodiscard]] system::Result<std::string> result(const kit::ControlRequest& request) const;

    const Surroundings& surroundings_;
    HostAppLink& appLink_;
    SendLine send_;
    PlannerWidgets widgets_;
};

}  // namespace kelmar::widget
