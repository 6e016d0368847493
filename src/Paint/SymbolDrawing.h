#pragma once

#include <QBrush>
#include <QByteArray>
#include <QList>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QRectF>
#include <QTransform>

namespace kelmar::paint {

/// A path that is filled with the brush, then followed with the pen.
struct SymbolStep {
    QTransform transform;  ///< From the path's units to the symbol's.
    QPainterPath path;
    QPen pen;
    QBrush brush;
};

/// A symbol as the steps that draw it, one upon the other, in a square of `symbolSide` units. The
/// build records them from the symbol's SVG file: the programs then need nothing that reads SVG,
/// and the widths of lines stay figures that a weight can multiply.
using SymbolDrawing = QList<SymbolStep>;

inline constexpr int symbolSide = 24;

/// The same bytes with every release of Qt 6.
[[nodiscard]] QByteArray encodedSymbol(const SymbolDrawing& drawing);

/// The bytes are those that `encodedSymbol` gave, or none.
[[nodiscard]] SymbolDrawing decodedSymbol(const QByteArray& bytes);

/// Fills the square with a symbol. Its lines become so many times as thick; where they run stays.
void drawSymbol(QPainter& painter, const SymbolDrawing& drawing, const QRectF& square,
                double lineFactor);

}  // namespace kelmar::paint
