#pragma once

namespace kelmar::desktop {

/// Whether a card's corners are left out of its window, or transparent in it. The latter needs a
/// compositor, without which they would be black.
enum class Corners { cutOut, transparent };

}  // namespace kelmar::desktop
