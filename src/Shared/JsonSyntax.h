#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace kelmar::shared {

/// Where a text stops being JSON, and why.
struct SyntaxError {
    std::size_t offset = 0;   ///< In bytes.
    std::string_view reason;  ///< In English: "a comma or a closing bracket is missing".

    bool operator==(const SyntaxError&) const = default;
};

/// Holds the whole text against the grammar of JSON (RFC 8259) and of UTF-8, however deep it is
/// nested and however large its numbers are; nothing when it is one valid value. An escape of half
/// a surrogate pair is an error, because no UTF-8 could stand for it.
[[nodiscard]] std::optional<SyntaxError> findSyntaxError(std::string_view json);

}  // namespace kelmar::shared
