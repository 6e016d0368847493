#pragma once

#include <string>

#include "System/Result.h"

namespace kelmar::demo {

/// The desktop's handler for the planner's URLs, through GIO and a desktop file
/// (freedesktop.org's Desktop Entry) in the user's own folder of applications.

/// Writes the desktop file and becomes the default handler, unless another program is it already.
/// The text says what came of it.
[[nodiscard]] system::Result<std::string> registerSchemeHandler(const std::string& program);

/// Takes back what registering did and nothing else.
[[nodiscard]] system::Result<std::string> unregisterSchemeHandler();

}  // namespace kelmar::demo
