#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace kelmar::system {

/// Byte offsets in UTF-8 text after which a reader would accept a cut: the end of each
/// user-perceived character (Unicode Annex 29), ascending, the last being the text's length. None
/// for the empty text.
[[nodiscard]] std::vector<std::size_t> characterBoundaries(std::string_view text);

/// Byte offsets at which a line may be broken (Unicode Annex 14), ascending, the last being the
/// text's length. A mandatory break stands after its line feed. None for the empty text.
[[nodiscard]] std::vector<std::size_t> lineBreaks(std::string_view text);

}  // namespace kelmar::system
