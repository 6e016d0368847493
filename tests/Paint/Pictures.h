#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QRect>
#include <cmath>
#include <string>
#include <utility>

#include "Paint/BoxPainter.h"
#include "Paint/PaintResources.h"

/// Small pictures for tests, and questions about their pixels.
namespace kelmar::paint::testing {

inline const std::string uiFamily = "Inter";
inline const std::string roundedFamily = "Quicksand";

inline PaintResources testResources() {
    return PaintResources(
        FontSet(QString::fromStdString(uiFamily), QString::fromStdString(roundedFamily)));
}

inline layout::PlacedBox box(layout::Rect rect, layout::Drawing drawing, double opacity = 1) {
    layout::PlacedBox box;
    box.rect = rect;
    box.drawing = std::move(drawing);
    box.opacity = opacity;
    return box;
}

/// A line of text whose box starts at the line's left edge.
inline layout::PlacedBox textBox(layout::Point origin, const std::string& text,
                                 const kit::Font& font, const PaintResources& resources) {
    const double width = resources.measurer().width(text, font);
    const double height = std::ceil(font.size * 1.2);
    return box({origin.x, origin.y, width, height},
               layout::TextDrawing{.lines = {{text, 0, 0.8 * height, width}}, .font = font});
}

/// Boxes on a transparent picture, or on a colour, of a size in points.
inline QImage painted(const layout::PlacedBoxes& boxes, const PaintContext& context,
                      kit::Size size = {40, 40}, const QColor& background = Qt::transparent) {
    const auto pixels = [&](double points) {
        return static_cast<int>(std::ceil(points * context.style.scale));
    };
    QImage picture(pixels(size.width), pixels(size.height), QImage::Format_ARGB32_Premultiplied);
    picture.fill(background);
    QPainter painter(&picture);
    paintBoxes(painter, boxes, context);
    return picture;
}

/// The smallest rectangle round every pixel that is not wholly transparent; empty for none.
inline QRect inkRect(const QImage& picture) {
    QRect ink;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (qAlpha(picture.pixel(x, y)) > 0) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    return ink;
}

/// The sum of all coverage, in whole pixels.
inline double inkAmount(const QImage& picture) {
    double sum = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            sum += qAlpha(picture.pixel(x, y)) / 255.0;
        }
    }
    return sum;
}

inline kit::Shape filledShape(kit::ShapeKind kind, const kit::Color& fill) {
    return {.shape = kind, .fill = fill};
}

}  // namespace kelmar::paint::testing
