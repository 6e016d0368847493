#include "Paint/ShapePainting.h"

#include <QPainterPath>
#include <algorithm>

namespace kelmar::paint {
namespace {

constexpr double trackOpacity = 0.2;

double cornerRadius(const kit::Shape& shape, const QRectF& rect, const PixelGrid& grid) {
    const double roundest = std::min(rect.width(), rect.height()) / 2;
    switch (shape.shape) {
        case kit::ShapeKind::circle:
        case kit::ShapeKind::capsule:
            return roundest;
        case kit::ShapeKind::rectangle:
            return 0;
        case kit::ShapeKind::roundedRectangle:
            return std::min(grid.length(shape.cornerRadius), roundest);
    }
    return 0;
}

/// A circle takes the largest square in the middle of its rectangle, every other shape all of it.
layout::Rect shapedRect(const kit::Shape& shape, const layout::Rect& rect) {
    if (shape.shape != kit::ShapeKind::circle) {
        return rect;
    }
    const double side = std::min(rect.width, rect.height);
    return {rect.x + (rect.width - side) / 2, rect.y + (rect.height - side) / 2, side, side};
}

void strokeInside(const Canvas& canvas, const kit::Shape& shape, const QRectF& rect) {
    const double room = std::min(rect.width(), rect.height());
    // Fractions stay: between whole pixels a ring of 1.5 points is still told from one of 1 or 2.
    const double width = std::min(std::max(1.0, canvas.grid.length(shape.lineWidth)), room);
    const double inset = width / 2;
    const double radius = std::max(0.0, cornerRadius(shape, rect, canvas.grid) - inset);
    canvas.painter.setPen(QPen(canvas.palette.color(*shape.stroke), width, Qt::SolidLine,
                               Qt::SquareCap, Qt::MiterJoin));
    canvas.painter.setBrush(Qt::NoBrush);
    canvas.painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), radius, radius);
}

/// The part of a bar's track that is filled: the track moved out on one side, so that the round
/// end keeps its shape however little is left.
QPainterPath filledPart(const QRectF& track, double fill, layout::Direction direction) {
    const double radius = std::min(track.width(), track.height()) / 2;
    const double empty = track.width() * (1 - fill);
    QPainterPath whole;
    whole.addRoundedRect(track, radius, radius);
    return whole.intersected(
        whole.translated(direction == layout::Direction::leftToRight ? -empty : empty, 0));
}

}  // namespace

void drawShape(const Canvas& canvas, const layout::Rect& rect, const kit::Shape& shape) {
    const QRectF edges = canvas.grid.snapped(shapedRect(shape, rect));
    if (edges.isEmpty()) {
        return;
    }
    if (shape.fill) {
        const double radius = cornerRadius(shape, edges, canvas.grid);
        canvas.painter.setPen(Qt::NoPen);
        canvas.painter.setBrush(canvas.palette.color(*shape.fill));
        canvas.painter.drawRoundedRect(edges, radius, radius);
    }
    if (shape.stroke && shape.lineWidth > 0) {
        strokeInside(canvas, shape, edges);
    }
}

double fillOf(const kit::Progress& progress, system::Date now) {
    const double fill = std::visit(kit::Match{
                                       [](const kit::BarValue& bar) { return bar.value; },
                                       [now](const kit::BarInterval& bar) {
                                           const system::Seconds whole = bar.to - bar.from;
                                           return whole > 0 ? (bar.to - now) / whole : 0;
                                       },
                                   },
                                   progress.value);
    return std::clamp(fill, 0.0, 1.0);
}

void drawProgress(const Canvas& canvas, const layout::Rect& rect, const kit::Progress& progress) {
    const QRectF track = canvas.grid.snapped(rect);
    if (track.isEmpty()) {
        return;
    }
    const double radius = std::min(track.width(), track.height()) / 2;
    canvas.painter.setPen(Qt::NoPen);
    canvas.painter.setBrush(canvas.palette.color(progress.tint.withOpacity(trackOpacity)));
    canvas.painter.drawRoundedRect(track, radius, radius);
    if (const double fill = fillOf(progress, canvas.context.now); fill > 0) {
        canvas.painter.setBrush(canvas.palette.color(progress.tint));
        canvas.painter.drawPath(filledPart(track, fill, canvas.context.direction));
    }
}

}  // namespace kelmar::paint
