#pragma once

#include <QString>

#include "System/Date.h"
#include "System/Localization.h"

namespace kelmar::desktop {

/// What a widget says of content that could not be brought up to date for so long: "Last updated
/// 12 minutes ago".
[[nodiscard]] QString lastUpdateText(system::Seconds age, const system::Localization& texts);

}  // namespace kelmar::desktop
