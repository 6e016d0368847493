#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace kelmar::widget {

/// Runs once something that was begun has completed.
using Completion = std::function<void()>;

/// The way to the planner application: opens one of its URLs in the background, without bringing
/// it to the front and without a trace in recent items.
class AppLink {
public:
    virtual ~AppLink() = default;
    /// `completed` runs exactly once, when the open request has completed, well or not.
    virtual void open(const std::string& url, Completion completed) = 0;
};

/// Sends one complete URL. Never fails: a text that is no URL is skipped, and what becomes of the
/// request is the planner's affair.
void tellApp(AppLink& appLink, const std::string& url, Completion completed);

/// Sends a command to the planner's study timer. The command is appended as it stands.
void askApp(AppLink& appLink, std::string_view command, Completion completed);

}  // namespace kelmar::widget
