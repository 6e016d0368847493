#include "Desktop/CutOutCard.h"

#include <QBitmap>
#include <QPainter>

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

}  // namespace kelmar::desktop
