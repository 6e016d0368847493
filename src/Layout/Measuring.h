#pragma once

#include <unordered_map>

#include "Kit/View.h"
#include "Layout/Arrangement.h"
#include "Layout/LineBreaking.h"
#include "Layout/Proposal.h"
#include "Layout/TextMeasurer.h"

namespace kelmar::layout {

/// What a measurement is for.
enum class Precision {
    exact,
    /// A stack wants to know how flexible the view is. Stacks within it then judge their own
    /// children without regard to the length across, for which they would otherwise have to ask
    /// each of them twice as often as they are asked themselves: in a tree of nested stacks the
    /// number of questions would double with every level.
    estimate
};

/// Answers how large views are. Every question is answered once: within one pass the tree stays
/// as it is, so the same view gives the same answer to the same proposal.
class Measuring {
public:
    /// The measurer must outlive the object, the views every question about them.
    explicit Measuring(const TextMeasurer& measurer) : measurer_(measurer) {}

    [[nodiscard]] Measurement measure(const kit::View& view, const Proposal& proposal,
                                      Precision precision);

    /// The same with the places of the children, computed anew.
    [[nodiscard]] Arrangement arrange(const kit::View& view, const Proposal& proposal,
                                      Precision precision);

    [[nodiscard]] const LineBreaking& lines(const kit::Text& text);
    [[nodiscard]] const TextMeasurer& measurer() const { return measurer_; }

private:
    struct Question {
        const kit::View* view;
        Proposal proposal;
        Precision precision;

        bool operator==(const Question&) const = default;
    };
    struct Hash {
        std::size_t operator()(const Question& question) const;
    };

    const TextMeasurer& measurer_;
    std::unordered_map<Question, Measurement, Hash> answers_;
    std::unordered_map<const kit::Text*, LineBreaking> lines_;
};

}  // namespace kelmar::layout
