#pragma once

namespace kelmar::host {

/// One widget on the desktop, for as long as it is there.
using WidgetId = int;

}  // namespace kelmar::host
