#include "Layout/Stack.h"

#include <algorithm>
#include <cmath>

#include "Layout/Alignment.h"
#include "Layout/Axis.h"
#include "Layout/StackDivision.h"

namespace kelmar::layout {
namespace {

/// A row or a column.
struct Line {
    Axis axis;
    double spacing;
    const kit::Children& children;
};

class LineArranging {
public:
    LineArranging(const Line& line, const Proposal& proposal, Precision precision,
                  Measuring& measuring)
        : line_(line),
          across_(across(line.axis, proposal)),
          precision_(precision),
          measuring_(measuring) {
        const std::vector<Length> offers = this->offers(along(line.axis, proposal));
        for (std::size_t index = 0; index < offers.size(); ++index) {
            children_.push_back({.view = &line.children[index],
                                 .proposal = proposalAlong(line.axis, offers[index], across_),
                                 .measured = measure(index, offers[index], across_, precision)});
        }
    }

    [[nodiscard]] Arrangement aligned(Position position) && {
        double room = 0;
        for (const ArrangedChild& child : children_) {
            room = std::max(room, across(line_.axis, child.measured.size));
        }
        return placed(room, [&](const Measurement& child) {
            return offset(room, across(line_.axis, child.size), position);
        });
    }

    /// Only a row has one line for all its texts to stand on.
    [[nodiscard]] Arrangement alignedByBaseline() && {
        double above = 0;
        double below = 0;
        for (const ArrangedChild& child : children_) {
            const double baseline = baselineOf(child.measured);
            above = std::max(above, baseline);
            below = std::max(below, distance(baseline, child.measured.size.height));
        }
        return placed(above + below,
                      [&](const Measurement& child) { return distance(baselineOf(child), above); });
    }

private:
    static double baselineOf(const Measurement& child) {
        return child.firstBaseline.value_or(child.size.height);
    }
    /// Among lengths without bounds, as estimates may give, there is no distance to speak of.
    static double distance(double from, double to) {
        return std::isfinite(to - from) ? to - from : 0;
    }

    template <class AcrossOffset>
    Arrangement placed(double room, const AcrossOffset& acrossOffset) {
        double length = 0;
        for (ArrangedChild& child : children_) {
            const double start = &child == children_.data() ? 0 : length + line_.spacing;
            child.origin = pointAlong(line_.axis, start, acrossOffset(child.measured));
            length = start + along(line_.axis, child.measured.size);
        }
        return arranged(sizeAlong(line_.axis, length, room), std::move(children_));
    }

    [[nodiscard]] std::vector<Length> offers(const Length& length) {
        const std::size_t count = line_.children.size();
        std::vector<Length> offers(count, length);
        if (!length.isDefinite() || count <= 1) {
            return offers;
        }
        std::vector<Flexibility> flexibilities;
        for (std::size_t index = 0; index < count; ++index) {
            flexibilities.push_back(flexibility(index));
        }
        const auto taken = [&](std::size_t index, double offer) {
            return along(line_.axis,
                         measure(index, Length::definite(offer), across_, precision_).size);
        };
        const double gaps = line_.spacing * static_cast<double>(count - 1);
        std::ranges::transform(divide(length.without(gaps).points(0), flexibilities, taken),
                               offers.begin(),
                               [](double offer) { return Length::definite(offer); });
        return offers;
    }

    [[nodiscard]] Flexibility flexibility(std::size_t index) {
        const Length acrossOffer = precision_ == Precision::exact ? across_ : Length::unspecified();
        const auto taken = [&](const Length& offer) {
            return along(line_.axis, measure(index, offer, acrossOffer, Precision::estimate).size);
        };
        const double minimum = usable(taken(Length::definite(0)));
        return {.minimum = minimum,
                .maximum = std::max(minimum, taken(Length::infinite())),
                .kind = spacer(index) ? Flexibility::Kind::spacer : Flexibility::Kind::view};
    }

    [[nodiscard]] Measurement measure(std::size_t index, const Length& offer,
                                      const Length& acrossOffer, Precision precision) {
        if (const kit::Spacer* const spacer = this->spacer(index)) {
            const double least = usable(spacer->minLength);
            return {.size = sizeAlong(line_.axis, std::max(least, offer.points(least)), 0)};
        }
        return measuring_.measure(line_.children[index],
                                  proposalAlong(line_.axis, offer, acrossOffer), precision);
    }

    [[nodiscard]] const kit::Spacer* spacer(std::size_t index) const {
        return std::get_if<kit::Spacer>(&line_.children[index].node);
    }

    Line line_;
    Length across_;
    Precision precision_;
    Measuring& measuring_;
    std::vector<ArrangedChild> children_;
};

}  // namespace

Arrangement arrangeStack(const kit::HStack& stack, const Proposal& proposal, Precision precision,
                         Measuring& measuring) {
    LineArranging row({Axis::horizontal, usable(stack.spacing), stack.children}, proposal,
                      precision, measuring);
    return stack.alignment == kit::VerticalAlignment::firstTextBaseline
               ? std::move(row).alignedByBaseline()
               : std::move(row).aligned(position(stack.alignment));
}

Arrangement arrangeStack(const kit::VStack& stack, const Proposal& proposal, Precision precision,
                         Measuring& measuring) {
    LineArranging column({Axis::vertical, usable(stack.spacing), stack.children}, proposal,
                         precision, measuring);
    return std::move(column).aligned(position(stack.alignment));
}

Arrangement arrangeStack(const kit::ZStack& stack, const Proposal& proposal, Precision precision,
                         Measuring& measuring) {
    Size size;
    std::vector<ArrangedChild> children;
    for (const kit::View& view : stack.children) {
        const Measurement measured = measuring.measure(view, proposal, precision);
        children.push_back({.view = &view, .proposal = proposal, .measured = measured});
        size = {std::max(size.width, measured.size.width),
                std::max(size.height, measured.size.height)};
    }
    for (ArrangedChild& child : children) {
        child.origin = offset(size, child.measured.size, stack.alignment);
    }
    return arranged(size, std::move(children));
}

}  // namespace kelmar::layout
