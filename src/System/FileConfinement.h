#pragma once

#include "System/Confinement.h"
#include "System/Result.h"

namespace kelmar::system {

/// The version of Landlock in this kernel (Linux, Documentation/userspace-api/landlock.rst), or
/// the negative error number where there is none or it was switched off.
[[nodiscard]] int landlockVersion();

/// Takes from the calling thread all access to files but these rights, and from version 4 on the
/// network, from version 6 on signals and abstract sockets of others, for good. `version` is the
/// kernel's or an older one; without any it fails with the reason and takes nothing.
[[nodiscard]] Result<Done> confineFiles(const FileRights& rights, int version);

}  // namespace kelmar::system
