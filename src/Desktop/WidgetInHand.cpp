#include "Desktop/WidgetInHand.h"

#include <QPainter>
#include <utility>

#include "Desktop/CutOutCard.h"

namespace kelmar::desktop {

WidgetInHand::WidgetInHand(QImage picture, QPoint grip, DragRule rule, Corners corners)
    : QWidget(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowTransparentForInput),
      picture_(std::move(picture)),
      grip_(grip),
      rule_(std::move(rule)) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TranslucentBackground, corners == Corners::transparent);
    setAttribute(Qt::WA_NoSystemBackground);
    setFixedSize(picture_.deviceIndependentSize().toSize());
    if (corners == Corners::cutOut) {
        setMask(cardRegion(size()));
    }
}

void WidgetInHand::follow(QPoint pointer) {
    move(rule_(QRect(pointer - grip_, size()), pointer));
    show();
}

void WidgetInHand::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).drawImage(QPointF(), picture_);
}

}  // namespace kelmar::desktop
