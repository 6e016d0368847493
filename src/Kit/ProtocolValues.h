#pragma once

#include "Kit/ArchiveValues.h"
#include "Kit/Protocol.h"

/// The values in messages that are no plain lists of fields, written and read as those of
/// ArchiveValues.h.
namespace kelmar::kit {

void writeValue(system::JsonWriter& json, Family family);
/// Only the family must be said: the rest has a usual value.
void writeValue(system::JsonWriter& json, const Environment& environment);
void writeValue(system::JsonWriter& json, const ReloadPolicy& policy);
void writeValue(system::JsonWriter& json, ErrorCode code);

/// The short names of the command line are understood as well.
template <>
[[nodiscard]] Family readValue(const JsonValue& json);
template <>
[[nodiscard]] Environment readValue(const JsonValue& json);
template <>
[[nodiscard]] ReloadPolicy readValue(const JsonValue& json);
/// Errors are named by code; one that this protocol does not know still is an error.
template <>
[[nodiscard]] ErrorCode readValue(const JsonValue& json);

}  // namespace kelmar::kit
