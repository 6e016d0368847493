#include "Desktop/CutOutCard.h"

#include <QBitmap>
#include <QPainter>
#include <algorithm>

#include "Paint/WidgetPicture.h"

namespace kelmar::desktop {

QRegion cardRegion(QSize window) {
    QBitmap card(window);
    card.clear();
    QPainter painter(&card);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::color1);
    painter.drawRoundedRect(QRect(QPoint(), window), paint::cardCornerRadius,
                            paint::cardCornerRadius);
    painter.end();
    return card;
}

QImage opaqueCard(const QImage& picture) {
    // Pixel by pixel: Qt's own conversions wake a pool of threads for it.
    QImage opaque(picture.size(), QImage::Format_RGB32);
    opaque.setDevicePixelRatio(picture.devicePixelRatio());
    for (int y = 0; y < picture.height(); ++y) {
        const auto* const from = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        std::transform(from, from + picture.width(), reinterpret_cast<QRgb*>(opaque.scanLine(y)),
                       [](QRgb pixel) { return 0xFF000000U | qUnpremultiply(pixel); });
    }
    return opaque;
}

}  // namespace kelmar::desktop
