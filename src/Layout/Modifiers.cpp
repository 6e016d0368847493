#include "Layout/Modifiers.h"

#include <algorithm>
#include <limits>

#include "Layout/Alignment.h"

namespace kelmar::layout {
namespace {

double points(const kit::MaximumLength& greatest) {
    return std::visit(
        kit::Match{[](double length) { return usable(length); },
                   [](kit::Infinity) { return std::numeric_limits<double>::infinity(); }},
        greatest);
}

/// One axis of a frame.
class FrameAxis {
public:
    FrameAxis(std::optional<double> fixed, const std::optional<kit::MaximumLength>& greatest,
              const Length& offered)
        : fixed_(fixed ? std::optional(usable(*fixed)) : std::nullopt), offered_(offered) {
        if (greatest) {
            greatest_ = points(*greatest);
        }
    }

    /// What the child is offered at first.
    [[nodiscard]] Length childOffer() const {
        if (fixed_) {
            return Length::definite(*fixed_);
        }
        return isBounded() ? offered_.atMost(*greatest_) : offered_;
    }
    /// What the child is offered once it has taken this length: a child that was free to choose
    /// and took more than the frame's greatest length must do with that.
    [[nodiscard]] Length childOffer(double taken) const {
        const bool isTooLong = !fixed_ && isBounded() && taken > *greatest_;
        return isTooLong ? Length::definite(*greatest_) : childOffer();
    }
    [[nodiscard]] double length(double child) const {
        if (fixed_) {
            return *fixed_;
        }
        return greatest_ ? std::min(*greatest_, std::max(child, offered_.points(0))) : child;
    }

private:
    [[nodiscard]] bool isBounded() const {
        return greatest_ && *greatest_ < std::numeric_limits<double>::infinity();
    }

    std::optional<double> fixed_;
    std::optional<double> greatest_;
    Length offered_;
};

}  // namespace

Arrangement arrangeModified(const kit::Frame& frame, const Proposal& proposal, Precision precision,
                            Measuring& measuring) {
    const kit::FrameLengths& lengths = frame.lengths;
    const FrameAxis horizontal(lengths.width, lengths.maxWidth, proposal.width);
    const FrameAxis vertical(lengths.height, lengths.maxHeight, proposal.height);
    Proposal offer{horizontal.childOffer(), vertical.childOffer()};
    const Size taken = measuring.measure(*frame.child, offer, precision).size;
    offer = {horizontal.childOffer(taken.width), vertical.childOffer(taken.height)};
    const Measurement child = measuring.measure(*frame.child, offer, precision);
    const Size size{horizontal.length(child.size.width), vertical.length(child.size.height)};
    return arranged(size, {{.view = &*frame.child,
                            .proposal = offer,
                            .measured = child,
                            .origin = offset(size, child.size, frame.alignment)}});
}

Arrangement arrangeModified(const kit::Padding& padding, const Proposal& proposal,
                            Precision precision, Measuring& measuring) {
    const kit::EdgeInsets insets{.top = usable(padding.insets.top),
                                 .leading = usable(padding.insets.leading),
                                 .bottom = usable(padding.insets.bottom),
                                 .trailing = usable(padding.insets.trailing)};
    const Size around{insets.leading + insets.trailing, insets.top + insets.bottom};
    const Proposal offer{proposal.width.without(around.width),
                         proposal.height.without(around.height)};
    const Measurement child = measuring.measure(*padding.child, offer, precision);
    return arranged({child.size.width + around.width, child.size.height + around.height},
                    {{.view = &*padding.child,
                      .proposal = offer,
                      .measured = child,
                      .origin = {insets.leading, insets.top}}});
}

Arrangement arrangeModified(const kit::FixedSize& fixed, const Proposal& proposal,
                            Precision precision, Measuring& measuring) {
    Proposal offer{fixed.horizontal ? Length::unspecified() : proposal.width,
                   fixed.vertical ? Length::unspecified() : proposal.height};
    const Size ideal = measuring.measure(*fixed.child, offer, precision).size;
    offer = {fixed.horizontal ? Length::definite(ideal.width) : proposal.width,
             fixed.vertical ? Length::definite(ideal.height) : proposal.height};
    const Measurement child = measuring.measure(*fixed.child, offer, precision);
    return arranged(child.size, {{.view = &*fixed.child, .proposal = offer, .measured = child}});
}

}  // namespace kelmar::layout
