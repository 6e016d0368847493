#include "Layout/Arrangement.h"

#include <algorithm>

namespace kelmar::layout {

Arrangement arranged(Size size, std::vector<ArrangedChild> children) {
    Arrangement result{.measured = {.size = size}, .children = std::move(children)};
    const auto first = std::ranges::find_if(result.children, [](const ArrangedChild& child) {
        return child.measured.firstBaseline.has_value();
    });
    if (first != result.children.end()) {
        result.measured.firstBaseline = first->origin.y + *first->measured.firstBaseline;
    }
    return result;
}

}  // namespace kelmar::layout
