#pragma once

#include <string>

namespace kelmar::desktop {

/// A startup notification identifier (Startup Notification Protocol) that carries the moment of
/// the user's last press on one of our windows. A window manager lets a program with it come to the
/// front, unless the user has turned to something else since. Empty off X11 and before any press.
[[nodiscard]] std::string makeActivationToken();

}  // namespace kelmar::desktop
