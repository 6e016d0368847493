#pragma once

#include "Kit/ArchiveValues.h"
#include "Kit/Color.h"
#include "Kit/Font.h"

/// The values that decide how a view looks, written and read as those of ArchiveValues.h.
namespace kelmar::kit {

void writeValue(system::JsonWriter& json, const Color& color);
void writeValue(system::JsonWriter& json, const Font& font);
/// Whether the digits are all of one width.
void writeValue(system::JsonWriter& json, Digits digits);

template <>
[[nodiscard]] Color readValue(const JsonValue& json);
template <>
[[nodiscard]] Font readValue(const JsonValue& json);
template <>
[[nodiscard]] Digits readValue(const JsonValue& json);

}  // namespace kelmar::kit
