#pragma once

#include <cstddef>
#include <string_view>

#include "Layout/TextMeasurer.h"
#include "System/TextBoundaries.h"

namespace kelmar::testing {

/// Every character is half as wide as the font is large, so that a test can tell widths by
/// counting. It also counts how often it is asked.
class FixedWidthMeasurer final : public layout::TextMeasurer {
public:
    [[nodiscard]] double width(std::string_view text, const kit::Font& font) const override {
        ++questions_;
        return static_cast<double>(characters(text)) * 0.5 * font.size;
    }

    [[nodiscard]] std::size_t questions() const { return questions_; }

private:
    static std::size_t characters(std::string_view text) {
        return text.empty() ? 0 : system::characterBoundaries(text).size();
    }

    mutable std::size_t questions_ = 0;
};

}  // namespace kelmar::testing
