#pragma once

namespace kelmar::kit {

enum class FontWeight { regular, medium, semibold, bold, heavy, black };

/// `rounded` is the friendlier cut used for big numbers.
enum class FontDesign { standard, rounded };

enum class Digits { proportional, monospaced };

/// The system font at a size in points, or the caption text style. A caption is 10 points regular
/// and says so by name, so that a host may scale it with the user's other captions.
struct Font {
    double size = 13;
    FontWeight weight = FontWeight::regular;
    FontDesign design = FontDesign::standard;
    Digits digits = Digits::proportional;
    bool isCaption = false;

    [[nodiscard]] static constexpr Font system(double size,
                                               FontWeight weight = FontWeight::regular) {
        return {.size = size, .weight = weight};
    }
    [[nodiscard]] static constexpr Font caption() { return {.size = 10, .isCaption = true}; }
    [[nodiscard]] constexpr Font rounded() const {
        Font font = *this;
        font.design = FontDesign::rounded;
        return font;
    }
    [[nodiscard]] constexpr Font monospacedDigits() const {
        Font font = *this;
        font.digits = Digits::monospaced;
        return font;
    }

    friend constexpr bool operator==(const Font&, const Font&) = default;
};

}  // namespace kelmar::kit
