#include "Paint/BoxPainter.h"

#include <QImage>
#include <algorithm>
#include <cmath>
#include <optional>
#include <variant>

#include "Paint/Canvas.h"
#include "Paint/ShapePainting.h"
#include "Paint/TextPainting.h"

namespace kelmar::paint {
namespace {

/// How far the last shape moved when it was put on whole pixels, told by its centres.
struct Anchor {
    QPointF exact;    ///< The centre of a shape as laid out.
    QPointF snapped;  ///< The same centre once the shape lies on whole pixels.
};

/// Runs drawing on a transparent layer of its own and lays that over what the painter has.
template <class Draw>
void drawOnLayer(QPainter& painter, const QRect& bounds, Draw draw) {
    const QRect device(0, 0, painter.device()->width(), painter.device()->height());
    const QRect area = bounds & device;
    if (area.isEmpty()) {
        return;
    }
    QImage layer(area.size(), QImage::Format_ARGB32_Premultiplied);
    layer.fill(Qt::transparent);
    QPainter layerPainter(&layer);
    layerPainter.setRenderHints(painter.renderHints());
    layerPainter.setLayoutDirection(painter.layoutDirection());
    layerPainter.setTransform(painter.transform() *
                              QTransform::fromTranslate(-area.x(), -area.y()));
    draw(layerPainter);
    layerPainter.end();
    painter.save();
    painter.resetTransform();
    painter.drawImage(area.topLeft(), layer);
    painter.restore();
}

bool isCutOut(const layout::PlacedBox& box) {
    const auto* symbol = std::get_if<layout::SymbolDrawing>(&box.drawing);
    return symbol != nullptr && symbol->color.style() == kit::ColorStyle::clear;
}

PixelPhase phaseOf(double position) {
    return position - std::floor(position) < 0.25 ? PixelPhase::whole : PixelPhase::half;
}

class BoxPainter {
public:
    BoxPainter(QPainter& painter, const PaintContext& context)
        : canvas_{painter, context, PixelGrid(context.style.scale),
                  Palette(context.style.appearance)} {}

    void draw(const layout::PlacedBox& box) {
        canvas_.painter.setOpacity(std::clamp(box.opacity, 0.0, 1.0));
        std::visit(kit::Match{
                       [](std::monostate) {},
                       [&](const layout::TextDrawing& text) { drawLines(box.rect, text); },
                       [&](const layout::SymbolDrawing& symbol) { drawSymbol(box.rect, symbol); },
                       [&](const layout::ShapeDrawing& shape) {
                           drawShape(canvas_, box.rect, shape.shape);
                           anchorTo(box.rect);
                       },
                       [&](const layout::CountdownDrawing& countdown) {
                           drawCountdown(canvas_, box.rect, countdown);
                       },
                       [&](const layout::ProgressDrawing& bar) {
                           drawProgress(canvas_, box.rect, bar.progress);
                       },
                   },
                   box.drawing);
    }

private:
    void drawLines(const layout::Rect& rect, const layout::TextDrawing& text) {
        if (!text.strikethrough || canvas_.painter.opacity() == 1) {
            drawText(canvas_, rect, text);
            return;
        }
        // Letters and the line through them fade as one; where they cross they must not show twice.
        const QRectF place = canvas_.painter.transform().mapRect(canvas_.grid.exact(rect));
        const auto overhang = static_cast<int>(std::ceil(canvas_.grid.length(text.font.size)));
        const QRect bounds =
            place.toAlignedRect().adjusted(-overhang, -overhang, overhang, overhang);
        drawOnLayer(canvas_.painter, bounds, [&](QPainter& layer) {
            drawText({layer, canvas_.context, canvas_.grid, canvas_.palette}, rect, text);
        });
    }

    void anchorTo(const layout::Rect& rect) {
        anchor_ = {canvas_.grid.exact(rect).center(), canvas_.grid.snapped(rect).center()};
    }

    /// The square on whole pixels, except that a symbol in the middle of the shape before it stays
    /// in its middle, if need be on halves of pixels.
    [[nodiscard]] QRectF symbolSquare(const layout::Rect& rect) const {
        const QRectF exact = canvas_.grid.exact(rect);
        QRectF square = canvas_.grid.snapped(rect);
        const QPointF offset = exact.center() - (anchor_ ? anchor_->exact : QPointF());
        if (anchor_ && offset.manhattanLength() < 0.01) {
            square.moveCenter(anchor_->snapped);
        }
        return square;
    }

    void drawSymbol(const layout::Rect& rect, const layout::SymbolDrawing& symbol) {
        const QRectF square = symbolSquare(rect);
        if (square.isEmpty()) {
            return;
        }
        if (canvas_.context.style.redaction == Redaction::redacted) {
            drawRedactedSymbol(square);
            return;
        }
        const bool cutOut = symbol.color.style() == kit::ColorStyle::clear;
        const QColor color = canvas_.palette.color(
            cutOut ? kit::white.withOpacity(symbol.color.opacity()) : symbol.color);
        const QImage picture = canvas_.context.resources.symbols().image({
            .name = symbol.name,
            .weight = symbol.weight,
            .side = static_cast<int>(std::min(square.width(), 2048.0)),
            .color = color,
            .horizontalPhase = phaseOf(square.x()),
            .verticalPhase = phaseOf(square.y()),
        });
        canvas_.painter.setCompositionMode(cutOut ? QPainter::CompositionMode_DestinationOut
                                                  : QPainter::CompositionMode_SourceOver);
        canvas_.painter.drawImage(QPointF(std::floor(square.x()), std::floor(square.y())), picture);
        canvas_.painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    }

    void drawRedactedSymbol(const QRectF& square) {
        const double inset = square.width() * 0.1;
        const double radius = square.width() * 0.25;
        canvas_.painter.setPen(Qt::NoPen);
        canvas_.painter.setBrush(
            canvas_.palette.color(kit::secondary.withOpacity(redactedOpacity)));
        canvas_.painter.drawRoundedRect(square.adjusted(inset, inset, -inset, -inset), radius,
                                        radius);
    }

    Canvas canvas_;
    std::optional<Anchor> anchor_;
};

void drawAll(QPainter& painter, const layout::PlacedBoxes& boxes, const PaintContext& context) {
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    BoxPainter boxPainter(painter, context);
    for (const layout::PlacedBox& box : boxes) {
        boxPainter.draw(box);
    }
    painter.restore();
}

}  // namespace

bool haveCutOut(const layout::PlacedBoxes& boxes) {
    return std::ranges::any_of(boxes, isCutOut);
}

void paintBoxes(QPainter& painter, const layout::PlacedBoxes& boxes, const PaintContext& context) {
    if (haveCutOut(boxes)) {
        // Cutting out must not reach what was there before.
        const QRect everything(0, 0, painter.device()->width(), painter.device()->height());
        drawOnLayer(painter, everything, [&](QPainter& layer) { drawAll(layer, boxes, context); });
    } else {
        drawAll(painter, boxes, context);
    }
}

}  // namespace kelmar::paint
