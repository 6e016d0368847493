#include "Desktop/GalleryTile.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleHints>
#include <chrono>

#include "Desktop/Screens.h"
#include "Desktop/TileFlow.h"
#include "Desktop/WidgetWords.h"
#include "Paint/WidgetPicture.h"

namespace kelmar::desktop {

namespace {

using namespace std::chrono_literals;

constexpr auto confirmationTime = 2s;
constexpr int captionSize = 12;
constexpr int regretSize = 13;
constexpr int badgeSide = 26;

/// A card on which nothing stands yet.
const kit::DrawnEntry blankCard{
    .content = kit::Spacer{}, .background = kit::tertiaryFill, .widgetUrl = std::nullopt};

layout::Point toPoint(QPointF point) {
    return {point.x(), point.y()};
}

}  // namespace

GalleryTile::GalleryTile(kit::Family family, const GalleryParts& parts, QWidget* parent)
    : QAbstractButton(parent), family_(family), parts_(parts) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::PointingHandCursor);
    resize(sizeHint());
    confirmation_.setSingleShot(true);
    connect(&confirmation_, &QTimer::timeout, this, [this] { update(); });
}

void GalleryTile::showPreview(const kit::DrawnEntry& entry) {
    state_ = State::shown;
    entry_ = entry;
    takeLook();
}

void GalleryTile::showUnavailable() {
    state_ = State::unavailable;
    entry_.reset();
    takeLook();
}

void GalleryTile::confirm() {
    confirmation_.start(confirmationTime);
    update();
}

void GalleryTile::takeLook() {
    image_ = QImage();
    resize(sizeHint());
    update();
}

QSize GalleryTile::sizeHint() const {
    return windowSize(family_) +
           QSize(2 * ringRoom, 2 * ringRoom + parts_.look.heldLength(captionHeight));
}

QImage GalleryTile::cardImage(paint::Card card) const {
    const paint::WidgetPicture picture(entry_.value_or(blankCard), family_, parts_.direction,
                                       parts_.look.resources());
    return picture.image({.appearance = parts_.look.appearance(),
                          .scale = devicePixelRatioF(),
                          .redaction = paint::Redaction::shown,
                          .card = card},
                         parts_.clock.now());
}

void GalleryTile::paintEvent(QPaintEvent* /*event*/) {
    if (image_.isNull() || image_.devicePixelRatio() != devicePixelRatioF()) {
        image_ = cardImage(paint::Card::blended);
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isMarked = hasFocus() || underMouse();
    if (isMarked) {
        paintRing(painter);
    }
    painter.setOpacity(isDown() ? 0.8 : 1);
    painter.drawImage(cardRect().topLeft(), image_);
    painter.setOpacity(1);
    if (state_ == State::unavailable) {
        paintRegret(painter);
    }
    if (isMarked) {
        paintBadge(painter);
    }
    paintCaption(painter);
}

void GalleryTile::mousePressEvent(QMouseEvent* event) {
    QAbstractButton::mousePressEvent(event);
    if (event->button() == Qt::LeftButton) {
        gesture_.begin(toPoint(event->position()), std::nullopt);
        grip_ = event->position().toPoint() - cardRect().topLeft();
    }
}

void GalleryTile::mouseMoveEvent(QMouseEvent* event) {
    const bool wasDrag = gesture_.kind() == PressGesture::Kind::drag;
    const double threshold = QGuiApplication::styleHints()->startDragDistance();
    if (gesture_.moveTo(toPoint(event->position()), threshold) != PressGesture::Kind::drag) {
        return QAbstractButton::mouseMoveEvent(event);
    }
    if (!wasDrag) {
        setDown(false);
        emit dragBegan(grip_);
    }
    emit dragMoved(event->globalPosition().toPoint());
}

void GalleryTile::mouseReleaseEvent(QMouseEvent* event) {
    const bool wasDrag = gesture_.kind() == PressGesture::Kind::drag;
    gesture_.cancel();
    if (wasDrag && event->button() == Qt::LeftButton) {
        emit dragEnded(event->globalPosition().toPoint());
    } else {
        QAbstractButton::mouseReleaseEvent(event);
    }
}

void GalleryTile::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape && gesture_.kind() == PressGesture::Kind::drag) {
        gesture_.cancel();
        emit dragCancelled();
    } else if (isEnter && !event->isAutoRepeat()) {
        click();
    } else {
        QAbstractButton::keyPressEvent(event);
    }
}

QRect GalleryTile::cardRect() const {
    return {QPoint(ringRoom, ringRoom), windowSize(family_)};
}

void GalleryTile::paintRing(QPainter& painter) const {
    constexpr double width = 3;
    constexpr double distance = 4;  // from the card to the middle of the ring
    QColor color = palette().color(QPalette::Highlight);
    color.setAlphaF(hasFocus() ? 1 : 0.4F);
    painter.setPen(QPen(color, width));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(cardRect()).adjusted(-distance, -distance, distance, distance),
                            paint::cardCornerRadius + distance, paint::cardCornerRadius + distance);
}

/// A plus on the card's corner: what a press does.
void GalleryTile::paintBadge(QPainter& painter) const {
    const QRect card = cardRect();
    const int x = parts_.direction == layout::Direction::leftToRight
                      ? card.right() + 1 + ringRoom - badgeSide
                      : card.left() - ringRoom;
    const QRectF badge(x, card.top() - ringRoom, badgeSide, badgeSide);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::Highlight));
    painter.drawEllipse(badge);
    painter.setPen(
        QPen(palette().color(QPalette::HighlightedText), 2.5, Qt::SolidLine, Qt::RoundCap));
    const QPointF middle = badge.center();
    constexpr double arm = 5.5;
    painter.drawLine(middle - QPointF(arm, 0), middle + QPointF(arm, 0));
    painter.drawLine(middle - QPointF(0, arm), middle + QPointF(0, arm));
}

void GalleryTile::paintCaption(QPainter& painter) const {
    const bool confirms = confirmation_.isActive();
    const auto role = confirms ? QPalette::Highlight : QPalette::PlaceholderText;
    const auto weight = confirms ? kit::FontWeight::semibold : kit::FontWeight::regular;
    const std::string text =
        confirms ? parts_.texts.text("Added") : parts_.texts.text(wordFor(family_));
    painter.setFont(parts_.look.font(captionSize, weight));
    painter.setPen(palette().color(role));
    const int top = cardRect().bottom() + 1 + ringRoom;
    painter.drawText(rect().adjusted(0, top, 0, 0), Qt::AlignCenter, QString::fromStdString(text));
}

void GalleryTile::paintRegret(QPainter& painter) const {
    constexpr int margin = 16;
    painter.setFont(parts_.look.font(regretSize));
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(cardRect().adjusted(margin, margin, -margin, -margin),
                     Qt::AlignCenter | Qt::TextWordWrap,
                     QString::fromStdString(parts_.texts.text("No preview right now")));
}

}  // namespace kelmar::desktop
