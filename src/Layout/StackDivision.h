#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace kelmar::layout {

/// What a stack knows of a child before it divides its length: the lengths that the child takes
/// when it is offered nothing and everything. Neither is negative.
struct Flexibility {
    enum class Kind {
        view,
        spacer,  ///< Gets only what the views leave, however flexible they are.
    };

    double minimum = 0;
    double maximum = 0;  ///< At least the minimum; may be infinite.
    Kind kind = Kind::view;

    friend bool operator==(const Flexibility&, const Flexibility&) = default;
};

/// The length that the child of this index takes when it is offered so much.
using LengthTaken = std::function<double(std::size_t index, double offer)>;

/// Offers each child its part of `length` (finite, spacing already taken off) and returns the
/// offers in the children's order.
///
/// All views get the same, except those that need more or can take only less; spacers share what
/// the views leave, their own minimums kept. The least flexible child is asked first, so that what
/// it declines against expectation, as a text does that wraps early, goes to those that can use it.
/// The children do not exceed `length` as long as the sum of their minimums fits it and each takes
/// no more than the larger of its offer and its minimum.
[[nodiscard]] std::vector<double> divide(double length, const std::vector<Flexibility>& children,
                                         const LengthTaken& taken);

}  // namespace kelmar::layout
