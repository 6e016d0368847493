#pragma once

#include <QPoint>
#include <QSize>
#include <vector>

#include "Kit/Environment.h"

/// How a widget's sizes are laid out in the gallery. Plain arithmetic in points, left to right.
namespace kelmar::desktop {

/// Between two tiles in a row.
inline constexpr int tileGap = 24;
/// Below each tile for the name of its size, and the room to the next one. Two small tiles are as
/// high with it as a large one.
inline constexpr int tileFoot = 42;
/// Wide enough for a large tile beside a medium one.
inline constexpr int galleryWidth = 364 + tileGap + 364;

struct TileFlow {
    std::vector<QPoint> places;  ///< Of the tiles' top left corners, as many as there are families.
    QSize size;                  ///< What they take, feet and all.
};

/// Rows from the top; a large tile stands beside the smaller ones where there is room for both.
[[nodiscard]] TileFlow flowTiles(const std::vector<kit::Family>& families, int width);

}  // namespace kelmar::desktop
