#include "Desktop/Log.h"

namespace kelmar::desktop {

Q_LOGGING_CATEGORY(desktopLog, "kelmar.desktop", QtInfoMsg)

}  // namespace kelmar::desktop
