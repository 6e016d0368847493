#include "Desktop/SymbolIcon.h"

#include <QPainter>
#include <QPixmap>

namespace kelmar::desktop {

namespace {

/// Those of menus and trays, at scales from 1 to 2.
constexpr int sides[] = {16, 20, 22, 24, 32, 44, 48};

QImage cardImage(const paint::SymbolSet& symbols, const std::string& name, const QColor& card,
                 int side) {
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(card);
    const double radius = side * 0.22;
    painter.drawRoundedRect(QRectF(0, 0, side, side), radius, radius);
    // An even margin, so that the symbol lies on whole pixels.
    const int margin = (side + 4) / 8;
    painter.drawImage(margin, margin,
                      symbols.image({.name = name,
                                     .weight = kit::FontWeight::bold,
                                     .side = side - 2 * margin,
                                     .color = Qt::white}));
    painter.end();
    // Without the engine that painted it, which a picture keeps.
    return image.copy();
}

}  // namespace

QIcon symbolIcon(const paint::SymbolSet& symbols, const std::string& name, const QColor& ink) {
    QIcon icon;
    for (const int side : sides) {
        icon.addPixmap(QPixmap::fromImage(symbols.image(
            {.name = name, .weight = kit::FontWeight::medium, .side = side, .color = ink})));
    }
    return icon;
}

QIcon cardIcon(const paint::SymbolSet& symbols, const std::string& name, const QColor& card) {
    QIcon icon;
    for (const int side : sides) {
        icon.addPixmap(QPixmap::fromImage(cardImage(symbols, name, card, side)));
    }
    return icon;
}

}  // namespace kelmar::desktop
