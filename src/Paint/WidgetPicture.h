#pragma once

#include <QImage>
#include <QPainter>
#include <QRect>
#include <QSize>
#include <vector>

#include "Kit/Environment.h"
#include "Kit/Timeline.h"
#include "Layout/Layout.h"
#include "Layout/PlacedBox.h"
#include "Paint/Appearance.h"
#include "Paint/PaintResources.h"
#include "System/Date.h"

namespace kelmar::paint {

/// How round a card is, in points.
inline constexpr double cardCornerRadius = 22;

/// A whole widget: a card with rounded corners and the content inside the margins. Laid out once,
/// drawn as often as the time or the appearance asks for it. The resources must outlive it.
class WidgetPicture {
public:
    WidgetPicture(const kit::DrawnEntry& entry, kit::Family family, layout::Direction direction,
                  const PaintResources& resources);

    /// The content's boxes in points from the widget's own top left corner: what pointer, keyboard
    /// and screen reader are served from.
    [[nodiscard]] const layout::PlacedBoxes& boxes() const { return boxes_; }

    /// Whether both show the same at any moment in the same style.
    [[nodiscard]] bool showsSameAs(const WidgetPicture& other) const {
        return boxes_ == other.boxes_ && background_ == other.background_;
    }

    /// In points.
    [[nodiscard]] kit::Size size() const { return size_; }

    /// In device pixels; a fraction of a pixel counts as one.
    [[nodiscard]] QSize pixelSize(double scale) const;

    /// Where the picture changes with time, in points: around its countdowns and the bars that
    /// empty by themselves.
    [[nodiscard]] std::vector<layout::Rect> liveAreas() const;

    /// Transparent outside a blended card. Its device pixel ratio is the scale.
    [[nodiscard]] QImage image(const PaintStyle& style, system::Date now) const;
    /// One part of it, in device pixels, the same to the pixel.
    [[nodiscard]] QImage image(const PaintStyle& style, system::Date now, const QRect& part) const;

    /// Draws it over whatever the surface, which has its size and one of the formats of images,
    /// holds: the same to the pixel as an image, without the memory for one.
    void paintOver(QImage& surface, const PaintStyle& style, system::Date now) const;

    /// Draws the card and the content from the painter's origin, in device pixels (see paintBoxes).
    void paint(QPainter& painter, const PaintStyle& style, system::Date now) const;

    /// Marks a place in the widget as the one that has the keyboard; in device pixels as well.
    void paintFocus(QPainter& painter, const layout::Rect& rect, const PaintStyle& style) const;

private:
    /// Those of the boxes that may reach into an area, which is in points.
    [[nodiscard]] layout::PlacedBoxes boxesIn(const layout::Rect& area) const;
    void paintCard(QPainter& painter, const PaintStyle& style) const;

    kit::Size size_;
    kit::Color background_;
    layout::Direction direction_;
    const PaintResources& resources_;
    layout::PlacedBoxes boxes_;
};

}  // namespace kelmar::paint
