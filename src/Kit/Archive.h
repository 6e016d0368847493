#pragma once

#include <string>
#include <string_view>

#include "Kit/Timeline.h"
#include "Kit/View.h"
#include "System/Result.h"

/// The JSON form of views: the wire format, the output of the command line and the golden form of
/// the tests. Keys come in a fixed order and are absent when they say nothing.
namespace kelmar::kit {

/// A tree that is deeper or larger than this is refused: no widget needs it and a host must not be
/// brought down by one.
inline constexpr int maximumDepth = 64;
inline constexpr int maximumNodes = 10'000;

/// Whether JSON is written for a machine, on one line, or for a person.
enum class JsonStyle { compact, pretty };

[[nodiscard]] std::string encodeView(const View& view, JsonStyle style = JsonStyle::compact);
[[nodiscard]] std::string encodeDrawnEntry(const DrawnEntry& entry,
                                           JsonStyle style = JsonStyle::compact);

/// The view of an archive, or which node is wrong and why. Unknown or malformed nodes, numbers
/// that are not finite and trees beyond the limits are refused as a whole.
[[nodiscard]] system::Result<View> decodeView(std::string_view json);
[[nodiscard]] system::Result<DrawnEntry> decodeDrawnEntry(std::string_view json);

/// The first URL in the entry (links and the widget's own) whose scheme is not `scheme`, if any.
[[nodiscard]] std::optional<std::string> foreignUrl(const DrawnEntry& entry,
                                                    std::string_view scheme);

}  // namespace kelmar::kit
