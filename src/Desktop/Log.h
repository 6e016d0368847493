#pragma once

#include <QLoggingCategory>

namespace kelmar::desktop {

/// What the desktop has to say to whoever reads its log, one line a message.
Q_DECLARE_LOGGING_CATEGORY(desktopLog)

}  // namespace kelmar::desktop
