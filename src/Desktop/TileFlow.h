#pragma once

#include <QPoint>
#include <QSize>
#include <vector>

#include "Kit/Environment.h"

/// How a widget's sizes are laid out in the gallery. Plain arithmetic in points, left to right.
namespace kelmar::desktop {

/// Between two tiles in a row.
inline constexpr int tileGap = 24;
/// Below each tile for the name of its size, as high as usual.
inline constexpr int captionHeight = 24;
/// Above and below that name, and the room to the next tile. Two small tiles are as high with it as
/// a large one.
inline constexpr int footBelowCaption = 18;
inline constexpr int tileFoot = captionHeight + footBelowCaption;
/// Wide enough for a large tile beside a medium one.
inline constexpr int galleryWidth = 364 + tileGap + 364;

struct TileFlow {
    std::vector<QPoint> places;  ///< Of the tiles' top left corners, as many as there are families.
    QSize size;                  ///< What they take, feet and all.
};

/// Rows from the top; a large tile stands beside the smaller ones where there is room for both.
/// `foot` is what is left below each.
[[nodiscard]] TileFlow flowTiles(const std::vector<kit::Family>& families, int width,
                                 int foot = tileFoot);

}  // namespace kelmar::desktop
