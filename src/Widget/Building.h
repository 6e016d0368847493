#pragma once

#include <optional>
#include <string>

#include "Kit/View.h"

/// Pieces of layout that several widgets are built from.
namespace kelmar::widget {

inline constexpr kit::Alignment topLeading{kit::HorizontalAlignment::leading,
                                           kit::VerticalAlignment::top};
inline constexpr kit::Alignment bottomLeading{kit::HorizontalAlignment::leading,
                                              kit::VerticalAlignment::bottom};

/// A child that takes the whole room it is offered, itself at one of the room's corners.
[[nodiscard]] kit::View filling(kit::View child, kit::Alignment alignment);
/// A child that takes the whole width it is offered, itself at the leading edge.
[[nodiscard]] kit::View fillingWidth(kit::View child);
/// A child centred in a frame of a height, as wide as it is.
[[nodiscard]] kit::View withHeight(double height, kit::View child);
/// A child centred in a frame of a size.
[[nodiscard]] kit::View withSize(double width, double height, kit::View child);

/// A child with room at its sides and above and below.
[[nodiscard]] kit::View padded(double horizontal, double vertical, kit::View child);

/// The slim upright bar that stands for a class by its colour. Without a height it is as high as
/// the room it is offered.
[[nodiscard]] kit::View colorBar(kit::Color color, std::optional<double> height);
/// A child on a capsule of its own size.
[[nodiscard]] kit::View onCapsule(kit::Color fill, kit::View child);

/// Text on one line, cut off where it does not fit.
[[nodiscard]] kit::Text oneLine(std::string text, kit::Font font, kit::Color color);
[[nodiscard]] kit::Text plain(std::string text, double size, kit::Color color = kit::primary);

/// What a widget shows when there is nothing to show: its symbol above a sentence.
[[nodiscard]] kit::View signInSentence(const std::string& symbol, kit::Color tint,
                                       std::string sentence);

}  // namespace kelmar::widget
