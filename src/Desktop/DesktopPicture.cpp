#include "Desktop/DesktopPicture.h"

#include <QLinearGradient>
#include <QPainter>
#include <algorithm>

#include "Kit/Metrics.h"
#include "Paint/WidgetPicture.h"

namespace kelmar::desktop {

namespace {

constexpr QRect pictureScreen(0, 0, 1280, 800);

void paintWallpaper(QPainter& painter, QSizeF size, paint::Scheme scheme) {
    QLinearGradient sky(QPointF(0, 0), QPointF(size.width() / 3, size.height()));
    switch (scheme) {
        case paint::Scheme::light:
            sky.setColorAt(0, QColor(0x8F, 0xB4, 0xD9));
            sky.setColorAt(0.6, QColor(0xC9, 0xD3, 0xE3));
            sky.setColorAt(1, QColor(0xE9, 0xCF, 0xC2));
            break;
        case paint::Scheme::dark:
            sky.setColorAt(0, QColor(0x14, 0x1B, 0x33));
            sky.setColorAt(0.6, QColor(0x2A, 0x2F, 0x55));
            sky.setColorAt(1, QColor(0x4C, 0x3A, 0x5C));
            break;
    }
    painter.fillRect(QRectF(QPointF(), size), sky);
}

}  // namespace

std::vector<ScreenArea> pictureScreens() {
    return {{.identity = {.name = "picture", .geometry = pictureScreen}, .visible = pictureScreen}};
}

DesktopPicture::DesktopPicture(const Parts& parts, const std::vector<WidgetPlace>& places,
                               const paint::PaintStyle& style)
    : parts_(parts), style_(style) {
    connect(&parts_.host, &host::WidgetHost::entryChanged, this,
            &DesktopPicture::finishWhenComplete);
    for (const WidgetPlace& place : places) {
        const host::WidgetId id =
            parts_.host.add(place.kind, {.family = place.family,
                                         .contentSize = kit::contentSize(place.family),
                                         .renderingMode = style_.appearance.renderingMode});
        places_.emplace(id, place);
    }
}

void DesktopPicture::finishWhenComplete() {
    const bool isComplete = std::all_of(places_.begin(), places_.end(), [this](const auto& widget) {
        return parts_.host.shownEntry(widget.first) != nullptr &&
               !parts_.host.showsPlaceholder(widget.first);
    });
    if (isComplete && !isFinished_) {
        isFinished_ = true;
        emit finished(draw());
    }
}

QImage DesktopPicture::draw() const {
    const QSizeF size = QSizeF(pictureScreen.size()) * style_.scale;
    QImage image(size.toSize(), QImage::Format_RGB32);
    QPainter painter(&image);
    paintWallpaper(painter, size, style_.appearance.scheme);
    const system::Date now = parts_.clock.now();
    const std::vector<ScreenArea> screens = pictureScreens();
    for (const auto& [id, place] : places_) {
        const paint::WidgetPicture picture(parts_.host.shownEntry(id)->view, place.family,
                                           parts_.direction, parts_.resources);
        QImage widget = picture.image(style_, now);
        widget.setDevicePixelRatio(1);
        const QPointF position(shownGeometry(place, screens).topLeft());
        painter.drawImage((position * style_.scale).toPoint(), widget);
    }
    return image;
}

}  // namespace kelmar::desktop
