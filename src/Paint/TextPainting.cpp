#include "Paint/TextPainting.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>
#include <string>

#include "Layout/CountdownText.h"

namespace kelmar::paint {
namespace {

/// Where a line that strikes a text through runs above the baseline, and how thick it is, by the
/// size of the text: across the middle of its small letters.
constexpr double strikeHeight = 0.27;
constexpr double strikeThickness = 0.075;

/// The bars for redacted texts, by the size of the text: about as high as its capital letters.
constexpr double barHeight = 0.66;
constexpr double barRise = 0.7;

/// Beyond this no screen shows a glyph, and a font engine may fail.
constexpr double largestPixelSize = 2000;

/// Draws one piece of a line from its left edge on a baseline, both in device pixels.
void drawPiece(const Canvas& canvas, const QString& text, const kit::Font& font, QPointF origin) {
    const double pixelSize = std::clamp(canvas.grid.length(font.size), 1.0, largestPixelSize);
    const int drawnSize = FontSet::sharedSize(pixelSize);
    const double scale = pixelSize / drawnSize;
    QPainter& painter = canvas.painter;
    painter.save();
    painter.setFont(canvas.context.resources.fonts().font(font, drawnSize));
    painter.translate(origin);
    painter.scale(scale, scale);
    painter.drawText(QPointF(0, 0), text);
    painter.restore();
}

/// `x` and `baseline` in points.
void drawLine(const Canvas& canvas, const QString& text, const kit::Font& font, double x,
              double baseline) {
    // Letters that stand on whole pixels are sharper at their feet.
    const double y = canvas.grid.snappedPosition(baseline);
    for (const TextPiece& piece : canvas.context.resources.measurer().pieces(text, font)) {
        drawPiece(canvas, piece.text, font, {canvas.grid.length(x + piece.x), y});
    }
}

void strikeThrough(const Canvas& canvas, const layout::TextDrawing& text, double x, double baseline,
                   double width) {
    const double thickness = canvas.grid.snappedLength(strikeThickness * text.font.size);
    const double middle =
        canvas.grid.snappedPosition(baseline) - canvas.grid.length(strikeHeight * text.font.size);
    canvas.painter.fillRect(QRectF(canvas.grid.length(x), std::round(middle - thickness / 2),
                                   canvas.grid.length(width), thickness),
                            canvas.palette.color(text.color));
}

void drawRedactedBar(const Canvas& canvas, double fontSize, double x, double baseline,
                     double width) {
    const QRectF bar =
        canvas.grid.snapped({x, baseline - barRise * fontSize, width, barHeight * fontSize});
    canvas.painter.setPen(Qt::NoPen);
    canvas.painter.setBrush(canvas.palette.color(kit::secondary.withOpacity(redactedOpacity)));
    canvas.painter.drawRoundedRect(bar, bar.height() * 0.4, bar.height() * 0.4);
}

}  // namespace

void drawText(const Canvas& canvas, const layout::Rect& rect, const layout::TextDrawing& text) {
    canvas.painter.setPen(canvas.palette.color(text.color));
    for (const layout::TextLine& line : text.lines) {
        const double x = rect.x + line.x;
        const double baseline = rect.y + line.baseline;
        if (canvas.context.style.redaction == Redaction::redacted) {
            drawRedactedBar(canvas, text.font.size, x, baseline, line.width);
            continue;
        }
        drawLine(canvas, QString::fromStdString(line.text), text.font, x, baseline);
        if (text.strikethrough) {
            strikeThrough(canvas, text, x, baseline, line.width);
        }
    }
}

void drawCountdown(const Canvas& canvas, const layout::Rect& rect,
                   const layout::CountdownDrawing& countdown) {
    const PaintContext& context = canvas.context;
    const std::string text =
        layout::countdownText(countdown.to - std::max(context.now, countdown.from));
    const double width = context.resources.measurer().width(text, countdown.font);
    const double x =
        context.direction == layout::Direction::leftToRight ? rect.x : rect.right() - width;
    const double baseline = rect.y + countdown.baseline;
    if (context.style.redaction == Redaction::redacted) {
        drawRedactedBar(canvas, countdown.font.size, x, baseline, width);
        return;
    }
    canvas.painter.setPen(canvas.palette.color(countdown.color));
    drawLine(canvas, QString::fromStdString(text), countdown.font, x, baseline);
}

}  // namespace kelmar::paint
