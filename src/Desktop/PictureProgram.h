#pragma once

#include "Desktop/Ground.h"
#include "Desktop/Options.h"

namespace kelmar::desktop {

/// Draws the desktop to the picture file that the options name, as soon as the extension has given
/// something to draw; returns the program's exit status.
[[nodiscard]] int drawDesktop(Ground& ground, const Options& options);

}  // namespace kelmar::desktop
