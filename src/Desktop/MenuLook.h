#pragma once

#include "Desktop/Look.h"

class QMenu;

namespace kelmar::desktop {

/// Gives a menu and those that open out of it the desktop's colours, font and text size. What is
/// added to it later does not get them.
void dressMenu(QMenu& menu, const Look& look);

/// The same for all tooltips from the next one on.
void dressToolTips(const Look& look);

}  // namespace kelmar::desktop
