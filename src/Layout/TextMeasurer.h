#pragma once

#include <string_view>

#include "Kit/Font.h"

namespace kelmar::layout {

/// How wide text is. The only thing that layout must ask of fonts: heights are plain arithmetic
/// (Kit/Metrics.h).
class TextMeasurer {
public:
    virtual ~TextMeasurer() = default;

    /// The width in points of UTF-8 text on one line.
    [[nodiscard]] virtual double width(std::string_view text, const kit::Font& font) const = 0;
};

}  // namespace kelmar::layout
