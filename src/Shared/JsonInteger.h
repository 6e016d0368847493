#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace kelmar::shared {

/// The integer that a JSON number stands for, however it is written: "3", "3.0", "30e-1". Exact
/// over the whole range, without a way through floating point. Nothing when the text is no JSON
/// number, has a fraction other than zero or does not fit 64 bits with a sign.
[[nodiscard]] std::optional<std::int64_t> parseJsonInteger(std::string_view number);

}  // namespace kelmar::shared
