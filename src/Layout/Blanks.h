#pragma once

#include <string>
#include <string_view>

namespace kelmar::layout {

/// The length in bytes of the line feed that `text` begins with: 0 if it begins with none, a
/// carriage return with its line feed being one.
[[nodiscard]] std::size_t lineFeedLength(std::string_view text);

/// Without the blanks and line feeds at its end, which would take room that nobody sees filled.
[[nodiscard]] std::string_view withoutTrailingBlanks(std::string_view text);

/// Each line feed and tab turned into a blank.
[[nodiscard]] std::string onOneLine(std::string_view text);

/// Each tab turned into a blank: there are no tab stops in a widget.
[[nodiscard]] std::string withoutTabs(std::string_view text);

}  // namespace kelmar::layout
