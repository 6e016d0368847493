#pragma once

#include <QImage>
#include <QWidget>

#include "Desktop/Corners.h"
#include "Desktop/Dragging.h"

namespace kelmar::desktop {

/// A widget on its way from the gallery to the desktop: its picture above everything else, always
/// where it would come to rest.
class WidgetInHand final : public QWidget {
public:
    /// The picture has the card that belongs to the corners; `grip` is from the card's top left
    /// corner to where the pointer holds it.
    WidgetInHand(QImage picture, QPoint grip, DragRule rule, Corners corners);

    void follow(QPoint pointer);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage picture_;
    QPoint grip_;
    DragRule rule_;
};

}  // namespace kelmar::desktop
