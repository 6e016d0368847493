#include "Desktop/WidgetPointer.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QStyleHints>
#include <QWidget>
#include <utility>

namespace kelmar::desktop {

namespace {

layout::Point toPoint(QPointF point) {
    return {point.x(), point.y()};
}

}  // namespace

WidgetPointer::WidgetPointer(QWidget& window, const WidgetContent& content)
    : window_(window), content_(content) {}

void WidgetPointer::setDragRule(DragRule rule) {
    dragRule_ = std::move(rule);
}

void WidgetPointer::press(const QMouseEvent& event) {
    if (event.button() == Qt::LeftButton) {
        const QPointF pointer = event.globalPosition();
        gesture_.begin(toPoint(pointer), targetAt(event.position()));
        grip_ = pointer.toPoint() - window_.pos();
    }
}

void WidgetPointer::move(const QMouseEvent& event) {
    const QPointF pointer = event.globalPosition();
    const double threshold = QGuiApplication::styleHints()->startDragDistance();
    switch (gesture_.moveTo(toPoint(pointer), threshold)) {
        case PressGesture::Kind::none:
        case PressGesture::Kind::press:
            updateCursor(targetAt(event.position()));
            break;
        case PressGesture::Kind::drag:
            drag(pointer.toPoint());
            break;
    }
}

void WidgetPointer::release(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton) {
        return;
    }
    const std::optional<PressTarget> target = targetAt(event.position());
    updateCursor(target);
    if (gesture_.kind() == PressGesture::Kind::drag) {
        gesture_.cancel();
        if (dragRule_) {
            emit dragged(window_.pos());
        }
    } else if (const std::optional<layout::Action> action = gesture_.end(target)) {
        emit actionRequested(*action);
    }
}

void WidgetPointer::takeContent() {
    if (window_.underMouse() && gesture_.kind() != PressGesture::Kind::drag) {
        updateCursor(targetAt(window_.mapFromGlobal(QCursor::pos())));
    }
}

std::optional<PressTarget> WidgetPointer::targetAt(QPointF position) const {
    return content_.targetAt(toPoint(position));
}

void WidgetPointer::drag(QPoint pointer) {
    if (dragRule_) {
        window_.setCursor(Qt::ClosedHandCursor);
        window_.move(dragRule_(QRect(pointer - grip_, window_.size()), pointer));
    }
}

void WidgetPointer::updateCursor(const std::optional<PressTarget>& target) {
    window_.setCursor(target ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

}  // namespace kelmar::desktop
