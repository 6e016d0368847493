#include "Layout/StackDivision.h"

#include <algorithm>
#include <numeric>
#include <tuple>

namespace kelmar::layout {
namespace {

/// Least flexible first. Of two that are equally flexible the one that needs more comes first, so
/// that the outcome does not depend on the order of the children.
std::vector<std::size_t> order(const std::vector<Flexibility>& children) {
    std::vector<std::size_t> indices(children.size());
    std::iota(indices.begin(), indices.end(), std::size_t{0});
    const auto rank = [&](std::size_t index) {
        const Flexibility& child = children[index];
        return std::tuple(child.kind, child.maximum - child.minimum, -child.minimum);
    };
    std::ranges::stable_sort(indices, {}, rank);
    return indices;
}

}  // namespace

std::vector<double> divide(double length, const std::vector<Flexibility>& children,
                           const LengthTaken& taken) {
    const std::vector<std::size_t> indices = order(children);
    const auto views = static_cast<std::size_t>(
        std::ranges::count(children, Flexibility::Kind::view, &Flexibility::kind));
    double needed = std::transform_reduce(children.begin(), children.end(), 0.0, std::plus<>(),
                                          [](const Flexibility& child) { return child.minimum; });
    std::vector<double> offers(children.size());
    double left = length;
    for (std::size_t served = 0; served < indices.size(); ++served) {
        const std::size_t index = indices[served];
        // Views share among themselves first, spacers what is then left.
        const std::size_t sharing = (served < views ? views : indices.size()) - served;
        needed -= children[index].minimum;
        const double equalPart = left / static_cast<double>(sharing);
        offers[index] = std::max(0.0, std::min(equalPart, left - needed));
        left -= taken(index, offers[index]);
    }
    return offers;
}

}  // namespace kelmar::layout
