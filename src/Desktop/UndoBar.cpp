#include "Desktop/UndoBar.h"

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <chrono>

#include "Desktop/CutOutCard.h"
#include "Desktop/Placement.h"
#include "Desktop/WindowColors.h"
#include "Desktop/X11Hints.h"
#include "Paint/WidgetPicture.h"

namespace kelmar::desktop {

namespace {

using namespace std::chrono_literals;

constexpr auto offerTime = 10s;
constexpr int barHeight = 48;
constexpr int textSize = 13;
constexpr int margin = 20;

}  // namespace

UndoBar::UndoBar(const Words& words, const Look& look, Corners corners, Stacking stacking)
    : look_(look),
      corners_(corners),
      stacking_(stacking),
      message_(new QLabel(words.message, this)),
      undo_(new QPushButton(words.undo, this)) {
    setWindowFlags(desktopWindowFlags(stacking));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TranslucentBackground, corners == Corners::transparent);
    setWindowTitle(words.message);
    message_->setTextFormat(Qt::PlainText);
    undo_->setFlat(true);
    undo_->setCursor(Qt::PointingHandCursor);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(margin, 0, margin / 2, 0);
    layout->addWidget(message_);
    layout->addWidget(undo_);
    expiry_.setSingleShot(true);
    expiry_.setInterval(offerTime);
    connect(&expiry_, &QTimer::timeout, this, &UndoBar::expired);
    connect(undo_, &QPushButton::clicked, this, &UndoBar::undoRequested);
    connect(&look_, &Look::changed, this, &UndoBar::takeLook);
    takeLook();
}

void UndoBar::present(const QRect& place, const QRect& visible) {
    place_ = place;
    visible_ = visible;
    takePlace();
    show();
    waitOrExpire();
}

void UndoBar::takePlace() {
    setFixedSize(sizeHint().width(), look_.heldLength(barHeight));
    if (corners_ == Corners::cutOut) {
        setMask(cardRegion(size()));
    }
    QRect bar(QPoint(), size());
    bar.moveCenter(place_.center());
    constexpr int gap = comfortableGap;
    move(clamped(bar, visible_.adjusted(gap, gap, -gap, -gap)));
}

void UndoBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::Base));
    if (corners_ == Corners::cutOut) {
        painter.drawRect(rect());
    } else {
        painter.drawRoundedRect(rect(), paint::cardCornerRadius, paint::cardCornerRadius);
    }
}

void UndoBar::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (event->spontaneous()) {
        return;
    }
    applyDesktopHints(*windowHandle(), stacking_);
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

bool UndoBar::event(QEvent* event) {
    const bool isHandled = QWidget::event(event);
    switch (event->type()) {
        case QEvent::Enter:
        case QEvent::Leave:
        case QEvent::WindowActivate:
        case QEvent::WindowDeactivate:
            waitOrExpire();
            break;
        default:
            break;
    }
    return isHandled;
}

void UndoBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        emit expired();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        emit undoRequested();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void UndoBar::takeLook() {
    QPalette colors = windowColors(look_.appearance());
    colors.setColor(QPalette::ButtonText, colors.color(QPalette::Highlight));
    setPalette(colors);
    message_->setFont(look_.font(textSize));
    undo_->setFont(look_.font(textSize, kit::FontWeight::semibold));
    if (!place_.isNull()) {
        takePlace();
    }
}

void UndoBar::waitOrExpire() {
    if (underMouse() || isActiveWindow()) {
        expiry_.stop();
    } else {
        expiry_.start();
    }
}

}  // namespace kelmar::desktop
