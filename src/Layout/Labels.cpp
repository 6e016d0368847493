#include "Layout/Labels.h"

#include <algorithm>
#include <span>

namespace kelmar::layout {
namespace {

bool canBePressed(const PlacedBox& box) {
    return !std::holds_alternative<std::monostate>(box.action);
}

}  // namespace

void relabel(PlacedBoxes& boxes, std::size_t first, const std::string& label,
             const PlacedBox& own) {
    const std::span made = std::span(boxes).subspan(first);
    const bool isOne = made.size() == 1;
    const bool isInOne = !made.empty() && canBePressed(made.front()) &&
                         std::ranges::all_of(made.subspan(1), [&](const PlacedBox& box) {
                             return box.container && *box.container >= first;
                         });
    if (isOne || isInOne) {
        made.front().label = label;
        return;
    }
    for (PlacedBox& box : made) {
        const bool isInside = box.container && *box.container >= first;
        if (!canBePressed(box) && !isInside) {
            box.label.clear();
        }
    }
    if (!label.empty()) {
        boxes.push_back(own);
        boxes.back().label = label;
    }
}

std::string gatheredLabel(const PlacedBoxes& boxes, std::size_t container) {
    std::string gathered;
    for (const PlacedBox& box : std::span(boxes).subspan(container + 1)) {
        if (box.container != container || canBePressed(box) || box.label.empty()) {
            continue;
        }
        gathered += gathered.empty() ? "" : ", ";
        gathered += box.label;
    }
    return gathered;
}

}  // namespace kelmar::layout
