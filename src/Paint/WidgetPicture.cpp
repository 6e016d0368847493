#include "Paint/WidgetPicture.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <variant>

#include "Kit/Metrics.h"
#include "Layout/TextScale.h"
#include "Paint/BoxPainter.h"
#include "Paint/FocusRing.h"
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

/// Letters and the ends of lines reach a little beyond their boxes.
constexpr double overhang = 8;

layout::Rect withOverhang(const layout::Rect& rect) {
    return {rect.x - overhang, rect.y - overhang, rect.width + 2 * overhang,
            rect.height + 2 * overhang};
}

bool meet(const layout::Rect& a, const layout::Rect& b) {
    return a.x < b.right() && b.x < a.right() && a.y < b.bottom() && b.y < a.bottom();
}

QImage::Format formatOf(Card card) {
    switch (card) {
        case Card::blended:
            return QImage::Format_ARGB32_Premultiplied;
        case Card::opaque:
            return QImage::Format_RGB32;
    }
    return QImage::Format_Invalid;
}

/// An opaque card covers all that was there.
void clearFor(Card card, QImage& surface) {
    if (card == Card::blended) {
        surface.fill(Qt::transparent);
    }
}

QColor opaque(QColor color) {
    color.setAlpha(255);
    return color;
}

}  // namespace

WidgetPicture::WidgetPicture(const kit::DrawnEntry& entry, kit::Family family,
                             layout::Direction direction, const PaintResources& resources)
    : size_(kit::widgetSize(family)),
      background_(entry.background),
      direction_(direction),
      resources_(resources),
      boxes_(insideMargins(layout::layOutMagnified(entry.content, kit::contentSize(family),
                                                   resources.measurer(), direction,
                                                   resources.textScale()))) {}

QSize WidgetPicture::pixelSize(double scale) const {
    const auto pixels = [scale](double points) {
        // 170 points at a scale of 1.1 are 187 pixels, not the 188 that the binary product says.
        return static_cast<int>(std::ceil(points * scale - 1e-6));
    };
    return {pixels(size_.width), pixels(size_.height)};
}

std::vector<layout::Rect> WidgetPicture::liveAreas() const {
    std::vector<layout::Rect> areas;
    for (const layout::PlacedBox& box : boxes_) {
        if (changesWithTime(box)) {
            areas.push_back(withOverhang(box.rect));
        }
    }
    return areas;
}

QImage WidgetPicture::image(const PaintStyle& style, system::Date now) const {
    return image(style, now, QRect(QPoint(), pixelSize(style.scale)));
}

QImage WidgetPicture::image(const PaintStyle& style, system::Date now, const QRect& part) const {
    const double scale = style.scale;
    const layout::PlacedBoxes boxes =
        boxesIn({part.x() / scale, part.y() / scale, part.width() / scale, part.height() / scale});
    // Everything that reaches into the part is drawn whole: Qt gives letters that it has to clip
    // another contrast.
    QRect drawn = part;
    for (const layout::PlacedBox& box : boxes) {
        drawn |= PixelGrid(scale).exact(withOverhang(box.rect)).toAlignedRect();
    }
    drawn &= QRect(QPoint(), pixelSize(scale));
    QImage picture(drawn.size(), formatOf(style.card));
    clearFor(style.card, picture);
    QPainter painter(&picture);
    painter.translate(-drawn.topLeft());
    paintCard(painter, style);
    paintBoxes(painter, boxes, {resources_, style, direction_, now});
    painter.end();
    if (drawn != part) {
        picture = picture.copy(part.translated(-drawn.topLeft()));
    }
    picture.setDevicePixelRatio(scale);
    return picture;
}

layout::PlacedBoxes WidgetPicture::boxesIn(const layout::Rect& area) const {
    // A layer blends a little differently, so what is cut out somewhere decides for every part.
    if (haveCutOut(boxes_)) {
        return boxes_;
    }
    layout::PlacedBoxes boxes;
    std::ranges::copy_if(boxes_, std::back_inserter(boxes), [&](const layout::PlacedBox& box) {
        return meet(withOverhang(box.rect), area);
    });
    return boxes;
}

void WidgetPicture::paintOver(QImage& surface, const PaintStyle& style, system::Date now) const {
    clearFor(style.card, surface);
    QPainter painter(&surface);
    paint(painter, style, now);
}

void WidgetPicture::paint(QPainter& painter, const PaintStyle& style, system::Date now) const {
    paintCard(painter, style);
    paintBoxes(painter, boxes_, {resources_, style, direction_, now});
}

void WidgetPicture::paintFocus(QPainter& painter, const layout::Rect& rect,
                               const PaintStyle& style) const {
    const Palette palette(style.appearance);
    const QColor card = palette.background(background_);
    paintFocusRing(painter, {.rect = rect, .widget = size_},
                   {.ring = palette.focus(card), .card = card}, style.scale);
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
    switch (style.card) {
        case Card::blended:
            painter.setBrush(palette.background(background_));
            painter.drawRoundedRect(card, radius, radius);
            break;
        case Card::opaque:
            painter.fillRect(card, opaque(palette.background(background_)));
            break;
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette.edge(), line));
    const QRectF middleOfEdge = card.adjusted(line / 2, line / 2, -line / 2, -line / 2);
    painter.drawRoundedRect(middleOfEdge, radius - line / 2, radius - line / 2);
    painter.restore();
}

}  // namespace kelmar::paint
