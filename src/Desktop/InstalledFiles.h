#pragma once

#include <string>

namespace kelmar::desktop {

/// The key file of the extension that this program came with: beside the program in a build tree,
/// in its installation's folder of extensions else. Found from the program's own place, so that an
/// installation can be moved. Needs the application object.
[[nodiscard]] std::string installedKeyFile();

}  // namespace kelmar::desktop
