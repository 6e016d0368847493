#include "Desktop/OwnTextScale.h"

#include <algorithm>
#include <cmath>

#include "Layout/TextScale.h"

namespace kelmar::desktop {

double ownTextScale(double wanted, double screenScale) {
    constexpr double roundingError = 1.0 / 96;  // Qt takes whole dots an inch.
    const double windowScale = std::max(1.0, std::round(screenScale / wanted));
    const bool isToldTwice = std::abs(screenScale - windowScale * wanted) <= roundingError;
    return isToldTwice ? 1 : std::clamp(wanted, 1.0, layout::greatestTextScale);
}

}  // namespace kelmar::desktop
