#pragma once

namespace kelmar::desktop {

class WidgetWindow;

/// Lets screen readers see into the widgets' windows: every text, link, button, toggle and bar of a
/// widget is there with its name, its place, its state and what pressing it does. To be called
/// once, before the first window.
void installWidgetAccessibility();

/// To be called when a window's content has changed: screen readers are told what is new.
void tellReaders(WidgetWindow& window);
/// To be called when the keyboard has come to a window or moved on in it.
void tellReadersOfFocus(WidgetWindow& window);

}  // namespace kelmar::desktop
