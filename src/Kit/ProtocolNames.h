#pragma once

#include <string_view>

#include "Kit/Names.h"
#include "Kit/Protocol.h"

/// The method names of the protocol, for writing and for reading alike.
namespace kelmar::kit {

inline constexpr std::string_view initializeMethod = "initialize";
inline constexpr NameTable<EntryKind, 3> entryMethods{{
    {EntryKind::placeholder, "widget/placeholder"},
    {EntryKind::snapshot, "widget/snapshot"},
    {EntryKind::timeline, "widget/timeline"},
}};
inline constexpr std::string_view controlMethod = "control/value";
inline constexpr std::string_view performMethod = "intent/perform";
inline constexpr std::string_view diagnoseMethod = "extension/diagnose";
inline constexpr std::string_view openMethod = "app/open";

inline constexpr std::string_view neverPolicy = "never";

}  // namespace kelmar::kit
