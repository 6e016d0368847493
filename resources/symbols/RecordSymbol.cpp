#include <QImage>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QSaveFile>
#include <QSvgRenderer>
#include <cstdio>

#include "Paint/SymbolDrawing.h"

using namespace kelmar;

namespace {

const QRectF wholeSquare(0, 0, paint::symbolSide, paint::symbolSide);

/// Keeps what is drawn through it, as far as that is paths.
class Recorder : public QPaintEngine {
public:
    Recorder() : QPaintEngine(AllFeatures) {}

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    [[nodiscard]] Type type() const override { return User; }

    void drawPath(const QPainterPath& path) override {
        if (painter()->pen().style() != Qt::NoPen || painter()->brush().style() != Qt::NoBrush) {
            drawing.append({painter()->transform(), path, painter()->pen(), painter()->brush()});
        }
    }
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override {
        QPainterPath path;
        path.addPolygon(QPolygonF(QList<QPointF>(points, points + count)));
        if (mode != PolylineMode) {
            path.closeSubpath();
        }
        path.setFillRule(mode == WindingMode ? Qt::WindingFill : Qt::OddEvenFill);
        drawPath(path);
    }
    void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override {
    }
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}

    paint::SymbolDrawing drawing;
};

/// A symbol's square, to be drawn on with a recorder.
class RecordedSquare : public QPaintDevice {
public:
    explicit RecordedSquare(Recorder& recorder) : recorder_(recorder) {}

    [[nodiscard]] QPaintEngine* paintEngine() const override { return &recorder_; }

protected:
    [[nodiscard]] int metric(PaintDeviceMetric metric) const override {
        constexpr int dotsPerInch = 96;
        switch (metric) {
            case PdmDevicePixelRatio:
                return 1;
            case PdmDevicePixelRatioScaled:
                return static_cast<int>(devicePixelRatioFScale());
            case PdmDpiX:
            case PdmDpiY:
            case PdmPhysicalDpiX:
            case PdmPhysicalDpiY:
                return dotsPerInch;
            default:
                return paint::symbolSide;
        }
    }

private:
    Recorder& recorder_;
};

paint::SymbolDrawing recorded(QSvgRenderer& svg) {
    Recorder recorder;
    RecordedSquare square(recorder);
    QPainter painter(&square);
    svg.render(&painter, wholeSquare);
    painter.end();
    return recorder.drawing;
}

/// What a way of drawing gives on a picture large enough to show every difference.
template <typename Draw>
QImage picture(const Draw& draw) {
    constexpr int scale = 8;
    QImage picture(wholeSquare.size().toSize() * scale, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.scale(scale, scale);
    draw(painter);
    return picture;
}

/// Clips, opacities, texts, pictures: whatever a recorder cannot keep shows here.
bool looksAlike(QSvgRenderer& svg, const paint::SymbolDrawing& drawing) {
    return picture([&](QPainter& painter) { svg.render(&painter, wholeSquare); }) ==
           picture([&](QPainter& painter) { drawSymbol(painter, drawing, wholeSquare, 1); });
}

int failed(const char* file, const char* why) {
    std::fprintf(stderr, "%s %s\n", file, why);
    return 1;
}

}  // namespace

/// Records how a symbol's SVG is drawn: RecordSymbol SYMBOL.svg DRAWING.
int main(int count, char** words) {
    if (count != 3) {
        std::fprintf(stderr, "Usage: %s SYMBOL.svg DRAWING\n", words[0]);
        return 2;
    }
    QSvgRenderer svg(QString::fromLocal8Bit(words[1]));
    if (!svg.isValid()) {
        return failed(words[1], "cannot be read as SVG");
    }
    const paint::SymbolDrawing drawing = recorded(svg);
    if (drawing.isEmpty()) {
        return failed(words[1], "draws nothing");
    }
    if (!looksAlike(svg, drawing)) {
        return failed(words[1], "looks different once recorded: keep to paths, filled or followed");
    }
    QSaveFile file(QString::fromLocal8Bit(words[2]));
    if (!file.open(QIODevice::WriteOnly) || file.write(encodedSymbol(drawing)) < 0 ||
        !file.commit()) {
        return failed(words[2], "cannot be written");
    }
    return 0;
}
