#include "Desktop/WidgetWindow.h"

#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QCursor>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleHints>
#include <QToolTip>
#include <QWindow>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <iterator>
#include <utility>

#include "Desktop/BoxAccessible.h"
#include "Desktop/CutOutCard.h"
#include "Desktop/LiveChange.h"
#include "Desktop/Screens.h"
#include "Desktop/WidgetAccessibility.h"
#include "Desktop/X11Hints.h"
#include "Kit/Metrics.h"

namespace kelmar::desktop {

namespace {

layout::Point toPoint(QPointF point) {
    return {point.x(), point.y()};
}

}  // namespace

WidgetWindow::WidgetWindow(kit::Family family, const system::Clock& clock)
    : clock_(clock), family_(family) {
    // A plain window without a frame: several window managers hide utility windows while another
    // program is active, and keep desktop windows under the icons of the file manager.
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnBottomHint |
                   Qt::WindowDoesNotAcceptFocus);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_NoSystemBackground);
    setAttribute(Qt::WA_AlwaysShowToolTips);  // The window is never the active one.
    setMouseTracking(true);
    setFocusPolicy(Qt::TabFocus);
    setFixedSize(windowSize(family));
    updateMask();
    liveTimer_.setSingleShot(true);
    liveTimer_.setTimerType(Qt::PreciseTimer);
    connect(&liveTimer_, &QTimer::timeout, this, &WidgetWindow::redrawLiveAreas);
    connect(&crossFade_, &CrossFade::advanced, this, qOverload<>(&WidgetWindow::update));
}

void WidgetWindow::setName(const QString& name) {
    setWindowTitle(name);
    setAccessibleName(name);
}

void WidgetWindow::setFamily(kit::Family family) {
    family_ = family;
    setFixedSize(windowSize(family));
    updateMask();
    update();
}

void WidgetWindow::setAppearance(const paint::Appearance& appearance) {
    style_.appearance = appearance;
    update();
}

void WidgetWindow::setCorners(Corners corners) {
    if (corners == corners_) {
        return;
    }
    // A window with transparency has another visual, which is chosen when it is made. Without a
    // compositor the plain one is better: the server then says when the window is covered.
    const bool wasVisible = isVisible();
    hide();
    visibility_.reset();
    destroy();
    corners_ = corners;
    setAttribute(Qt::WA_TranslucentBackground, corners == Corners::transparent);
    setAttribute(Qt::WA_NoSystemBackground);
    updateMask();
    update();
    setVisible(wasVisible);
}

void WidgetWindow::setDragRule(DragRule rule) {
    dragRule_ = std::move(rule);
}

void WidgetWindow::setContent(const kit::DrawnEntry& entry, paint::Redaction redaction,
                              layout::Direction direction, const paint::PaintResources& resources) {
    paint::WidgetPicture next(entry, family_, direction, resources);
    fadeTo(next, redaction);
    picture_.emplace(std::move(next));
    widgetUrl_ = entry.widgetUrl;
    style_.redaction = redaction;
    focusChain_.setTargets(redaction == paint::Redaction::shown
                               ? targetsOf(boxes(), widgetUrl_, kit::widgetSize(family_))
                               : std::vector<PressTarget>());
    tellReaders(*this);
    if (underMouse() && gesture_.kind() != PressGesture::Kind::drag) {
        updateCursor(targetAtPointer(mapFromGlobal(QCursor::pos())));
    }
    update();
}

void WidgetWindow::setToolTipSource(std::function<QString()> source) {
    toolTipSource_ = std::move(source);
}

void WidgetWindow::followClock() {
    if (picture_) {
        redrawLiveAreas();
    }
}

const layout::PlacedBoxes& WidgetWindow::boxes() const {
    static const layout::PlacedBoxes none;
    return picture_ && style_.redaction == paint::Redaction::shown ? picture_->boxes() : none;
}

layout::PlacedBoxes WidgetWindow::readableBoxes() const {
    layout::PlacedBoxes readable;
    if (widgetUrl_ && style_.redaction == paint::Redaction::shown) {
        const kit::Size size = kit::widgetSize(family_);
        readable.push_back({.rect = {0, 0, size.width, size.height},
                            .action = layout::LinkAction{*widgetUrl_},
                            .label = accessibleName().toStdString()});
    }
    std::ranges::copy_if(boxes(), std::back_inserter(readable), isRead);
    return readable;
}

void WidgetWindow::run(const layout::Action& action) {
    emit actionRequested(action);
}

bool WidgetWindow::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return QWidget::event(event);
    }
    // An empty text hides what is shown.
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       toolTipSource_ ? toolTipSource_() : QString(), this);
    return true;
}

void WidgetWindow::paintEvent(QPaintEvent* event) {
    if (!picture_) {
        return;
    }
    shownMoment_ = clock_.now();
    QPainter painter(this);
    for (const QRect& part : event->region()) {
        drawPart(painter, part);
    }
    paintFormer(painter);
    paintFocus(painter);
    scheduleLiveChange();
}

void WidgetWindow::drawPart(QPainter& painter, const QRect& part) {
    const double scale = devicePixelRatioF();
    style_.scale = scale;
    const QRect whole(QPoint(), picture_->pixelSize(scale));
    const QRect pixels =
        QRectF(QPointF(part.topLeft()) * scale, QSizeF(part.size()) * scale).toAlignedRect() &
        whole;
    painter.drawImage(QPointF(pixels.topLeft()) / scale, shownPicture(pixels));
}

QImage WidgetWindow::shownPicture(const QRect& pixels) const {
    const QImage image = picture_->image(style_, *shownMoment_, pixels);
    return corners_ == Corners::cutOut ? opaqueCard(image) : image;
}

/// A placeholder has nothing that would be worth fading, nor has a widget that has not been drawn
/// or cannot be seen, nor one of another size.
void WidgetWindow::fadeTo(const paint::WidgetPicture& next, paint::Redaction redaction) {
    const bool shows = picture_ && shownMoment_ && style_.redaction == paint::Redaction::shown &&
                       isVisible() && visibility_ && visibility_->canBeSeen();
    const bool mayFade = motion_ == Motion::full && redaction == paint::Redaction::shown;
    if (!shows || !mayFade || next.size() != picture_->size()) {
        crossFade_.end();
    } else if (!next.showsSameAs(*picture_)) {
        crossFade_.begin(shownPicture(QRect(QPoint(), picture_->pixelSize(style_.scale))));
    }
}

void WidgetWindow::paintFormer(QPainter& painter) const {
    const QImage& former = crossFade_.former();
    if (former.isNull() || former.devicePixelRatio() != devicePixelRatioF()) {
        return;
    }
    // Not over the new picture but mixed with it, which keeps what shines through as it is.
    painter.save();
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.setOpacity(crossFade_.remaining());
    painter.drawImage(QPointF(), former);
    painter.restore();
}

void WidgetWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (event->spontaneous()) {
        return;
    }
    applyDesktopHints(*windowHandle());
    if (!visibility_) {
        visibility_ = std::make_unique<WindowVisibility>(*windowHandle());
        connect(visibility_.get(), &WindowVisibility::changed, this,
                &WidgetWindow::scheduleLiveChange);
    }
}

void WidgetWindow::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        const QPointF pointer = event->globalPosition();
        gesture_.begin(toPoint(pointer), targetAtPointer(event->position()));
        grip_ = pointer.toPoint() - pos();
    }
}

void WidgetWindow::mouseMoveEvent(QMouseEvent* event) {
    const QPointF pointer = event->globalPosition();
    const double threshold = QGuiApplication::styleHints()->startDragDistance();
    switch (gesture_.moveTo(toPoint(pointer), threshold)) {
        case PressGesture::Kind::none:
        case PressGesture::Kind::press:
            updateCursor(targetAtPointer(event->position()));
            break;
        case PressGesture::Kind::drag:
            drag(pointer.toPoint());
            break;
    }
}

void WidgetWindow::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    const std::optional<PressTarget> target = targetAtPointer(event->position());
    updateCursor(target);
    if (gesture_.kind() == PressGesture::Kind::drag) {
        gesture_.cancel();
        if (dragRule_) {
            emit movedByHand(pos());
        }
    } else if (const std::optional<layout::Action> action = gesture_.end(target)) {
        run(*action);
    }
}

void WidgetWindow::contextMenuEvent(QContextMenuEvent* event) {
    gesture_.cancel();
    emit menuRequested(event->globalPos());
}

void WidgetWindow::keyPressEvent(QKeyEvent* event) {
    const PressTarget* target = focused();
    const int key = event->key();
    if (key == Qt::Key_Escape) {
        emit keyboardReturned();
    } else if (target != nullptr && !event->isAutoRepeat() &&
               (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space)) {
        // A copy: running it may bring new content at once.
        run(layout::Action(target->action));
    } else {
        QWidget::keyPressEvent(event);
    }
}

bool WidgetWindow::focusNextPrevChild(bool next) {
    const FocusStep step = next ? FocusStep::next : FocusStep::previous;
    if (focusChain_.move(step)) {
        showFocus();
    } else {
        emit keyboardPassedOn(step);
    }
    return true;
}

void WidgetWindow::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    if (focusChain_.current() == nullptr) {
        focusChain_.enter(FocusStep::next);
    }
    showFocus();
}

void WidgetWindow::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

const PressTarget* WidgetWindow::focused() const {
    return hasFocus() ? focusChain_.current() : nullptr;
}

void WidgetWindow::requestKeyboard() {
    setFocus();
    emit keyboardRequested();
    showFocus();
}

void WidgetWindow::enterByKeyboard(FocusStep step) {
    focusChain_.enter(step);
    requestKeyboard();
}

void WidgetWindow::focusOn(const PressTarget& target) {
    focusChain_.choose(target);
    requestKeyboard();
}

void WidgetWindow::showFocus() {
    update();
    tellReadersOfFocus(*this);
}

void WidgetWindow::paintFocus(QPainter& painter) const {
    if (const PressTarget* target = focused()) {
        painter.scale(1 / style_.scale, 1 / style_.scale);
        picture_->paintFocus(painter, target->rect, style_);
    }
}

void WidgetWindow::closeEvent(QCloseEvent* event) {
    // A widget goes when its menu says so: a window manager's "close", which nothing would undo,
    // must not take it away. The end of the session must not be held up either.
    event->setAccepted(qGuiApp->isSavingSession());
}

std::optional<PressTarget> WidgetWindow::targetAtPointer(QPointF position) const {
    if (style_.redaction == paint::Redaction::redacted) {
        return std::nullopt;
    }
    return targetAt(boxes(), widgetUrl_, kit::widgetSize(family_), toPoint(position));
}

void WidgetWindow::drag(QPoint pointer) {
    if (dragRule_) {
        setCursor(Qt::ClosedHandCursor);
        move(dragRule_(QRect(pointer - grip_, size()), pointer));
    }
}

void WidgetWindow::updateCursor(const std::optional<PressTarget>& target) {
    setCursor(target ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void WidgetWindow::redrawLiveAreas() {
    for (const layout::Rect& area : picture_->liveAreas()) {
        update(QRectF(area.x, area.y, area.width, area.height).toAlignedRect());
    }
}

void WidgetWindow::updateMask() {
    switch (corners_) {
        case Corners::transparent:
            clearMask();
            break;
        case Corners::cutOut:
            setMask(cardRegion(size()));
            break;
    }
}

void WidgetWindow::scheduleLiveChange() {
    liveTimer_.stop();
    if (!shownMoment_ || !visibility_ || !visibility_->canBeSeen()) {
        return;
    }
    const auto change = nextLiveChange(boxes(), *shownMoment_, devicePixelRatioF());
    if (!change) {
        return;
    }
    // A long wait is divided: the clock may be set, and the timer counts in 32 bits. What changed
    // while nobody could see it is shown at once.
    const double wait = std::clamp(*change - clock_.now(), 0.0, 3600.0);
    liveTimer_.start(std::chrono::milliseconds(static_cast<int>(std::ceil(wait * 1000))));
}

}  // namespace kelmar::desktop
