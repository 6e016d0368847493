#pragma once

#include <string>
#include <vector>

#include "System/Result.h"

namespace kelmar::host {

/// What the host must know of an extension without asking it: a key file, written as
/// freedesktop.org's Desktop Entries are, beside the extension's binary.
///
///     [Extension]
///     Exec=kelmar-widgets-extension
///     UrlScheme=kelmarplanner
///     ReloadOnChange=Library/Application Support/Kelmar Planner/widget.json;
struct ExtensionFile {
    std::string executable;  ///< Absolute; in the file relative to its folder.
    std::string urlScheme;   ///< The only scheme that may be opened for it.
    std::vector<std::string>
        reloadOnChange;  ///< Absolute; in the file relative to the home folder.
};

/// Reads a key file, or says what is wrong with it.
[[nodiscard]] system::Result<ExtensionFile> readExtensionFile(const std::string& path,
                                                              const std::string& homeFolder);

}  // namespace kelmar::host
