#include "Desktop/Attraction.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <optional>

#include "Desktop/Placement.h"

namespace kelmar::desktop {

namespace {

/// One axis of a rectangle; `end` is the first coordinate beyond it.
struct Span {
    int start = 0;
    int end = 0;

    [[nodiscard]] int length() const { return end - start; }
};

struct Spans {
    Span along;   ///< The axis on which the widget is being placed.
    Span across;  ///< The other one.
};

Spans horizontal(const QRect& rect) {
    return {{rect.x(), rect.x() + rect.width()}, {rect.y(), rect.y() + rect.height()}};
}

Spans vertical(const QRect& rect) {
    return {{rect.y(), rect.y() + rect.height()}, {rect.x(), rect.x() + rect.width()}};
}

/// Whether two spans overlap or lie no farther apart than widgets usually do.
bool areBeside(const Span& first, const Span& second) {
    return first.start <= second.end + comfortableGap && second.start <= first.end + comfortableGap;
}

/// Keeps the nearest of the starts it is offered, the first of equally near ones.
class Nearest {
public:
    Nearest(int wanted, int lowest, int highest)
        : wanted_(wanted), lowest_(lowest), highest_(highest) {}

    void offer(int start) {
        const int distance = std::abs(start - wanted_);
        if (start >= lowest_ && start <= highest_ && distance <= reach_) {
            reach_ = distance - 1;
            best_ = start;
        }
    }

    [[nodiscard]] std::optional<int> best() const { return best_; }

private:
    int wanted_;
    int lowest_;
    int highest_;
    int reach_ = attractionDistance;
    std::optional<int> best_;
};

/// The nearest start on one axis at which an edge of the widget lies on a line.
std::optional<int> attracted(const Spans& widget, const Span& visible,
                             const std::vector<Spans>& others) {
    const int length = widget.along.length();
    Nearest nearest(widget.along.start, visible.start, visible.end - length);
    nearest.offer(visible.start);
    nearest.offer(visible.end - length);
    nearest.offer(visible.start + comfortableGap);
    nearest.offer(visible.end - comfortableGap - length);
    for (const Spans& other : others) {
        nearest.offer(other.along.start);
        nearest.offer(other.along.end - length);
        if (areBeside(widget.across, other.across)) {
            nearest.offer(other.along.end + comfortableGap);
            nearest.offer(other.along.start - comfortableGap - length);
        }
    }
    return nearest.best();
}

template <class Axis>
std::optional<int> attracted(const QRect& widget, const Neighbourhood& neighbourhood, Axis axis) {
    std::vector<Spans> others;
    std::transform(neighbourhood.others.begin(), neighbourhood.others.end(),
                   std::back_inserter(others), axis);
    return attracted(axis(widget), axis(neighbourhood.visible).along, others);
}

}  // namespace

QPoint restingPlace(const QRect& wanted, const Neighbourhood& neighbourhood) {
    const QRect held(clamped(wanted, neighbourhood.visible), wanted.size());
    const QRect onGrid(snapped(held.topLeft(), neighbourhood.gridOrigin), wanted.size());
    const QPoint grid = clamped(onGrid, neighbourhood.visible);
    return {attracted(held, neighbourhood, horizontal).value_or(grid.x()),
            attracted(held, neighbourhood, vertical).value_or(grid.y())};
}

}  // namespace kelmar::desktop
