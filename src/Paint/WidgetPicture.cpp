#include "Paint/WidgetPicture.h"

#include <algorithm>
#include <cmath>
#include <variant>

#include "Kit/Metrics.h"
#include "Paint/BoxPainter.h"
#include "Paint/Palette.h"
#include "Paint/PixelGrid.h"

namespace kelmar::paint {
namespace {

layout::PlacedBoxes insideMargins(layout::PlacedBoxes boxes) {
    for (layout::PlacedBox& box : boxes) {
        box.rect.x += kit::contentMargin;
        box.rect.y += kit::contentMargin;
    }
    return boxes;
}

bool changesWithTime(const layout::PlacedBox& box) {
    if (const auto* bar = std::get_if<layout::ProgressDrawing>(&box.drawing)) {
        return std::holds_alternative<kit::BarInterval>(bar->progress.value);
    }
    return std::holds_alternative<layout::CountdownDrawing>(box.drawing);
}

}  // namespace

WidgetPicture::WidgetPicture(const kit::DrawnEntry& entry, kit::Family family,
                             layout::Direction direction, const PaintResources& resources)
    : size_(kit::widgetSize(family)),
      background_(entry.background),
      direction_(direction),
      resources_(resources),
      boxes_(insideMargins(layout::layOut(entry.content, kit::contentSize(family),
                                          resources.measurer(), direction))) {}

QSize WidgetPicture::pixelSize(double scale) const {
    const auto pixels = [scale](double points) {
        // 170 points at a scale of 1.1 are 187 pixels, not the 188 that the binary product says.
        return static_cast<int>(std::ceil(points * scale - 1e-6));
    };
    return {pixels(size_.width), pixels(size_.height)};
}

bool WidgetPicture::isLive() const {
    return std::ranges::any_of(boxes_, changesWithTime);
}

QImage WidgetPicture::image(const PaintStyle& style, system::Date now) const {
    QImage picture(pixelSize(style.scale), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(painter, style, now);
    painter.end();
    picture.setDevicePixelRatio(style.scale);
    return picture;
}

void WidgetPicture::paint(QPainter& painter, const PaintStyle& style, system::Date now) const {
    paintCard(painter, style);
    paintBoxes(painter, boxes_, {resources_, style, direction_, now});
}

void WidgetPicture::paintCard(QPainter& painter, const PaintStyle& style) const {
    const Palette palette(style.appearance);
    const PixelGrid grid(style.scale);
    const QRectF card(QPointF(0, 0), QSizeF(pixelSize(style.scale)));
    const double radius = grid.length(cardCornerRadius);
    const double line = std::max(1.0, std::floor(style.scale));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette.background(background_));
    painter.drawRoundedRect(card, radius, radius);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette.edge(), line));
    const QRectF middleOfEdge = card.adjusted(line / 2, line / 2, -line / 2, -line / 2);
    painter.drawRoundedRect(middleOfEdge, radius - line / 2, radius - line / 2);
    painter.restore();
}

}  // namespace kelmar::paint
