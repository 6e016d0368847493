#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace kelmar::kit {

/// A meaning that the host turns into a colour, by scheme, rendering mode and accent.
enum class ColorStyle { primary, secondary, tertiaryFill, white, red, clear };

/// A colour as the extension says it: fixed sRGB components from 0 to 1, or a style whose look
/// the host decides; either with an opacity.
class Color {
public:
    [[nodiscard]] static constexpr Color rgb(double red, double green, double blue) {
        return {std::nullopt, red, green, blue, 1};
    }
    [[nodiscard]] static constexpr Color style(ColorStyle style) { return {style, 0, 0, 0, 1}; }

    /// The same colour at `factor` times its opacity.
    [[nodiscard]] constexpr Color withOpacity(double factor) const {
        return {style_, red_, green_, blue_, opacity_ * factor};
    }

    /// Absent for a fixed colour.
    [[nodiscard]] constexpr std::optional<ColorStyle> style() const { return style_; }
    [[nodiscard]] constexpr double red() const { return red_; }
    [[nodiscard]] constexpr double green() const { return green_; }
    [[nodiscard]] constexpr double blue() const { return blue_; }
    [[nodiscard]] constexpr double opacity() const { return opacity_; }

    friend constexpr bool operator==(const Color&, const Color&) = default;

private:
    constexpr Color(std::optional<ColorStyle> style, double red, double green, double blue,
                    double opacity)
        : style_(style), red_(red), green_(green), blue_(blue), opacity_(opacity) {}

    std::optional<ColorStyle> style_;
    double red_;
    double green_;
    double blue_;
    double opacity_;
};

inline constexpr Color primary = Color::style(ColorStyle::primary);
inline constexpr Color secondary = Color::style(ColorStyle::secondary);
inline constexpr Color tertiaryFill = Color::style(ColorStyle::tertiaryFill);
inline constexpr Color white = Color::style(ColorStyle::white);
inline constexpr Color red = Color::style(ColorStyle::red);
inline constexpr Color clear = Color::style(ColorStyle::clear);

}  // namespace kelmar::kit
