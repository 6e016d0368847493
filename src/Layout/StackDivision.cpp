#include "Layout/StackDivision.h"

#include <algorithm>
#include <limits>
#include <tuple>
#include <utility>

namespace kelmar::layout {
namespace {

using Indices = std::vector<std::size_t>;

/// One division under way.
struct Division {
    const std::vector<Flexibility>& children;
    const LengthTaken& taken;
    std::vector<double> offers;

    [[nodiscard]] Indices leastFlexibleFirst(Flexibility::Kind kind) const;
    [[nodiscard]] double minimums(const Indices& group) const;
    [[nodiscard]] double level(const Indices& group, double length) const;
    double serve(const Indices& group, double length);
};

/// Of two children that are equally flexible the one that needs more comes first, so that the
/// outcome does not depend on the order in which they stand.
Indices Division::leastFlexibleFirst(Flexibility::Kind kind) const {
    Indices group;
    for (std::size_t index = 0; index < children.size(); ++index) {
        if (children[index].kind == kind) {
            group.push_back(index);
        }
    }
    std::ranges::stable_sort(group, {}, [&](std::size_t index) {
        const Flexibility& child = children[index];
        return std::tuple(child.maximum - child.minimum, -child.minimum);
    });
    return group;
}

double Division::minimums(const Indices& group) const {
    double sum = 0;
    for (const std::size_t index : group) {
        sum += children[index].minimum;
    }
    return sum;
}

/// The length that every child of the group gets, as far as its minimum and maximum let it, for all
/// of them to take `length` together. As a rising level passes a child's minimum the child begins
/// to grow, and at its maximum it ceases to.
double Division::level(const Indices& group, double length) const {
    std::vector<std::pair<double, int>> turns;
    for (const std::size_t index : group) {
        turns.emplace_back(children[index].minimum, +1);
        turns.emplace_back(children[index].maximum, -1);
    }
    std::ranges::sort(turns);
    double total = minimums(group);
    double level = 0;
    int growing = 0;
    for (const auto& [turn, change] : turns) {
        if (total >= length) {
            break;
        }
        if (growing > 0) {
            const double rise = std::min(turn - level, (length - total) / growing);
            total += rise * growing;
            level += rise;
        } else {
            level = turn;
        }
        growing += change;
    }
    // Where there is enough for all, none need be held to what it was expected to take.
    return total < length ? std::max(level, length) : level;
}

/// Asks the children of the group and returns the length that they take together.
double Division::serve(const Indices& group, double length) {
    const double level = this->level(group, length);
    double total = 0;
    double spare = 0;
    double needed = minimums(group);
    auto waiting = static_cast<double>(group.size());
    for (const std::size_t index : group) {
        const Flexibility& child = children[index];
        needed -= child.minimum;
        const double expected = std::max(level, child.minimum);
        const double offer = std::min(expected + spare / waiting, length - total - needed);
        offers[index] = std::max(offer, child.minimum);
        const double answer = taken(index, offers[index]);
        spare += std::min(expected, child.maximum) - answer;
        total += answer;
        waiting -= 1;
    }
    return total;
}

}  // namespace

std::vector<double> divide(double length, const std::vector<Flexibility>& children,
                           const LengthTaken& taken) {
    Division division{children, taken, std::vector<double>(children.size())};
    const Indices views = division.leastFlexibleFirst(Flexibility::Kind::view);
    const Indices spacers = division.leastFlexibleFirst(Flexibility::Kind::spacer);
    const double viewsLength = division.serve(views, length - division.minimums(spacers));
    division.serve(spacers, length - viewsLength);
    return std::move(division.offers);
}

}  // namespace kelmar::layout
