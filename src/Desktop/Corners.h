#pragma once

#include "Paint/Appearance.h"

namespace kelmar::desktop {

/// Whether a card's corners are left out of its window, or transparent in it. The latter needs a
/// compositor, without which they would be black.
enum class Corners { cutOut, transparent };

/// The card that belongs into such a window.
[[nodiscard]] inline paint::Card cardFor(Corners corners) {
    switch (corners) {
        case Corners::cutOut:
            return paint::Card::opaque;
        case Corners::transparent:
            return paint::Card::blended;
    }
    return paint::Card::blended;
}

}  // namespace kelmar::desktop
