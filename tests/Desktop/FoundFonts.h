#pragma once

#include <future>

#include "Paint/FontSet.h"

namespace kelmar::desktop {

/// Fonts for a look that have not to be waited for.
inline std::shared_future<paint::FontSet> foundFonts() {
    std::promise<paint::FontSet> fonts;
    fonts.set_value(paint::FontSet(QStringLiteral("Inter")));
    return fonts.get_future();
}

}  // namespace kelmar::desktop
