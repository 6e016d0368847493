#pragma once

#include "Layout/Proposal.h"

/// Sizes, points and proposals by axis, so that what holds for rows and columns alike is written
/// once.
namespace kelmar::layout {

enum class Axis { horizontal, vertical };

[[nodiscard]] constexpr double along(Axis axis, Size size) {
    return axis == Axis::horizontal ? size.width : size.height;
}
[[nodiscard]] constexpr double across(Axis axis, Size size) {
    return axis == Axis::horizontal ? size.height : size.width;
}
[[nodiscard]] constexpr Length along(Axis axis, const Proposal& proposal) {
    return axis == Axis::horizontal ? proposal.width : proposal.height;
}
[[nodiscard]] constexpr Length across(Axis axis, const Proposal& proposal) {
    return axis == Axis::horizontal ? proposal.height : proposal.width;
}

[[nodiscard]] constexpr Size sizeAlong(Axis axis, double along, double across) {
    return axis == Axis::horizontal ? Size{along, across} : Size{across, along};
}
[[nodiscard]] constexpr Point pointAlong(Axis axis, double along, double across) {
    return axis == Axis::horizontal ? Point{along, across} : Point{across, along};
}
[[nodiscard]] constexpr Proposal proposalAlong(Axis axis, Length along, Length across) {
    return axis == Axis::horizontal ? Proposal{along, across} : Proposal{across, along};
}

}  // namespace kelmar::layout
