#pragma once

#include <string>

namespace kelmar::desktop {

// Files that this program came with: beside it in a build tree, in its installation's folder for
// what is not for people else. Found from the program's own place, so that an installation can be
// moved. They need the application object.

/// The key file of the extension.
[[nodiscard]] std::string installedKeyFile();
/// The module that opens URLs (see `host::LoadedUrlOpener`).
[[nodiscard]] std::string installedUrlOpenerModule();

}  // namespace kelmar::desktop
