#pragma once

namespace kelmar::desktop {

/// Whether things may move and fade, or the user has asked for stillness.
enum class Motion { full, reduced };

}  // namespace kelmar::desktop
