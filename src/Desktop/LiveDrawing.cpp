#include "Desktop/LiveDrawing.h"

#include <QWidget>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <optional>

#include "Desktop/LiveChange.h"

namespace kelmar::desktop {

namespace {

/// A long wait is divided: the clock may be set, and the timer counts in 32 bits.
constexpr system::Seconds longestWait = 3600;

}  // namespace

LiveDrawing::LiveDrawing(const Parts& parts) : parts_(parts) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    connect(&timer_, &QTimer::timeout, this, &LiveDrawing::redraw);
}

void LiveDrawing::takeNativeWindow() {
    if (!visibility_) {
        visibility_ = std::make_unique<WindowVisibility>(*parts_.window.windowHandle());
        connect(visibility_.get(), &WindowVisibility::changed, this, &LiveDrawing::awaitChange);
    }
}

void LiveDrawing::leaveNativeWindow() {
    visibility_.reset();
}

bool LiveDrawing::canBeSeen() const {
    return parts_.window.isVisible() && visibility_ && visibility_->canBeSeen();
}

void LiveDrawing::awaitChange() {
    timer_.stop();
    const std::optional<system::Date> painted = parts_.painting.paintedMoment();
    if (!painted || !canBeSeen()) {
        return;
    }
    const std::optional<system::Date> change =
        nextLiveChange(parts_.content.boxes(), *painted, parts_.window.devicePixelRatioF());
    if (change) {
        // What changed while nobody could see it is shown at once.
        const system::Seconds wait = std::clamp(*change - parts_.clock.now(), 0.0, longestWait);
        timer_.start(std::chrono::milliseconds(static_cast<int>(std::ceil(wait * 1000))));
    }
}

void LiveDrawing::redraw() {
    if (parts_.content.picture() == nullptr) {
        return;
    }
    for (const layout::Rect& area : parts_.content.picture()->liveAreas()) {
        parts_.window.update(QRectF(area.x, area.y, area.width, area.height).toAlignedRect());
    }
}

}  // namespace kelmar::desktop
