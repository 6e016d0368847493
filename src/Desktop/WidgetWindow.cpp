#include "Desktop/WidgetWindow.h"

#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWindow>
#include <utility>

#include "Desktop/CutOutCard.h"
#include "Desktop/Screens.h"
#include "Desktop/WidgetAccessibility.h"
#include "Desktop/X11Hints.h"

namespace kelmar::desktop {

WidgetWindow::WidgetWindow(kit::Family family, const system::Clock& clock)
    : clock_(clock),
      family_(family),
      painting_(content_, clock),
      liveDrawing_({*this, content_, painting_, clock}),
      pointer_(*this, content_),
      keyboard_(*this) {
    chooseFlags();
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_NoSystemBackground);
    setAttribute(Qt::WA_AlwaysShowToolTips);  // The window is never the active one.
    setMouseTracking(true);
    setFocusPolicy(Qt::TabFocus);
    setFixedSize(windowSize(family));
    updateMask();
    setUpdatesEnabled(false);
    scale_ = devicePixelRatioF();
    connectParts();
}

void WidgetWindow::connectParts() {
    connect(&painting_, &WindowPainting::frameDue, this, qOverload<>(&WidgetWindow::update));
    connect(&pointer_, &WidgetPointer::actionRequested, this, &WidgetWindow::run);
    connect(&pointer_, &WidgetPointer::dragged, this, &WidgetWindow::movedByHand);
    connect(&keyboard_, &WidgetKeyboard::actionRequested, this, &WidgetWindow::run);
    connect(&keyboard_, &WidgetKeyboard::focusMoved, this, &WidgetWindow::showFocus);
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
    painting_.setAppearance(appearance);
    update();
}

/// A plain window without a frame: several window managers hide utility windows while another
/// program is active, and keep desktop windows under the icons of the file manager.
void WidgetWindow::chooseFlags() {
    setWindowFlags(desktopWindowFlags(stacking_) | Qt::WindowDoesNotAcceptFocus);
}

void WidgetWindow::setStacking(Stacking stacking) {
    if (std::exchange(stacking_, stacking) != stacking) {
        remakeNativeWindow();
    }
}

void WidgetWindow::setCorners(Corners corners) {
    if (corners == painting_.corners()) {
        return;
    }
    // A window with transparency has another visual, which is chosen when it is made. Without a
    // compositor the plain one is better: the server then says when the window is covered.
    painting_.setCorners(corners);
    remakeNativeWindow();
}

void WidgetWindow::remakeNativeWindow() {
    const bool wasVisible = isVisible();
    hide();
    liveDrawing_.leaveNativeWindow();
    destroy();
    scale_ = devicePixelRatioF();
    chooseFlags();
    setAttribute(Qt::WA_TranslucentBackground, painting_.corners() == Corners::transparent);
    setAttribute(Qt::WA_NoSystemBackground);
    updateMask();
    update();
    setVisible(wasVisible);
}

void WidgetWindow::updateMask() {
    switch (painting_.corners()) {
        case Corners::transparent:
            clearMask();
            break;
        case Corners::cutOut:
            setMask(cardRegion(size()));
            break;
    }
}

void WidgetWindow::setDragRule(DragRule rule) {
    pointer_.setDragRule(std::move(rule));
}

void WidgetWindow::setContent(const kit::DrawnEntry& entry, paint::Redaction redaction,
                              layout::Direction direction, const paint::PaintResources& resources) {
    WidgetContent next(entry, family_, redaction, direction, resources);
    if (liveDrawing_.canBeSeen()) {
        painting_.fadeTo(next);
    } else {
        painting_.endFade();
    }
    content_ = std::move(next);
    keyboard_.setTargets(content_.targets());
    tellReaders(*this);
    pointer_.takeContent();
    setUpdatesEnabled(true);
    update();
}

void WidgetWindow::setToolTipSource(std::function<QString()> source) {
    toolTipSource_ = std::move(source);
}

void WidgetWindow::followClock() {
    liveDrawing_.redraw();
}

void WidgetWindow::followScreens() {
    if (scale_ != devicePixelRatioF()) {
        // In points nothing has changed, and Qt would go on with the surface and mask of before.
        remakeNativeWindow();
    }
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
    QPainter painter(this);
    painting_.paint(painter, event->region(), devicePixelRatioF());
    if (const PressTarget* target = keyboard_.focused()) {
        painting_.paintFocus(painter, target->rect);
    }
    liveDrawing_.awaitChange();
}

void WidgetWindow::showFocus() {
    update();
    tellReadersOfFocus(*this);
}

void WidgetWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous()) {
        applyDesktopHints(*windowHandle(), stacking_);
        liveDrawing_.takeNativeWindow();
    }
}

void WidgetWindow::closeEvent(QCloseEvent* event) {
    // A widget goes when its menu says so: a window manager's "close", which nothing would undo,
    // must not take it away. The end of the session must not be held up either.
    event->setAccepted(qGuiApp->isSavingSession());
}

void WidgetWindow::mousePressEvent(QMouseEvent* event) {
    pointer_.press(*event);
}

void WidgetWindow::mouseMoveEvent(QMouseEvent* event) {
    pointer_.move(*event);
}

void WidgetWindow::mouseReleaseEvent(QMouseEvent* event) {
    pointer_.release(*event);
}

void WidgetWindow::contextMenuEvent(QContextMenuEvent* event) {
    pointer_.cancel();
    emit menuRequested(event->globalPos());
}

void WidgetWindow::keyPressEvent(QKeyEvent* event) {
    if (keyboard_.press(*event) == KeyUse::unused) {
        QWidget::keyPressEvent(event);
    }
}

bool WidgetWindow::focusNextPrevChild(bool next) {
    keyboard_.go(next ? FocusStep::next : FocusStep::previous);
    return true;
}

void WidgetWindow::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    keyboard_.arrive();
}

void WidgetWindow::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

}  // namespace kelmar::desktop
