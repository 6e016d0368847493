#pragma once

#include <string>

#include "Host/ApplicationVariables.h"
#include "Host/Glib.h"

namespace kelmar::host {

/// What GIO gives an application that it starts on top of the URL. With a token (startup
/// notification under X11, xdg-activation under Wayland) the application may come to the front;
/// without one, the empty text, it gets none, not even the one with which this process was started.
[[nodiscard]] GlibOwned<GAppLaunchContext> makeLaunchContext(const std::string& activationToken,
                                                             const ApplicationVariables& variables);

}  // namespace kelmar::host
