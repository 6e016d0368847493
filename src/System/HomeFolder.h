#pragma once

#include <string>

namespace kelmar::system {

/// The home folder of the current user id as the account database has it, not the environment.
/// Fatal when the database knows none: without it there is nothing to show and nowhere to write.
[[nodiscard]] std::string homeFolder();

}  // namespace kelmar::system
