#pragma once

#include <optional>
#include <vector>

#include "Kit/View.h"
#include "Layout/Proposal.h"

namespace kelmar::layout {

/// What a view answers to a proposal.
struct Measurement {
    Size size = {};
    /// From the top edge to the baseline of the first text or symbol in it, if it has one.
    std::optional<double> firstBaseline = std::nullopt;

    friend bool operator==(const Measurement&, const Measurement&) = default;
};

/// A child as its parent has measured and placed it, relative to the parent's top leading corner.
struct ArrangedChild {
    const kit::View* view = nullptr;
    Proposal proposal = {};
    Measurement measured = {};
    Point origin = {};
};

/// What a view answers to a proposal, and the places of its children that lead to the answer.
struct Arrangement {
    Measurement measured = {};
    std::vector<ArrangedChild> children = {};
};

/// The arrangement of children that stand at their origins in a view of this size.
[[nodiscard]] Arrangement arranged(Size size, std::vector<ArrangedChild> children);

}  // namespace kelmar::layout
