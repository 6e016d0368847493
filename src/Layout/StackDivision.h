#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace kelmar::layout {

/// What a stack knows of a child before it divides its length: the lengths that the child takes
/// when it is offered nothing and everything.
struct Flexibility {
    enum class Kind {
        view,
        spacer,  ///< Gets only what the views leave, however flexible they are.
    };

    double minimum = 0;
    double maximum = 0;  ///< May be infinite.
    Kind kind = Kind::view;

    friend bool operator==(const Flexibility&, const Flexibility&) = default;
};

/// The length that the child of this index takes when it is offered so much.
using LengthTaken = std::function<double(std::size_t index, double offer)>;

/// Offers each child its part of `length` (finite, spacing already taken off) and returns the
/// offers in the children's order.
///
/// The least flexible child comes first: it is offered an equal part of what is left, and what it
/// does not take goes to the others. No offer eats into the minimums of those that still wait, so
/// the children never exceed `length` as long as the sum of their minimums fits it, and each takes
/// no more than the larger of its offer and its minimum.
[[nodiscard]] std::vector<double> divide(double length, const std::vector<Flexibility>& children,
                                         const LengthTaken& taken);

}  // namespace kelmar::layout
