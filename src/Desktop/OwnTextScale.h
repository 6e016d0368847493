#pragma once

namespace kelmar::desktop {

/// How much larger than everything beside them texts are to be drawn: what is left of `wanted`, the
/// user's text scale, on a screen where everything is drawn `screenScale` times as large. From 1 to
/// `layout::greatestTextScale`.
///
/// GNOME's settings daemon tells X programs of the wish in the resolution that it gives them, of 96
/// dots an inch times a whole number, its window scale, times the text scale (Xft/DPI in XSETTINGS,
/// Xft.dpi among the X resources). Where that is what `screenScale` comes from, texts have been
/// magnified with everything else, and nothing is left.
[[nodiscard]] double ownTextScale(double wanted, double screenScale);

}  // namespace kelmar::desktop
