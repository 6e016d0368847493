#include "Paint/SymbolSet.h"

#include <QDir>
#include <QFile>
#include <QPainter>
#include <algorithm>

#include "Paint/SymbolDrawing.h"

/// A static library's resources are only there once something asks for them, and the macro must
/// stand outside every namespace.
static void loadSymbolResources() {
    Q_INIT_RESOURCE(symbols);
}

namespace kelmar::paint {
namespace {

/// In pixels of cached pictures: 4 MiB, far more than a screen full of widgets shows.
constexpr qsizetype cacheCapacity = 1'048'576;
constexpr qsizetype bytesPerPixel = 4;
constexpr int largestSide = 2048;

const QString resourceFolder = QStringLiteral(":/symbols/");
const QString placeholderName = QStringLiteral("placeholder");

/// How much thicker a weight draws lines than the regular one.
double strokeFactor(kit::FontWeight weight) {
    switch (weight) {
        case kit::FontWeight::regular:
            return 1;
        case kit::FontWeight::medium:
            return 1.08;
        case kit::FontWeight::semibold:
            return 1.18;
        case kit::FontWeight::bold:
            return 1.3;
        case kit::FontWeight::heavy:
            return 1.42;
        case kit::FontWeight::black:
            return 1.55;
    }
    return 1;
}

SymbolDrawing drawingOf(const QString& name) {
    QFile file(resourceFolder + name);
    return file.open(QIODevice::ReadOnly) ? decodedSymbol(file.readAll()) : SymbolDrawing();
}

/// Turns a picture in black and white into one in a colour, covering where there was black.
void tint(QImage& picture, const QColor& color) {
    for (int y = 0; y < picture.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            // The components are premultiplied: what is not white of the coverage is black.
            const int black = qAlpha(line[x]) - qRed(line[x]);
            line[x] = qRgba(0, 0, 0, std::clamp(black, 0, 255));
        }
    }
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(picture.rect(), color);
}

QImage rendered(const QString& name, const SymbolRequest& request) {
    const bool halfX = request.horizontalPhase == PixelPhase::half;
    const bool halfY = request.verticalPhase == PixelPhase::half;
    QImage picture(request.side + (halfX ? 1 : 0), request.side + (halfY ? 1 : 0),
                   QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawSymbol(painter, drawingOf(name),
               QRectF(halfX ? 0.5 : 0, halfY ? 0.5 : 0, request.side, request.side),
               strokeFactor(request.weight));
    painter.end();
    tint(picture, request.color);
    // A picture keeps the engine that painted it, which takes more room than its pixels; a copy has
    // the pixels alone.
    return picture.copy();
}

QString knownName(const std::string& name) {
    const std::vector<std::string> known = SymbolSet::names();
    return std::ranges::binary_search(known, name) ? QString::fromStdString(name) : placeholderName;
}

}  // namespace

SymbolSet::SymbolSet() : images_(cacheCapacity) {}

std::vector<std::string> SymbolSet::names() {
    static const std::vector<std::string> all = [] {
        loadSymbolResources();
        std::vector<std::string> names;
        for (const QString& name : QDir(resourceFolder).entryList(QDir::Files)) {
            if (name != placeholderName) {
                names.push_back(name.toStdString());
            }
        }
        std::ranges::sort(names);
        return names;
    }();
    return all;
}

QImage SymbolSet::image(const SymbolRequest& request) const {
    SymbolRequest sized = request;
    sized.side = std::clamp(request.side, 1, largestSide);
    const QString name = knownName(request.name);
    const QString key = QStringLiteral("%1/%2/%3/%4/%5/%6")
                            .arg(name)
                            .arg(static_cast<int>(sized.weight))
                            .arg(sized.side)
                            .arg(sized.color.rgba(), 8, 16)
                            .arg(static_cast<int>(sized.horizontalPhase))
                            .arg(static_cast<int>(sized.verticalPhase));
    if (const QImage* known = images_.object(key)) {
        return *known;
    }
    QImage picture = rendered(name, sized);
    images_.insert(key, new QImage(picture), picture.sizeInBytes() / bytesPerPixel);
    return picture;
}

}  // namespace kelmar::paint
