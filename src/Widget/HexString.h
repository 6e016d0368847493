#pragma once

#include <optional>
#include <string_view>

#include "Kit/Color.h"

namespace kelmar::widget {

/// The colour of a hex text of 3 or 6 digits, as the planner writes class and block colours: blanks
/// around it, a "#" before it and either case of digits are accepted, a form with alpha is not.
/// Nothing when the text is absent or no colour; each widget has its own fallback.
[[nodiscard]] std::optional<kit::Color> hexString(std::optional<std::string_view> text);

}  // namespace kelmar::widget
