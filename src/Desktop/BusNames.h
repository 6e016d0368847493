#pragma once

/// Under what names the running host is found on the session bus. Contract:
/// packaging/com.kelmarplanner.Widgets.xml.
namespace kelmar::desktop::bus {

inline constexpr const char* serviceName = "com.kelmarplanner.Widgets";
inline constexpr const char* objectPath = "/com/kelmarplanner/Widgets";
inline constexpr const char* interfaceName = "com.kelmarplanner.Widgets";

inline constexpr const char* unknownKindError = "com.kelmarplanner.Widgets.Error.UnknownKind";

}  // namespace kelmar::desktop::bus
