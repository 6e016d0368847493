#pragma once

namespace kelmar::desktop {

class WidgetWindow;

/// Lets screen readers see into the widgets' windows: every text, link, button and toggle of a
/// widget is there with its name, its place and what pressing it does. To be called once, before
/// the first window.
void installWidgetAccessibility();

/// To be called before a window's boxes become others: screen readers then let go of the old ones.
void retireBoxes(WidgetWindow& window);
/// To be called after it: screen readers then learn of the new ones.
void announceBoxes(WidgetWindow& window);

}  // namespace kelmar::desktop
