#include "Desktop/Press.h"

#include <cmath>

namespace kelmar::desktop {

namespace {

layout::Rect whole(layout::Size widget) {
    return {0, 0, widget.width, widget.height};
}

}  // namespace

std::optional<PressTarget> targetAt(const layout::PlacedBoxes& boxes,
                                    const std::optional<std::string>& widgetUrl,
                                    layout::Size widget, layout::Point point) {
    if (const std::optional<std::size_t> box = layout::actionAt(boxes, point)) {
        return PressTarget{boxes[*box].action, boxes[*box].rect};
    }
    if (widgetUrl && whole(widget).contains(point)) {
        return PressTarget{layout::LinkAction{*widgetUrl}, whole(widget)};
    }
    return std::nullopt;
}

std::vector<PressTarget> targetsOf(const layout::PlacedBoxes& boxes,
                                   const std::optional<std::string>& widgetUrl,
                                   layout::Size widget) {
    std::vector<PressTarget> targets;
    if (widgetUrl) {
        targets.push_back({layout::LinkAction{*widgetUrl}, whole(widget)});
    }
    for (const layout::PlacedBox& box : boxes) {
        if (!std::holds_alternative<std::monostate>(box.action)) {
            targets.push_back({box.action, box.rect});
        }
    }
    return targets;
}

void PressGesture::begin(layout::Point point, std::optional<PressTarget> target) {
    kind_ = Kind::press;
    start_ = point;
    target_ = std::move(target);
}

PressGesture::Kind PressGesture::moveTo(layout::Point point, double threshold) {
    if (kind_ == Kind::press &&
        std::abs(point.x - start_.x) + std::abs(point.y - start_.y) >= threshold) {
        kind_ = Kind::drag;
    }
    return kind_;
}

std::optional<layout::Action> PressGesture::end(const std::optional<PressTarget>& target) {
    const bool runs = kind_ == Kind::press && target_ && target_ == target;
    cancel();
    return runs ? std::optional(target->action) : std::nullopt;
}

void PressGesture::cancel() {
    kind_ = Kind::none;
    target_.reset();
}

}  // namespace kelmar::desktop
