#include "Layout/Measuring.h"

#include <functional>

#include "Kit/Metrics.h"
#include "Layout/CountdownFace.h"
#include "Layout/Modifiers.h"
#include "Layout/Stack.h"
#include "Layout/TextComposition.h"

namespace kelmar::layout {
namespace {

/// The length of a view that fills any room and is given none in particular.
constexpr double idealFillLength = 10;

/// A bar of four points reads as a bar beside texts of 10 to 13 points, whose stems are one or two
/// wide, without weighing more than they do.
constexpr double progressHeight = 4;

/// From the top of a symbol's square to the baseline on which it stands among letters, as a part
/// of its side: as in a line of text.
constexpr double symbolBaseline = 0.8;

Arrangement leaf(Size size, std::optional<double> firstBaseline = std::nullopt) {
    return {.measured = {size, firstBaseline}, .children = {}};
}

Size filled(const Proposal& proposal, double ideal) {
    return {proposal.width.points(ideal), proposal.height.points(ideal)};
}

struct Arranging {
    Measuring& measuring;
    Proposal proposal;
    Precision precision;

    Arrangement operator()(const kit::Text& text) const {
        const ComposedText composed = compose(text, measuring.lines(text), proposal);
        const double baseline = composed.lines.empty() ? baselineOfShrunk(composed.font.size, 1)
                                                       : composed.lines.front().baseline;
        return leaf(composed.size, baseline);
    }
    Arrangement operator()(const kit::Symbol& symbol) const {
        const double side = kit::symbolSide(usable(symbol.font.size));
        return leaf({side, side}, symbolBaseline * side);
    }
    Arrangement operator()(const kit::Countdown& countdown) const {
        const CountdownFace face = countdownFace(countdown, proposal.width, measuring.measurer());
        return leaf(face.size, face.baseline);
    }
    Arrangement operator()(const kit::Progress&) const {
        return leaf({proposal.width.points(idealFillLength), progressHeight});
    }
    Arrangement operator()(const kit::Shape&) const {
        return leaf(filled(proposal, idealFillLength));
    }
    // One that stands in a stack is the stack's own business.
    Arrangement operator()(const kit::Spacer& spacer) const {
        const double least = usable(spacer.minLength);
        const Size size = filled(proposal, least);
        return leaf({std::max(size.width, least), std::max(size.height, least)});
    }
    Arrangement operator()(const kit::HStack& stack) const { return inStack(stack); }
    Arrangement operator()(const kit::VStack& stack) const { return inStack(stack); }
    Arrangement operator()(const kit::ZStack& stack) const { return inStack(stack); }
    Arrangement operator()(const kit::Frame& frame) const { return modified(frame); }
    Arrangement operator()(const kit::Padding& padding) const { return modified(padding); }
    Arrangement operator()(const kit::FixedSize& fixed) const { return modified(fixed); }
    Arrangement operator()(const kit::Opacity& opacity) const { return same(opacity.child); }
    // What lies behind or before a child has no say in its size.
    Arrangement operator()(const kit::Background& view) const { return same(view.child); }
    Arrangement operator()(const kit::Overlay& view) const { return same(view.child); }
    Arrangement operator()(const kit::Link& link) const { return same(link.child); }
    Arrangement operator()(const kit::Button& button) const { return same(button.child); }
    Arrangement operator()(const kit::Toggle& toggle) const { return same(toggle.child); }
    Arrangement operator()(const kit::Accessible& view) const { return same(view.child); }

    [[nodiscard]] Arrangement inStack(const auto& stack) const {
        return arrangeStack(stack, proposal, precision, measuring);
    }
    [[nodiscard]] Arrangement modified(const auto& modifier) const {
        return arrangeModified(modifier, proposal, precision, measuring);
    }
    [[nodiscard]] Arrangement same(const kit::Child& child) const {
        const Measurement measured = measuring.measure(*child, proposal, precision);
        return {.measured = measured,
                .children = {{.view = &*child, .proposal = proposal, .measured = measured}}};
    }
};

}  // namespace

Measurement Measuring::measure(const kit::View& view, const Proposal& proposal,
                               Precision precision) {
    const Question question{&view, proposal, precision};
    if (const auto known = answers_.find(question); known != answers_.end()) {
        return known->second;
    }
    const Measurement answer = arrange(view, proposal, precision).measured;
    answers_.emplace(question, answer);
    return answer;
}

Arrangement Measuring::arrange(const kit::View& view, const Proposal& proposal,
                               Precision precision) {
    return std::visit(Arranging{*this, proposal, precision}, view.node);
}

const LineBreaking& Measuring::lines(const kit::Text& text) {
    const auto known = lines_.find(&text);
    return known != lines_.end()
               ? known->second
               : lines_.emplace(&text, lineBreaking(text, measurer_)).first->second;
}

std::size_t Measuring::Hash::operator()(const Question& question) const {
    std::size_t hash = std::hash<const kit::View*>()(question.view);
    const auto mix = [&](std::size_t part) { hash = hash * 1'000'003 + part; };
    for (const Length& length : {question.proposal.width, question.proposal.height}) {
        mix(static_cast<std::size_t>(length.kind()));
        mix(std::hash<double>()(length.points(0)));
    }
    mix(static_cast<std::size_t>(question.precision));
    return hash;
}

}  // namespace kelmar::layout
