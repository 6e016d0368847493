#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Kit/Timeline.h"
#include "Kit/View.h"
#include "System/JsonWriter.h"
#include "System/Result.h"

/// The JSON form of views: the wire format, the output of the command line and the golden form of
/// the tests. Keys come in a fixed order and are absent when they say nothing.
namespace kelmar::kit {

/// A tree that is deeper or larger than this is refused: no widget needs it and a host must not be
/// brought down by one.
inline constexpr int maximumDepth = 64;
inline constexpr int maximumNodes = 10'000;

[[nodiscard]] std::string encodeView(const View& view);
[[nodiscard]] std::string encodeDrawnEntry(const DrawnEntry& entry);
/// The same as a part of something larger.
void writeView(system::JsonWriter& json, const View& view);
void writeDrawnEntry(system::JsonWriter& json, const DrawnEntry& entry);
void writeIntent(system::JsonWriter& json, const Intent& intent);

/// The view of an archive, or which node is wrong and why. Unknown or malformed nodes, numbers
/// that are not finite and trees beyond the limits are refused as a whole.
[[nodiscard]] system::Result<View> decodeView(std::string_view json);
[[nodiscard]] system::Result<DrawnEntry> decodeDrawnEntry(std::string_view json);

/// The first URL in the entry (links and the widget's own) whose scheme is not `scheme`, if any.
[[nodiscard]] std::optional<std::string> foreignUrl(const DrawnEntry& entry,
                                                    std::string_view scheme);

}  // namespace kelmar::kit
