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

/// A painter moves its text and strokes by whole points only when told so by their centres.
struct Anchor {
    QPointF exact;    ///< The centre of a shape as laid out.
    QPointF snapped;  ///< The same centre once the shape lies on whole pixels.
};

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
                       [&](const layout::TextDrawing& text) { drawText(canvas_, box.rect, text); },
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

/// Cutting out must not reach what was there before, so the boxes come together on a layer first.
void drawAllOnLayer(QPainter& painter, const layout::PlacedBoxes& boxes,
                    const PaintContext& context) {
    QImage layer(painter.device()->width(), painter.device()->height(),
                 QImage::Format_ARGB32_Premultiplied);
    layer.fill(Qt::transparent);
    QPainter layerPainter(&layer);
    layerPainter.setTransform(painter.transform());
    drawAll(layerPainter, boxes, context);
    layerPainter.end();
    painter.save();
    painter.resetTransform();
    painter.drawImage(QPointF(0, 0), layer);
    painter.restore();
}

}  // namespace

void paintBoxes(QPainter& painter, const layout::PlacedBoxes& boxes, const PaintContext& context) {
    if (std::ranges::any_of(boxes, isCutOut)) {
        drawAllOnLayer(painter, boxes, context);
    } else {
        drawAll(painter, boxes, context);
    }
}

}  // namespace kelmar::paint
