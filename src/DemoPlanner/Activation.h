#pragma once

#include <QWidget>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kelmar::demo {

/// The identifier that a launcher hands a program so that its window may come to the front: a
/// startup notification identifier under X11, an xdg-activation token under Wayland. Empty when
/// there is none. To be asked for before the Qt application object is made, which uses it up.
[[nodiscard]] std::string givenActivationToken();

/// The X server's time that a startup notification identifier ends in.
[[nodiscard]] std::optional<std::uint32_t> timeOf(std::string_view startupId);

/// Shows a window in front of all others. A window manager that guards the user's typing allows
/// it by the token; without one it may only mark the window as asking for attention.
void bringForward(QWidget& window, const std::string& token);

}  // namespace kelmar::demo
