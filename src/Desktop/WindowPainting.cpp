#include "Desktop/WindowPainting.h"

#include <QPaintEngine>
#include <vector>

#include "Desktop/CutOutCard.h"

namespace kelmar::desktop {

namespace {

/// Every part costs a walk through all that the widget shows. A card with its corners cut out is a
/// region of dozens of strips, which are drawn as one; a countdown here and its bar there are not.
std::vector<QRect> partsToDraw(const QRegion& region) {
    constexpr int few = 8;
    return region.rectCount() > few ? std::vector<QRect>{region.boundingRect()}
                                    : std::vector<QRect>(region.begin(), region.end());
}

}  // namespace

WindowPainting::WindowPainting(const WidgetContent& content, const system::Clock& clock)
    : content_(content), clock_(clock) {
    connect(&crossFade_, &CrossFade::advanced, this, &WindowPainting::frameDue);
}

void WindowPainting::fadeTo(const WidgetContent& next) {
    const paint::WidgetPicture* former = content_.picture();
    const bool shows =
        former != nullptr && paintedMoment_ && content_.redaction() == paint::Redaction::shown;
    const bool mayFade = motion_ == Motion::full && next.redaction() == paint::Redaction::shown;
    if (!shows || !mayFade || next.picture()->size() != former->size()) {
        crossFade_.end();
    } else if (!next.picture()->showsSameAs(*former)) {
        crossFade_.begin(picture(QRect(QPoint(), former->pixelSize(scale_))));
    }
}

void WindowPainting::paint(QPainter& painter, const QRegion& parts, double scale) {
    if (content_.picture() == nullptr) {
        return;
    }
    scale_ = scale;
    paintedMoment_ = clock_.now();
    if (QImage* surface = wholeSurface(painter, parts)) {
        // An image has one painter at a time; a second one of the same pixels has another.
        QImage pixels(surface->bits(), surface->width(), surface->height(), surface->bytesPerLine(),
                      surface->format());
        content_.picture()->paintOver(pixels, style(), *paintedMoment_);
    } else {
        paintParts(painter, parts);
    }
    paintFormer(painter);
}

QImage* WindowPainting::wholeSurface(const QPainter& painter, const QRegion& parts) const {
    const QSize size = content_.picture()->pixelSize(scale_);
    const QRect window(QPoint(), (QSizeF(size) / scale_).toSize());
    auto* surface = dynamic_cast<QImage*>(painter.paintEngine()->paintDevice());
    const bool isWhole = parts.boundingRect().contains(window);
    return isWhole && surface != nullptr && surface->size() == size ? surface : nullptr;
}

void WindowPainting::paintParts(QPainter& painter, const QRegion& parts) const {
    for (const QRect& part : partsToDraw(parts)) {
        paintPart(painter, part);
    }
}

void WindowPainting::paintPart(QPainter& painter, const QRect& part) const {
    const QRect whole(QPoint(), content_.picture()->pixelSize(scale_));
    const QRect pixels =
        QRectF(QPointF(part.topLeft()) * scale_, QSizeF(part.size()) * scale_).toAlignedRect() &
        whole;
    painter.drawImage(QPointF(pixels.topLeft()) / scale_, picture(pixels));
}

void WindowPainting::paintFormer(QPainter& painter) const {
    const QImage& former = crossFade_.former();
    if (former.isNull() || former.devicePixelRatio() != scale_) {
        return;
    }
    // Not over the new picture but mixed with it, which keeps what shines through as it is.
    painter.save();
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.setOpacity(crossFade_.remaining());
    painter.drawImage(QPointF(), former);
    painter.restore();
}

void WindowPainting::paintFocus(QPainter& painter, const layout::Rect& rect) const {
    painter.scale(1 / scale_, 1 / scale_);
    content_.picture()->paintFocus(painter, rect, style());
}

paint::PaintStyle WindowPainting::style() const {
    return {.appearance = appearance_,
            .scale = scale_,
            .redaction = content_.redaction(),
            .card = cardFor(corners_)};
}

QImage WindowPainting::picture(const QRect& pixels) const {
    return content_.picture()->image(style(), *paintedMoment_, pixels);
}

}  // namespace kelmar::desktop
