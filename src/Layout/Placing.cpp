#include "Layout/Placing.h"

#include <algorithm>

#include "Layout/Alignment.h"
#include "Layout/CountdownFace.h"
#include "Layout/CountdownText.h"
#include "Layout/Labels.h"
#include "Layout/TextComposition.h"

namespace kelmar::layout {
namespace {

/// What a view takes over from those it lies in.
struct Surroundings {
    double opacity = 1;
    std::optional<std::size_t> container = std::nullopt;
};

/// A view on its way to its boxes.
struct Placing {
    Measuring& measuring;
    PlacedBoxes& boxes;
    const kit::View& view;
    Proposal proposal;
    Rect rect;
    Surroundings surroundings;

    void operator()(const kit::Text& text) const {
        ComposedText composed = compose(text, measuring.lines(text), proposal);
        add(TextDrawing{.lines = std::move(composed.lines),
                        .font = composed.font,
                        .color = text.color,
                        .strikethrough = text.strikethrough},
            text.text);
    }
    void operator()(const kit::Symbol& symbol) const {
        add(SymbolDrawing{
            .name = symbol.name, .weight = symbol.font.weight, .color = symbol.color});
    }
    void operator()(const kit::Countdown& countdown) const {
        const CountdownFace face = countdownFace(countdown, proposal.width, measuring.measurer());
        add(CountdownDrawing{.from = countdown.from,
                             .to = countdown.to,
                             .font = face.font,
                             .color = countdown.color,
                             .baseline = face.baseline},
            countdownText(countdown.to - countdown.from));
    }
    void operator()(const kit::Progress& progress) const { add(ProgressDrawing{progress}); }
    void operator()(const kit::Shape& shape) const { add(ShapeDrawing{shape}); }
    void operator()(const kit::Spacer&) const {}

    void operator()(const kit::HStack&) const { placeChildren(surroundings); }
    void operator()(const kit::VStack&) const { placeChildren(surroundings); }
    void operator()(const kit::ZStack&) const { placeChildren(surroundings); }
    void operator()(const kit::Frame&) const { placeChildren(surroundings); }
    void operator()(const kit::Padding&) const { placeChildren(surroundings); }
    void operator()(const kit::FixedSize&) const { placeChildren(surroundings); }

    void operator()(const kit::Opacity& opacity) const {
        Surroundings inside = surroundings;
        inside.opacity *= std::min(usable(opacity.value), 1.0);
        placeChildren(inside);
    }
    void operator()(const kit::Background& background) const {
        placeInRect(*background.content);
        placeChildren(surroundings);
    }
    void operator()(const kit::Overlay& overlay) const {
        placeChildren(surroundings);
        placeInRect(*overlay.content);
    }
    void operator()(const kit::Link& link) const { press(LinkAction{link.url}, {}); }
    void operator()(const kit::Button& button) const {
        press(ButtonAction{button.intent}, button.label);
    }
    void operator()(const kit::Toggle& toggle) const {
        press(ToggleAction{.intent = toggle.intent, .isOn = toggle.isOn}, {});
    }
    void operator()(const kit::Accessible& accessible) const {
        const std::size_t first = boxes.size();
        placeChildren(surroundings);
        relabel(boxes, first, accessible.label, box());
    }

    [[nodiscard]] PlacedBox box() const {
        return {.rect = rect, .opacity = surroundings.opacity, .container = surroundings.container};
    }
    void add(Drawing drawing, std::string label = {}) const {
        PlacedBox made = box();
        made.drawing = std::move(drawing);
        made.label = std::move(label);
        boxes.push_back(std::move(made));
    }
    void press(Action action, const std::string& label) const {
        const std::size_t index = boxes.size();
        PlacedBox made = box();
        made.action = std::move(action);
        boxes.push_back(std::move(made));
        Surroundings inside = surroundings;
        inside.container = index;
        placeChildren(inside);
        boxes[index].label = label.empty() ? gatheredLabel(boxes, index) : label;
    }
    void placeChildren(const Surroundings& inside) const {
        const Arrangement arrangement = measuring.arrange(view, proposal, Precision::exact);
        for (const ArrangedChild& child : arrangement.children) {
            place(*child.view, child.proposal, child.measured.size,
                  {rect.x + child.origin.x, rect.y + child.origin.y}, inside);
        }
    }
    /// In the middle of the view's rectangle, which is what it is offered.
    void placeInRect(const kit::View& content) const {
        const Size room{rect.width, rect.height};
        const Proposal offer = Proposal::exactly(room);
        const Size size = measuring.measure(content, offer, Precision::exact).size;
        const Point at = offset(room, size, kit::Alignment{});
        place(content, offer, size, {rect.x + at.x, rect.y + at.y}, surroundings);
    }
    void place(const kit::View& other, const Proposal& offer, Size size, Point origin,
               const Surroundings& around) const {
        std::visit(Placing{measuring, boxes, other, offer,
                           Rect{origin.x, origin.y, size.width, size.height}, around},
                   other.node);
    }
};

}  // namespace

PlacedBoxes place(const kit::View& root, const Proposal& proposal, Point origin,
                  Measuring& measuring) {
    PlacedBoxes boxes;
    const Size size = measuring.measure(root, proposal, Precision::exact).size;
    const Rect rect{origin.x, origin.y, size.width, size.height};
    std::visit(Placing{measuring, boxes, root, proposal, rect, {}}, root.node);
    return boxes;
}

}  // namespace kelmar::layout
