#include "Desktop/CrossFade.h"

#include <chrono>
#include <utility>

namespace kelmar::desktop {

namespace {

using namespace std::chrono_literals;

constexpr auto frameTime = 40ms;
constexpr int lastFrame = 6;

}  // namespace

CrossFade::CrossFade() {
    timer_.setInterval(frameTime);
    timer_.setTimerType(Qt::PreciseTimer);
    connect(&timer_, &QTimer::timeout, this, &CrossFade::advance);
}

void CrossFade::begin(QImage former) {
    former_ = std::move(former);
    frame_ = 1;
    timer_.start();
}

void CrossFade::end() {
    timer_.stop();
    former_ = QImage();
}

double CrossFade::remaining() const {
    return isRunning() ? 1 - static_cast<double>(frame_) / lastFrame : 0;
}

void CrossFade::advance() {
    ++frame_;
    if (frame_ == lastFrame) {
        end();
    }
    emit advanced();
}

}  // namespace kelmar::desktop
