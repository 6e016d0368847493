#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace kelmar::shared {

/// The parts of a number by JSON's grammar (RFC 8259, section 6), as they are written.
struct JsonNumber {
    bool isNegative = false;
    std::string_view whole;
    std::string_view fraction;  ///< Empty when there is no point.
    bool isExponentNegative = false;
    std::string_view exponent;  ///< Empty when there is none.
};

/// Takes a number off the front of `rest`, as far as the grammar goes; nothing, and `rest` as it
/// was, when there is none.
[[nodiscard]] std::optional<JsonNumber> takeJsonNumber(std::string_view& rest);

/// The integer that a text of one JSON number stands for, however it is written: "3", "3.0",
/// "30e-1". Exact over the whole range, without a way through floating point. Nothing when the
/// text is something else, has a fraction other than zero or does not fit 64 bits with a sign.
[[nodiscard]] std::optional<std::int64_t> parseJsonInteger(std::string_view text);

/// The number nearest to what a text of one JSON number says: zero for one that is too small to be
/// told from it, infinite for one that is too large. Nothing when the text is something else.
[[nodiscard]] std::optional<double> parseJsonDouble(std::string_view text);

}  // namespace kelmar::shared
