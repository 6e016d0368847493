#pragma once

namespace kelmar::host {

/// The version of its system that a host gives itself out for, unless its user says another:
/// numbers with dots between them. An extension offers nothing that an older host cannot show.
inline constexpr const char* newestSystemVersion = "26.0.0";

}  // namespace kelmar::host
