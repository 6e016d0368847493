#pragma once

#include <QObject>
#include <QPoint>
#include <optional>

#include "Desktop/Dragging.h"
#include "Desktop/Press.h"
#include "Desktop/WidgetContent.h"

class QMouseEvent;
class QWidget;

namespace kelmar::desktop {

/// The pointer in a widget's window: presses what lies under it, drags the window, and takes the
/// shape of what it would do.
class WidgetPointer final : public QObject {
    Q_OBJECT

public:
    /// Both must outlive it.
    WidgetPointer(QWidget& window, const WidgetContent& content);

    /// By which the window can be dragged; without one it cannot.
    void setDragRule(DragRule rule);

    void press(const QMouseEvent& event);
    void move(const QMouseEvent& event);
    void release(const QMouseEvent& event);
    /// Nothing comes of what has begun.
    void cancel() { gesture_.cancel(); }
    /// To be called when the content is another, and perhaps what lies under the pointer.
    void takeContent();

signals:
    void actionRequested(const kelmar::layout::Action& action);
    /// A drag has ended there.
    void dragged(QPoint position);

private:
    [[nodiscard]] std::optional<PressTarget> targetAt(QPointF position) const;
    void drag(QPoint pointer);
    void updateCursor(const std::optional<PressTarget>& target);

    QWidget& window_;
    const WidgetContent& content_;
    PressGesture gesture_;
    DragRule dragRule_;
    QPoint grip_;  ///< From the window's top left corner to where the pointer holds it.
};

}  // namespace kelmar::desktop
