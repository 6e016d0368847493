#include "Layout/PlacedBox.h"

namespace kelmar::layout {

std::optional<std::size_t> actionAt(const PlacedBoxes& boxes, Point point) {
    for (std::size_t index = boxes.size(); index > 0; --index) {
        const PlacedBox& box = boxes[index - 1];
        if (!std::holds_alternative<std::monostate>(box.action) && box.rect.contains(point)) {
            return index - 1;
        }
    }
    return std::nullopt;
}

}  // namespace kelmar::layout
