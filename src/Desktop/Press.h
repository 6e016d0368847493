#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Layout/PlacedBox.h"

namespace kelmar::desktop {

/// Something that a press would run, and where it can be pressed.
struct PressTarget {
    layout::Action action;  ///< Never std::monostate.
    layout::Rect rect;

    bool operator==(const PressTarget&) const = default;
};

/// What lies under a point of a widget: the frontmost action, else the widget's own URL over its
/// whole size, else nothing.
[[nodiscard]] std::optional<PressTarget> targetAt(const layout::PlacedBoxes& boxes,
                                                  const std::optional<std::string>& widgetUrl,
                                                  layout::Size widget, layout::Point point);

/// Everything of a widget that a press would run, in the order in which it is read: the widget's
/// own URL, which its whole size stands for, and then its boxes.
[[nodiscard]] std::vector<PressTarget> targetsOf(const layout::PlacedBoxes& boxes,
                                                 const std::optional<std::string>& widgetUrl,
                                                 layout::Size widget);

/// Tells pressing from dragging. A press runs what it began on, and only when it ends on the same
/// thing: the widget may have been drawn anew meanwhile, and another action may lie there now.
class PressGesture {
public:
    enum class Kind { none, press, drag };

    void begin(layout::Point point, std::optional<PressTarget> target);
    /// From `threshold` points away from its beginning on, a gesture is a drag and stays one.
    Kind moveTo(layout::Point point, double threshold);
    /// What to run, if anything.
    [[nodiscard]] std::optional<layout::Action> end(const std::optional<PressTarget>& target);
    void cancel();

    [[nodiscard]] Kind kind() const { return kind_; }

private:
    Kind kind_ = Kind::none;
    layout::Point start_;
    std::optional<PressTarget> target_;
};

}  // namespace kelmar::desktop
