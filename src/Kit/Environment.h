#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace kelmar::kit {

/// The sizes in which a widget can be placed.
enum class Family { small, medium, large };

/// How the host colours a widget: with the widget's own colours, or with its own tint over
/// primary and secondary (accented: the desktop's accent colour; vibrant: shades of one colour).
enum class RenderingMode { fullColor, accented, vibrant };

inline constexpr std::array families{Family::small, Family::medium, Family::large};
inline constexpr std::array renderingModes{RenderingMode::fullColor, RenderingMode::accented,
                                           RenderingMode::vibrant};

/// Width and height in points (a point is one pixel at scale 1).
struct Size {
    double width = 0;
    double height = 0;

    friend constexpr bool operator==(const Size&, const Size&) = default;
};

/// What a widget must know of the place it is drawn for.
struct Environment {
    Family family = Family::small;
    Size contentSize;  ///< The room inside the content margins.
    RenderingMode renderingMode = RenderingMode::fullColor;

    friend bool operator==(const Environment&, const Environment&) = default;
};

/// "small", "medium", "large": on the command line and in an environment.
[[nodiscard]] std::string_view nameOf(Family family);
/// "systemSmall" ...: in a descriptor.
[[nodiscard]] std::string_view descriptorNameOf(Family family);
[[nodiscard]] std::string_view nameOf(RenderingMode mode);
[[nodiscard]] std::optional<Family> familyNamed(std::string_view name);
[[nodiscard]] std::optional<Family> familyWithDescriptorName(std::string_view name);
[[nodiscard]] std::optional<RenderingMode> renderingModeNamed(std::string_view name);

}  // namespace kelmar::kit
