#include "Paint/SymbolDrawing.h"

#include <QDataStream>
#include <QIODevice>

namespace kelmar::paint {
namespace {

constexpr QDataStream::Version streamVersion = QDataStream::Qt_6_0;

}  // namespace

static QDataStream& operator<<(QDataStream& stream, const SymbolStep& step) {
    return stream << step.transform << step.path << step.pen << step.brush;
}

static QDataStream& operator>>(QDataStream& stream, SymbolStep& step) {
    return stream >> step.transform >> step.path >> step.pen >> step.brush;
}

QByteArray encodedSymbol(const SymbolDrawing& drawing) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(streamVersion);
    stream << drawing;
    return bytes;
}

SymbolDrawing decodedSymbol(const QByteArray& bytes) {
    QDataStream stream(bytes);
    stream.setVersion(streamVersion);
    SymbolDrawing drawing;
    stream >> drawing;
    return drawing;
}

void drawSymbol(QPainter& painter, const SymbolDrawing& drawing, const QRectF& square,
                double lineFactor) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(square.topLeft());
    painter.scale(square.width() / symbolSide, square.height() / symbolSide);
    const QTransform toSquare = painter.transform();
    for (const SymbolStep& step : drawing) {
        QPen pen = step.pen;
        pen.setWidthF(pen.widthF() * lineFactor);
        painter.setTransform(step.transform * toSquare);
        painter.setPen(pen);
        painter.setBrush(step.brush);
        painter.drawPath(step.path);
    }
    painter.restore();
}

}  // namespace kelmar::paint
