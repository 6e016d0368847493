#pragma once

#include <string>
#include <vector>

#include "Desktop/Arrangement.h"
#include "Desktop/Screens.h"
#include "Kit/Descriptor.h"

namespace kelmar::desktop {

/// A new widget's place: free of `others`, on `screen`, which is one of `screens`.
[[nodiscard]] WidgetPlace freshPlace(const std::string& kind, kit::Family family,
                                     const std::vector<WidgetPlace>& others,
                                     const std::vector<ScreenArea>& screens,
                                     const ScreenArea& screen);

/// What somebody sees who has never arranged anything: one widget of every kind, of middle size;
/// a single one large, so that it is worth its while.
[[nodiscard]] std::vector<WidgetPlace> firstWidgets(const kit::Bundle& bundle,
                                                    const std::vector<ScreenArea>& screens);

}  // namespace kelmar::desktop
